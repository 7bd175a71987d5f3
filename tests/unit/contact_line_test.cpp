#include "dial/contact_line.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/utf16.h"

namespace brindle {
namespace {

TEST(ContactLine, HasThePositionFirstAndHeightBeforeWidth) {
    WCHAR line[kWideLineCharacters];
    constexpr auto expected = Wide(
        "\t Postion X=1.500000, Y=2.000000 & \n \t Bounds Height=6.000000, Width=5.000000, X=3.000000, "
        "Y=-4.250000\n");
    EXPECT_EQ(FormatContactLine(line, kWideLineCharacters, {1.5F, 2.0F}, {3.0F, -4.25F, 5.0F, 6.0F}),
              static_cast<int>(expected.size() - 1));
    EXPECT_EQ(WideText(line), expected.data());
}

TEST(ContactLine, HasRoomForTheLargestNumbers) {
    constexpr float kLargest = std::numeric_limits<float>::max();
    WCHAR line[kWideLineCharacters];
    EXPECT_EQ(FormatContactLine(line, kWideLineCharacters, {-kLargest, 1e9F}, {0.0F, 1e30F, kLargest, -1e7F}),
              226);
    EXPECT_NE(WideText(line).find(Wide("Width=340282346638528859811704183484516925440.000000").data()),
              WideText::npos);
}

}  // namespace
}  // namespace brindle
