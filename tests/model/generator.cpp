#include "generator.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <tuple>

#include "comparison.h"
#include "support/dialsim_text.h"

namespace model {

namespace {

constexpr std::uint32_t kCodes[] = {0x80004005, 0x80070005, 0x80004002, 0x80040154, 0x80010108};
constexpr std::uint32_t kNoMemory = 0x8007000E;
constexpr std::uint32_t kMany = 5'000;
// Exceeds every path.
constexpr std::uint32_t kLongPath = 100'000;

// Operations without faults: the contract does not define the consequences.
constexpr const char* kFaultless[] = {
    "RoUninitialize", "GlobalFree", "wcscpy_s", "AsyncOperationCompletedHandler", "end of", "system items"};
// Preferred operations: their results have later effects, or they are called twice.
constexpr const char* kPreferred[] = {"IRadialController::get_Menu", "GetShortPathNameW"};
// Functions without a result code, which cannot fail late.
constexpr const char* kNeverLate[] = {"FindResourceW", "SizeofResource", "LoadResource",
                                      "LockResource",  "GlobalAlloc",    "GlobalLock"};
// Calls whose faults include the arguments, which are the same in every run.
constexpr const char* kWithArguments[] = {"RoGetActivationFactory", "QueryInterface",
                                          "WindowsCreateStringReference(Windows.",
                                          "IVector<RadialControllerMenuItem>::GetAt", "IActivationFactory"};

template <std::size_t N>
bool HasPrefixOf(const char* const (&prefixes)[N], const std::string& line) {
    return std::any_of(std::begin(prefixes), std::end(prefixes),
                       [&](const char* prefix) { return line.starts_with(prefix); });
}

// Arguments are drawn inside the braces of a tuple: the order is the same with every compiler.
class Generator {
public:
    Generator(std::uint64_t seed, const Files& files) : random_(seed), files_(files) {}

    Sequence Make() {
        Sequence sequence = Start();
        theme_ = random_.Below(6);
        for (std::uint32_t left = 1 + random_.Below(random_.OneIn(4) ? 30 : 12); left > 0; --left) {
            sequence.push_back(Any());
        }
        AddFaultsAndEvents(sequence);
        return sequence;
    }

private:
    // --- values

