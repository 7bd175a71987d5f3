// The model of the platform: one function for all calls, with the journal, faults and events inside calls,
// and the state behind them. Shared pointers are counted references: an object's use count is the number of
// outstanding references to it.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "files.h"
#include "sequence.h"

namespace model {

inline constexpr Code kFail = static_cast<Code>(0x80004005);
inline constexpr Code kNoInterface = static_cast<Code>(0x80004002);
inline constexpr Code kPointer = static_cast<Code>(0x80004003);
inline constexpr Code kInvalidArgument = static_cast<Code>(0x80070057);
inline constexpr Code kOutOfMemory = static_cast<Code>(0x8007000E);
inline constexpr Code kOutOfBounds = static_cast<Code>(0x8000000B);
inline constexpr Code kIllegalCall = static_cast<Code>(0x8000000E);
inline constexpr Code kCanceled = static_cast<Code>(0x800704C7);
inline constexpr Code kTypeMismatch = static_cast<Code>(0x80028CA0);
inline constexpr Code kNotFound = static_cast<Code>(0x80070490);
// For an empty class name: on Windows the system's function searches the registry.
#ifdef _WIN32
inline constexpr Code kUnnamedClass = static_cast<Code>(0x80040150);  // REGDB_E_READREGDB
#else
inline constexpr Code kUnnamedClass = static_cast<Code>(0x80040154);  // REGDB_E_CLASSNOTREG
#endif
inline constexpr Code kFileNotFound = static_cast<Code>(0x80070002);
inline constexpr Code kNoPackage = static_cast<Code>(0x80073D54);
inline constexpr Code kNameTooLong = static_cast<Code>(0x80073DC9);
inline constexpr Code kValueTooLong = static_cast<Code>(0x80073DC8);

struct Listener;
class Platform;

template <class T>
using Ref = std::shared_ptr<T>;

// --- objects

struct Object {
    explicit Object(const char* name) : class_name(name) {}
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    const char* const class_name;
};

struct Bounds {
    float x = 0;
    float y = 0;
    float width = 0;
    float height = 0;
};

struct Contact : Object {
    explicit Contact(const Bounds& at)
        : Object("Windows.UI.Input.RadialControllerScreenContact"), bounds(at) {}
    const Bounds bounds;
};

// A tag: a number, a value of another type, or no value.
struct Tag : Object {
    enum class Kind { Number, Other, NoValue };
    Tag(Kind of, std::uint32_t value)
        : Object(of == Kind::NoValue ? "IPropertyValueStatics" : "Windows.Foundation.PropertyValue"),
          kind(of),
          number(value) {}
    const Kind kind;
    const std::uint32_t number;
};

// Source of a picture: a file, or a stream over a stream.
struct Picture : Object {
    explicit Picture(std::string shown_as)
        : Object("Windows.Storage.Streams.RandomAccessStreamReference"), shown(std::move(shown_as)) {}
    const std::string shown;
    Ref<Object> stream;
};
struct StreamOverStream : Object {
    explicit StreamOverStream(Ref<Object> over) : Object("IRandomAccessStream"), stream(std::move(over)) {}
    const Ref<Object> stream;
};

struct MenuItem : Object {
    MenuItem(std::string label_text, std::string source_text)
        : Object("Windows.UI.Input.RadialControllerMenuItem"),
          label(std::move(label_text)),
          source(std::move(source_text)) {}
    const std::string label;
    const std::string source;
    Ref<Tag> tag;
    Ref<Picture> icon;
    std::vector<Listener*> handlers;
};

struct MenuItems : Object {
    MenuItems() : Object("IVector<RadialControllerMenuItem>") {}
    std::vector<Ref<MenuItem>> list;
    std::uint32_t calls_until_shrinking = 0;  // 0: no shrinking
};

struct Menu : Object {
    Menu() : Object("Windows.UI.Input.RadialControllerMenu") {}
    bool Contains(const Ref<MenuItem>& item) const;
    void SelectItem(const Ref<MenuItem>& item);
    Ref<MenuItems> items;
    Ref<MenuItem> selected;
    Ref<MenuItem> previous;
};

enum Event { kContinued, kStarted, kEnded, kLost, kAcquired, kRotated, kClicked, kEvents };

struct Controller : Object {
    Controller(Platform& on, std::uint64_t for_window);
    ~Controller() override;

    Platform& platform;
    const std::uint64_t window;
    Ref<Menu> menu;
    bool automatic_haptics = true;
    std::array<std::vector<Listener*>, kEvents> handlers;
};

struct DialState {
    bool button_down = false;
    std::optional<Bounds> contact;
    bool has_haptics = true;
    std::vector<std::int32_t> waveforms = {4099};
};

struct Device : Object {
    explicit Device(std::string text)
        : Object("Windows.Devices.Enumeration.DeviceInformation"), id(std::move(text)) {}
    const std::string id;
};
struct Devices : Object {
    Devices() : Object("IVectorView<DeviceInformation>") {}
    std::vector<Ref<Device>> list;
};
struct OpenedFile : Object {
    explicit OpenedFile(WideText at) : Object("Windows.Storage.StorageFile"), path(std::move(at)) {}
    const WideText path;
};

enum Status : std::int32_t { kStatusStarted, kStatusCompleted, kStatusCanceled, kStatusError };

struct AsyncOperation : Object {
    AsyncOperation(const char* name, const char* of, Code failure, Ref<Object> value)
        : Object(name), result_type(of), code(failure), result(std::move(value)) {}
    Status OwnStatus() const { return code < 0 ? kStatusError : kStatusCompleted; }
    // The result of GetResults.
    Code Results(Ref<Object>& into) const;

