// Filling the dial's menu: the menu itself, and the steps of every item.
#include <string>
#include <vector>

#include "menu.h"
#include "support/edges.h"
#include "support/inside_call.h"

namespace {

using CustomMenu = ListeningTest;

constexpr char kItemFactories[] = "IRadialControllerMenuItemStatics";
constexpr char kAppend[] = "IVector<RadialControllerMenuItem>::Append";
constexpr char kClear[] = "IVector<RadialControllerMenuItem>::Clear";

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

TEST_F(CustomMenu, OneKnownIconTakesTheseStepsInThisOrder) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(7)}));
    std::string calls;
    for (const std::string& line : LinesOf(Journal())) {
        // Strings are created and released between the steps, in any order.
        calls += line.find("Windows") == 0 ? "" : line + "\n";
    }
    EXPECT_EQ(calls,
              "IRadialController::get_Menu()\n"
              "IRadialControllerMenu::get_Items()\n"
              "IVector<RadialControllerMenuItem>::Clear()\n"
              "RoGetActivationFactory(Windows.UI.Input.RadialControllerMenuItem)\n"
              "IRadialControllerMenuItemStatics::CreateFromKnownIcon(3)\n"
              "IRadialControllerMenuItem::add_Invoked()\n"
              "IRadialControllerMenu::get_Items()\n"
              "IVector<RadialControllerMenuItem>::Append()\n"
              "RoGetActivationFactory(Windows.Foundation.PropertyValue)\n"
              "IPropertyValueStatics::CreateUInt32()\n"
              "IRadialControllerMenuItem::put_Tag()\n");
}

TEST_F(CustomMenu, NoItemsClearTheMenu) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2)}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 2u);
    EXPECT_TRUE(SetMenu(kWindow, {}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

TEST_F(CustomMenu, ANullListWithACountClearsTheMenuAndAddsNothing) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_TRUE(add_custom_menu(kWindow, nullptr, 3));
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

TEST_F(CustomMenu, ASecondMenuReplacesTheFirstsItemsAndKeepsItsEntries) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2)}));
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(3)}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
    EXPECT_EQ(dialsim_strings(), 3u);  // one label for each entry
}

TEST_F(CustomMenu, UninitReleasesTheEntriesAndTheMenu) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1), SystemFont(2)}));
    uninit();
    EXPECT_EQ(LeakReport(), "");
}

TEST_F(CustomMenu, UnknownKindsAreSkippedSilently) {
    auto five = KnownIcon(1);
    five.kind = static_cast<MenuItemKind>(5);
    auto minus_one = KnownIcon(2);
    minus_one.kind = static_cast<MenuItemKind>(-1);
    EXPECT_TRUE(SetMenu(kWindow, {five, minus_one, KnownIcon(3)}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
}

// Registration can succeed without a controller: its first step failed once.
TEST_F(CustomMenu, AListenerWithoutAControllerHasNoMenu) {
    RecordingHost bare(99);
    FailInTurn("RoGetActivationFactory(Windows.UI.Input.RadialController)", {kFail, 0, 0});
    ASSERT_TRUE(init_dial_listener(&bare));
    EXPECT_EQ(Printed(), "failed with 0 at line 458\n");
    dialsim_clear_journal();
    EXPECT_FALSE(SetMenu(99, {KnownIcon(1)}));
    EXPECT_FALSE(set_current_custom_menu(99, 1));
    EXPECT_EQ(Journal(), "");
}

TEST_F(CustomMenu, AFailingGetMenuIsEvaluatedThreeTimes) {
    FailInTurn("IRadialController::get_Menu", {kFail, kAccessDenied, kDisconnected});
    EXPECT_FALSE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(dialsim_calls("IRadialController::get_Menu"), 3u);
    EXPECT_EQ(Printed(), "failed with 80070005 at line 124\n");
}

// Each attempt returns a reference and fails; none is leaked.
TEST_F(CustomMenu, TheMenuOfAFailedAttemptIsReleased) {
    const std::uint32_t before = dialsim_references("Windows.UI.Input.RadialControllerMenu");
    dialsim_fail_late("IRadialController::get_Menu", kFail, 1, 2);
    EXPECT_TRUE(SetMenu(kWindow, {}));
    EXPECT_EQ(Printed(), "failed with 80004005 at line 124\n");
    EXPECT_EQ(dialsim_references("Windows.UI.Input.RadialControllerMenu"), before + 1);
}

TEST_F(CustomMenu, TheMenuIsFetchedAgainOnEveryCall) {
    EXPECT_TRUE(SetMenu(kWindow, {}));
    EXPECT_TRUE(SetMenu(kWindow, {}));
    EXPECT_EQ(dialsim_calls("IRadialController::get_Menu"), 2u);
}

TEST_F(CustomMenu, ATrueWithLine124Or129LeavesTheOldItems) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    FailInTurn(kGetMenu, {kFail});
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(2)}));
    EXPECT_EQ(Printed(), "failed with 0 at line 124\n");
    EXPECT_EQ(TagsShown(), "1\n");
    FailInTurn(kGetItems, {kFail});
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(2)}));
    EXPECT_EQ(Printed(), "failed with 0 at line 129\n");
    EXPECT_EQ(TagsShown(), "1\n");
}

