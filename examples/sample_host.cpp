// A complete host: it makes a window, listens to the dial there, fills its menu with an item of each kind,
// and prints what it is told as a table. Usage: sample_host SCRIPT.dial PICTURE.png FONT.ttf, with absolute
// paths.
//
// This is the code to copy. Only the lines that name the DialDriver are not for you: they turn a
// simulated dial by a script, where a person would turn a real one.
#include <brindle.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>

#include "dial_driver.h"
#include "host_window.h"

namespace {

class TableHost final : public IDialHost {
public:
    explicit TableHost(uint64_t window) : window_(window) {
        std::printf("%9s  %8s  %12s  %6s  %4s  %s\n", "time", "degrees", "acceleration", "button", "item",
                    "contact");
    }

    uint64_t GetWindowHandle() override { return window_; }

    // Both callbacks come on whatever thread the platform raises the dial's events on.
    void OnRotation(void* /*sender*/, const DialRotationInfo* turn) override {
        PrintTime();
        std::printf("  %+8.1f  %12.2f  %6s  %4u  ", turn->deltaDegrees, turn->acceleration,
                    turn->buttonPressed ? "down" : "up", static_cast<unsigned>(turn->selectedItemTag));
        PrintContact(turn->contact);
        angle_ += turn->deltaDegrees;
        if (angle_ > 90.0) {
            turn->hapticRequest = &kBuzz;  // past the end of our scale: let the user feel it
        }
    }

    void OnButtonClicked(void* /*sender*/, const DialContactRect* rect) override {
        PrintTime();
        std::printf("  %8s  %12s  %6s  %4s  ", "-", "-", "click", "-");
        PrintContact(*rect);
        angle_ = 0.0;
    }

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
};

// The identifiers of our menu's items; a turn tells which one is selected.
enum Item : uint32_t { kVolume = 1, kPalette = 2, kNotes = 3, kBrush = 4, kDial = 5 };

using Text = std::basic_string<BrindleChar>;

// One item of each kind. Everything is read during the call; the picture file is opened after it.
bool FillMenu(uint64_t window, const Text& picture_path, const Text& font_path) {
    const MenuItemDescription items[] = {
        {MenuItemKind::KnownIcon, TEXT16("Volume"), kVolume, 1, {.number = 3}, {}, {}},
        {MenuItemKind::SystemFont, TEXT16("Palette"), kPalette, 0, {TEXT16("P")}, {TEXT16("Arial")}, {}},
        {MenuItemKind::CustomFont,
         TEXT16("Notes"),
         kNotes,
         0,
         {TEXT16("N")},
         {TEXT16("DejaVu Sans")},
         {font_path.c_str()}},
        {MenuItemKind::FilePNG, TEXT16("Brush"), kBrush, 0, {picture_path.c_str()}, {}, {}},
        {MenuItemKind::ResourcePNG, TEXT16("Dial"), kDial, 1, {.module = OwnModule()}, {.number = 101}, {}},
    };
    const int32_t system_items[] = {3, 2};  // of the system's own entries, volume and undo
    return add_custom_menu(window, items, 5) && set_default_menu(window, system_items, 2) &&
           set_current_custom_menu(window, kPalette);
}

int Fail(const char* what) {
    std::fprintf(stderr, "sample_host: %s\n", what);
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        return Fail("give it a dial script, a PNG picture and a font file");
    }
    HostWindow window("Brindle sample host");
    if (window.Handle() == 0) {
        return Fail("no window can be made; is there a display?");
    }
    if (initialize() == 1) {
        return Fail("this system has no Windows Runtime");
    }
    TableHost host(window.Handle());
    if (!init_dial_listener(&host)) {
        uninit();
        return Fail("the dial cannot be listened to; the lines above say which step failed");
    }

    DialDriver driver(argv[1]);
    // Plain ASCII paths, widened character by character.
    const Text picture_path(argv[2], argv[2] + std::strlen(argv[2]));
    const Text font_path(argv[3], argv[3] + std::strlen(argv[3]));
    if (!FillMenu(window.Handle(), picture_path, font_path)) {
        std::printf("the dial has no menu; the lines above say which step failed\n");
    }
    driver.Start([&window] { window.Close(); });

    window.RunMessageLoop();
    driver.Wait();
    uninit();
    return driver.Failed() ? Fail(driver.Error()) : 0;
}
