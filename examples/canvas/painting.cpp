#include "painting.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t kMostChanges = 64;
const double kFullTurn = 2 * std::acos(-1.0);

Color FromParts(double red, double green, double blue) {
    const auto part = [](double value) { return static_cast<Color>(std::lround(value * 255)); };
    return part(red) << 16 | part(green) << 8 | part(blue);
}

double PartOf(Color color, int shift) { return (color >> shift & 0xFF) / 255.0; }

Color Mix(Color below, Color above, double amount) {
    const auto part = [&](int shift) {
        return PartOf(below, shift) + (PartOf(above, shift) - PartOf(below, shift)) * amount;
    };
    return FromParts(part(16), part(8), part(0));
}

double Distance(Point point, Point from, Point to) {
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double length_squared = x * x + y * y;
    const double along =
        length_squared == 0 ? 0 : ((point.x - from.x) * x + (point.y - from.y) * y) / length_squared;
    const double nearest = std::clamp(along, 0.0, 1.0);
    return std::hypot(point.x - from.x - nearest * x, point.y - from.y - nearest * y);
}

Point Rotated(Point point, Point middle, double angle) {
    const double x = point.x - middle.x;
    const double y = point.y - middle.y;
    return {middle.x + x * std::cos(angle) - y * std::sin(angle),
            middle.y + x * std::sin(angle) + y * std::cos(angle)};
}

}  // namespace

Color FromHsv(double hue, double saturation, double value) {
    // Each component of the colour has its full value for a third of the circle and decreases on both sides.
    const auto part = [&](double offset) {
        const double sector = std::fmod(hue / 60 + offset, 6);
        return value * (1 - saturation * std::clamp(std::min(sector, 4 - sector), 0.0, 1.0));
    };
    return FromParts(part(5), part(3), part(1));
}

Painting::Painting(int width, int height, Color paper)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), paper) {}

void Painting::Begin(const Brush& brush, Point at) {
    End();
    brush_ = brush;
    before_ = pixels_;
    coverage_.assign(pixels_.size(), 0.0);
    painted_ = {width_, height_, 0, 0};
    last_ = at;
    LineTo(at);
}

void Painting::LineTo(Point to) {
    if (!InStroke()) {
        return;
    }
    const Point middle{width_ / 2.0, height_ / 2.0};
    for (int petal = 0; petal < brush_.petals; ++petal) {
        const double angle = kFullTurn * petal / brush_.petals;
        PaintLine(Rotated(last_, middle, angle), Rotated(to, middle, angle));
    }
    last_ = to;
}

void Painting::End() {
    if (!InStroke()) {
        return;
    }
    // Restores the picture before the stroke and then applies the stroke like a redo.
    pixels_.swap(before_);
    Change stroke{painted_, CopyArea(before_, painted_)};
    before_.clear();
    Swap(stroke);
    undone_.clear();
    done_.push_back(std::move(stroke));
    if (done_.size() > kMostChanges) {
        done_.erase(done_.begin());
    }
}

bool Painting::Undo() { return Move(done_, undone_); }

bool Painting::Redo() { return Move(undone_, done_); }

bool Painting::Move(std::vector<Change>& from, std::vector<Change>& to) {
    if (from.empty() || InStroke()) {
        return false;
    }
    to.push_back(std::move(from.back()));
    from.pop_back();
    Swap(to.back());
    return true;
}

void Painting::Swap(Change& change) {
    const Area& area = change.area;
    auto other = change.pixels.begin();
    for (int y = area.top; y < area.bottom; ++y) {
        const auto row = pixels_.begin() + std::ptrdiff_t{y} * width_;
        other = std::swap_ranges(row + area.left, row + area.right, other);
    }
}

std::vector<Color> Painting::CopyArea(const std::vector<Color>& picture, const Area& area) const {
    std::vector<Color> cut;
    for (int y = area.top; y < area.bottom; ++y) {
        const auto row = picture.begin() + std::ptrdiff_t{y} * width_;
        cut.insert(cut.end(), row + area.left, row + area.right);
    }
    return cut;
}

// The area that the brush covers on this line; empty outside the paper.
Painting::Area Painting::AreaOf(Point from, Point to) const {
    const double reach = brush_.width / 2 + 1;
    const auto column = [&](double x) {
        return static_cast<int>(std::clamp(x, 0.0, static_cast<double>(width_)));
    };
    const auto row = [&](double y) {
        return static_cast<int>(std::clamp(y, 0.0, static_cast<double>(height_)));
    };
    return {column(std::min(from.x, to.x) - reach), row(std::min(from.y, to.y) - reach),
            column(std::max(from.x, to.x) + reach + 1), row(std::max(from.y, to.y) + reach + 1)};
}

void Painting::PaintLine(Point from, Point to) {
    const Area area = AreaOf(from, to);
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            const double distance = Distance({x + 0.5, y + 0.5}, from, to);
            const double covered = std::clamp(brush_.width / 2 - distance + 0.5, 0.0, 1.0);
            const auto at =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
            if (covered > coverage_[at]) {
                coverage_[at] = covered;
                pixels_[at] = Mix(before_[at], brush_.color, covered * brush_.opacity);
            }
        }
    }
    painted_ = {std::min(painted_.left, area.left), std::min(painted_.top, area.top),
                std::max(painted_.right, area.right), std::max(painted_.bottom, area.bottom)};
}