TEST_F(CustomMenu, AFailingGetMenuKeepsTheItemsAndRotationsReportNoTag) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    ASSERT_EQ(dialsim_choose(kWindow, 0), 0);
    dialsim_fail(kGetMenu, kFail, 1, 3);
    EXPECT_FALSE(SetMenu(kWindow, {}));
    EXPECT_EQ(Printed(), "failed with 80004005 at line 124\n");
    EXPECT_EQ(TagsShown(), "1\n");
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().selectedItemTag, 0u);
}

TEST_F(CustomMenu, AFailingGetItemsIsEvaluatedThreeTimes) {
    dialsim_fail(kGetItems, kFail, 1, 0);
    EXPECT_FALSE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(dialsim_calls(kGetItems), 3u);
    EXPECT_EQ(Printed(), "failed with 80004005 at line 129\n");
}

TEST_F(CustomMenu, AListThatCannotBeClearedIsTriedTwiceAndStillFilled) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    dialsim_fail(kClear, kFail, 1, 0);
    dialsim_clear_journal();
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(2)}));
    EXPECT_EQ(dialsim_calls(kClear), 2u);
    EXPECT_EQ(Printed(), "clear failed with 80004005 at line 132\n");
    EXPECT_EQ(TagsShown(), "1\n2\n");
}

TEST_F(CustomMenu, AClearThatWorksTheSecondTimeIsPrintedAsZero) {
    dialsim_fail(kClear, kFail, 1, 1);
    EXPECT_TRUE(SetMenu(kWindow, {}));
    EXPECT_EQ(Printed(), "clear failed with 0 at line 132\n");
}

TEST_F(CustomMenu, WithoutTheFactoryForKnownIconsTheRestIsSkipped) {
    FailInTurn(kItemStatics, {kFail, kAccessDenied, kDisconnected});
    EXPECT_FALSE(SetMenu(kWindow, {KnownIcon(1), SystemFont(2), KnownIcon(3)}));
    EXPECT_EQ(dialsim_calls(kItemStatics), 3u);
    EXPECT_EQ(Printed(), "failed with 80070005 at line 151\n");
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
    EXPECT_EQ(dialsim_strings(), 0u);
}

// The first item fails, but its haptic setting is recorded: the second item shares it.
TEST_F(CustomMenu, AFactoryForKnownIconsThatIsNullFailsTheItemAndNotTheMenu) {
    dialsim_yield_null(kItemStatics, 1, 1);
    EXPECT_TRUE(SetMenu(kWindow, {WithHaptics(KnownIcon(1)), KnownIcon(1)}));
    EXPECT_EQ(dialsim_calls(kItemStatics), 2u);
    EXPECT_EQ(Printed(), "AddMenuItemFromKnownIcon failed with 80004002 at line 152\n");
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
    EXPECT_EQ(dialsim_strings(), 2u);
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    EXPECT_EQ(dialsim_calls("IRadialController::put_UseAutomaticHapticFeedback(1)"), 1u);
}

