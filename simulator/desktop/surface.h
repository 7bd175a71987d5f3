// Anti-aliased drawing: shapes are distance functions.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace dialsim {

struct Point {
    double x;
    double y;
};

struct Paint {
    std::uint32_t color;  // 0x00RRGGBB
    double opacity = 1;
};

// A bitmap in memory, for the system's drawing functions and those of this class. Shapes and texts are drawn
// in units of `scale` pixels.
class Surface {
public:
    // The size in pixels.
    explicit Surface(int width, int height, double scale = 1);
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    ~Surface();

    HDC context() const { return context_; }
    HBITMAP bitmap() const { return bitmap_; }
    int width() const { return width_; }
    int height() const { return height_; }
    double scale() const { return scale_; }
    // 0x00RRGGBB, rows from the top.
    std::uint32_t& At(int x, int y) const { return pixels_[y * width_ + x]; }

    // Answers WM_PAINT of a window of this size.
    void PaintOn(HWND window) const;

    void Clear(std::uint32_t color) const;
    void Blend(int x, int y, Paint paint) const;

    // Blends each pixel with the paint that `paint_at` returns for its middle. Only the square around the
    // middle is drawn.
    template <class PaintAt>
    void Shade(Point middle, double reach, PaintAt paint_at) const {
        const auto within = [this](double place, int margin, int size) {
            return static_cast<int>(std::clamp(place * scale_ + margin, 0.0, size * 1.0));
        };
        const int right = within(middle.x + reach, 2, width_);
        const int bottom = within(middle.y + reach, 2, height_);
        for (int y = within(middle.y - reach, -1, height_); y < bottom; ++y) {
            for (int x = within(middle.x - reach, -1, width_); x < right; ++x) {
                Blend(x, y, paint_at(Point{(x + 0.5) / scale_, (y + 0.5) / scale_}));
            }
        }
    }

    // Fills the shape: `distance` returns the distance of a place from the shape, negative inside.
    template <class Distance>
    void Fill(Point middle, double reach, Paint paint, Distance distance) const {
        Shade(middle, reach, [&](Point point) {
            return Paint{paint.color, paint.opacity * CoverageAt(distance(point))};
        });
    }

    void Disc(Point middle, double radius, Paint paint) const;
    // A disc whose colour changes from its top to its bottom.
    void GradientDisc(Point middle, double radius, std::uint32_t top, std::uint32_t bottom) const;
    // A disc whose edge fades over this width.
    void Glow(Point middle, double radius, double width, Paint paint) const;
    // The outline of a circle with this width.
    void Circle(Point middle, double radius, double width, Paint paint) const;
    void Line(Point from, Point to, double width, Paint paint) const;
    // An arc, clockwise between two angles in radians.
    void Arc(Point middle, double radius, double from, double to, double width, Paint paint) const;

    // One line of text, centred at the place; a text that is wider than `width` ends with an ellipsis.
    void Text(Point middle, double width, double size, int weight, std::uint32_t color, const wchar_t* text,
              const wchar_t* family = L"Segoe UI") const;

private:
    int ToPixels(double size) const { return static_cast<int>(std::lround(size * scale_)); }
    // How much of a pixel a shape covers whose edge is at this distance.
    double CoverageAt(double distance) const { return std::clamp(0.5 - distance * scale_, 0.0, 1.0); }

    const int width_;
    const int height_;
    const double scale_;
    const HDC context_;
    std::uint32_t* pixels_ = nullptr;
    HBITMAP bitmap_;
    HGDIOBJ old_bitmap_;
};

// The point on a circle at this angle, in radians clockwise from the right.
inline Point PointOnCircle(Point middle, double radius, double angle) {
    return {middle.x + radius * std::cos(angle), middle.y + radius * std::sin(angle)};
}

}  // namespace dialsim
