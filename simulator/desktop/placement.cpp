#include "simulator/desktop/placement.h"

#include <algorithm>

namespace dialsim {

namespace {

// How far to move so that `from` to `to` is within `low` to `high`; a longer one begins at `low`.
LONG Shift(LONG from, LONG to, LONG low, LONG high) { return std::max(std::min(high - to, 0L), low - from); }

bool IsTopmost(HWND window) { return (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

}  // namespace

HWND CreatePopup(const wchar_t* class_name, WNDPROC procedure, const wchar_t* cursor, DWORD extended_style,
                 const RECT& rect) {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.hCursor = LoadCursorW(nullptr, cursor);
    window_class.lpszClassName = class_name;
    RegisterClassW(&window_class);
    return CreateWindowExW(extended_style, class_name, L"Dial", WS_POPUP, rect.left, rect.top,
                           rect.right - rect.left, rect.bottom - rect.top, nullptr, nullptr,
                           window_class.hInstance, nullptr);
}

RECT ClientScreenRect(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

RECT MovedOntoMonitor(RECT rect) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcWork;
    OffsetRect(&rect, Shift(rect.left, rect.right, area.left, area.right),
               Shift(rect.top, rect.bottom, area.top, area.bottom));
    return rect;
}

bool IsInFront() {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    return process == GetCurrentProcessId();
}

void StackOverHost(HWND window, HWND host, bool in_front) {
    HWND above = HWND_TOPMOST;
    if (!in_front) {
        // The host is the first below the topmost windows unless another program's window is above it
        // already. A window that comes to the front later is put above all of these by the system.
        above = GetWindow(host, GW_HWNDPREV);
        above = above == nullptr || above == window || IsTopmost(above) ? HWND_NOTOPMOST : above;
    }
    SetWindowPos(window, above, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace dialsim
