#include "simulator/desktop/dial_window.h"

#include <atomic>
#include <cstdio>

#include "simulator/classes/event_raising.h"
#include "simulator/desktop/ring_window.h"
#include "simulator/desktop/surface.h"
#include "simulator/dial/commands.h"
#include "simulator/dial/dial.h"
#include "simulator/dial/open_menu.h"

namespace dialsim {

namespace {

constexpr wchar_t kClassName[] = L"DialsimDial";
constexpr int kWidth = 220;
constexpr int kHeight = 264;
constexpr Point kMiddle{kWidth / 2.0, 106};
constexpr double kBodyRadius = 88;
constexpr double kTopRadius = 62;
const double kHalfTurn = std::acos(-1.0);

constexpr std::uint32_t kBackground = 0xF6F8FA;
constexpr std::uint32_t kDark = 0x2A3038;
constexpr std::uint32_t kTick = 0x768390;
constexpr std::uint32_t kAccent = 0x4C9AFF;
constexpr std::uint32_t kText = 0x57606A;

constexpr double kDegreesForNotch = 10;
constexpr int kGap = 20;  // between the visible frame of the host's window and the dial, in pixels
constexpr UINT kUpdateDisplay = WM_APP;
constexpr UINT_PTR kHoldTimer = 1;
constexpr UINT kHoldMs = 500;
constexpr UINT_PTR kFollowTimer = 2;
constexpr UINT kFollowMs = 100;

std::atomic<HWND> dial_window = nullptr;

void DrawBody(const Surface& surface) {
    for (int i = 10; i > 0; --i) {
        surface.Disc({kMiddle.x, kMiddle.y + 5}, kBodyRadius + i, {0, 0.02});
    }
    surface.Disc(kMiddle, kBodyRadius, {kDark});
    surface.Circle(kMiddle, kBodyRadius - 1.5, 3, {0x444C56});
}

// The marks turn with the dial; one of them is the pointer.
void DrawMarks(const Surface& surface, double degrees) {
    const double turned = degrees / 180 * kHalfTurn - kHalfTurn / 2;
    for (int i = 1; i < 36; ++i) {
        const double angle = turned + i * kHalfTurn / 18;
        surface.Line(PointOnCircle(kMiddle, kBodyRadius - 14, angle),
                     PointOnCircle(kMiddle, kBodyRadius - 8, angle), 1.5, {kTick, 0.8});
    }
    surface.Line(PointOnCircle(kMiddle, kBodyRadius - 20, turned),
                 PointOnCircle(kMiddle, kBodyRadius - 8, turned), 5, {kAccent});
}

void DrawTop(const Surface& surface, bool pressed) {
    const double radius = pressed ? kTopRadius - 3 : kTopRadius;
    surface.Disc(kMiddle, kTopRadius + 2, {0x1C2128});
    for (int i = 0; i < 16; ++i) {
        surface.Disc({kMiddle.x, kMiddle.y - i}, radius - i * 1.5, {0xADBAC7, pressed ? 0.012 : 0.025});
    }
    surface.Circle(kMiddle, radius, 1.5, {0x545D68});
}

void DrawDial(const Surface& surface, const DialState& state) {
    const RECT all{0, 0, kWidth, kHeight};
    SetDCBrushColor(surface.context(), RGB(kBackground >> 16, kBackground >> 8 & 0xFF, kBackground & 0xFF));
    FillRect(surface.context(), &all, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    FrameRect(surface.context(), &all, static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH)));
    GdiFlush();
    DrawBody(surface);
    DrawMarks(surface, state.angle);
    DrawTop(surface, state.button_down);
    surface.Text({kMiddle.x, 222}, 12, FW_NORMAL, kText, L"wheel or arrow keys: turn");
    surface.Text({kMiddle.x, 242}, 12, FW_NORMAL, kText, L"click or space: press, hold: menu");
}

// Reports an exception of a handler. The real platform would end the process.
void ReportException(HRESULT code) {
    if (code == kHandlerThrew) {
        std::fprintf(stderr, "dial: a handler threw: %s\n", LastExceptionMessage().c_str());
    }
}

class DialWindow {
public:
    explicit DialWindow(HWND host) : host_(host) {}

    // Other messages go to the default window procedure.
    bool OnMessage(HWND window, UINT message, WPARAM wparam);
    void Paint(HWND window);

private:
    void OnTimer(HWND window, UINT_PTR timer);
    void OnKeyDown(HWND window, WPARAM key);
    void Press(HWND window);
    void ReleaseButton(HWND window);
    void TurnBy(HWND window, double degrees);
    void Follow(HWND window);

    std::uint64_t Host() const { return reinterpret_cast<std::uint64_t>(host_); }

