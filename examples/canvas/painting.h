// A picture to paint on: soft-edged strokes, repeated around the middle if asked for, and a way back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// 0x00RRGGBB.
using Color = std::uint32_t;

// The hue in degrees, saturation and value from 0 to 1.
Color FromHsv(double hue, double saturation, double value);

struct Point {
    double x;
    double y;
};

struct Brush {
    Color color;
    double width;    // in pixels
    double opacity;  // from 0 to 1
    int petals;      // how often a stroke is repeated around the middle
};

class Painting {
public:
    Painting(int width, int height, Color paper);

    int width() const { return width_; }
    int height() const { return height_; }
    // Rows from the top, without gaps.
    const Color* pixels() const { return pixels_.data(); }

    // A stroke: it begins with a dot, goes from point to point, and has to be ended.
    void Begin(const Brush& brush, Point at);
    void LineTo(Point to);
    void End();
    bool InStroke() const { return !before_.empty(); }

    // One stroke back or forth; false where there is none, or while one is being painted.
    bool Undo();
    bool Redo();
    std::size_t Strokes() const { return done_.size(); }

private:
    // From left and top up to, and without, right and bottom.
    struct Area {
        int left;
        int top;
        int right;
        int bottom;
    };
    // What a stroke has painted over, or, once it is undone, what it had painted.
    struct Change {
        Area area;
        std::vector<Color> pixels;
    };

    void PaintLine(Point from, Point to);
    Area AreaOf(Point from, Point to) const;
    std::vector<Color> CopyArea(const std::vector<Color>& picture, const Area& area) const;
    void Swap(Change& change);
    bool Move(std::vector<Change>& from, std::vector<Change>& to);

    const int width_;
    const int height_;
    std::vector<Color> pixels_;
    std::vector<Change> done_;
    std::vector<Change> undone_;

    // Of the stroke that is being painted: it covers a pixel once, however often it passes.
    Brush brush_{};
    Point last_{};
    Area painted_{};
    std::vector<Color> before_;
    std::vector<double> coverage_;
};
