// Display scaling: the resolution that windows are drawn for.
#pragma once

#include <windows.h>

namespace dialsim {

// Sets the thread's DPI awareness for the lifetime of the object. Older systems have one resolution for all
// windows: there it does nothing.
class DpiScope {
public:
    // Windows that are created in this scope are drawn for their monitor and never stretched by the system.
    DpiScope();
    // The awareness of a window, for calls into the code that belongs to it.
    explicit DpiScope(HWND window);
    DpiScope(const DpiScope&) = delete;
    DpiScope& operator=(const DpiScope&) = delete;
    ~DpiScope();

private:
    DPI_AWARENESS_CONTEXT previous_;
};

// The resolution of the monitor of a window that was created in a DpiScope; USER_DEFAULT_SCREEN_DPI at 100 %.
UINT DpiOf(HWND window);

inline double ScaleOf(UINT dpi) { return static_cast<double>(dpi) / USER_DEFAULT_SCREEN_DPI; }
// A size at 100 % in pixels.
inline int ToPixels(int size, UINT dpi) {
    return MulDiv(size, static_cast<int>(dpi), USER_DEFAULT_SCREEN_DPI);
}

}  // namespace dialsim
