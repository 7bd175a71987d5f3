#include "dial/contact_line.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {
namespace {

TEST(ContactLine, HasThePositionFirstAndHeightBeforeWidth) {
    WCHAR line[kWideLineCharacters];
    constexpr auto expected = Wide(
        "\t Postion X=1.500000, Y=2.000000 & \n \t Bounds Height=6.000000, Width=5.000000, X=3.000000, "
        "Y=-4.250000\n");
    EXPECT_EQ(FormatContactLine(line, kWideLineCharacters, {1.5F, 2.0F}, {3.0F, -4.25F, 5.0F, 6.0F}),
              static_cast<int>(expected.size() - 1));
    EXPECT_EQ(std::basic_string<WCHAR>(line), expected.data());
}

}  // namespace
}  // namespace brindle
