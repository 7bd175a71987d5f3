// The painting example's picture: the extent of a stroke, and undo and redo.
#include "painting.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace {

constexpr int kSide = 60;
constexpr Color kPaper = 0xFFFFFF;
constexpr Color kRed = 0xFF0000;
constexpr Brush kBrush = {kRed, 10, 1, 1};

class Paper : public testing::Test {
protected:
    Color At(int x, int y) const {
        return painting_.pixels()[static_cast<std::size_t>(y) * kSide + static_cast<std::size_t>(x)];
    }
    std::vector<Color> All() const { return {painting_.pixels(), painting_.pixels() + kSide * kSide}; }
    void Stroke(const Brush& brush, Point from, Point to) {
        painting_.Begin(brush, from);
        painting_.LineTo(to);
        painting_.End();
    }

    Painting painting_{kSide, kSide, kPaper};
    const std::vector<Color> empty_ = All();
};

TEST_F(Paper, HasItsColourEverywhere) {
    EXPECT_EQ(painting_.width(), kSide);
    EXPECT_EQ(painting_.height(), kSide);
    EXPECT_EQ(All(), std::vector<Color>(std::size_t{kSide} * kSide, kPaper));
}

TEST_F(Paper, AStrokeIsAsWideAsItsBrush) {
    Stroke(kBrush, {10, 20}, {50, 20});
    EXPECT_EQ(At(30, 20), kRed);
    EXPECT_EQ(At(30, 15), kRed);
    EXPECT_EQ(At(30, 24), kRed);
    EXPECT_EQ(At(30, 13), kPaper);
    EXPECT_EQ(At(30, 26), kPaper);
    EXPECT_EQ(At(3, 20), kPaper) << "before its start";
    EXPECT_EQ(At(57, 20), kPaper) << "behind its end";
}

TEST_F(Paper, AStrokeBeginsWithADot) {
    painting_.Begin(kBrush, {30, 30});
    EXPECT_EQ(At(30, 30), kRed);
    EXPECT_TRUE(painting_.InStroke());
    painting_.End();
    EXPECT_FALSE(painting_.InStroke());
    EXPECT_EQ(At(30, 30), kRed);
}

TEST_F(Paper, OpacityMixesWithWhatIsBelow) {
    Stroke({kRed, 10, 0.5, 1}, {10, 20}, {50, 20});
    EXPECT_EQ(At(30, 20), 0xFF8080U);
}

TEST_F(Paper, AStrokePaintsEachPixelOnce) {
    painting_.Begin({kRed, 10, 0.5, 1}, {10, 20});
    painting_.LineTo({50, 20});
    painting_.LineTo({10, 20});
    painting_.LineTo({10, 25.5});
    painting_.LineTo({50, 25.5});
    painting_.End();
    EXPECT_EQ(At(30, 20), 0xFF8080U) << "the last way's edge does not pale it";
    Stroke({kRed, 10, 0.5, 1}, {10, 20}, {50, 20});
    EXPECT_EQ(At(30, 20), 0xFF4040U) << "the second stroke";
}

TEST_F(Paper, PetalsRepeatAStrokeAroundTheMiddle) {
    Stroke({kRed, 6, 1, 4}, {30, 10}, {30, 10});
    for (const Point place : {Point{30, 10}, Point{49, 30}, Point{30, 49}, Point{10, 30}}) {
        EXPECT_EQ(At(static_cast<int>(place.x), static_cast<int>(place.y)), kRed)
            << place.x << ' ' << place.y;
    }
    EXPECT_EQ(At(30, 30), kPaper);
    EXPECT_EQ(painting_.Strokes(), 1U);
}

TEST_F(Paper, PaintOutsideIsDiscarded) {
    Stroke(kBrush, {-40, -40}, {-20, 90});
    Stroke(kBrush, {90, -5}, {90, 200});
    EXPECT_EQ(All(), empty_);
    Stroke(kBrush, {-10, 30}, {10, 30});
    EXPECT_EQ(At(0, 30), kRed);
}

TEST_F(Paper, StrokesAreUndoneAndRedone) {
    Stroke(kBrush, {10, 20}, {50, 20});
    const std::vector<Color> one = All();
    Stroke({0x0000FF, 8, 0.5, 1}, {30, 10}, {30, 50});
    const std::vector<Color> two = All();

    EXPECT_TRUE(painting_.Undo());
    EXPECT_EQ(All(), one);
    EXPECT_EQ(painting_.Strokes(), 1U);
    EXPECT_TRUE(painting_.Undo());
    EXPECT_EQ(All(), empty_);
    EXPECT_FALSE(painting_.Undo());
    EXPECT_TRUE(painting_.Redo());
    EXPECT_TRUE(painting_.Redo());
    EXPECT_EQ(All(), two);
    EXPECT_FALSE(painting_.Redo());
}

TEST_F(Paper, ANewStrokeDiscardsUndoneStrokes) {
    Stroke(kBrush, {10, 20}, {50, 20});
    painting_.Undo();
    Stroke(kBrush, {10, 40}, {50, 40});
    EXPECT_FALSE(painting_.Redo());
    EXPECT_EQ(At(30, 20), kPaper);
}

TEST_F(Paper, UndoDuringAStrokeIsIgnored) {
    Stroke(kBrush, {10, 20}, {50, 20});
    painting_.Begin(kBrush, {30, 40});
    EXPECT_FALSE(painting_.Undo());
    EXPECT_EQ(At(30, 20), kRed);
}

TEST_F(Paper, ABeginEndsTheCurrentStroke) {
    painting_.Begin(kBrush, {10, 20});
    painting_.Begin(kBrush, {10, 40});
    painting_.End();
    EXPECT_EQ(painting_.Strokes(), 2U);
}

TEST_F(Paper, ALineOutsideAStrokeIsIgnored) {
    painting_.LineTo({30, 30});
    painting_.End();
    EXPECT_EQ(All(), empty_);
    EXPECT_EQ(painting_.Strokes(), 0U);
}

TEST_F(Paper, SixtyFourStrokesCanBeUndone) {
    for (int stroke = 0; stroke < 70; ++stroke) {
        Stroke({kRed, 4, 1, 1}, {stroke % 30 * 2.0, stroke / 30 * 10.0},
               {stroke % 30 * 2.0, stroke / 30 * 10.0});
    }
    EXPECT_EQ(painting_.Strokes(), 64U);
    while (painting_.Undo()) {
    }
    EXPECT_EQ(At(0, 0), kRed) << "the first six stay";
    EXPECT_EQ(At(0, 20), kPaper);
}

TEST(Colours, GoRoundTheCircle) {
    EXPECT_EQ(FromHsv(0, 1, 1), 0xFF0000U);
    EXPECT_EQ(FromHsv(60, 1, 1), 0xFFFF00U);
    EXPECT_EQ(FromHsv(120, 1, 1), 0x00FF00U);
    EXPECT_EQ(FromHsv(180, 1, 1), 0x00FFFFU);
    EXPECT_EQ(FromHsv(240, 1, 1), 0x0000FFU);
    EXPECT_EQ(FromHsv(300, 1, 1), 0xFF00FFU);
    EXPECT_EQ(FromHsv(30, 1, 1), 0xFF8000U);
}

TEST(Colours, ArePaleWithoutSaturationAndDarkWithoutValue) {
    EXPECT_EQ(FromHsv(200, 0, 1), 0xFFFFFFU);
    EXPECT_EQ(FromHsv(200, 1, 0), 0x000000U);
    EXPECT_EQ(FromHsv(0, 0.5, 1), 0xFF8080U);
}

}  // namespace