TEST_F(CustomMenu, TheFormerFactoryForKnownIconsGoesBeforeTheNextOnesNameIsMade) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    ASSERT_EQ(dialsim_objects(kItemFactories), 1u);
    std::uint32_t left = 1;
    const InsideCall look("WindowsCreateStringReference(Windows.UI.Input.RadialControllerMenuItem)",
                          [&] { left = dialsim_objects(kItemFactories); });
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(left, 0u);
}

TEST_F(CustomMenu, AFactoryThatComesWithTheThirdAttemptEndsTheMenuAsASuccess) {
    FailInTurn(kItemStatics, {kFail, kAccessDenied, 0});
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2)}));
    EXPECT_EQ(Printed(), "failed with 80070005 at line 151\n");
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

TEST_F(CustomMenu, TheFactoryIsFetchedAgainForEveryKnownIcon) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2)}));
    EXPECT_EQ(dialsim_calls(kItemStatics), 2u);
}

TEST_F(CustomMenu, OneKnownIconWhoseTagAlwaysFails) {
    dialsim_fail(kPutTag, kFail, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(dialsim_calls(kPutTag), 18u);
    EXPECT_EQ(dialsim_calls(kAppend), 6u);
    EXPECT_EQ(dialsim_objects(kMenuItems), 2u);
    const std::string builder =
        "failed with 80004005 at line 760\n"
        "failed with 80004005 at line 760\n"
        "failed with 80004005 at line 517\n"
        "failed with 80004005 at line 760\n";
    EXPECT_EQ(Printed(),
              Repeated(builder, 2) + "AddMenuItemFromKnownIcon failed with 80004005 at line 152\n");
    EXPECT_EQ(dialsim_strings(), 1u);  // the entry is recorded in spite of the failure
}

TEST_F(CustomMenu, AFailingKnownIconIsRecordedAndTheNextItemIsMade) {
    dialsim_fail(kCreateFromKnownIcon, kFail, 1, 6);
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2)}));
    EXPECT_EQ(dialsim_calls(kCreateFromKnownIcon), 7u);
    EXPECT_EQ(Printed(), Repeated("failed with 80004005 at line 515\n", 2) +
                             "AddMenuItemFromKnownIcon failed with 80004005 at line 152\n");
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
    EXPECT_EQ(dialsim_strings(), 2u);
}

TEST_F(CustomMenu, AnItemThatIsYieldedAsNullIsNoInterface) {
    dialsim_yield_null(kCreateFromKnownIcon, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(Printed(), Repeated("failed with 80004002 at line 517\n", 2) +
                             "AddMenuItemFromKnownIcon failed with 80004002 at line 152\n");
}

TEST_F(CustomMenu, AFailingGlyphIsRecordedAndTheNextItemIsMade) {
    dialsim_fail("IRadialControllerMenuItemStatics2::CreateFromFontGlyph", kFail, 1, 6);
    EXPECT_TRUE(SetMenu(kWindow, {SystemFont(1), SystemFont(2)}));
    EXPECT_EQ(Printed(), Repeated("failed with 80004005 at line 531\n", 2) +
                             "AddMenuItemFromSystemFont failed with 80004005 at line 157\n");
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
    EXPECT_EQ(dialsim_strings(), 2u);
}

TEST_F(CustomMenu, AGlyphWithoutAFactoryIsPrintedByItsStepAndByItsItem) {
    dialsim_fail(kItemStatics, kFail, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {SystemFont(1)}));
    EXPECT_EQ(dialsim_calls(kItemStatics), 6u);
    EXPECT_EQ(Printed(), Repeated("failed with 80004005 at line 528\n", 2) +
                             "AddMenuItemFromSystemFont failed with 80004005 at line 157\n");
}

struct AddStep {
    const char* operation;
    int line;
};