    const HWND host_;
    const Surface surface_{kWidth, kHeight};
    RingWindow ring_;
    RECT host_rect_{};
    bool pressed_ = false;
    bool press_handled_ = false;  // the press turned the dial or opened the menu: no click
};

bool DialWindow::OnMessage(HWND window, UINT message, WPARAM wparam) {
    switch (message) {
        case kUpdateDisplay:
            ring_.UpdateDisplay();
            RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
            return true;
        case WM_PAINT:
            Paint(window);
            return true;
        case WM_MOUSEWHEEL:
            TurnBy(window, kDegreesForNotch * GET_WHEEL_DELTA_WPARAM(wparam) / WHEEL_DELTA);
            return true;
        case WM_LBUTTONDOWN:
            SetCapture(window);
            Press(window);
            return true;
        case WM_LBUTTONUP:
            ReleaseCapture();
            return true;
        case WM_CAPTURECHANGED:
            ReleaseButton(window);
            return true;
        case WM_KEYUP:
            if (wparam == VK_SPACE || wparam == VK_RETURN) {
                ReleaseButton(window);
            }
            return true;
        case WM_KEYDOWN:
            OnKeyDown(window, wparam);
            return true;
        case WM_TIMER:
            OnTimer(window, wparam);
            return true;
        default:
            return false;
    }
}

void DialWindow::Paint(HWND window) {
    DrawDial(surface_, TheDial().State());
    PAINTSTRUCT paint;
    const HDC context = BeginPaint(window, &paint);
    BitBlt(context, 0, 0, kWidth, kHeight, surface_.context(), 0, 0, SRCCOPY);
    EndPaint(window, &paint);
}

void DialWindow::OnTimer(HWND window, UINT_PTR timer) {
    if (timer == kFollowTimer) {
        Follow(window);
        return;
    }
    KillTimer(window, kHoldTimer);
    press_handled_ = true;
    if (TheOpenMenu()) {
        CloseMenu();
    } else {
        OpenMenuOf(Host());
    }
}

void DialWindow::OnKeyDown(HWND window, WPARAM key) {
    switch (key) {
        case VK_LEFT:
            TurnBy(window, -kDegreesForNotch);
            break;
        case VK_RIGHT:
            TurnBy(window, kDegreesForNotch);
            break;
        case VK_SPACE:
        case VK_RETURN:
            Press(window);
            break;
        case 'M':
            OpenMenuOf(Host());
            break;
        case VK_ESCAPE:
            CloseMenu();
            break;
        default:
            break;
    }
}

// Ignores key repeat.
void DialWindow::Press(HWND window) {
    if (pressed_) {
        return;
    }
    pressed_ = true;
    press_handled_ = false;
    Hold(true);
    SetTimer(window, kHoldTimer, kHoldMs, nullptr);
}

void DialWindow::ReleaseButton(HWND window) {
    if (!pressed_) {
        return;
    }
    pressed_ = false;
    KillTimer(window, kHoldTimer);
    Hold(false);
    if (!press_handled_) {
        ReportException(Click(Host()));
    }
}

void DialWindow::TurnBy(HWND window, double degrees) {
    KillTimer(window, kHoldTimer);
    press_handled_ = true;
    ReportException(Turn(Host(), degrees));
}

// Moves the dial with the host's window and keeps it on the screen.
void DialWindow::Follow(HWND window) {
    if (!IsWindowVisible(host_) || IsIconic(host_)) {
        ShowWindow(window, SW_HIDE);
        return;
    }
    const RECT rect = ClientScreenRect(host_);
    if (!EqualRect(&rect, &host_rect_)) {
        host_rect_ = rect;
        const int most = GetSystemMetrics(SM_CXSCREEN) - kWidth;
        SetWindowPos(window, HWND_TOPMOST, std::min(static_cast<int>(rect.right) + kGap, most), rect.top, 0,
                     0, SWP_NOSIZE | SWP_NOACTIVATE);
    }
    ShowWindow(window, SW_SHOWNOACTIVATE);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* dial = reinterpret_cast<DialWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const bool done = dial != nullptr && dial->OnMessage(window, message, wparam);
    return done ? 0 : DefWindowProcW(window, message, wparam, lparam);
}

HWND MakeWindow() {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = OnMessage;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32649));  // IDC_HAND
    window_class.lpszClassName = kClassName;
    RegisterClassW(&window_class);
    return CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kClassName, L"Dial", WS_POPUP, 0, 0, kWidth,
                           kHeight, nullptr, nullptr, window_class.hInstance, nullptr);
}

void RunDial(HWND host, HANDLE ready) {
    DialWindow dial(host);
    const HWND window = MakeWindow();
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&dial));
    SetTimer(window, kFollowTimer, kFollowMs, nullptr);
    dial_window = window;
    SetEvent(ready);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
}

}  // namespace

RECT ClientScreenRect(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

void OpenDialWindow(std::uint64_t host) {
    const HANDLE ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const Thread thread = StartThread([=] { RunDial(reinterpret_cast<HWND>(host), ready); });
    WaitForSingleObject(ready, INFINITE);
    CloseHandle(ready);
    CloseHandle(thread);
}

HWND TheDialWindow() { return dial_window; }

void RedrawDialWindow() {
    if (const HWND window = dial_window) {
        SendMessageW(window, kUpdateDisplay, 0, 0);
    }
}

}  // namespace dialsim
