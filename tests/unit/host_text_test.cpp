#include "storage/host_text.h"

#include <gtest/gtest.h>

#include "frame/text.h"
#include "simulated.h"

namespace brindle {
namespace {

using HostTexts = SimulatedApartment;

TEST_F(HostTexts, AreTerminatedCopies) {
    const String text = ToPlatformString("Palette");
    const HostText copy = CopyForHost(text);
    EXPECT_EQ(WideText(copy.get()), WIDE("Palette"));
    EXPECT_NE(copy.get(), TextOf(text));
}

TEST_F(HostTexts, OfNothingAreEmpty) { EXPECT_EQ(WideText(CopyForHost(String()).get()), WIDE("")); }

TEST_F(HostTexts, EndAtTheFirstTerminatorAndAreClearBeyondIt) {
    String text;
    ASSERT_EQ(WindowsCreateString(WIDE("ab\0cd"), 5, text.Put()), S_OK);
    const HostText copy = CopyForHost(text);
    EXPECT_EQ(WideText(copy.get(), 6), WideText(WIDE("ab\0\0\0\0"), 6));
}

TEST_F(HostTexts, AreAsLongAsThePlatformSaysAndNoLonger) {
    const String text = ToPlatformString("Palette");
    dialsim_clear_journal();
    CopyForHost(text);
    EXPECT_EQ(dialsim_calls("wcscpy_s(8)"), 1u);
}

}  // namespace
}  // namespace brindle
