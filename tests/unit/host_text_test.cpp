#include "storage/host_text.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/text.h"
#include "support/simulator_fixture.h"

namespace brindle {
namespace {

using HostTexts = SimulatorApartmentTest;

TEST_F(HostTexts, AreTerminatedCopies) {
    const String text = ToPlatformString("Palette");
    const HostText copy = CopyForHost(text);
    EXPECT_EQ(WideText(copy.get()), UTF16("Palette"));
    EXPECT_NE(copy.get(), TextOf(text));
}

TEST_F(HostTexts, OfNothingAreEmpty) { EXPECT_EQ(WideText(CopyForHost(String()).get()), UTF16("")); }

TEST_F(HostTexts, EndAtTheFirstTerminatorAndAreClearBeyondIt) {
    const WideText long_text = WideText(UTF16("ab\0"), 3) + WideText(60, 'x');
    String text;
    ASSERT_EQ(WindowsCreateString(long_text.data(), static_cast<UINT>(long_text.size()), text.Put()), S_OK);
    // Frees a block with content, which the copy then uses.
    HostText used = CopyForHost(ToPlatformString(std::string(63, 'y')));
    used.reset();
    const HostText copy = CopyForHost(text);
    EXPECT_EQ(WideText(copy.get(), 64), WideText(UTF16("ab")) + WideText(62, 0));
}

TEST_F(HostTexts, AreAsLongAsThePlatformSaysAndNoLonger) {
    const String text = ToPlatformString("Palette");
    dialsim_clear_journal();
    CopyForHost(text);
    EXPECT_EQ(dialsim_calls("wcscpy_s(8)"), 1u);
}

}  // namespace
}  // namespace brindle
