#include "simulator/desktop/dial_window.h"

#include <windowsx.h>

#include <atomic>
#include <cstdio>
#include <memory>
#include <numbers>
#include <optional>

#include "simulator/classes/event_raising.h"
#include "simulator/desktop/dial_face.h"
#include "simulator/desktop/dpi.h"
#include "simulator/desktop/placement.h"
#include "simulator/desktop/ring_window.h"
#include "simulator/dial/commands.h"
#include "simulator/dial/dial.h"
#include "simulator/dial/open_menu.h"

namespace dialsim {

namespace {

constexpr wchar_t kDialClass[] = L"DialsimDial";
constexpr double kDegreesForNotch = 10;
constexpr double kGap = 20;           // between the host's client area and the dial
constexpr double kNoAngleRadius = 8;  // around the middle of the knob, where the pointer has no exact angle

constexpr UINT kUpdateDisplay = WM_APP;
constexpr UINT kShowFeedback = WM_APP + 1;
constexpr UINT_PTR kHoldTimer = 1;
constexpr UINT kHoldMs = 500;
constexpr UINT_PTR kFollowTimer = 2;
constexpr UINT kFollowMs = 100;
constexpr UINT_PTR kFeedbackTimer = 3;
constexpr UINT kFeedbackMs = 150;

std::atomic<HWND> dial_window = nullptr;
std::atomic<bool> is_update_posted = false;

// Reports an exception of a handler. The real platform would end the process.
void ReportException(HRESULT code) {
    if (code == kHandlerThrew) {
        std::fprintf(stderr, "dial: a handler threw: %s\n", LastExceptionMessage().c_str());
    }
}

bool IsBeyondDragThreshold(POINT from, POINT to) {
    return std::abs(to.x - from.x) > GetSystemMetrics(SM_CXDRAG) ||
           std::abs(to.y - from.y) > GetSystemMetrics(SM_CYDRAG);
}

// Created, used and destroyed on one thread, which handles its messages.
class DialWindow {
public:
    explicit DialWindow(HWND host);
    DialWindow(const DialWindow&) = delete;
    DialWindow& operator=(const DialWindow&) = delete;
    ~DialWindow() { DestroyWindow(window_); }

    HWND window() const { return window_; }

private:
    // The left button is down on the knob.
    struct Grab {
        POINT start;
        bool turns;                     // a drag
        std::optional<double> radians;  // the angle of the pointer, empty until it is away from the middle
    };

    static LRESULT CALLBACK OnWindowMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    // False for messages of the default window procedure.
    bool OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
    bool OnMouse(UINT message, WPARAM wparam, POINT pointer);
    bool OnKey(UINT message, WPARAM key);
    void OnKeyDown(WPARAM key);
    void OnTimer(UINT_PTR timer);
    void OnMenuHold();
    bool OnSetCursor(WORD hit) const;
    void OnDrag(POINT pointer);

    void Press();
    void ReleaseButton();
    void TurnBy(double degrees);
    void TurnToPointer(POINT pointer);

    void SetDpi(UINT dpi, POINT corner);
    void Repaint();
    void Paint();
    void Follow();
    void PlaceBesideHost();
    void EndMove();

    std::uint64_t Host() const { return reinterpret_cast<std::uint64_t>(host_); }
    Point FromMiddle(POINT pixel) const {
        return {pixel.x / surface_->scale() - kKnobMiddle.x, pixel.y / surface_->scale() - kKnobMiddle.y};
    }

    const HWND host_;
    HWND window_;
    UINT dpi_ = 0;
    std::unique_ptr<Surface> surface_;
    RingWindow ring_;

    std::optional<bool> in_front_;  // as the windows are stacked
    RECT host_rect_{};
    Point offset_{kGap, 0};  // from the top right corner of the host's client area
    bool is_moved_ = false;  // by the user, at this moment

