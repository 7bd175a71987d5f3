// Choice of an item: by the user, which sets the controller's haptics, and by the host.
#include <string>
#include <vector>

#include "behaviour.h"
#include "support/edges.h"
#include "support/menu_items.h"
#include "support/pictures.h"

namespace {

constexpr char kPutHaptics[] = "IRadialController::put_UseAutomaticHapticFeedback";
constexpr char kHapticsOn[] = "IRadialController::put_UseAutomaticHapticFeedback(1)";
constexpr char kHapticsOff[] = "IRadialController::put_UseAutomaticHapticFeedback(0)";
constexpr char kSelect[] = "IRadialControllerMenu::SelectMenuItem";
constexpr char kGetAt[] = "IVector<RadialControllerMenuItem>::GetAt";

using Invocation = ListeningTest;

TEST_F(Invocation, AnItemsHapticSettingBecomesTheControllers) {
    ASSERT_TRUE(SetMenu(kWindow, {WithHaptics(KnownIcon(1)), KnownIcon(2)}));
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    EXPECT_EQ(dialsim_calls(kHapticsOn), 1u);
    EXPECT_EQ(dialsim_choose(kWindow, 1), 0);
    EXPECT_EQ(dialsim_calls(kHapticsOff), 1u);
}

TEST_F(Invocation, TheHostIsNotCalled) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    EXPECT_TRUE(host.rotations.empty());
    EXPECT_TRUE(host.clicks.empty());
}

TEST_F(Invocation, TheFirstRecordedEntryOfAnIdentifierDecides) {
    ASSERT_TRUE(SetMenu(kWindow, {WithHaptics(KnownIcon(1)), KnownIcon(1)}));
    EXPECT_EQ(dialsim_choose(kWindow, 1), 0);
    EXPECT_EQ(dialsim_calls(kHapticsOn), 1u);
}

TEST_F(Invocation, AnEntryOfAnEarlierMenuDecidesForALaterOne) {
    ASSERT_TRUE(SetMenu(kWindow, {WithHaptics(KnownIcon(1))}));
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    EXPECT_EQ(dialsim_calls(kHapticsOn), 1u);
    EXPECT_EQ(dialsim_calls(kHapticsOff), 0u);
}

TEST_F(Invocation, ATagThatCannotBeReadCountsAsIdentifierZero) {
    ASSERT_TRUE(SetMenu(kWindow, {WithHaptics(KnownIcon(0)), KnownIcon(5)}));
    dialsim_fail("IRadialControllerMenuItem::get_Tag", kFail, 1, 1);
    EXPECT_EQ(dialsim_choose(kWindow, 1), 0);
    dialsim_fail("IPropertyValue::GetUInt32", kFail, 1, 1);
    EXPECT_EQ(dialsim_choose(kWindow, 1), 0);
    EXPECT_EQ(dialsim_calls(kHapticsOn), 2u);
}

TEST_F(Invocation, AnIdentifierWithoutAnEntryChangesNothing) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(5)}));
    dialsim_fail("IRadialControllerMenuItem::get_Tag", kFail, 1, 1);
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    EXPECT_EQ(dialsim_calls(kPutHaptics), 0u);
}

TEST_F(Invocation, EveryFailureIsSwallowed) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(5)}));
    for (const char* operation :
         {"IRadialControllerMenuItem::get_Tag", "QueryInterface(IPropertyValue)", "IPropertyValue::GetUInt32",
          kPutHaptics, "IRadialControllerMenuItem::get_DisplayText"}) {
        ASSERT_TRUE(dialsim_fail(operation, kOutOfMemory, 1, 1)) << operation;
        EXPECT_EQ(dialsim_choose(kWindow, 0), 0) << operation;
    }
}

TEST_F(Invocation, ReachesAnAgileHandlerOnAnyThread) {
    ASSERT_TRUE(SetMenu(kWindow, {WithHaptics(KnownIcon(1))}));
    dialsim_raise_on_own_thread(true);
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    EXPECT_EQ(dialsim_calls(kHapticsOn), 1u);
}

class HapticByte : public ListeningTest, public testing::WithParamInterface<std::uint8_t> {
protected:
    static MenuItemDescription WithByte(MenuItemDescription item) {
        item.haptic_feedback = GetParam();
        return item;
    }
};

