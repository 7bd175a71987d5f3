#include "simulator/desktop/icons.h"

#include <shlwapi.h>
#include <windows.h>
// after windows.h
#include <gdiplus.h>

#include <numbers>

#include "simulator/desktop/gdiplus_session.h"
#include "simulator/system/files.h"

namespace dialsim {

namespace {

// Icons are drawn in a square of 24 by 24 around the origin and then scaled.
constexpr double kIconSquare = 24;
constexpr double kPen = 2;

class IconPainter {
public:
    IconPainter(const Surface& surface, Point middle, double size, Paint paint)
        : surface_(surface), middle_(middle), scale_(size / kIconSquare), paint_(paint) {}

    void Line(Point from, Point to, double width = kPen) const {
        surface_.Line(ToSurface(from), ToSurface(to), width * scale_, paint_);
    }
    // An arrowhead: two lines from `tip` to the points at `back` plus and minus `side`.
    void Arrowhead(Point tip, Point back, Point side) const {
        Line({tip.x + back.x + side.x, tip.y + back.y + side.y}, tip);
        Line({tip.x + back.x - side.x, tip.y + back.y - side.y}, tip);
    }
    void Arc(Point middle, double radius, double from, double to) const {
        surface_.Arc(ToSurface(middle), radius * scale_, from * std::numbers::pi, to * std::numbers::pi,
                     kPen * scale_, paint_);
    }
    void Circle(Point middle, double radius) const {
        surface_.Circle(ToSurface(middle), radius * scale_, kPen * scale_, paint_);
    }
    void Disc(Point middle, double radius) const {
        surface_.Disc(ToSurface(middle), radius * scale_, paint_);
    }

private:
    Point ToSurface(Point point) const {
        return {middle_.x + point.x * scale_, middle_.y + point.y * scale_};
    }

    const Surface& surface_;
    const Point middle_;
    const double scale_;
    const Paint paint_;
};

void DrawScroll(const IconPainter& pen) {
    pen.Line({0, -9}, {0, 9});
    pen.Arrowhead({0, -10}, {0, 4}, {4, 0});
    pen.Arrowhead({0, 10}, {0, -4}, {4, 0});
}

void DrawZoom(const IconPainter& pen) {
    pen.Circle({-2, -2}, 7);
    pen.Line({3.5, 3.5}, {9, 9}, 3);
    pen.Line({-5, -2}, {1, -2});
    pen.Line({-2, -5}, {-2, 1});
}

void DrawUndoRedo(const IconPainter& pen) {
    pen.Arc({0, 5}, 10, 1.1, 1.9);
    for (const double side : {-1.0, 1.0}) {
        pen.Line({side * 9.5, 2}, {side * 9, -5});
        pen.Line({side * 9.5, 2}, {side * 2.5, 1.5});
    }
}

void DrawVolume(const IconPainter& pen) {
    pen.Line({-9, -3}, {-9, 3}, 3);
    pen.Line({-9, -3}, {-5, -3});
    pen.Line({-9, 3}, {-5, 3});
    pen.Line({-5, -3}, {0, -8});
    pen.Line({-5, 3}, {0, 8});
    pen.Line({0, -8}, {0, 8});
    pen.Arc({1, 0}, 4.5, -0.25, 0.25);
    pen.Arc({1, 0}, 8.5, -0.25, 0.25);
}

void DrawNextPrevious(const IconPainter& pen) {
    pen.Line({-9, -6}, {-9, 6});
    pen.Arrowhead({-8, 0}, {6, 0}, {0, 6});
    pen.Line({9, -6}, {9, 6});
    pen.Arrowhead({8, 0}, {-6, 0}, {0, 6});
}

void DrawRuler(const IconPainter& pen) {
    pen.Line({-10, -4}, {10, -4});
    pen.Line({10, -4}, {10, 5});
    pen.Line({10, 5}, {-10, 5});
    pen.Line({-10, 5}, {-10, -4});
    for (const double x : {-6.0, -2.0, 2.0, 6.0}) {
        pen.Line({x, -4}, {x, 0}, 1.5);
    }
}

void DrawInkColor(const IconPainter& pen) {
    pen.Arc({0, 3}, 6.5, -0.2, 1.2);
    pen.Line({-5.3, -0.8}, {0, -10});
    pen.Line({5.3, -0.8}, {0, -10});
    pen.Disc({0, 4}, 3.5);
}

void DrawInkThickness(const IconPainter& pen) {
    pen.Line({-9, -8}, {9, -8}, 1.5);
    pen.Line({-9, -2}, {9, -2}, 3);
    pen.Line({-9, 6}, {9, 6}, 6);
}

void DrawPenType(const IconPainter& pen) {
    pen.Line({-4, 4}, {7, -7}, 6);
    pen.Line({-9, 9}, {-5, 5}, 2.5);
}

using DrawIcon = void (*)(const IconPainter&);
constexpr DrawIcon kKnownIcons[] = {DrawScroll, DrawZoom,     DrawUndoRedo,     DrawVolume, DrawNextPrevious,
                                    DrawRuler,  DrawInkColor, DrawInkThickness, DrawPenType};

// The pixel at the corner of a square of pixels, given half of its side.
POINT CornerOf(const Surface& surface, Point middle, int half_side) {
    return {static_cast<LONG>(middle.x * surface.scale()) - half_side,
            static_cast<LONG>(middle.y * surface.scale()) - half_side};
}

// --- glyphs

// Adds the font of a file to this process for the lifetime of the object.
class FontFile {
public:
    explicit FontFile(const std::string& uri) : path_(Widen(PathOfFileUri(uri))) {
        AddFontResourceExW(path_.c_str(), FR_PRIVATE, nullptr);
    }
    FontFile(const FontFile&) = delete;
    FontFile& operator=(const FontFile&) = delete;
    ~FontFile() { RemoveFontResourceExW(path_.c_str(), FR_PRIVATE, nullptr); }

private:
    const std::wstring path_;
};

void DrawGlyph(const Surface& surface, Point middle, double size, std::uint32_t color,
               const Picture& picture) {
    const FontFile file(picture.font_file);
    const int side = static_cast<int>(size * surface.scale());
    // White on black: the brightness of a pixel is the coverage by the glyph.
    const Surface mask(2 * side, 2 * side);
    mask.Text({side * 1.0, side * 1.0}, 2 * side, side, FW_NORMAL, 0xFFFFFF, picture.glyph.c_str(),
              picture.font_family.c_str());
    const POINT corner = CornerOf(surface, middle, side);
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x) {
            const double covered = (mask.At(x, y) & 0xFF) / 255.0;
            surface.Blend(corner.x + x, corner.y + y, {color, covered});
        }
    }
}

