// Selection of the system's items.
#include <string>
#include <vector>

#include "behaviour.h"
#include "support/edges.h"
#include "support/menu_items.h"

namespace {

constexpr char kFactory[] = "RoGetActivationFactory(Windows.UI.Input.RadialControllerConfiguration)";
constexpr char kGetForWindow[] = "IRadialControllerConfigurationInterop::GetForWindow";
constexpr char kSetItems[] = "IRadialControllerConfiguration::SetDefaultMenuItems";

using DefaultMenu = ListeningTest;
using Kinds = std::vector<std::int32_t>;

TEST_F(DefaultMenu, TheKindsArePassedOnInTheHostsOrderWithRepeats) {
    EXPECT_TRUE(SetSystemItems(kWindow, {3, 0, 3, 4}));
    EXPECT_EQ(SystemItemsOf(kWindow), (Kinds{3, 0, 3, 4}));
}

TEST_F(DefaultMenu, EachCallReplacesTheLast) {
    EXPECT_TRUE(SetSystemItems(kWindow, {3, 0}));
    EXPECT_TRUE(SetSystemItems(kWindow, {1}));
    EXPECT_EQ(SystemItemsOf(kWindow), Kinds{1});
}

TEST_F(DefaultMenu, ACountOfZeroLeavesNoEntry) {
    const std::int32_t unused = 0;
    EXPECT_TRUE(set_default_menu(kWindow, &unused, 0));
    EXPECT_EQ(SystemItemsOf(kWindow), Kinds{});
}

TEST_F(DefaultMenu, ANullListIsRefusedEvenWithACountOfZero) {
    EXPECT_FALSE(set_default_menu(kWindow, nullptr, 0));
    EXPECT_EQ(dialsim_calls(kGetForWindow), 1u);  // the list is read only after the configuration
    EXPECT_EQ(dialsim_calls(kSetItems), 0u);
}

TEST_F(DefaultMenu, AnUnknownKindIsThePlatformsToJudge) {
    EXPECT_FALSE(SetSystemItems(kWindow, {7}));
    EXPECT_EQ(dialsim_calls(kSetItems), 1u);
    EXPECT_EQ(SystemItemsOf(kWindow), (Kinds{0, 1, 2, 3, 4}));
}

TEST_F(DefaultMenu, EveryValueIsPassedOnUnchanged) {
    EXPECT_FALSE(SetSystemItems(kWindow, {INT32_MIN, INT32_MIN + 1, -1, 0, 1, 5, 0x100, 0x10001, INT32_MAX}));
    EXPECT_EQ(dialsim_calls("system items(-2147483648, -2147483647, -1, 0, 1, 5, 256, 65537, 2147483647)"),
              1u);
}

class NumberOfKinds : public DefaultMenu, public testing::WithParamInterface<std::size_t> {};

TEST_P(NumberOfKinds, IsPassedOnToTheLast) {
    Kinds kinds(GetParam(), 2);
    kinds.back() = 4;
    EXPECT_TRUE(SetSystemItems(kWindow, kinds));
    EXPECT_EQ(SystemItemsOf(kWindow), kinds);
}

INSTANTIATE_TEST_SUITE_P(All, NumberOfKinds, testing::Values(1, 100, 255, 256, kVeryMany, 65'535, 65'537));

TEST_F(DefaultMenu, TheWindowIsTheOneThatTheHostNamesNow) {
    RecordingHost moved({10, 10, 20});
    ASSERT_TRUE(init_dial_listener(&moved));
    EXPECT_TRUE(SetSystemItems(10, {2}));
    EXPECT_EQ(SystemItemsOf(20), Kinds{2});
    EXPECT_EQ(dialsim_calls("IRadialControllerConfigurationInterop::GetForWindow(20)"), 1u);
}

TEST_F(DefaultMenu, NoConfigurationAnswersFalse) {
    for (const auto& break_it :
         {+[] { return dialsim_fail(kGetForWindow, kFail, 1, 1); },
          +[] { return dialsim_yield_null(kGetForWindow, 1, 1); },
          +[] { return dialsim_fail(kFactory, kFail, 1, 1); },
          +[] { return dialsim_yield_null(kFactory, 1, 1); },
          +[] {
              return dialsim_fail("QueryInterface(IRadialControllerConfigurationInterop)", kFail, 1, 1);
          }}) {
        ASSERT_TRUE(break_it());
        EXPECT_FALSE(SetSystemItems(kWindow, {1}));
        EXPECT_EQ(dialsim_calls(kSetItems), 0u);
    }
}

TEST_F(DefaultMenu, AConfigurationThatComesWithAFailureIsUsed) {
    dialsim_fail_late(kGetForWindow, kFail, 1, 1);
    EXPECT_TRUE(SetSystemItems(kWindow, {1}));
    EXPECT_EQ(SystemItemsOf(kWindow), Kinds{1});
}

TEST_F(DefaultMenu, APlatformThatRefusesAnswersFalse) {
    dialsim_fail(kSetItems, kAccessDenied, 1, 1);
    EXPECT_FALSE(SetSystemItems(kWindow, {1}));
}

TEST_F(DefaultMenu, APlatformWithoutMemoryIsAnAllocationFailure) {
    dialsim_fail(kSetItems, kOutOfMemory, 1, 1);
    EXPECT_THROW(SetSystemItems(kWindow, {1}), std::bad_alloc);
}

TEST_F(DefaultMenu, NothingIsPrintedAndNothingKept) {
    EXPECT_TRUE(SetSystemItems(kWindow, {1}));
    dialsim_fail(kFactory, kFail, 1, 1);
    EXPECT_FALSE(SetSystemItems(kWindow, {1}));
    uninit();
}

TEST_F(DefaultMenu, ASequenceThatThePlatformKeptIsClosedAfterTheCall) {
    constexpr std::int32_t kClosed = static_cast<std::int32_t>(0x80000013);
    dialsim_keep_sequences(true);
    EXPECT_TRUE(SetSystemItems(kWindow, {1, 2, 3}));
    EXPECT_EQ(dialsim_use_kept_sequence(), kClosed);
    dialsim_keep_sequences(false);
}

}  // namespace
