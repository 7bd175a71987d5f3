// A host that prints all data of each call that it gets, for comparisons of whole sessions. It has two
// windows, and two listeners for the second of them. With the environment variable PLATFORM, the path of a
// simulator that serves as the platform, it also prints what is outstanding there after uninit, and the
// calls.
#include <brindle.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "examples/host_window.h"

namespace {

class PrintingHost final : public IDialHost {
public:
    PrintingHost(const char* name, const HostWindow& window) : name_(name), window_(window) {}

    uint64_t GetWindowHandle() override { return window_.Handle(); }

    void OnRotation(void* /*sender*/, const DialRotationInfo* turn) override {
        std::printf("%s: turn %a factor %a item %u %s ", name_, turn->deltaDegrees, turn->acceleration,
                    turn->selectedItemTag, turn->buttonPressed ? "down" : "up");
        PrintContact(turn->contact);
        Sleep(kDrawingMs);
    }

    void OnButtonClicked(void* /*sender*/, const DialContactRect* rect) override {
        std::printf("%s: click ", name_);
        PrintContact(*rect);
    }

private:
    static constexpr DWORD kDrawingMs = 20;  // as long as other hosts draw

    static void PrintContact(const DialContactRect& rect) {
        std::printf("(%d, %d, %d, %d)\n", rect.left, rect.top, rect.right, rect.bottom);
        std::fflush(stdout);
    }

    const char* const name_;
    const HostWindow& window_;
};

bool FillMenu(uint64_t window) {
    const MenuItemDescription items[] = {
        {MenuItemKind::KnownIcon, L"Scroll", 70, 1, {.number = 0}, {}, {}},
        {MenuItemKind::KnownIcon, L"Zoom", 80, 0, {.number = 1}, {}, {}},
        {MenuItemKind::KnownIcon, L"Volume", 90, 1, {.number = 3}, {}, {}},
    };
    return add_custom_menu(window, items, 3);
}

// A text of the simulator that serves as the platform.
std::string TextOf(const char* platform, const char* function) {
    using Copy = std::size_t (*)(char*, std::size_t);
    const FARPROC found = GetProcAddress(GetModuleHandleA(platform), function);
    const auto copy = reinterpret_cast<Copy>(reinterpret_cast<void*>(found));
    std::string text(copy(nullptr, 0), '\0');
    copy(text.data(), text.size());
    return text.c_str();
}

}  // namespace

int main() {
    HostWindow first_window("First");
    HostWindow second_window("Second");
    PrintingHost first("first", first_window);
    PrintingHost second("second", second_window);
    PrintingHost again("second again", second_window);
    if (initialize() != 0 || !init_dial_listener(&first) || !init_dial_listener(&second) ||
        !init_dial_listener(&again)) {
        std::fputs("printing_host: no dial\n", stderr);
        return 1;
    }
    if (!FillMenu(first.GetWindowHandle()) || !set_current_custom_menu(first.GetWindowHandle(), 70)) {
        std::fputs("printing_host: no menu\n", stderr);
        return 1;
    }
    first_window.RunMessageLoop();
    uninit();
    if (const char* platform = std::getenv("PLATFORM"); platform != nullptr && *platform != 0) {
        std::printf("outstanding:\n%scalls:\n%s", TextOf(platform, "dialsim_accounts").c_str(),
                    TextOf(platform, "dialsim_journal").c_str());
    }
    return 0;
}