    std::optional<Grab> grab_;
    bool pressed_ = false;
    bool press_handled_ = false;  // the press turned the dial or opened the menu: no click
    bool has_feedback_ = false;
};

DialWindow::DialWindow(HWND host) : host_(host) {
    // The window gets the resolution of the host's monitor when it is created there.
    const RECT host_area = ClientScreenRect(host);
    window_ = CreatePopup(
        kDialClass, OnWindowMessage, MAKEINTRESOURCEW(32649), WS_EX_TOOLWINDOW,  // IDC_HAND
        {host_area.right, host_area.top, host_area.right + kDialWidth, host_area.top + kDialHeight});
    SetDpi(DpiOf(window_), {host_area.right, host_area.top});
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetTimer(window_, kFollowTimer, kFollowMs, nullptr);
}

LRESULT CALLBACK DialWindow::OnWindowMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* dial = reinterpret_cast<DialWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (dial != nullptr && message == WM_NCHITTEST) {
        // Beside the knob the window is its own title bar: the system moves it.
        POINT pointer{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
        ScreenToClient(window, &pointer);
        const Point place = dial->FromMiddle(pointer);
        return std::hypot(place.x, place.y) <= kKnobRadius ? HTCLIENT : HTCAPTION;
    }
    const bool done = dial != nullptr && dial->OnMessage(message, wparam, lparam);
    return done ? 0 : DefWindowProcW(window, message, wparam, lparam);
}

bool DialWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case kUpdateDisplay:
            is_update_posted = false;
            ring_.UpdateDisplay();
            Repaint();
            return true;
        case kShowFeedback:
            has_feedback_ = true;
            SetTimer(window_, kFeedbackTimer, kFeedbackMs, nullptr);
            Repaint();
            return true;
        case WM_PAINT:
            Paint();
            return true;
        case WM_TIMER:
            OnTimer(wparam);
            return true;
        case WM_DPICHANGED: {
            const RECT& suggested = *reinterpret_cast<const RECT*>(lparam);
            SetDpi(LOWORD(wparam), {suggested.left, suggested.top});
            return true;
        }
        case WM_DISPLAYCHANGE:
            host_rect_ = {};  // the next Follow finds a visible place
            return true;
        case WM_ENTERSIZEMOVE:
            is_moved_ = true;
            return true;
        case WM_EXITSIZEMOVE:
            EndMove();
            return true;
        case WM_SETCURSOR:
            return OnSetCursor(LOWORD(lparam));
        case WM_KEYDOWN:
        case WM_KEYUP:
            return OnKey(message, wparam);
        default:
            return OnMouse(message, wparam, {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
    }
}

bool DialWindow::OnMouse(UINT message, WPARAM wparam, POINT pointer) {
    switch (message) {
        case WM_MOUSEWHEEL:
            TurnBy(kDegreesForNotch * GET_WHEEL_DELTA_WPARAM(wparam) / WHEEL_DELTA);
            return true;
        case WM_LBUTTONDOWN:
            SetCapture(window_);
            grab_ = {pointer, false, {}};
            Press();
            return true;
        case WM_MOUSEMOVE:
            if (grab_ && (wparam & MK_LBUTTON) != 0) {
                OnDrag(pointer);
            }
            return true;
        case WM_LBUTTONUP:
            ReleaseCapture();
            return true;
        case WM_CAPTURECHANGED:
            grab_.reset();
            ReleaseButton();
            if (is_moved_) {
                EndMove();  // under Wine a cancelled move has no WM_EXITSIZEMOVE
            }
            return true;
        default:
            return false;
    }
}

// The hand is on the rim of the knob then: the host gets turns with the button released.
void DialWindow::OnDrag(POINT pointer) {
    if (!grab_->turns && IsBeyondDragThreshold(grab_->start, pointer)) {
        const POINT start = grab_->start;
        grab_->turns = true;
        press_handled_ = true;
        ReleaseButton();
        TurnToPointer(start);
    }
    if (grab_ && grab_->turns) {
        TurnToPointer(pointer);
    }
}

void DialWindow::TurnToPointer(POINT pointer) {
    const Point place = FromMiddle(pointer);
    if (std::hypot(place.x, place.y) < kNoAngleRadius) {
        return;
    }
    const double radians = std::atan2(place.y, place.x);
    const double turned = std::remainder(radians - grab_->radians.value_or(radians), 2 * std::numbers::pi);
    grab_->radians = radians;
    if (turned != 0) {
        TurnBy(turned / std::numbers::pi * 180);
    }
}

bool DialWindow::OnSetCursor(WORD hit) const {
    if (hit == HTCAPTION) {
        SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32646)));  // IDC_SIZEALL
    }
    return hit == HTCAPTION;
}

bool DialWindow::OnKey(UINT message, WPARAM key) {
    if (message == WM_KEYDOWN) {
        OnKeyDown(key);
    } else if (key == VK_SPACE || key == VK_RETURN) {
        ReleaseButton();
    }
    return true;
}

