#include "simulator/desktop/dpi.h"

namespace dialsim {

namespace {

// Looked up, because Windows has them since version 1607 of Windows 10 only. Null on older systems.
template <class Function>
Function* UserFunction(const char* name) {
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), name);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

// Returns the previous awareness; null when the system does not know this one.
DPI_AWARENESS_CONTEXT SetAwareness(DPI_AWARENESS_CONTEXT awareness) {
    static auto* const set =
        UserFunction<decltype(SetThreadDpiAwarenessContext)>("SetThreadDpiAwarenessContext");
    return set == nullptr || awareness == nullptr ? nullptr : set(awareness);
}

DPI_AWARENESS_CONTEXT AwarenessOf(HWND window) {
    static auto* const get =
        UserFunction<decltype(GetWindowDpiAwarenessContext)>("GetWindowDpiAwarenessContext");
    return get == nullptr ? nullptr : get(window);
}

}  // namespace

DpiScope::DpiScope() : previous_(SetAwareness(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2)) {
    if (previous_ == nullptr) {
        previous_ = SetAwareness(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);  // before version 1703
    }
}

DpiScope::DpiScope(HWND window) : previous_(SetAwareness(AwarenessOf(window))) {}

DpiScope::~DpiScope() { SetAwareness(previous_); }

UINT DpiOf(HWND window) {
    static auto* const get = UserFunction<decltype(GetDpiForWindow)>("GetDpiForWindow");
    if (get != nullptr) {
        return get(window);
    }
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return static_cast<UINT>(dpi);
}

}  // namespace dialsim