void PrintTo(const AddStep& step, std::ostream* stream) { *stream << "line " << step.line; }

class EveryItem : public ListeningTest, public testing::WithParamInterface<AddStep> {};

// Each of the two builders evaluates the adding of the item three times, and each evaluation prints the
// step's line.
TEST_P(EveryItem, PrintsAFailingStepOfItsAdding) {
    // The first call is the menu's own.
    const bool shared = GetParam().line == 747;
    dialsim_fail(GetParam().operation, kAccessDenied, shared ? 2 : 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {SystemFont(1)}));
    EXPECT_EQ(dialsim_calls(GetParam().operation), shared ? 19u : 18u);
    const std::string step = "failed with 80070005 at line " + std::to_string(GetParam().line) + "\n";
    EXPECT_EQ(Printed(), Repeated(step + step + "failed with 80070005 at line 533\n" + step, 2) +
                             "AddMenuItemFromSystemFont failed with 80070005 at line 157\n");
}

INSTANTIATE_TEST_SUITE_P(
    Adding, EveryItem,
    testing::Values(AddStep{"IRadialControllerMenuItem::add_Invoked", 743}, AddStep{kGetItems, 747},
                    AddStep{kAppend, 750},
                    AddStep{"RoGetActivationFactory(Windows.Foundation.PropertyValue)", 754},
                    AddStep{"IPropertyValueStatics::CreateUInt32", 758}, AddStep{kPutTag, 760}),
    [](const auto& step_info) { return "Line" + std::to_string(step_info.param.line); });

TEST_F(CustomMenu, AnItemThatFailsAtItsTagIsInTheMenuAndSubscribed) {
    dialsim_fail(kPutTag, kFail, 1, 0);
    const std::uint32_t handlers = dialsim_handlers();
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(dialsim_handlers(), handlers + 6);
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    Printed();
}

TEST_F(CustomMenu, ALabelMayBeEmptyLongOrBeyondTheBasicPlane) {
    const WideText longer(2500, 'x');
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1, 0, UTF16("")), KnownIcon(2, 0, longer.c_str()),
                                  KnownIcon(3, 0, UTF16("\U0001F39B"))}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 3u);
}

class LargeMenu : public ListeningTest {
protected:
    void SetUp() override {
        ListeningTest::SetUp();
        std::vector<MenuItemDescription> items;
        for (std::uint32_t i = 0; i < kVeryMany; ++i) {
            items.push_back(i % 2 == 0 ? KnownIcon(IdentifierOf(i)) : SystemFont(IdentifierOf(i)));
        }
        items.back().haptic_feedback = 1;
        ASSERT_TRUE(SetMenu(kWindow, items));
    }
    // All different, of all sizes.
    static std::uint32_t IdentifierOf(std::uint32_t item) { return item * 0x9E3779B1; }
};

TEST_F(LargeMenu, HasEveryItemInItsPlace) {
    const std::vector<std::string> lines = LinesOf(MenuText(kWindow));
    ASSERT_EQ(lines.size(), kVeryMany + 2) << "the items and what the system adds";
    for (std::uint32_t i = 0; i < kVeryMany; ++i) {
        ASSERT_TRUE(lines[i].ends_with(", tag " + std::to_string(IdentifierOf(i)))) << lines[i];
    }
}

TEST_F(LargeMenu, FindsItsLastItem) {
    EXPECT_TRUE(set_current_custom_menu(kWindow, IdentifierOf(kVeryMany - 1)));
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().selectedItemTag, IdentifierOf(kVeryMany - 1));
}

TEST_F(LargeMenu, AppliesTheSettingOfItsLastItem) {
    EXPECT_EQ(dialsim_choose(kWindow, kVeryMany - 1), 0);
    EXPECT_EQ(dialsim_calls("IRadialController::put_UseAutomaticHapticFeedback(1)"), 1u);
}