void DialWindow::OnKeyDown(WPARAM key) {
    switch (key) {
        case VK_LEFT:
        case VK_DOWN:
            TurnBy(-kDegreesForNotch);
            break;
        case VK_RIGHT:
        case VK_UP:
            TurnBy(kDegreesForNotch);
            break;
        case VK_SPACE:
        case VK_RETURN:
            Press();
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

void DialWindow::OnTimer(UINT_PTR timer) {
    switch (timer) {
        case kHoldTimer:
            OnMenuHold();
            break;
        case kFollowTimer:
            Follow();
            break;
        case kFeedbackTimer:
            KillTimer(window_, kFeedbackTimer);
            has_feedback_ = false;
            Repaint();
            break;
        default:
            break;
    }
}

void DialWindow::OnMenuHold() {
    KillTimer(window_, kHoldTimer);
    if (!pressed_ || press_handled_) {
        return;  // the message was in the queue when the press ended
    }
    press_handled_ = true;
    if (TheOpenMenu()) {
        CloseMenu();
    } else {
        OpenMenuOf(Host());
    }
}

// Ignores key repeat.
void DialWindow::Press() {
    if (pressed_) {
        return;
    }
    pressed_ = true;
    press_handled_ = false;
    Hold(true);
    SetTimer(window_, kHoldTimer, kHoldMs, nullptr);
}

void DialWindow::ReleaseButton() {
    if (!pressed_) {
        return;
    }
    pressed_ = false;
    KillTimer(window_, kHoldTimer);
    Hold(false);
    if (!press_handled_) {
        const DpiScope of_host(host_);
        ReportException(Click(Host()));
    }
}

void DialWindow::TurnBy(double degrees) {
    KillTimer(window_, kHoldTimer);
    press_handled_ = true;
    const DpiScope of_host(host_);
    ReportException(Turn(Host(), degrees));
}

// One call moves and resizes: in between, most of the window could be on another monitor.
void DialWindow::SetDpi(UINT dpi, POINT corner) {
    dpi_ = dpi;
    const int width = ToPixels(kDialWidth, dpi);
    const int height = ToPixels(kDialHeight, dpi);
    surface_ = std::make_unique<Surface>(width, height, ScaleOf(dpi));
    SetWindowPos(window_, nullptr, corner.x, corner.y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    Repaint();
}

void DialWindow::Repaint() { RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }

void DialWindow::Paint() {
    DrawDial(*surface_, TheDial().State(), has_feedback_);
    surface_->PaintOn(window_);
}

// Shows the dial while the host's window shows, moves with it, and comes to the front with it.
void DialWindow::Follow() {
    if (!IsWindowVisible(host_) || IsIconic(host_)) {
        ShowWindow(window_, SW_HIDE);
        return;
    }
    const RECT rect = ClientScreenRect(host_);
    if (!is_moved_ && !EqualRect(&rect, &host_rect_)) {
        host_rect_ = rect;
        PlaceBesideHost();
    }
    // Only changes: tooltips and menus of the host stay above the dial.
    if (const bool in_front = IsInFront(); in_front_ != in_front) {
        in_front_ = in_front;
        StackOverHost(window_, host_, in_front);
        ring_.Stack(in_front);
    }
    if (!IsWindowVisible(window_)) {
        ShowWindow(window_, SW_SHOWNOACTIVATE);
    }
}

void DialWindow::PlaceBesideHost() {
    const double scale = ScaleOf(dpi_);
    const int left = host_rect_.right + static_cast<int>(offset_.x * scale);
    const int top = host_rect_.top + static_cast<int>(offset_.y * scale);
    const RECT rect = MovedOntoMonitor({left, top, left + surface_->width(), top + surface_->height()});
    SetWindowPos(window_, nullptr, rect.left, rect.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Keeps the place that the user chose, relative to the host's window.
void DialWindow::EndMove() {
    is_moved_ = false;
    RECT rect{};
    GetWindowRect(window_, &rect);
    host_rect_ = ClientScreenRect(host_);
    const double scale = ScaleOf(dpi_);
    offset_ = {(rect.left - host_rect_.right) / scale, (rect.top - host_rect_.top) / scale};
    PlaceBesideHost();
}

// Runs on the dial's thread while it waits for messages.
void CALLBACK OnForegroundChange(HWINEVENTHOOK, DWORD, HWND, LONG, LONG, DWORD, DWORD) {
    SendMessageW(dial_window, WM_TIMER, kFollowTimer, 0);
}

void RunDial(HWND host, HANDLE ready) {
    const DpiScope per_monitor;
    const DialWindow dial(host);
    dial_window = dial.window();
    // The timer alone would leave the dial above another program's window for a tenth of a second, as it does
    // under Wine, which does not report this event.
    SetWinEventHook(EVENT_SYSTEM_FOREGROUND, EVENT_SYSTEM_FOREGROUND, nullptr, OnForegroundChange, 0, 0,
                    WINEVENT_OUTOFCONTEXT);
    SetEvent(ready);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
}

}  // namespace

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

void RedrawDialWindowSoon() {
    const HWND window = dial_window;
    if (window != nullptr && !is_update_posted.exchange(true)) {
        PostMessageW(window, kUpdateDisplay, 0, 0);
    }
}

void ShowDialFeedback() {
    if (const HWND window = dial_window) {
        SendNotifyMessageW(window, kShowFeedback, 0, 0);
    }
}

}  // namespace dialsim
