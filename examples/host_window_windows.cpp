#include <windows.h>

#include "host_window.h"

namespace {

constexpr char kClassName[] = "BrindleSampleHost";

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcA(window, message, wparam, lparam);
}

}  // namespace

const void* OwnModule() { return GetModuleHandleA(nullptr); }

struct HostWindow::Impl {
    HWND window = nullptr;
};

HostWindow::HostWindow(const char* title) : impl_(std::make_unique<Impl>()) {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = OnMessage;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.lpszClassName = kClassName;
    RegisterClassA(&window_class);
    impl_->window =
        CreateWindowExA(0, kClassName, title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                        640, 480, nullptr, nullptr, window_class.hInstance, nullptr);
}

HostWindow::~HostWindow() { UnregisterClassA(kClassName, GetModuleHandleA(nullptr)); }

uint64_t HostWindow::Handle() const { return reinterpret_cast<uint64_t>(impl_->window); }

void HostWindow::RunMessageLoop() {
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void HostWindow::Close() { PostMessageA(impl_->window, WM_CLOSE, 0, 0); }
