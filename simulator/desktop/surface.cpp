#include "simulator/desktop/surface.h"

namespace dialsim {

namespace {

double DistanceBetween(Spot a, Spot b) { return std::hypot(a.x - b.x, a.y - b.y); }

double DistanceToLine(Spot spot, Spot from, Spot to) {
    const Spot way{to.x - from.x, to.y - from.y};
    const double length_squared = way.x * way.x + way.y * way.y;
    const double along =
        length_squared == 0 ? 0 : ((spot.x - from.x) * way.x + (spot.y - from.y) * way.y) / length_squared;
    const double nearest = std::clamp(along, 0.0, 1.0);
    return DistanceBetween(spot, {from.x + nearest * way.x, from.y + nearest * way.y});
}

std::uint32_t MixPart(std::uint32_t below, std::uint32_t above, int shift, double amount) {
    const double from = below >> shift & 0xFF;
    const double to = above >> shift & 0xFF;
    return static_cast<std::uint32_t>(std::lround(from + (to - from) * amount)) << shift;
}

}  // namespace

Sheet::Sheet(int width, int height) : width_(width), height_(height), context_(CreateCompatibleDC(nullptr)) {
    const BITMAPINFO format{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    void* pixels = nullptr;
    bitmap_ = CreateDIBSection(context_, &format, DIB_RGB_COLORS, &pixels, nullptr, 0);
    pixels_ = static_cast<std::uint32_t*>(pixels);
    former_ = SelectObject(context_, bitmap_);
    SetBkMode(context_, TRANSPARENT);
}

Sheet::~Sheet() {
    SelectObject(context_, former_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
}

void Sheet::Blend(int x, int y, Ink ink) const {
    std::uint32_t& pixel = At(x, y);
    pixel = MixPart(pixel, ink.color, 16, ink.opacity) | MixPart(pixel, ink.color, 8, ink.opacity) |
            MixPart(pixel, ink.color, 0, ink.opacity);
}

void Sheet::Disc(Spot middle, double radius, Ink ink) const {
    Fill(middle, radius, ink, [=](Spot spot) { return DistanceBetween(spot, middle) - radius; });
}

void Sheet::Circle(Spot middle, double radius, double width, Ink ink) const {
    Fill(middle, radius + width / 2, ink,
         [=](Spot spot) { return std::abs(DistanceBetween(spot, middle) - radius) - width / 2; });
}

void Sheet::Line(Spot from, Spot to, double width, Ink ink) const {
    const Spot middle{(from.x + to.x) / 2, (from.y + to.y) / 2};
    Fill(middle, DistanceBetween(from, to) / 2 + width / 2, ink,
         [=](Spot spot) { return DistanceToLine(spot, from, to) - width / 2; });
}

void Sheet::Arc(Spot middle, double radius, double from, double to, double width, Ink ink) const {
    const double half = (to - from) / 2;
    const double turned = from + half;
    const Spot end = OnCircle({0, 0}, radius, half);
    // Seen from the arc's middle, both halves are alike.
    Fill(middle, radius + width / 2, ink, [=](Spot spot) {
        const double x = spot.x - middle.x;
        const double y = spot.y - middle.y;
        const Spot seen{x * std::cos(turned) + y * std::sin(turned),
                        std::abs(y * std::cos(turned) - x * std::sin(turned))};
        const bool beside = std::atan2(seen.y, seen.x) <= half;
        return (beside ? std::abs(std::hypot(x, y) - radius) : DistanceBetween(seen, end)) - width / 2;
    });
}

void Sheet::Text(Spot middle, int size, int weight, std::uint32_t color, const wchar_t* text,
                 const wchar_t* family) const {
    const HFONT font =
        CreateFontW(-size, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH | FF_SWISS, family);
    const HGDIOBJ former = SelectObject(context_, font);
    SetTextColor(context_, RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF));
    RECT area{0, static_cast<LONG>(middle.y) - size, static_cast<LONG>(2 * middle.x),
              static_cast<LONG>(middle.y) + size};
    DrawTextW(context_, text, -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(context_, former);
    DeleteObject(font);
    GdiFlush();
}

}  // namespace dialsim
