// Starts GDI+, the system's library for picture files, for the lifetime of the object.
#pragma once

#include <windows.h>
// after windows.h
#include <gdiplus.h>

namespace dialsim {

class GdiplusSession {
public:
    GdiplusSession() {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token_, &input, nullptr);
    }
    GdiplusSession(const GdiplusSession&) = delete;
    GdiplusSession& operator=(const GdiplusSession&) = delete;
    ~GdiplusSession() { Gdiplus::GdiplusShutdown(token_); }

private:
    ULONG_PTR token_ = 0;
};

}  // namespace dialsim