TEST_P(HapticByte, IsOffOnlyWhenItIsZero) {
    const TemporaryFile font("font.ttf", SmallPng());
    ASSERT_TRUE(SetMenu(
        kWindow, {WithByte(KnownIcon(1)), WithByte(SystemFont(2)), WithByte(CustomFont(3, font.Path())),
                  WithByte(ResourcePNG(4, ModuleWithPng(), kPngResource))}));
    for (std::uint32_t item = 0; item < 4; ++item) {
        EXPECT_EQ(dialsim_choose(kWindow, item), 0);
    }
    EXPECT_EQ(dialsim_calls(GetParam() == 0 ? kHapticsOff : kHapticsOn), 4u);
    EXPECT_EQ(dialsim_calls(kPutHaptics), 4u);
}

INSTANTIATE_TEST_SUITE_P(AtTheEdges, HapticByte, testing::Values(0, 1, 2, 0x7F, 0x80, 0xFF));

// Identifiers that differ in few bits.
class SimilarItems : public ListeningTest, public testing::WithParamInterface<SimilarNumbers> {
protected:
    std::uint32_t ReportedTag() {
        EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
        return host.LastRotation().selectedItemTag;
    }

    const std::uint32_t first_ = GetParam().first;
    const std::uint32_t second_ = GetParam().second;
};

TEST_P(SimilarItems, AreSelectedEachByItsOwnIdentifier) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(first_), KnownIcon(second_)}));
    EXPECT_TRUE(set_current_custom_menu(kWindow, second_));
    EXPECT_EQ(ReportedTag(), second_);
    EXPECT_TRUE(set_current_custom_menu(kWindow, first_));
    EXPECT_EQ(ReportedTag(), first_);
}

TEST_P(SimilarItems, AreNotSelectedForOneAnother) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(first_)}));
    EXPECT_FALSE(set_current_custom_menu(kWindow, second_));
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(second_)}));
    EXPECT_FALSE(set_current_custom_menu(kWindow, first_));
}

TEST_P(SimilarItems, HaveHapticSettingsOfTheirOwn) {
    ASSERT_TRUE(SetMenu(kWindow, {WithHaptics(KnownIcon(first_)), KnownIcon(second_)}));
    EXPECT_EQ(dialsim_choose(kWindow, 1), 0);
    EXPECT_EQ(dialsim_calls(kHapticsOff), 1u);
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    EXPECT_EQ(dialsim_calls(kHapticsOn), 1u);
}

INSTANTIATE_TEST_SUITE_P(DifferIn, SimilarItems, testing::ValuesIn(kSimilarNumbers), kNameOfPair);

class Selection : public ListeningTest {
protected:
    std::uint32_t SelectedTag() {
        EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
        return host.LastRotation().selectedItemTag;
    }
};

TEST_F(Selection, TheItemWithTheIdentifierIsSelected) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2), KnownIcon(3)}));
    EXPECT_TRUE(set_current_custom_menu(kWindow, 2));
    EXPECT_EQ(SelectedTag(), 2u);
}

TEST_F(Selection, TheFirstOfTwoWithOneIdentifierIsSelected) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2), KnownIcon(2)}));
    dialsim_clear_journal();
    EXPECT_TRUE(set_current_custom_menu(kWindow, 2));
    EXPECT_EQ(dialsim_calls(kGetAt), 2u);
}

TEST_F(Selection, NoIdentifierIsSpecial) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(0), KnownIcon(0xFFFFFFFF)}));
    EXPECT_TRUE(set_current_custom_menu(kWindow, 0xFFFFFFFF));
    EXPECT_EQ(SelectedTag(), 0xFFFFFFFFu);
    EXPECT_TRUE(set_current_custom_menu(kWindow, 0));
    EXPECT_EQ(SelectedTag(), 0u);
}

TEST_F(Selection, AnUnknownIdentifierLeavesTheSelectionAsItWas) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    ASSERT_TRUE(set_current_custom_menu(kWindow, 1));
    EXPECT_FALSE(set_current_custom_menu(kWindow, 2));
    EXPECT_EQ(SelectedTag(), 1u);
}

