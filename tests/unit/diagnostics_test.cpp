#include "frame/diagnostics/diagnostics.h"

#include <gtest/gtest.h>

#include <string>

#include "support/simulator_fixture.h"

namespace brindle {
namespace {

template <class... Arguments>
std::string Printed(Arguments... arguments) {
    testing::internal::CaptureStdout();
    PrintFailure(arguments...);
    return testing::internal::GetCapturedStdout();
}

TEST(FailureLines, PrintCodeAndLine) {
    EXPECT_EQ(Printed(Code(0x80004002), 460), "failed with 80004002 at line 460\n");
}

TEST(FailureLines, PrintTheStepFirst) {
    EXPECT_EQ(Printed("register", Code(0x80070490), 110), "register failed with 80070490 at line 110\n");
}

TEST(FailureLines, PrintTheCodeInLowerCase) {
    EXPECT_EQ(Printed(Code(0x8007000E), 1), "failed with 8007000e at line 1\n");
    EXPECT_EQ(Printed("register", Code(0xFFFFABCD), 1), "register failed with ffffabcd at line 1\n");
}

TEST(FailureLines, PrintASuccessAsItIs) {
    EXPECT_EQ(Printed(S_OK, 847), "failed with 0 at line 847\n");
    EXPECT_EQ(Printed(S_FALSE, 847), "failed with 1 at line 847\n");
    EXPECT_EQ(Printed("register", S_OK, 110), "register failed with 0 at line 110\n");
}

constexpr WCHAR kUntouched = 0x2592;

// A buffer with a guard at its end, and the formatter's result.
class Formatted {
public:
    template <class... Arguments>
    Formatted(std::size_t size, const WCHAR* format, Arguments... arguments)
        : cells_(size + 1, kUntouched), result_(FormatWide(cells_.data(), size, format, arguments...)) {}

