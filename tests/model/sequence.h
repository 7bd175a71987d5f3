// Operations of a host, its user and the platform as plain values. A sequence is generated, played to the
// library and to the model, reduced, and printed as C++ code.
#pragma once

#include <brindle.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/utf16.h"

namespace model {

using WideText = std::basic_string<BrindleChar>;
using Code = std::int32_t;

// Paths of item sources; the folder differs between runs.
enum class File { LongFont, ShortFont, Folder, Picture, LargePicture, Damaged, Missing, Relative, Empty };

struct Item {
    std::int32_t kind = 2;
    WideText label = {};
    std::uint32_t id = 0;
    std::uint8_t haptics = 0;
    std::uint64_t number = 0;  // the icon, or the resource's identifier
    WideText glyph = {};
    WideText family = {};
    File file = File::Missing;
};

struct Fault {
    enum class Kind { Fail, FailLate, YieldNull };
    Kind kind = Kind::Fail;
    std::string call;  // an operation with or without arguments; "@" is the path of the long font
    Code code = 0;
    std::uint32_t from = 1;
    std::uint32_t times = 1;  // 0: all later calls
};

enum class Act {
    // Exports, called by the host.
    Initialize,
    Listen,
    AddMenu,
    DefaultMenu,
    Select,
    Present,
    SetText,
    GetText,
    SetNumber,
    GetNumber,
    // Events, raised by the platform.
    Turn,
    Click,
    Touch,
    Move,
    Lift,
    Acquire,
    Lose,
    Choose,
    Complete,
    CompleteAs,
    CompleteAll,
    // Changes of the platform.
    Hold,
    Haptics,
    Append,
    Shrink,
    Wait,
    SetClock,
    Async,
    AddDevice,
    RemoveDevices,
    FailDevices,
    Packaged,
    PutSetting,
    PutCredential,
    HideType,
};

struct Inside;

// Each act uses some of the members.
struct Operation {
    Act act = Act::Wait;
    std::uint64_t window = 0;
    std::vector<std::uint64_t> later_windows = {};  // GetWindowHandle's results after the first
    std::uint64_t number = 0;
    Code code = 0;
    bool flag = false;
    double degrees = 0;
    float x = 0;
    float y = 0;
    float width = 0;
    float height = 0;
    std::vector<Item> items = {};
    std::uint32_t times = 1;  // repetitions of the list
    bool null_list = false;
    std::vector<std::int32_t> kinds = {};
    WideText resource = {};
    WideText key = {};
    WideText value = {};
    std::string text = {};
    std::string text2 = {};
    std::string text3 = {};

    std::vector<Fault> faults = {};                    // injected before the operation
    std::vector<Inside> inside;                        // performed inside its platform calls
    std::vector<Operation> reactions;                  // one is performed in each callback of a host
    std::optional<std::uint32_t> haptic_request = {};  // the hosts' requests in turns

    Operation Failing(std::vector<Fault> more) &&;
    Operation With(std::vector<Inside> more) &&;
    Operation Reacting(std::vector<Operation> more) &&;
    Operation Requesting(std::uint32_t request) &&;
};

// Inside the call of this number, from 1; nested calls count, too.
struct Inside {
    std::uint32_t call = 1;
    Operation operation;
};

using Sequence = std::vector<Operation>;

// --- functions that create operations

Fault Fails(std::string call, std::uint32_t code, std::uint32_t from = 1, std::uint32_t times = 1);
Fault FailsLate(std::string call, std::uint32_t code, std::uint32_t from = 1, std::uint32_t times = 1);
Fault YieldsNull(std::string call, std::uint32_t from = 1, std::uint32_t times = 1);

Item Icon(std::uint32_t id, std::uint64_t icon, WideText label = UTF16("Icon"), std::uint8_t haptics = 0);
Item Glyph(std::uint32_t id, WideText glyph, WideText family, WideText label = UTF16("Glyph"),
           std::uint8_t haptics = 0);
Item FontGlyph(std::uint32_t id, File file, WideText glyph, WideText family, WideText label = UTF16("Font"),
               std::uint8_t haptics = 0);
Item PictureFile(std::uint32_t id, File file, WideText label = UTF16("File"), std::uint8_t haptics = 0);
Item PictureResource(std::uint32_t id, std::uint64_t resource, WideText label = UTF16("Resource"),
                     std::uint8_t haptics = 0);
Item UnknownItem(std::int32_t kind, WideText label = UTF16("Unknown"));

Operation Initialize();
Operation Listen(std::uint64_t window, std::vector<std::uint64_t> later_windows = {});
Operation ListenWithoutHost();
Operation AddMenu(std::uint64_t window, std::vector<Item> items, std::uint32_t times = 1);
Operation AddNullMenu(std::uint64_t window, std::uint64_t count);
Operation DefaultMenu(std::uint64_t window, std::vector<std::int32_t> kinds);
Operation NullDefaultMenu(std::uint64_t window, std::uint64_t count);
Operation Select(std::uint64_t window, std::uint64_t id);
Operation Present(std::uint64_t window);
Operation SetText(WideText resource, WideText key, WideText value);
Operation GetText(WideText resource, WideText key);
Operation SetNumber(WideText resource, WideText key, Code value);
Operation GetNumber(WideText resource, WideText key);
Operation Turn(std::uint64_t window, double degrees);
Operation Click(std::uint64_t window);
Operation Touch(std::uint64_t window, float x, float y, float width, float height);
Operation Move(std::uint64_t window, float x, float y, float width, float height);
Operation Lift(std::uint64_t window);
Operation Acquire(std::uint64_t window);
Operation Lose(std::uint64_t window);
Operation Choose(std::uint64_t window, std::uint64_t place);
Operation Complete(std::uint64_t index);
Operation CompleteAs(std::uint64_t index, Code status);
Operation CompleteAll();
Operation Hold(bool down);
Operation Haptics(bool present, std::vector<std::int32_t> waveforms, std::uint32_t times = 1);
Operation Append(std::uint64_t window, std::string tag_kind, std::uint64_t value);  // empty kind: null item
Operation Shrink(std::uint64_t window, std::uint64_t calls);
Operation Wait(std::uint64_t milliseconds);
Operation SetClock(std::uint64_t milliseconds);
Operation Async(bool held);  // or at once
Operation AddDevice(std::string id, bool enabled = true, std::uint32_t times = 1);
Operation AddOtherDevice(std::string id);  // of another class
Operation AddNullDevice();
Operation RemoveDevices();
Operation FailDevices(std::uint32_t code);
Operation Packaged(bool packaged);
Operation PutSetting(std::string store, std::string key, std::string type, std::string value);
Operation PutCredential(std::string resource, std::string user, std::string password);
Operation HideType();

// A text that is too long to print.
WideText Repeated(BrindleChar unit, std::size_t times);

// The C++ code of the sequence, for the list in regression_test.cpp.
std::string CodeOf(const Sequence& sequence);

}  // namespace model
