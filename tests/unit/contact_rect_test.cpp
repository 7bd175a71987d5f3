#include "dial/contact_rect.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "support/recording_host.h"

namespace brindle {
namespace {

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(Truncation, CutsTheFractionOffTowardZero) {
    const struct {
        float value;
        std::int32_t truncated;
    } rows[] = {{0.0F, 0},   {-0.0F, 0},  {0.999F, 0}, {-0.5F, 0},    {-0.999F, 0},         {1.0F, 1},
                {10.7F, 10}, {-1.0F, -1}, {-1.5F, -1}, {-10.7F, -10}, {8388607.5F, 8388607}};
    for (const auto& row : rows)
        EXPECT_EQ(Truncate(row.value), row.truncated) << row.value;
}

TEST(Truncation, KeepsTheOutermostValuesThatFit) {
    EXPECT_EQ(Truncate(2147483520.0F), 2147483520);
    EXPECT_EQ(Truncate(-2147483520.0F), -2147483520);
    EXPECT_EQ(Truncate(-2147483648.0F), kLowest);
}

TEST(Truncation, WhatDoesNotFitIsTheLowestNumber) {
    for (const float value : {2147483648.0F, 4294967296.0F, 3.4e38F, -2147483904.0F, -3.4e38F})
        EXPECT_EQ(Truncate(value), kLowest) << value;
}

TEST(Truncation, WhatIsNoNumberIsTheLowestNumber) {
    for (const float value : {kNaN, -kNaN, kInfinity, -kInfinity})
        EXPECT_EQ(Truncate(value), kLowest) << value;
}

DialContactRect Rotation(float x, float y, float width, float height) {
    return RotationContactRect({x, y, width, height});
}
DialContactRect Click(float x, float y, float width, float height) {
    return ClickContactRect({x, y, width, height});
}

TEST(ContactOfARotation, AddsSizesToTheUncutOrigin) {
    EXPECT_EQ(Rotation(10.7F, 20.7F, 20.6F, 30.6F), (DialContactRect{10, 20, 31, 51}));
}

TEST(ContactOfAClick, AddsSizesToTheCutOrigin) {
    EXPECT_EQ(Click(10.7F, 20.7F, 20.6F, 30.6F), (DialContactRect{10, 20, 30, 50}));
}

TEST(ContactOfARotation, ANegativeOriginIsCutTowardZero) {
    EXPECT_EQ(Rotation(-10.7F, -20.7F, 20.6F, 10.2F), (DialContactRect{-10, -20, 9, -10}));
}

TEST(ContactOfAClick, ANegativeOriginIsCutTowardZero) {
    EXPECT_EQ(Click(-10.7F, -20.7F, 20.6F, 10.2F), (DialContactRect{-10, -20, 10, -9}));
}

TEST(ContactOfARotation, SumsInSinglePrecision) {
    EXPECT_EQ(Rotation(8388607.5F, 16777216.0F, 0.25F, 1.0F),
              (DialContactRect{8388607, 16777216, 8388608, 16777216}));
}

TEST(ContactOfAClick, SumsInSinglePrecision) {
    EXPECT_EQ(Click(16777216.0F, 8388607.5F, 1.0F, 0.75F),
              (DialContactRect{16777216, 8388607, 16777216, 8388608}));
}

TEST(ContactOfARotation, AnEdgeThatDoesNotFitIsTheLowestNumber) {
    EXPECT_EQ(Rotation(2147483520.0F, -2147483648.0F, 2147483520.0F, -256.0F),
              (DialContactRect{2147483520, kLowest, kLowest, kLowest}));
}

TEST(ContactOfAClick, AnEdgeThatDoesNotFitIsTheLowestNumber) {
    EXPECT_EQ(Click(2147483520.0F, -2147483648.0F, 2147483520.0F, -256.0F),
              (DialContactRect{2147483520, kLowest, kLowest, kLowest}));
}

TEST(ContactOfAClick, AnOriginThatDoesNotFitCountsAsTheLowestNumber) {
    EXPECT_EQ(Click(kInfinity, kNaN, 2147483648.0F, 2147483748.0F),
              (DialContactRect{kLowest, kLowest, 0, 0}));
}

TEST(ContactOfARotation, ASizeThatIsNoNumberSpoilsItsEdgeOnly) {
    EXPECT_EQ(Rotation(1.5F, 2.5F, kNaN, 4.0F), (DialContactRect{1, 2, kLowest, 6}));
}

TEST(ContactOfAClick, ASizeThatIsNoNumberSpoilsItsEdgeOnly) {
    EXPECT_EQ(Click(1.5F, 2.5F, kNaN, 4.5F), (DialContactRect{1, 2, kLowest, 6}));
}

}  // namespace
}  // namespace brindle