    const char* const result_type;
    const Code code;
    const Ref<Object> result;
    Status status = kStatusStarted;
    bool completed = false;
    std::function<Code(const Ref<AsyncOperation>&, Status)> handler;
};

// An exception that carries a platform code.
struct PlatformError {
    Code code;
    std::string What() const;
};

// The combined result of an event's handlers: the first failure.
struct Outcome {
    Code code = 0;
    std::optional<PlatformError> raised = {};
    void Join(const Outcome& other);
};
Outcome CallHandler(const std::function<Code()>& handler);

std::string Hex(Code code);

// --- the platform

struct Setting {
    std::string type;
    WideText text = {};
    Code number = 0;
    std::string shown;
    bool operator==(const Setting&) const = default;
};
using Settings = std::map<WideText, Setting>;
using Vault = std::map<std::pair<WideText, WideText>, WideText>;

// Faults that triggered, over all sequences.
struct Reach {  // by kind
    std::uint64_t faults[3] = {};
};

class Platform {
public:
    using Body = std::function<Code()>;

    Platform(const Files& files, Reach& reach, std::function<void(const std::string&)> at_call);
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    // Makes one call: adds it to the journal, runs the events inside it, then returns the fault's code or the
    // body's.
    Code Call(const std::string& operation, const std::string& arguments, const Body& body = {});
    // The same, with a result that is null unless the body sets it.
    template <class T>
    Code Fetch(const std::string& operation, const std::string& arguments, T& result, const Body& body) {
        result = T{};
        return Call(operation, arguments, body);
    }
    // The same, with a value that is unchanged after a failure.
    template <class T>
    Code Read(const std::string& operation, T& result, const Body& body, const std::string& arguments = "") {
        bool done = false;
        const Code code = Call(operation, arguments, [&] {
            done = true;
            return body();
        });
        if (!done && code >= 0) {
            result = T{};
        }
        return code;
    }
    // A function that returns a value: `failed` after a failure; a positive code is the value.
    template <class T>
    T Answer(const std::string& operation, const std::string& arguments, T failed,
             const std::function<T()>& body) {
        T answer{};
        const Code code = Call(operation, arguments, [&] {
            answer = body();
            return 0;
        });
        return code > 0 ? static_cast<T>(code) : code < 0 ? failed : answer;
    }
    // A function that returns a handle: whether it is not null.
    bool AnswerHandle(const std::string& operation, const std::string& arguments = "", bool there = true);
    void Note(const std::string& line) { lines_.push_back({line, 0}); }

    void SetFault(Fault fault);
    std::string TakeJournal();

    template <class T, class... Arguments>
    Ref<T> Make(Arguments&&... arguments) {
        auto made = std::make_shared<T>(std::forward<Arguments>(arguments)...);
        objects_.push_back(made);
        return made;
    }
    Ref<Controller> MakeController(std::uint64_t window);
    std::size_t ObjectsOf(const std::string& class_name);
    std::string Outstanding();

    // --- events and completions
    std::uint64_t Resolve(std::uint64_t window) const;
    std::vector<Ref<Controller>> ControllersOf(std::uint64_t window);
    Ref<Controller> NewestOf(std::uint64_t window);
    Ref<AsyncOperation> StartAsync(const char* name, const char* of, Code failure, Ref<Object> result);
    // Attaches the handler; calls it at once for a completed operation.
    void Attach(const Ref<AsyncOperation>& operation,
                std::function<Code(const Ref<AsyncOperation>&, Status)> handler);
    Code Complete(std::size_t index, std::optional<Status> status);
    Code CompleteAll();

    std::string ShowMenu(std::uint64_t window);
    std::string ShowStore(const std::string& name) const;

    Code PutSetting(Settings& store, const WideText& key, const Setting& setting);
    Code PutCredential(const WideText& resource, const WideText& user, const WideText& password);

    const Files& files;
    DialState dial;
    std::uint64_t clock = 0;
    std::string last_raised;
    bool type_present = true;
    bool packaged = false;
    bool async_held = false;
    Settings roaming;
    Settings local;
    Vault vault;
    std::map<std::uint64_t, std::vector<std::int32_t>> system_items;
    struct DeviceEntry {
        std::optional<std::string> id;
        bool matches;
    };
    std::vector<DeviceEntry> devices;
    Code devices_failure = 0;
    std::size_t strings = 0;

private:
    struct Line {
        std::string call;
        Code code;
    };
    struct SetFaultState {
        Fault fault;
        std::uint32_t seen = 0;
    };
    struct Slot {
        std::weak_ptr<AsyncOperation> operation;
        Ref<AsyncOperation> kept = {};
        bool completed = false;
    };

    const Fault* Trigger(const std::string& operation, const std::string& call);
    std::optional<Outcome> CallCompleted(const Ref<AsyncOperation>& operation);
    Code CodeOf(const Outcome& outcome);
    std::size_t Handlers();

    friend struct Controller;
    friend class Expected;

    Reach& reach_;
    std::function<void(const std::string&)> at_call_;
    std::vector<Line> lines_;
    std::vector<SetFaultState> faults_;
    std::vector<std::weak_ptr<Object>> objects_;
    std::vector<std::weak_ptr<Controller>> controllers_;
    std::vector<Slot> operations_;
};

}  // namespace model