TEST_F(LargeMenu, IsReplacedAsAWholeAndItsFirstEntryStillDecides) {
    ASSERT_TRUE(SetMenu(kWindow, {WithHaptics(KnownIcon(IdentifierOf(0)))}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    EXPECT_EQ(dialsim_calls("IRadialController::put_UseAutomaticHapticFeedback(0)"), 1u);
}

TEST_F(CustomMenu, ACountOfMoreThanSixteenBitsIsReadToItsEnd) {
    std::vector<MenuItemDescription> items(70'000, Described(static_cast<MenuItemKind>(5), UTF16(""), 1));
    items.push_back(KnownIcon(7));
    EXPECT_TRUE(SetMenu(kWindow, items));
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
    EXPECT_TRUE(set_current_custom_menu(kWindow, 7));
}

class UnknownKind : public ListeningTest, public testing::WithParamInterface<std::int32_t> {};

TEST_P(UnknownKind, IsSkippedSilently) {
    EXPECT_TRUE(SetMenu(
        kWindow, {Described(static_cast<MenuItemKind>(GetParam()), UTF16("Unknown"), 1), KnownIcon(2)}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
    EXPECT_EQ(dialsim_strings(), 1u);
}

INSTANTIATE_TEST_SUITE_P(AtTheEdges, UnknownKind,
                         testing::Values(INT32_MIN, INT32_MIN + 1, INT32_MIN + 2, -1, 5, 0x102, 0x10002,
                                         INT32_MAX));

// The library catches no exception of a label.
TEST_F(CustomMenu, ALabelThatThePlatformRefusesIsThrownToTheHost) {
    for (const char* operation : {"WindowsCreateStringReference", "WindowsDuplicateString"}) {
        for (const BrindleChar* label : {UTF16("Volume"), UTF16("")}) {
            dialsim_fail(operation, kAccessDenied, 1, 1);
            try {
                SetMenu(kWindow, {KnownIcon(1, 3, label)});
                ADD_FAILURE() << operation;
            } catch (const std::exception& error) {
                EXPECT_STREQ(error.what(), "platform error 80070005") << operation;
            }
            EXPECT_EQ(dialsim_strings(), 0u) << operation;
            EXPECT_EQ(dialsim_objects(kMenuItems), 0u) << operation;
        }
    }
}

TEST_F(CustomMenu, APlatformWithoutMemoryForALabelIsAnAllocationFailure) {
    dialsim_fail("WindowsDuplicateString", kOutOfMemory, 1, 1);
    EXPECT_THROW(SetMenu(kWindow, {KnownIcon(1)}), std::bad_alloc);
}

TEST_F(CustomMenu, ALabelRefusedInsideAnItemSourceIsThrownWithoutALeak) {
    // The copy of the label, the factory's class name, and the label on the item.
    dialsim_fail("WindowsCreateStringReference", kAccessDenied, 3, 1);
    EXPECT_ANY_THROW(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(dialsim_strings(), 0u);
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

TEST_F(CustomMenu, ARotationReportsTheSelectedItemsIdentifier) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(70), KnownIcon(80)}));
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().selectedItemTag, 0u);
    EXPECT_EQ(dialsim_choose(kWindow, 1), 0);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().selectedItemTag, 80u);
}

TEST_F(CustomMenu, ASelectionThatCannotBeReadKeepsATurnFromTheHost) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(70)}));
    dialsim_fail("IRadialControllerMenu::GetSelectedMenuItem", kFail, 1, 0);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), kFail);
    EXPECT_EQ(dialsim_calls("IRadialControllerMenu::GetSelectedMenuItem"), 3u);
    EXPECT_EQ(Printed(), "failed with 80004005 at line 847\n");
    EXPECT_TRUE(host.rotations.empty());
}

TEST_F(CustomMenu, ATagThatCannotBeReadIsZero) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(70)}));
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    for (const char* operation : {"IRadialControllerMenuItem::get_Tag", "QueryInterface(IPropertyValue)",
                                  "IPropertyValue::GetUInt32"}) {
        dialsim_fail(operation, kFail, 1, 1);
        EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0) << operation;
        EXPECT_EQ(host.LastRotation().selectedItemTag, 0u) << operation;
    }
}

}  // namespace