    int result() const { return result_; }
    WideText text() const { return cells_.c_str(); }
    bool is_untouched() const { return cells_ == WideText(cells_.size(), kUntouched); }
    bool is_guard_intact() const { return cells_.back() == kUntouched; }

private:
    WideText cells_;
    int result_;
};

TEST(WideFormatting, TakesUtf16Texts) {
    const Formatted line(kWideLineCharacters, UTF16("Added %s to menu\n"), UTF16("Brush \u00E9\u20AC"));
    EXPECT_EQ(line.text(), UTF16("Added Brush \u00E9\u20AC to menu\n"));
    EXPECT_EQ(line.result(), 23);
}

TEST(WideFormatting, WritesNumbersWithSixDecimals) {
    const Formatted line(kWideLineCharacters, UTF16("X=%lf, Y=%lf"), 10.5, -0.25);
    EXPECT_EQ(line.text(), UTF16("X=10.500000, Y=-0.250000"));
}

TEST(WideFormatting, MixesTextsAndNumbers) {
    const Formatted line(kWideLineCharacters, UTF16("%s=%lf %s"), UTF16("a"), 1.0, UTF16("b"));
    EXPECT_EQ(line.text(), UTF16("a=1.000000 b"));
    EXPECT_EQ(line.result(), 12);
}

TEST(WideFormatting, WritesTheContactLine) {
    const Formatted line(
        kWideLineCharacters,
        UTF16("\t Postion X=%lf, Y=%lf & \n \t Bounds Height=%lf, Width=%lf, X=%lf, Y=%lf\n"), 60.0, 45.0,
        50.0, 100.0, 10.0, 20.0);
    EXPECT_EQ(line.text(),
              UTF16("\t Postion X=60.000000, Y=45.000000 & \n \t Bounds Height=50.000000, Width=100.000000, "
                    "X=10.000000, Y=20.000000\n"));
}

TEST(WideFormatting, LeavesTextWithoutConversionsAsItIs) {
    EXPECT_EQ(Formatted(20, UTF16("100%% done")).text(), UTF16("100% done"));
    EXPECT_EQ(Formatted(20, UTF16("")).result(), 0);
}

TEST(WideFormatting, CountsBothHalvesOfASurrogatePair) {
    const WideText dial = {0xD83C, 0xDF9B};
    const Formatted line(20, UTF16("<%s>"), dial.c_str());
    EXPECT_EQ(line.text(), UTF16("<") + dial + UTF16(">"));
    EXPECT_EQ(line.result(), 4);
}

TEST(WideFormatting, ATextWithItsTerminatorMayFillTheBuffer) {
    const Formatted line(8, UTF16("<%s>"), UTF16("12345"));
    EXPECT_EQ(line.text(), UTF16("<12345>"));
    EXPECT_EQ(line.result(), 7);
    EXPECT_TRUE(line.is_guard_intact());
}

TEST(WideFormatting, ATextWithoutRoomForItsTerminatorFailsAndLeavesAnEmptyText) {
    const Formatted line(7, UTF16("<%s>"), UTF16("12345"));
    EXPECT_EQ(line.result(), -1);
    EXPECT_EQ(line.text(), UTF16(""));
    EXPECT_TRUE(line.is_guard_intact());
}

TEST(WideFormatting, ATextThatIsTooLongFailsAndLeavesAnEmptyText) {
    const Formatted line(6, UTF16("<%s>"), UTF16("12345"));
    EXPECT_EQ(line.result(), -1);
    EXPECT_EQ(line.text(), UTF16(""));
    EXPECT_TRUE(line.is_guard_intact());
}

TEST(WideFormatting, ALabelLongerThanTheLineFailsAndTheProcessLives) {
    const WideText label(3000, UTF16('x'));
    const Formatted line(kWideLineCharacters, UTF16("Added %s to menu\n"), label.c_str());
    EXPECT_EQ(line.result(), -1);
    EXPECT_EQ(line.text(), UTF16(""));
    EXPECT_TRUE(line.is_guard_intact());
}

TEST(WideFormatting, TheLineHoldsTwoThousandCharactersWithTheTerminator) {
    const WideText longest(1999, UTF16('x'));
    EXPECT_EQ(kWideLineCharacters, 2000u);
    EXPECT_EQ(Formatted(kWideLineCharacters, UTF16("%s"), longest.c_str()).result(), 1999);
}

TEST(WideFormatting, ALongBufferTakesALongText) {
    const WideText text(100'000, UTF16('x'));
    const Formatted line(text.size() + 1, UTF16("%s"), text.c_str());
    EXPECT_EQ(line.result(), 100'000);
    EXPECT_TRUE(line.text() == text);
}

TEST(WideFormatting, ALongTextWithoutRoomForItsTerminatorFailsToo) {
    const WideText text(5000, UTF16('x'));
    const Formatted line(text.size(), UTF16("%s"), text.c_str());
    EXPECT_EQ(line.result(), -1);
    EXPECT_EQ(line.text(), UTF16(""));
    EXPECT_TRUE(line.is_guard_intact());
}

TEST(WideFormatting, AnEmptyFormatGivesTheEmptyText) {
    const Formatted line(20, UTF16(""));
    EXPECT_EQ(line.result(), 0);
    EXPECT_EQ(line.text(), UTF16(""));
}

TEST(WideFormatting, ABufferWithoutRoomIsNotTouched) {
    const Formatted line(0, UTF16("%s"), UTF16("text"));
    EXPECT_EQ(line.result(), -1);
    EXPECT_TRUE(line.is_untouched());
}

TEST(WideFormatting, ABufferOfOneHoldsTheEmptyTextOnly) {
    EXPECT_EQ(Formatted(1, UTF16("")).result(), 0);
    EXPECT_EQ(Formatted(1, UTF16("x")).result(), -1);
}

TEST(WideFormatting, WithoutABufferItFails) { EXPECT_EQ(FormatWide(nullptr, 20, UTF16("text")), -1); }

TEST(WideFormatting, WithoutAFormatItFailsAndTouchesNothing) {
    const Formatted line(20, nullptr);
    EXPECT_EQ(line.result(), -1);
    EXPECT_TRUE(line.is_untouched());
}

}  // namespace
}  // namespace brindle