    std::uint64_t Window() { return random_.OneIn(12) ? 0x777 : random_.Of(windows_); }
    std::uint64_t NewWindow() {
        return random_.Of<std::uint64_t>({0x20316, 0x20317, 1, 0x80000000, 0x8000'0000'0002'0316,
                                          0x1'0002'0316, 0x7FFF'FFFF'FFFF'FFFF, 0xFFFF'FFFF'FFFF'FFFE});
    }
    std::uint32_t NewId() {
        return random_.OneIn(8) ? static_cast<std::uint32_t>(random_.Bits())
                                : random_.Of<std::uint32_t>(
                                      {0, 1, 2, 3, 7, 0x80000000, 0x80000001, 0x7FFFFFFF, 0xFFFFFFFF});
    }
    // A small set, so that values repeat.
    std::uint32_t Id() { return random_.OneIn(10) ? NewId() : random_.Of(ids_); }
    // Not many windows and many items at once, which would take minutes.
    std::uint32_t Many() const { return windows_.size() > 3 ? 100 : kMany; }
    std::uint8_t HapticByte() { return random_.Of<std::uint8_t>({0, 1, 0, 1, 2, 0x80, 0xFF}); }
    WideText Text() {
        switch (random_.Below(12)) {
            case 0:
                return {};
            case 1:
                return UTF16("x");
            case 2:
                return UTF16(
                    "Gr\x00F6\x00DF"
                    "e");
            case 3:
                return UTF16("\xD83C\xDFA8");
            case 4:
                return UTF16("\xDC00 half \xD800");
            case 5:
                return UTF16("%s %n\t\x0001");
            case 6:
                return UTF16("\xFFFF\xFEFF");
            case 7:
                return random_.OneIn(4)
                           ? Repeated('y', random_.Of<std::size_t>({255, 256, 4096, 4097, 20'000}))
                           : WideText(UTF16("seven"));
            default:
                return UTF16("label");
        }
    }
    WideText NumberText() {
        return random_.Of<WideText>({UTF16("42"), UTF16("-7"), UTF16(" +5x"), UTF16("abc"),
                                     UTF16("2147483648"), UTF16("-2147483648"), UTF16("99999999999999999999"),
                                     UTF16("\t-0"), UTF16("-2147483647"), UTF16("- 3")});
    }
    Code Number() {
        return random_.Of<Code>(
            {0, 1, -1, 7, INT32_MIN, INT32_MIN + 1, INT32_MAX, static_cast<Code>(random_.Bits())});
    }
    double Degrees() {
        const double infinity = std::numeric_limits<double>::infinity();
        return random_.OneIn(6) ? random_.Of({0.0, -0.0, 1e300, -1e300, infinity, -infinity,
                                              std::numeric_limits<double>::quiet_NaN(), 5e-324, 10.0, 10.5})
                                : random_.Of({1.0, 5.0, -5.0, 20.0, 0.25, 360.0, -11.0});
    }
    float Coordinate() {
        return random_.OneIn(5)
                   ? random_.Of({0.0F, 2147483648.0F, -2147483648.0F, 2147483520.0F, 1e30F, -1e30F,
                                 std::numeric_limits<float>::quiet_NaN(), -0.9F, 16777217.0F})
                   : random_.Of({10.7F, 20.6F, -3.5F, 100.0F, 0.99F, 1920.0F});
    }
    std::uint64_t IconNumber() {
        return random_.OneIn(4) ? random_.Of<std::uint64_t>({9, 255, 0x80000000, 0xFFFFFFFF, 0x1'0000'0003})
                                : random_.Below(9);
    }
    std::uint64_t ResourceNumber() {
        return random_.OneIn(3) ? random_.Of<std::uint64_t>({102, 0, 65536 + 101, 0xFFFF'0065, 0x5'0000'0065})
                                : random_.Of<std::uint64_t>({101, 101, 101, 1, 65535});
    }
    File AnyFile() {
        return random_.Of({File::LongFont, File::ShortFont, File::Picture, File::Picture, File::LongFont,
                           File::Damaged, File::Missing, File::Folder, File::Relative, File::Empty,
                           random_.OneIn(10) ? File::LargePicture : File::Picture});
    }
    Item AnyItem() {
        switch (random_.Below(11)) {
            case 0:
            case 1:
                return std::apply(Icon, std::tuple{Id(), IconNumber(), Text(), HapticByte()});
            case 2:
            case 3:
                return std::apply(Glyph, std::tuple{Id(), Text(), Text(), Text(), HapticByte()});
            case 4:
            case 5:
                return std::apply(FontGlyph, std::tuple{Id(), random_.OneIn(2) ? File::LongFont : AnyFile(),
                                                        Text(), Text(), Text(), HapticByte()});
            case 6:
            case 7:
                return std::apply(PictureFile, std::tuple{Id(), AnyFile(), Text(), HapticByte()});
            case 8:
            case 9:
                return std::apply(PictureResource, std::tuple{Id(), ResourceNumber(), Text(), HapticByte()});
            default:
                return std::apply(UnknownItem, std::tuple{random_.Of({-1, 5, INT32_MIN, INT32_MAX}), Text()});
        }
    }
    std::string DeviceId() {
        const std::string prefix = R"(\\?\BTHLE#Dev_bc838528f72a#)";
        return random_.Of<std::string>({prefix + "1", prefix, prefix.substr(0, 26), "", "USB#1",
                                        R"(\\?\bthle#DEV_BC838528F72A#x)", prefix.substr(4),
                                        prefix + std::string(3000, 'z')});
    }
    WideText Key() {
        return random_.OneIn(6) ? Text() : random_.Of<WideText>({UTF16("key"), UTF16("other")});
    }
    WideText ResourceName() {
        return random_.OneIn(8) ? Text()
                                : random_.Of<WideText>({UTF16("host"), UTF16("host"), UTF16("else")});
    }

    // --- operations

    Sequence Start() {
        ids_ = {NewId(), NewId(), NewId()};
        Sequence sequence;
        if (random_.OneIn(2)) {
            sequence.push_back(Packaged(true));
        }
        if (random_.OneIn(30)) {
            sequence.push_back(HideType());
        }
        if (random_.OneIn(6)) {
            sequence.push_back(SetClock(
                random_.Of<std::uint64_t>({0xFFFF'FFFF - 70, 0x1'0000'0000, 0x7FFF'FFFF'FFFF'FF00, 0})));
        }
        if (random_.OneIn(2)) {
            sequence.push_back(Async(true));
        }
        sequence.push_back(Initialize());
        for (std::uint32_t left = random_.OneIn(100) ? 100
                                  : random_.OneIn(2) ? 1
                                                     : 1 + random_.Below(3);
             left > 0; --left) {
            windows_.push_back(left > 3 ? 1000 + left : NewWindow());
            sequence.push_back(AnyListen());
        }
        return sequence;
    }
    Operation AnyListen() {
        const std::uint64_t window = random_.OneIn(60) ? 0 : windows_.back();
        return random_.OneIn(50)  ? ListenWithoutHost()
               : random_.OneIn(8) ? Listen(window, {random_.Of(windows_), NewWindow()})
                                  : Listen(window);
    }
    Operation AnyMenu() {
        if (random_.OneIn(20)) {
            return std::apply(AddNullMenu,
                              std::tuple{Window(), random_.Of<std::uint64_t>({0, 1, 3, 100'000})});
        }
        std::vector<Item> items;
        for (std::uint32_t left = random_.OneIn(10) ? 0 : 1 + random_.Below(4); left > 0; --left) {
            items.push_back(AnyItem());
        }
        const std::uint32_t times = items.size() != 1 || !random_.OneIn(20) ? 1
                                    : random_.OneIn(5)                      ? Many()
                                                                            : 100;
        return AddMenu(Window(), std::move(items), times);
    }
    Operation AnyDefaultMenu() {
        if (random_.OneIn(6)) {
            return std::apply(NullDefaultMenu,
                              std::tuple{Window(), random_.Of<std::uint64_t>({0, 2, 0xFFFFFFFF})});
        }
        std::vector<std::int32_t> kinds;
        for (std::uint32_t left = random_.Below(7); left > 0; --left) {
            kinds.push_back(random_.OneIn(12) ? random_.Of({5, 7, -1, INT32_MIN, INT32_MAX})
                                              : static_cast<std::int32_t>(random_.Below(5)));
        }
        return DefaultMenu(Window(), std::move(kinds));
    }
    Operation AnySetting() {
        switch (random_.Below(7)) {
            case 0:
            case 1:
                return std::apply(SetText, std::tuple{ResourceName(), Key(),
                                                      theme_ == 4 && random_.OneIn(4) ? WideText()
                                                      : random_.OneIn(2)              ? NumberText()
                                                                                      : Text()});
            case 2:
                return std::apply(GetText, std::tuple{ResourceName(), Key()});
            case 3:
            case 4:
                return std::apply(SetNumber, std::tuple{ResourceName(), Key(), Number()});
            default:
                return std::apply(GetNumber, std::tuple{ResourceName(), Key()});
        }
    }
    // Any export that a host may also call from its callbacks.
    Operation AnyExport() {
        switch (random_.Below(theme_ == 4 ? 14 : 10)) {
            case 0:
            case 1:
            case 2:
            case 3:
                return AnyMenu();
            case 4:
            case 5:
                return std::apply(Select, std::tuple{Window(), Id()});
            case 6:
                return AnyDefaultMenu();
            case 7:
                return Present(Window());
            case 8:
                return random_.OneIn(3) ? AnyListen() : AnyMenu();
            default:
                return AnySetting();
        }
    }
    Operation AnyEvent() {
        switch (random_.Below(14)) {
            case 0:
            case 1:
            case 2:
            case 3:
                return std::apply(Turn, std::tuple{Window(), Degrees()});
            case 4:
            case 5:
                return Click(Window());
            case 6:
                return std::apply(
                    Touch, std::tuple{Window(), Coordinate(), Coordinate(), Coordinate(), Coordinate()});
            case 7:
                return std::apply(
                    Move, std::tuple{Window(), Coordinate(), Coordinate(), Coordinate(), Coordinate()});
            case 8:
                return random_.Of({Lift(Window()), Acquire(Window()), Lose(Window())});
            case 9:
            case 10:
                return std::apply(Choose, std::tuple{Window(), random_.Below(random_.OneIn(10) ? 100 : 4)});
            case 11:
                return CompleteAll();
            case 12:
                return std::apply(CompleteAs,
                                  std::tuple{random_.Below(4), static_cast<Code>(random_.Below(4))});
            default:
                return Complete(random_.Below(5));
        }
    }
    Operation AnyWait() {
        return Wait(
            random_.Of<std::uint64_t>({1, 49, 50, 50, 51, 99, 100, 100, 101, 60, 25, 1000, 4294967295}));
    }
    Operation AnyChange() {
        if (theme_ % 4 == 1 && random_.OneIn(2)) {
            return AnyWait();
        }
        switch (random_.Below(12)) {
            case 0:
                return Hold(random_.OneIn(2));
            case 1:
                return AnyHaptics();
            case 2:
                return std::apply(
                    Append,
                    std::tuple{Window(), random_.Of<std::string>({"UInt32", "String", "object", "none", ""}),
                               Id()});
            case 3:
                return std::apply(Shrink, std::tuple{Window(), random_.Below(3)});
            case 4:
            case 5:
                return AnyWait();
            case 6:
            case 7:
                return Async(!random_.OneIn(3));
            default:
                return random_.OneIn(2) ? AnyDeviceChange() : AnyStoreChange();
        }
    }
    Operation AnyHaptics() {
        return random_.OneIn(3)    ? Haptics(false, {})
               : random_.OneIn(3)  ? Haptics(true, {})
               : random_.OneIn(20) ? Haptics(true, {0x1234}, Many())
                                   : Haptics(true, {random_.Of({1, 0, 65535, 4100}), 4099});
    }
    Operation AnyDeviceChange() {
        switch (random_.Below(8)) {
            case 0:
            case 1:
                return RemoveDevices();
            case 2:
                return random_.OneIn(3) ? FailDevices(random_.OneIn(3) ? 0 : kCodes[random_.Below(5)])
                                        : AddNullDevice();
            case 3:
                return AddOtherDevice(DeviceId());
            case 4:
                return AddDevice(DeviceId(), false);
            default:
                return std::apply(AddDevice, std::tuple{DeviceId(), true,
                                                        random_.OneIn(40) ? Many() : 1 + random_.Below(2)});
        }
    }
    Operation AnyStoreChange() {
        switch (random_.Below(5)) {
            case 0:
                return Packaged(!random_.OneIn(3));
            case 1:
                return std::apply(PutCredential,
                                  std::tuple{random_.Of<std::string>({"host", "else"}), "key",
                                             random_.Of<std::string>({"42", "text", "-2147483648"})});
            case 2:
                return std::apply(PutSetting, std::tuple{Store(), "key", "String",
                                                         random_.Of<std::string>({"42", "text", ""})});
            case 3:
                return std::apply(PutSetting, std::tuple{Store(), "key", "Int32",
                                                         random_.Of<std::string>({"42", "-2147483648"})});
            default:
                return random_.Of({PutSetting(Store(), "key", "composite", ""),
                                   PutSetting(Store(), "key", "UInt32", "42"),
                                   PutSetting(Store(), "key", "Boolean", "true")});
        }
    }
    std::string Store() { return random_.Of<std::string>({"roaming", "local"}); }

    Operation Any() {
        constexpr std::uint32_t kExports[] = {7, 4, 9, 4, 6, 3};
        constexpr std::uint32_t kEvents[] = {4, 6, 2, 4, 1, 7};
        const std::uint32_t drawn = random_.Below(13);
        const std::uint32_t exports = kExports[theme_];
        return theme_ == 4 && drawn < 9            ? AnySetting()
               : theme_ == 3 && drawn < 2          ? Present(Window())
               : drawn < exports                   ? AnyExport()
               : drawn < exports + kEvents[theme_] ? AnyEvent()
                                                   : AnyChange();
    }

    // --- faults and events inside platform calls

    void AddFaultsAndEvents(Sequence& sequence) {
        for (Operation& operation : sequence) {
            if (operation.act <= Act::CompleteAll && random_.OneIn(2)) {
                React(operation);
            }
        }
        const auto journals = JournalsOf(sequence, files_);
        for (std::size_t i = 0; i < sequence.size(); ++i) {
            const auto calls = LinesOf(journals[i]);
            if (calls.empty()) {
                continue;
            }
            if (HasFaults(sequence[i].act)) {
                for (std::uint32_t left = 1 + (random_.OneIn(3) ? random_.Below(3) : 0); left > 0; --left) {
                    AddFault(sequence[i], calls);
                }
            }
            if (sequence[i].act != Act::Initialize && random_.OneIn(2)) {
                AddInside(sequence[i], static_cast<std::uint32_t>(calls.size()));
            }
        }
    }
    // Rare where the start fails, because little follows; most calls that can fail are a menu's.
    bool HasFaults(Act act) {
        return act == Act::Initialize ? random_.OneIn(20)
               : act == Act::Listen   ? random_.OneIn(6)
               : act == Act::AddMenu  ? !random_.OneIn(4)
                                      : random_.OneIn(2);
    }
    void React(Operation& operation) {
        for (std::uint32_t left = 1 + random_.Below(2); left > 0; --left) {
            operation.reactions.push_back(AnyExport());
        }
        if (random_.OneIn(2)) {
            operation.haptic_request = random_.Of<std::uint32_t>({0, 1, 1, 2, 2, 3, 0x80000001, 0x100});
        }
    }
    void AddInside(Operation& operation, std::uint32_t calls) {
        for (std::uint32_t left = 1 + random_.OneIn(3); left > 0; --left) {
            // The important calls are mostly at the start and at the end.
            const std::uint32_t call = 1 + random_.Below(random_.OneIn(2) ? std::min(calls, 20U) : calls);
            operation.inside.push_back({call, random_.OneIn(6) ? AnyChange() : AnyEvent()});
        }
        if (random_.OneIn(2)) {
            operation.reactions.push_back(AnyMenu());
        }
    }
    // Draws one of the distinct calls, so that rare calls get faults, too.
    void AddFault(Operation& operation, const std::vector<std::string>& lines) {
        std::map<std::string, std::uint32_t> calls;
        for (const std::string& line : lines) {
            const std::string call = line.substr(0, line.rfind(')') + 1);
            const bool with_arguments = HasPrefixOf(kWithArguments, call);
            ++calls[with_arguments ? call : call.substr(0, call.find('('))];
        }
        auto drawn = std::next(calls.begin(), random_.Below(calls.size()));
        for (const char* preferred : kPreferred) {
            if (const auto found = calls.find(preferred); found != calls.end() && random_.OneIn(8)) {
                drawn = found;
            }
        }
        const std::string& pattern = drawn->first;
        const std::string name = pattern.substr(0, pattern.find('('));
        const bool is_text = name == "WindowsCreateStringReference";
        if (HasPrefixOf(kFaultless, pattern) || (operation.act == Act::Initialize && is_text)) {
            return;
        }
        if (name == "GetShortPathNameW" && random_.OneIn(2)) {
            operation.faults.push_back(random_.OneIn(2) ? Fails("GetShortPathNameW(@, 0)", 2)
                                                        : Fails(name, kLongPath, 1 + random_.Below(2)));
            return;
        }
        const std::uint32_t from = 1 + random_.Below(std::min(drawn->second, 50U));
        // A step is evaluated three times.
        const std::uint32_t times = random_.OneIn(10) ? 0 : random_.Of<std::uint32_t>({1, 1, 2, 3, 3, 3});
        operation.faults.push_back(AnyFault(name, pattern, from, times));
    }
    Fault AnyFault(const std::string& name, const std::string& pattern, std::uint32_t from,
                   std::uint32_t times) {
        const bool is_number = name == "SizeofResource" || name == "GetShortPathNameW";
        const std::uint32_t code = random_.OneIn(12)                 ? kNoMemory
                                   : !is_number && random_.OneIn(12) ? 1
                                                                     : kCodes[random_.Below(5)];
        const std::uint32_t drawn = random_.Below(6);
        if (name == "RoInitialize") {
            return Fails(pattern, kCodes[drawn % 5], from,
                         times);  // any other fault leaves the apartment initialized
        }
        if (drawn < 2) {
            return YieldsNull(pattern, from, times);
        }
        const bool late = drawn < 4 && !HasPrefixOf(kNeverLate, name);
        return late ? FailsLate(pattern, code, from, times) : Fails(pattern, code, from, times);
    }

    Random random_;
    const Files& files_;
    std::uint32_t theme_ = 0;
    std::vector<std::uint64_t> windows_;
    std::vector<std::uint32_t> ids_;
};

}  // namespace

Sequence Generate(std::uint64_t seed, const Files& files) { return Generator(seed, files).Make(); }

}  // namespace model
