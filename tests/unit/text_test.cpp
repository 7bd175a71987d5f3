#include "platform/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/errors.h"
#include "support/simulator_fixture.h"

namespace brindle {
namespace {

using namespace std::string_view_literals;

using PlatformStrings = SimulatorTest;

WideText Converted(std::string_view utf8) { return CharactersOf(ToPlatformString(utf8).Get()); }

TEST_F(PlatformStrings, EmptyTextIsTheEmptyStringAndAllocatesNothing) {
    EXPECT_EQ(ToPlatformString("").Get(), nullptr);
    EXPECT_EQ(ToPlatformString({}).Get(), nullptr);
    EXPECT_EQ(dialsim_calls("WindowsPreallocateStringBuffer"), 0u);
}

TEST_F(PlatformStrings, TheirLengthIsQueriedAndExactlyThatMuchIsAllocated) {
    { const String string = ToPlatformString("dial"); }
    EXPECT_EQ(Journal(),
              "MultiByteToWideChar(65001)\n"
              "WindowsPreallocateStringBuffer(4)\n"
              "MultiByteToWideChar(65001)\n"
              "WindowsPromoteStringBuffer()\n"
              "WindowsDeleteString(dial)\n");
}

TEST_F(PlatformStrings, AsciiKeepsItsCharacters) { EXPECT_EQ(Converted("Volume 5\n"), UTF16("Volume 5\n")); }

TEST_F(PlatformStrings, TwoAndThreeBytesBecomeOneUnit) {
    EXPECT_EQ(Converted("\xC2\x80\xC3\xA9\xDF\xBF"), UTF16("\u0080\u00E9\u07FF"));
    EXPECT_EQ(Converted("\xE0\xA0\x80\xE2\x82\xAC\xEF\xBF\xBF"), UTF16("\u0800\u20AC\uFFFF"));
}

TEST_F(PlatformStrings, FourBytesBecomeASurrogatePair) {
    EXPECT_EQ(Converted("\xF0\x90\x80\x80"), (WideText{0xD800, 0xDC00}));
    EXPECT_EQ(Converted("\xF0\x9F\x8E\x9B"), (WideText{0xD83C, 0xDF9B}));
    EXPECT_EQ(Converted("\xF4\x8F\xBF\xBF"), (WideText{0xDBFF, 0xDFFF}));
}

TEST_F(PlatformStrings, AZeroByteInsideIsACharacter) {
    EXPECT_EQ(Converted("a\0b"sv), (WideText{'a', 0, 'b'}));
}

TEST_F(PlatformStrings, OnlyTheBytesOfTheViewAreRead) {
    EXPECT_EQ(Converted("abc"sv.substr(0, 2)), UTF16("ab"));
}

TEST_F(PlatformStrings, ADamagedByteIsReplaced) { EXPECT_EQ(Converted("a\xFFz"), UTF16("a\uFFFDz")); }

TEST_F(PlatformStrings, ALongTextIsComplete) {
    EXPECT_EQ(Converted(std::string(100'000, 'x')), WideText(100'000, UTF16('x')));
}

TEST_F(PlatformStrings, UnconvertibleTextIsTheEmptyStringAndReportsNothing) {
    ASSERT_TRUE(dialsim_yield_null("MultiByteToWideChar", 1, 1));
    EXPECT_EQ(ToPlatformString("dial").Get(), nullptr);
    EXPECT_EQ(Journal(), "MultiByteToWideChar(65001)\n");
}

// The code that the conversion of a plain text throws.
HRESULT ThrownCode() {
    try {
        ToPlatformString("dial");
    } catch (const hresult_error& error) {
        return error.code();
    }
    return S_OK;
}

TEST_F(PlatformStrings, ABufferThatCannotBeMadeThrowsItsCode) {
    ASSERT_TRUE(dialsim_fail("WindowsPreallocateStringBuffer", Code(0x80070005), 1, 1));
    EXPECT_EQ(ThrownCode(), Code(0x80070005));
    EXPECT_EQ(dialsim_calls("WindowsDeleteStringBuffer"), 0u);
}

TEST_F(PlatformStrings, WithoutMemoryForABufferTheAllocationFailureIsRaised) {
    ASSERT_TRUE(dialsim_fail("WindowsPreallocateStringBuffer", Code(0x8007000E), 1, 1));
    EXPECT_THROW(ToPlatformString("dial"), std::bad_alloc);
}

TEST_F(PlatformStrings, AFailedPromotionThrowsItsCode) {
    ASSERT_TRUE(dialsim_fail("WindowsPromoteStringBuffer", Code(0x80070057), 1, 1));
    EXPECT_EQ(ThrownCode(), Code(0x80070057));
}

TEST_F(PlatformStrings, AFailedPromotionReleasesTheBuffer) {
    ASSERT_TRUE(dialsim_fail("WindowsPromoteStringBuffer", Code(0x80004005), 1, 1));
    EXPECT_THROW(ToPlatformString("dial"), hresult_error);
    EXPECT_EQ(dialsim_calls("WindowsDeleteStringBuffer"), 1u);
    EXPECT_EQ(dialsim_calls("WindowsDeleteString"), 0u);
    EXPECT_EQ(dialsim_strings(), 0u);
}

TEST_F(PlatformStrings, TheOwnerReleasesTheStringOnce) {
    {
        String first = ToPlatformString("dial");
        EXPECT_EQ(dialsim_strings(), 1u);
        String second = std::move(first);
        EXPECT_EQ(first.Get(), nullptr);
        EXPECT_EQ(dialsim_strings(), 1u);
    }
    EXPECT_EQ(dialsim_calls("WindowsDeleteString"), 1u);
}

TEST_F(PlatformStrings, AssigningReleasesTheFormerString) {
    String string = ToPlatformString("first");
    string = ToPlatformString("second");
    EXPECT_EQ(dialsim_calls("WindowsDeleteString(first)"), 1u);
    EXPECT_EQ(CharactersOf(string.Get()), UTF16("second"));
}

TEST_F(PlatformStrings, PutReleasesTheFormerString) {
    String string = ToPlatformString("first");
    EXPECT_EQ(*string.Put(), nullptr);
    EXPECT_EQ(dialsim_calls("WindowsDeleteString(first)"), 1u);
}

TEST_F(PlatformStrings, AreTheSameUnitByUnitUpToTheFirstNul) {
    String text;
    ASSERT_EQ(WindowsCreateString(UTF16("ab\0cd"), 5, text.Put()), S_OK);
    EXPECT_TRUE(SameText(text, UTF16("ab")));
    EXPECT_TRUE(SameText(text, UTF16("ab\0ef")));
    EXPECT_FALSE(SameText(text, UTF16("a")));
    EXPECT_FALSE(SameText(text, UTF16("aB")));
    EXPECT_FALSE(SameText(text, UTF16("abc")));
    EXPECT_TRUE(SameText(String(), UTF16("")));
    EXPECT_EQ(LengthOf(text), 5u);
}

}  // namespace
}  // namespace brindle
