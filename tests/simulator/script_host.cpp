// A host that a script of the environment is played to. It prints its events, which stay in its buffer until
// it ends, and ends with status 7:
//
//   script_host click     300 ms after a click; it has no window
//   script_host input     at the end of its standard input; it has no window
//   script_host window    when its window is closed
//   script_host refuse    never: its window refuses to be closed
//   script_host destroy   300 ms after a click, and destroys its window at the click
#include <brindle.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <string>

#include "simulator/dialsim.h"
#include "sync.h"
#ifdef _WIN32
#include <windows.h>
#endif

namespace {

constexpr int kStatus = 7;
constexpr std::uint32_t kRestMs = 300;

class Host final : public IDialHost {
public:
    explicit Host(std::uint64_t window) : window_(window) {}

    uint64_t GetWindowHandle() override { return window_; }
    void OnRotation(void* /*sender*/, const DialRotationInfo* turn) override {
        std::printf("turn %g\n", turn->deltaDegrees);
    }
    void OnButtonClicked(void* /*sender*/, const DialContactRect* /*rect*/) override {
        std::printf("click\n");
        clicked_ = true;
    }

    void WaitForClick() const {
        while (!clicked_) {
            dialsim::Pause(1);
        }
    }

private:
    const std::uint64_t window_;
    std::atomic<bool> clicked_ = false;
};

void RunWithoutWindow(const std::string& way) {
    Host host(1);
    init_dial_listener(&host);
    if (way == "click") {
        host.WaitForClick();
        dialsim::Pause(kRestMs);
    } else {
        while (std::getchar() != EOF) {
        }
    }
}

#ifdef _WIN32
bool refuse = false;

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wide, LPARAM extra) {
    if (message == WM_CLOSE && refuse) {
        return 0;
    }
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
    }
    return DefWindowProcA(window, message, wide, extra);
}

HWND CreateHostWindow() {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = OnMessage;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.lpszClassName = "ScriptHost";
    RegisterClassA(&window_class);
    return CreateWindowA("ScriptHost", "Script host", WS_OVERLAPPEDWINDOW, 0, 0, 200, 200, nullptr, nullptr,
                         window_class.hInstance, nullptr);
}

void RunWithWindow(const std::string& way) {
    refuse = way == "refuse";
    const HWND window = CreateHostWindow();
    Host host(reinterpret_cast<std::uint64_t>(window));
    init_dial_listener(&host);
    if (way == "destroy") {
        host.WaitForClick();
        DestroyWindow(window);
        dialsim::Pause(kRestMs);
        return;
    }
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        DispatchMessageA(&message);
    }
}
#else
void RunWithWindow(const std::string& /*way*/) {}
#endif

}  // namespace

int main(int argc, char** argv) {
    const std::string way = argc == 2 ? argv[1] : "";
    dialsim_start();
    initialize();
    if (way == "click" || way == "input") {
        RunWithoutWindow(way);
    } else {
        RunWithWindow(way);
    }
    return kStatus;
}
