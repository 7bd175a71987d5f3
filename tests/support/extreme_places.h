// Contact rectangles at the limits of float and int32_t, and the expected rectangles.
#pragma once

#include <brindle.h>

#include <limits>
#include <ostream>
#include <string>

#include "simulator/dialsim.h"

struct ExtremePlace {
    const char* name;
    float x;
    float y;
    float width;
    float height;
    DialContactRect of_a_turn;
    DialContactRect of_a_click;

    std::int32_t Touch(std::uint64_t window) const { return dialsim_touch(window, x, y, width, height); }
    std::int32_t Move(std::uint64_t window) const { return dialsim_move(window, x, y, width, height); }
};

inline void PrintTo(const ExtremePlace& place, std::ostream* stream) { *stream << place.name; }

// Names an instance of a parameterized test.
inline constexpr auto kNameOfPlace = [](const auto& place_info) {
    return std::string(place_info.param.name);
};

using Floats = std::numeric_limits<float>;

// 2147483520 is the largest float below 2^31; above it floats are 128 apart, and ties round to even.
inline constexpr ExtremePlace kExtremePlaces[] = {
    {"Nothing", 0, -0.0F, 0, -0.0F, {0, 0, 0, 0}, {0, 0, 0, 0}},
    {"TheOutermostThatFit",
     2147483520.0F,
     -2147483648.0F,
     0,
     0,
     {2147483520, INT32_MIN, 2147483520, INT32_MIN},
     {2147483520, INT32_MIN, 2147483520, INT32_MIN}},
    {"ASumThatIsRoundedBeyond",
     2147483520.0F,
     -2147483648.0F,
     64,
     64,
     {2147483520, INT32_MIN, INT32_MIN, INT32_MIN},
     {2147483520, INT32_MIN, INT32_MIN, INT32_MIN}},
    {"AnOriginBeyondAndAnEdgeThatFits",
     -3e9F,
     3e9F,
     4e9F,
     -4e9F,
     {INT32_MIN, INT32_MIN, 1000000000, -1000000000},
     {INT32_MIN, INT32_MIN, 1852516352, INT32_MIN}},
    {"NegativeSizes", -0.5F, -0.5F, 1.5F, -1.5F, {0, 0, 1, -2}, {0, 0, 1, -1}},
    {"TheSmallestSteps",
     Floats::denorm_min(),
     -Floats::denorm_min(),
     Floats::denorm_min(),
     Floats::min(),
     {0, 0, 0, 0},
     {0, 0, 0, 0}},
    {"TheLastFractions",
     16777215.0F,
     8388607.5F,
     1.0F,
     0.5F,
     {16777215, 8388607, 16777216, 8388608},
     {16777215, 8388607, 16777216, 8388607}},
    {"TheLargest",
     Floats::max(),
     Floats::lowest(),
     Floats::max(),
     Floats::max(),
     {INT32_MIN, INT32_MIN, INT32_MIN, 0},
     {INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN}},
    {"Infinities",
     Floats::infinity(),
     -Floats::infinity(),
     -Floats::infinity(),
     1,
     {INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN},
     {INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN}},
    {"NoNumberAtTheLeft",
     Floats::quiet_NaN(),
     1,
     1,
     1,
     {INT32_MIN, 1, INT32_MIN, 2},
     {INT32_MIN, 1, INT32_MIN, 2}},
    {"NoNumberAtTheTop",
     1,
     Floats::quiet_NaN(),
     1,
     1,
     {1, INT32_MIN, 2, INT32_MIN},
     {1, INT32_MIN, 2, INT32_MIN}},
    {"NoNumberOfWidth", 1, 1, Floats::quiet_NaN(), 1, {1, 1, INT32_MIN, 2}, {1, 1, INT32_MIN, 2}},
    {"NoNumberOfHeight", 1, 1, 1, Floats::quiet_NaN(), {1, 1, 2, INT32_MIN}, {1, 1, 2, INT32_MIN}},
};
