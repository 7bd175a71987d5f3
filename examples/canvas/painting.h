// A picture with soft-edged strokes, optionally repeated around the middle, and with undo and redo.
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
    int petals;      // the number of copies of a stroke around the middle
};

class Painting {
public:
    Painting(int width, int height, Color paper);

    int width() const { return width_; }
    int height() const { return height_; }
    // Rows from the top, without gaps.
    const Color* pixels() const { return pixels_.data(); }

    // A stroke begins with a dot, continues from point to point, and must be ended.
    void Begin(const Brush& brush, Point at);
    void LineTo(Point to);
    void End();
    bool InStroke() const { return !before_.empty(); }

    // Undo or redo one stroke; false when there is none, or during a stroke.
    bool Undo();
    bool Redo();
    std::size_t Strokes() const { return done_.size(); }

private:
    // Right and bottom are exclusive.
    struct Area {
        int left;
        int top;
        int right;
        int bottom;
    };
    // The pixels under a stroke, or, after undo, the pixels of the stroke.
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

    // The coverage of the current stroke: it covers a pixel once, however often it passes.
    Brush brush_{};
    Point last_{};
    Area painted_{};
    std::vector<Color> before_;
    std::vector<double> coverage_;
};