// --- pictures

// The average colour and coverage of the area of the picture that one pixel of the drawing shows.
Paint AverageOf(Gdiplus::Bitmap& bitmap, double left, double top, double step) {
    constexpr int kSamples = 4;
    double sums[4] = {};
    for (int i = 0; i < kSamples * kSamples; ++i) {
        Gdiplus::Color color;
        bitmap.GetPixel(static_cast<INT>(left + step * (i % kSamples + 0.5) / kSamples),
                        static_cast<INT>(top + step * (i / kSamples + 0.5) / kSamples), &color);
        const double alpha = color.GetA();
        sums[0] += color.GetR() * alpha;
        sums[1] += color.GetG() * alpha;
        sums[2] += color.GetB() * alpha;
        sums[3] += alpha;
    }
    if (sums[3] == 0) {
        return {0, 0};
    }
    const auto average = [&](int i) { return static_cast<std::uint32_t>(std::lround(sums[i] / sums[3])); };
    return {average(0) << 16 | average(1) << 8 | average(2), sums[3] / (255.0 * kSamples * kSamples)};
}

void DrawBitmap(const Surface& surface, Point middle, double size, Gdiplus::Bitmap& bitmap) {
    const int side = static_cast<int>(size * surface.scale());
    const double step = static_cast<double>(std::max(bitmap.GetWidth(), bitmap.GetHeight())) / side;
    const POINT corner = CornerOf(surface, middle, side / 2);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            surface.Blend(corner.x + x, corner.y + y, AverageOf(bitmap, x * step, y * step, step));
        }
    }
}

// Empty for an invalid picture: the item is drawn without one.
void DrawPng(const Surface& surface, Point middle, double size, const std::string& png) {
    const GdiplusSession session;
    IStream* stream =
        SHCreateMemStream(reinterpret_cast<const BYTE*>(png.data()), static_cast<UINT>(png.size()));
    if (Gdiplus::Bitmap bitmap(stream); bitmap.GetLastStatus() == Gdiplus::Ok) {
        DrawBitmap(surface, middle, size, bitmap);
    }
    stream->Release();
}

}  // namespace

void DrawPicture(const Surface& surface, Point middle, double size, std::uint32_t color,
                 const Picture& picture) {
    if (picture.known_icon) {
        DrawKnownIcon(surface, middle, size, {color}, *picture.known_icon);
    } else if (!picture.glyph.empty()) {
        DrawGlyph(surface, middle, size, color, picture);
    } else if (!picture.png.empty()) {
        DrawPng(surface, middle, size, picture.png);
    }
}

void DrawKnownIcon(const Surface& surface, Point middle, double size, Paint paint, std::uint32_t icon) {
    kKnownIcons[icon](IconPainter(surface, middle, size, paint));
}

}  // namespace dialsim
