#include "simulator/desktop/surface.h"

namespace dialsim {

namespace {

double DistanceBetween(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

double DistanceToLine(Point point, Point from, Point to) {
    const Point direction{to.x - from.x, to.y - from.y};
    const double length_squared = direction.x * direction.x + direction.y * direction.y;
    const double along =
        length_squared == 0
            ? 0
            : ((point.x - from.x) * direction.x + (point.y - from.y) * direction.y) / length_squared;
    const double nearest = std::clamp(along, 0.0, 1.0);
    return DistanceBetween(point, {from.x + nearest * direction.x, from.y + nearest * direction.y});
}

std::uint32_t MixComponent(std::uint32_t below, std::uint32_t above, int shift, double amount) {
    const double from = below >> shift & 0xFF;
    const double to = above >> shift & 0xFF;
    return static_cast<std::uint32_t>(std::lround(from + (to - from) * amount)) << shift;
}

std::uint32_t Mix(std::uint32_t below, std::uint32_t above, double amount) {
    return MixComponent(below, above, 16, amount) | MixComponent(below, above, 8, amount) |
           MixComponent(below, above, 0, amount);
}

}  // namespace

Surface::Surface(int width, int height, double scale)
    : width_(width), height_(height), scale_(scale), context_(CreateCompatibleDC(nullptr)) {
    const BITMAPINFO format{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    void* pixels = nullptr;
    bitmap_ = CreateDIBSection(context_, &format, DIB_RGB_COLORS, &pixels, nullptr, 0);
    pixels_ = static_cast<std::uint32_t*>(pixels);
    old_bitmap_ = SelectObject(context_, bitmap_);
    SetBkMode(context_, TRANSPARENT);
}

Surface::~Surface() {
    SelectObject(context_, old_bitmap_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
}

void Surface::PaintOn(HWND window) const {
    PAINTSTRUCT paint;
    const HDC target = BeginPaint(window, &paint);
    BitBlt(target, 0, 0, width_, height_, context_, 0, 0, SRCCOPY);
    EndPaint(window, &paint);
}

void Surface::Clear(std::uint32_t color) const { std::fill_n(pixels_, width_ * height_, color); }

void Surface::Blend(int x, int y, Paint paint) const {
    if (paint.opacity > 0) {
        At(x, y) = Mix(At(x, y), paint.color, paint.opacity);
    }
}

void Surface::Disc(Point middle, double radius, Paint paint) const {
    Fill(middle, radius, paint, [=](Point point) { return DistanceBetween(point, middle) - radius; });
}

void Surface::GradientDisc(Point middle, double radius, std::uint32_t top, std::uint32_t bottom) const {
    Shade(middle, radius, [=, this](Point point) {
        const double below_top = std::clamp((point.y - middle.y + radius) / (2 * radius), 0.0, 1.0);
        return Paint{Mix(top, bottom, below_top), CoverageAt(DistanceBetween(point, middle) - radius)};
    });
}

void Surface::Glow(Point middle, double radius, double width, Paint paint) const {
    Shade(middle, radius + width, [=](Point point) {
        const double beyond = std::clamp((DistanceBetween(point, middle) - radius) / width, 0.0, 1.0);
        return Paint{paint.color, paint.opacity * (1 - beyond) * (1 - beyond)};
    });
}

void Surface::Circle(Point middle, double radius, double width, Paint paint) const {
    Fill(middle, radius + width / 2, paint,
         [=](Point point) { return std::abs(DistanceBetween(point, middle) - radius) - width / 2; });
}

void Surface::Line(Point from, Point to, double width, Paint paint) const {
    const Point middle{(from.x + to.x) / 2, (from.y + to.y) / 2};
    Fill(middle, DistanceBetween(from, to) / 2 + width / 2, paint,
         [=](Point point) { return DistanceToLine(point, from, to) - width / 2; });
}

void Surface::Arc(Point middle, double radius, double from, double to, double width, Paint paint) const {
    const double half = (to - from) / 2;
    const double turned = from + half;
    const Point end = PointOnCircle({0, 0}, radius, half);
    // The arc is symmetric about its middle: the distance is computed for one half.
    Fill(middle, radius + width / 2, paint, [=](Point point) {
        const double x = point.x - middle.x;
        const double y = point.y - middle.y;
        const Point mirrored{x * std::cos(turned) + y * std::sin(turned),
                             std::abs(y * std::cos(turned) - x * std::sin(turned))};
        const bool within_arc = std::atan2(mirrored.y, mirrored.x) <= half;
        return (within_arc ? std::abs(std::hypot(x, y) - radius) : DistanceBetween(mirrored, end)) -
               width / 2;
    });
}

void Surface::Text(Point middle, double width, double size, int weight, std::uint32_t color,
                   const wchar_t* text, const wchar_t* family) const {
    const HFONT font = CreateFontW(-ToPixels(size), 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                   OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                                   DEFAULT_PITCH | FF_SWISS, family);
    const HGDIOBJ old_font = SelectObject(context_, font);
    SetTextColor(context_, RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF));
    RECT area{ToPixels(middle.x - width / 2), ToPixels(middle.y - size), ToPixels(middle.x + width / 2),
              ToPixels(middle.y + size)};
    DrawTextW(context_, text, -1, &area,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(context_, old_font);
    DeleteObject(font);
    GdiFlush();
}

}  // namespace dialsim