TEST_F(Selection, AnEmptyMenuHasNothingToSelect) {
    EXPECT_FALSE(set_current_custom_menu(kWindow, 0));
    ASSERT_TRUE(SetMenu(kWindow, {}));
    EXPECT_FALSE(set_current_custom_menu(kWindow, 0));
}

TEST_F(Selection, TheSizeIsReadAgainOnEveryStep) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2)}));
    dialsim_clear_journal();
    EXPECT_FALSE(set_current_custom_menu(kWindow, 3));
    EXPECT_EQ(dialsim_calls("IVector<RadialControllerMenuItem>::get_Size"), 3u);
}

TEST_F(Selection, AnItemThatIsYieldedAsNullIsSkipped) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(1)}));
    dialsim_yield_null(kGetAt, 1, 1);
    EXPECT_TRUE(set_current_custom_menu(kWindow, 1));
    EXPECT_EQ(dialsim_calls(kGetAt), 2u);
}

TEST_F(Selection, AnItemWithoutATagIsSkipped) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(1)}));
    dialsim_yield_null("IRadialControllerMenuItem::get_Tag", 1, 1);
    EXPECT_TRUE(set_current_custom_menu(kWindow, 1));
    EXPECT_EQ(dialsim_calls(kGetAt), 2u);
}

TEST_F(Selection, AnEmptyPlaceInTheListIsSkipped) {
    ASSERT_TRUE(SetMenu(kWindow, {}));
    dialsim_append_null_item(kWindow);
    dialsim_append_item(kWindow, "UInt32", 9);
    EXPECT_TRUE(set_current_custom_menu(kWindow, 9));
}

TEST_F(Selection, ATagOfAnotherTypeEndsTheSearchBeforeAMatch) {
    for (const char* kind : {"String", "object"}) {
        ASSERT_TRUE(SetMenu(kWindow, {}));
        ASSERT_TRUE(dialsim_append_item(kWindow, kind, 9));
        ASSERT_TRUE(dialsim_append_item(kWindow, "UInt32", 9));
        EXPECT_FALSE(set_current_custom_menu(kWindow, 9)) << kind;
    }
    EXPECT_EQ(dialsim_calls(kSelect), 0u);
}

TEST_F(Selection, AListThatShrinksDuringTheSearchEndsIt) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2), KnownIcon(3)}));
    ASSERT_TRUE(dialsim_shrink_menu_after(kWindow, 1));
    dialsim_clear_journal();
    EXPECT_FALSE(set_current_custom_menu(kWindow, 3));
    EXPECT_EQ(dialsim_calls(kGetAt), 2u);
}

TEST_F(Selection, AnyFailureEndsTheSearchAtOnce) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2)}));
    for (const char* operation : {"IRadialController::get_Menu", "IRadialControllerMenu::get_Items",
                                  "IVector<RadialControllerMenuItem>::get_Size", kGetAt,
                                  "IRadialControllerMenuItem::get_Tag", "QueryInterface(IPropertyValue)",
                                  "IPropertyValue::GetUInt32", "QueryInterface(IRadialController)"}) {
        dialsim_clear_journal();
        ASSERT_TRUE(dialsim_fail(operation, kFail, 1, 1)) << operation;
        EXPECT_FALSE(set_current_custom_menu(kWindow, 2)) << operation;
        EXPECT_EQ(dialsim_calls(operation), 1u) << operation;
        EXPECT_EQ(dialsim_calls(kSelect), 0u) << operation;
    }
}

TEST_F(Selection, MissingPartsOfTheMenuAnswerFalse) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    for (const char* operation : {"IRadialController::get_Menu", "IRadialControllerMenu::get_Items"}) {
        dialsim_yield_null(operation, 1, 1);
        EXPECT_FALSE(set_current_custom_menu(kWindow, 1)) << operation;
    }
}

TEST_F(Selection, ASelectionThatIsRefusedAnswersFalse) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    dialsim_fail(kSelect, kAccessDenied, 1, 1);
    EXPECT_FALSE(set_current_custom_menu(kWindow, 1));
    EXPECT_EQ(dialsim_calls(kSelect), 1u);
}

TEST_F(Selection, APlatformWithoutMemoryIsAnAllocationFailure) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    dialsim_fail(kSelect, kOutOfMemory, 1, 1);
    EXPECT_THROW(set_current_custom_menu(kWindow, 1), std::bad_alloc);
}

}  // namespace
