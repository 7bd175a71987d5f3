// A complete host: it creates a window and a dial listener, fills the menu with an item of each kind, prints
// the events as a table, and stores the last item and the number of turns as settings.
// Usage: sample_host SCRIPT.dial PICTURE.png FONT.ttf, with absolute paths.
//
// Copy this code for a host of your own, without the lines that use the DialDriver: they turn a simulated
// dial with a script.
#include <brindle.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "dial_driver.h"
#include "host_window.h"
#include "text.h"

namespace {

class TableHost final : public IDialHost {
public:
    explicit TableHost(uint64_t window) : window_(window) {}

    void PrintHeading() const {
        std::printf("%9s  %8s  %12s  %6s  %4s  %s\n", "time", "degrees", "acceleration", "button", "item",
                    "contact");
    }

    uint64_t GetWindowHandle() override { return window_; }

    // Both callbacks run on the thread that raises the dial's events.
    void OnRotation(void* /*sender*/, const DialRotationInfo* turn) override {
        PrintTime();
        std::printf("  %+8.1f  %12.2f  %6s  %4u  ", turn->deltaDegrees, turn->acceleration,
                    turn->buttonPressed ? "down" : "up", static_cast<unsigned>(turn->selectedItemTag));
        PrintContact(turn->contact);
        ++turns_;
        item_ = turn->selectedItemTag;
        angle_ += turn->deltaDegrees;
        if (angle_ > 90.0) {
            turn->hapticRequest = &kBuzz;  // haptic feedback at the end of the scale
        }
    }

    void OnButtonClicked(void* /*sender*/, const DialContactRect* rect) override {
        PrintTime();
        std::printf("  %8s  %12s  %6s  %4s  ", "-", "-", "click", "-");
        PrintContact(*rect);
        angle_ = 0.0;
    }

    int32_t Turns() const { return turns_; }
    // The item that was selected at the last turn; 0 for none.
    uint32_t LastItem() const { return item_; }

private:
    static constexpr uint32_t kBuzz = 1;

    void PrintTime() const {
        const auto passed = std::chrono::steady_clock::now() - start_;
        const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
        std::printf("%6lld ms", static_cast<long long>(ms));
    }

    static void PrintContact(const DialContactRect& rect) {
        const bool on_screen = rect.left != 0 || rect.top != 0 || rect.right != 0 || rect.bottom != 0;
        if (on_screen) {
            std::printf("(%d, %d) to (%d, %d)\n", rect.left, rect.top, rect.right, rect.bottom);
        } else {
            std::printf("-\n");
        }
        std::fflush(stdout);
    }

    const uint64_t window_;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    double angle_ = 0.0;
    int32_t turns_ = 0;
    uint32_t item_ = 0;
};

// The identifiers of the menu's items, from 1: a turn reports 0 when no item is selected.
enum Item : uint32_t { kVolume = 1, kPalette = 2, kNotes = 3, kBrush = 4, kDial = 5 };
const BrindleChar* const kLabels[] = {TEXT16(""),      TEXT16("Volume"), TEXT16("Palette"),
                                      TEXT16("Notes"), TEXT16("Brush"),  TEXT16("Dial")};

// One item of each kind. The records are read during the call; the picture file is opened after it.
bool FillMenu(uint64_t window, const Text& picture_path, const Text& font_path) {
    const MenuItemDescription items[] = {
        {MenuItemKind::KnownIcon, kLabels[kVolume], kVolume, 1, {.number = 3}, {}, {}},
        {MenuItemKind::SystemFont, kLabels[kPalette], kPalette, 0, {TEXT16("P")}, {TEXT16("Arial")}, {}},
        {MenuItemKind::CustomFont,
         kLabels[kNotes],
         kNotes,
         0,
         {TEXT16("N")},
         {TEXT16("DejaVu Sans")},
         {font_path.c_str()}},
        {MenuItemKind::ResourcePNG, kLabels[kDial], kDial, 1, {.module = OwnModule()}, {.number = 101}, {}},
        // The last record: its load may complete on another thread.
        {MenuItemKind::FilePNG, kLabels[kBrush], kBrush, 0, {picture_path.c_str()}, {}, {}},
    };
    const int32_t system_items[] = {3, 2};  // volume, undo and redo
    return add_custom_menu(window, items, 5) && set_default_menu(window, system_items, 2) &&
           set_current_custom_menu(window, kPalette);
}

// The settings: a text and a number. A program without package identity can store the text only.
struct Settings {
    Text item;
    int32_t turns = 0;
};

const BrindleChar* const kResource = TEXT16("Brindle sample host");

Settings LoadSettings() {
    Settings settings;
    // The host owns the text.
    const std::unique_ptr<BrindleChar, decltype(&brindle_free)> item(
        get_string_from_storage(kResource, TEXT16("item")), &brindle_free);
    if (item) {
        settings.item = item.get();
    }
    const int32_t turns = get_int_from_storage(kResource, TEXT16("turns"));
    settings.turns = turns == INT32_MIN ? 0 : turns;
    return settings;
}

void SaveSettings(const Settings& settings) {
    set_string_in_storage(kResource, TEXT16("item"), settings.item.c_str());
    set_int_in_storage(kResource, TEXT16("turns"), settings.turns);
}

void PrintSettings(const Settings& settings) {
    std::printf("remembered: item %s (%s), %d turns (%s)\n",
                settings.item.empty() ? "none" : ToUtf8(settings.item).c_str(),
                DialDriver::StoreOf("item").c_str(), settings.turns, DialDriver::StoreOf("turns").c_str());
}

int Fail(const char* what) {
    std::fprintf(stderr, "sample_host: %s\n", what);
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        return Fail("usage: sample_host SCRIPT.dial PICTURE.png FONT.ttf");
    }
    const std::vector<Text> arguments = Arguments(argc, argv);
    DialDriver driver(arguments[1]);  // first: the library then finds the simulated dial
    if (driver.Failed()) {
        return Fail(driver.Error());
    }
    HostWindow window("Brindle sample host");
    if (window.Handle() == 0) {
        return Fail("the window cannot be created; is there a display?");
    }
    if (initialize() == 1) {
        return Fail("the Windows Runtime is not available");
    }
    TableHost host(window.Handle());
    if (!init_dial_listener(&host)) {
        uninit();
        return Fail("the dial listener cannot be created; the lines above identify the step");
    }

    Settings settings = LoadSettings();
    PrintSettings(settings);

    if (!is_dial_present(window.Handle())) {
        std::printf("the dial is not present: no menu\n");
    } else if (!FillMenu(window.Handle(), arguments[2], arguments[3])) {
        std::printf("the menu cannot be created; the lines above identify the step\n");
    }
    host.PrintHeading();
    driver.Start([&window] { window.Close(); });

    window.RunMessageLoop();
    driver.Wait();
    if (host.LastItem() != 0) {
        settings.item = kLabels[host.LastItem()];
    }
    settings.turns += host.Turns();
    SaveSettings(settings);
    uninit();
    return driver.Failed() ? Fail(driver.Error()) : 0;
}
