#include "simulator/desktop/ring_window.h"

#include "simulator/desktop/dpi.h"
#include "simulator/desktop/icons.h"
#include "simulator/desktop/placement.h"
#include "simulator/dial/menu_model.h"
#include "simulator/dial/open_menu.h"

namespace dialsim {

namespace {

constexpr wchar_t kRingClass[] = L"DialsimRing";
constexpr int kSide = 360;
constexpr Point kMiddle{kSide / 2.0, kSide / 2.0};
constexpr double kInner = 80;
constexpr double kOuter = 172;
constexpr double kBand = (kInner + kOuter) / 2;
constexpr double kPictureSize = 40;
constexpr double kLabelWidth = 140;

constexpr std::uint32_t kRing = 0x1F242B;
constexpr std::uint32_t kHighlight = 0x1F6FEB;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kLabel = 0x1C2128;
constexpr std::uint32_t kFaint = 0x505963;
// System entries are drawn but cannot be chosen.
constexpr std::uint32_t kSystems = 0x7D8590;

// A segment of the ring around an angle, with straight sides.
void DrawSector(const Surface& surface, double angle, double half_angle, Paint paint) {
    surface.Fill(kMiddle, kOuter, paint, [=](Point point) {
        const double x = point.x - kMiddle.x;
        const double y = point.y - kMiddle.y;
        const double along = x * std::cos(angle) + y * std::sin(angle);
        const double across = std::abs(y * std::cos(angle) - x * std::sin(angle));
        const double beyond_side = across * std::cos(half_angle) - along * std::sin(half_angle);
        return std::max(beyond_side, std::abs(std::hypot(x, y) - kBand) - (kOuter - kInner) / 2);
    });
}

void DrawMiddle(const Surface& surface, const MenuModelItem& item) {
    surface.Disc(kMiddle, kInner + 0.5, {kWhite, 0.97});
    surface.Text({kMiddle.x, kMiddle.y - 4}, kLabelWidth, 22, FW_SEMIBOLD, kLabel, Widen(item.label).c_str());
    surface.Text({kMiddle.x, kMiddle.y + 24}, kLabelWidth, 12, FW_NORMAL, kFaint, L"click to choose");
}

void DrawMenu(const Surface& surface, const MenuModel& menu, std::uint32_t highlighted) {
    const std::size_t count = menu.items.size() + menu.system_items.size();
    const double half_angle = std::acos(-1.0) / static_cast<double>(count);
    surface.Circle(kMiddle, kBand, kOuter - kInner, {kRing, 0.93});
    DrawSector(surface, AngleInRing(highlighted, count), half_angle, {kHighlight});
    for (std::size_t i = 0; i < menu.items.size(); ++i) {
        const double angle = AngleInRing(i, count);
        DrawPicture(surface, PointOnCircle(kMiddle, kBand, angle), kPictureSize, kWhite,
                    menu.items[i].picture);
        if (menu.items[i].selected) {
            surface.Arc(kMiddle, kOuter - 7, angle - half_angle / 3, angle + half_angle / 3, 4, {kWhite});
        }
    }
    for (std::size_t i = 0; i < menu.system_items.size(); ++i) {
        const Point middle = PointOnCircle(kMiddle, kBand, AngleInRing(menu.items.size() + i, count));
        // The system entries have the first known icons, in the same order.
        DrawKnownIcon(surface, middle, kPictureSize, {kSystems},
                      static_cast<std::uint32_t>(menu.system_items[i]));
    }
    DrawMiddle(surface, menu.items[highlighted]);
}

// The rectangle of the ring over the middle of the host's window.
RECT RectOver(HWND host, int side) {
    const RECT client = ClientScreenRect(host);
    const LONG left = (client.left + client.right - side) / 2;
    const LONG top = (client.top + client.bottom - side) / 2;
    return MovedOntoMonitor({left, top, left + side, top + side});
}

// Copies the screen, which simulates transparency where windows do not support it.
std::unique_ptr<Surface> CaptureScreen(const RECT& rect, double scale) {
    auto copy = std::make_unique<Surface>(rect.right - rect.left, rect.bottom - rect.top, scale);
    const HDC screen = GetDC(nullptr);
    BitBlt(copy->context(), 0, 0, copy->width(), copy->height(), screen, rect.left, rect.top, SRCCOPY);
    ReleaseDC(nullptr, screen);
    GdiFlush();
    return copy;
}

}  // namespace

void RingWindow::UpdateDisplay() {
    const auto open = TheOpenMenu();
    const auto menu = open ? ReadMenu(open->window) : std::nullopt;
    if (!menu || open->highlighted >= menu->items.size()) {
        Close();
        return;
    }
    if (window_ == nullptr) {
        Open(reinterpret_cast<HWND>(open->window));
    }
    BitBlt(surface_->context(), 0, 0, surface_->width(), surface_->height(), background_->context(), 0, 0,
           SRCCOPY);
    GdiFlush();
    DrawMenu(*surface_, *menu, open->highlighted);
    ShowWindow(window_, SW_SHOWNOACTIVATE);
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void RingWindow::Stack(bool in_front) const {
    if (window_ != nullptr) {
        StackOverHost(window_, host_, in_front);
    }
}

// Created on the monitor of the host: it has the resolution of that monitor then.
void RingWindow::Open(HWND host) {
    host_ = host;
    window_ = CreatePopup(kRingClass, OnMessage, MAKEINTRESOURCEW(32512),  // IDC_ARROW
                          WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, RectOver(host, kSide));
    SetDpi(DpiOf(window_));
    Stack(IsInFront());
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void RingWindow::Close() {
    DestroyWindow(window_);
    window_ = nullptr;
}

void RingWindow::SetDpi(UINT dpi) {
    ShowWindow(window_, SW_HIDE);
    const int side = ToPixels(kSide, dpi);
    const RECT rect = RectOver(host_, side);
    SetWindowRgn(window_, CreateEllipticRgn(0, 0, side + 1, side + 1), FALSE);
    SetWindowPos(window_, nullptr, rect.left, rect.top, side, side, SWP_NOZORDER | SWP_NOACTIVATE);
    background_ = CaptureScreen(rect, ScaleOf(dpi));
    surface_ = std::make_unique<Surface>(side, side, ScaleOf(dpi));
}

LRESULT CALLBACK RingWindow::OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* ring = reinterpret_cast<RingWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (ring == nullptr) {
        return DefWindowProcW(window, message, wparam, lparam);
    }
    switch (message) {
        case WM_LBUTTONDOWN:
            CloseMenu();
            return 0;
        case WM_DPICHANGED:
            ring->SetDpi(LOWORD(wparam));
            ring->UpdateDisplay();
            return 0;
        case WM_PAINT:
            ring->surface_->PaintOn(window);
            return 0;
        default:
            return DefWindowProcW(window, message, wparam, lparam);
    }
}

}  // namespace dialsim
