// The desktop of Windows.
#include <windows.h>
// after windows.h
#include <gdiplus.h>

#include <memory>
#include <vector>

#include "simulator/classes/controller.h"
#include "simulator/classes/controllers.h"
#include "simulator/desktop/dial_window.h"
#include "simulator/desktop/dpi.h"
#include "simulator/desktop/gdiplus_session.h"
#include "simulator/desktop/placement.h"
#include "simulator/desktop/surface.h"
#include "simulator/dial/desktop_port.h"
#include "simulator/system/text.h"

namespace dialsim {

namespace {

constexpr int kMargin = 24;  // around the windows of a screenshot
constexpr std::uint32_t kBackdrop = 0xC9D3DF;

// The class identifier of the system's PNG encoder.
constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

HWND HandleOf(std::uint64_t window) {
    const auto controller = NewestControllerOf(window);
    return reinterpret_cast<HWND>(controller ? controller->window() : 0);
}

// Copies these areas of the screen onto a plain background.
void CaptureAreas(const Surface& surface, const std::vector<RECT>& areas, POINT corner) {
    surface.Clear(kBackdrop);
    const HDC screen = GetDC(nullptr);
    for (const RECT& area : areas) {
        BitBlt(surface.context(), area.left - corner.x, area.top - corner.y, area.right - area.left,
               area.bottom - area.top, screen, area.left, area.top, SRCCOPY);
    }
    ReleaseDC(nullptr, screen);
    GdiFlush();
}

// Reduces the number of colours: anti-aliased edges have many similar ones, which make the file large.
void QuantizeColors(const Surface& surface) {
    for (int y = 0; y < surface.height(); ++y) {
        for (int x = 0; x < surface.width(); ++x) {
            std::uint32_t& pixel = surface.At(x, y);
            pixel = (pixel & 0xFCFCFC) | (pixel >> 6 & 0x030303);
        }
    }
}

bool WritePng(const Surface& surface, const std::string& path) {
    const GdiplusSession session;
    Gdiplus::Bitmap bitmap(surface.width(), surface.height(), 4 * surface.width(), PixelFormat32bppRGB,
                           reinterpret_cast<BYTE*>(&surface.At(0, 0)));
    const std::unique_ptr<Gdiplus::Bitmap> opaque(
        bitmap.Clone(0, 0, surface.width(), surface.height(), PixelFormat24bppRGB));
    return opaque->Save(Widen(path).c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}

class WindowsDesktop final : public DesktopPort {
public:
    void OpenDial(std::uint64_t window) override { OpenDialWindow(window); }

    // The console's window belongs to all programs that use the console: closing it would end them too.
    bool HasWindow(std::uint64_t window) override {
        const HWND handle = reinterpret_cast<HWND>(window);
        DWORD process = 0;
        GetWindowThreadProcessId(handle, &process);
        return process == GetCurrentProcessId() && handle != GetConsoleWindow();
    }

    void CloseWindow(std::uint64_t window) override {
        PostMessageW(reinterpret_cast<HWND>(window), WM_CLOSE, 0, 0);
    }

    void UpdateDisplay() override { RedrawDialWindow(); }

    void UpdateDisplaySoon() override { RedrawDialWindowSoon(); }

    void ShowFeedback() override { ShowDialFeedback(); }

    bool SendMouse(std::uint64_t window, MouseAction action, int x, int y) override {
        const UINT message = action == MouseAction::Down   ? WM_LBUTTONDOWN
                             : action == MouseAction::Move ? WM_MOUSEMOVE
                                                           : WM_LBUTTONUP;
        const WPARAM buttons = action == MouseAction::Up ? 0 : MK_LBUTTON;
        const HWND host = HandleOf(window);
        SendMessageW(host, message, buttons, MAKELPARAM(x, y));
        return IsWindow(host) != FALSE;
    }

    bool WriteScreenshot(std::uint64_t window, const std::string& path) override {
        RedrawDialWindow();
        const DpiScope per_monitor;  // the pixels of the screen
        std::vector<RECT> areas = {ClientScreenRect(HandleOf(window))};
        if (const HWND dial = TheDialWindow()) {
            areas.push_back(ClientScreenRect(dial));
        }
        RECT all{};
        for (const RECT& area : areas) {
            UnionRect(&all, &all, &area);
        }
        if (IsRectEmpty(&all)) {
            return false;
        }
        const Surface surface(all.right - all.left + 2 * kMargin, all.bottom - all.top + 2 * kMargin);
        CaptureAreas(surface, areas, {all.left - kMargin, all.top - kMargin});
        QuantizeColors(surface);
        return WritePng(surface, path);
    }
};

struct Installation {
    Installation() { InstallDesktop(desktop); }
    WindowsDesktop desktop;
} installation;

}  // namespace

}  // namespace dialsim
