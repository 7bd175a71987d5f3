// Hosts that call the library from callbacks, and events raised inside the library's platform calls.
#include <functional>
#include <optional>
#include <string>

#include "menu.h"
#include "support/inside_call.h"

namespace {

class Reentrancy : public InitializedTest {
protected:
    // With a host that calls every window function in its callbacks.
    void ListenReentrantly() {
        host.on_rotation = [this](const DialRotationInfo&) { CallBackIn(); };
        host.on_click = [this](const DialContactRect&) { CallBackIn(); };
        ASSERT_TRUE(init_dial_listener(&host));
    }

    bool registered = true;
    bool answered = true;
    RecordingHost host{kWindow};
    RecordingHost other{kWindow + 1};

private:
    void CallBackIn() {
        registered = registered && init_dial_listener(&other);
        const std::int32_t kind = 3;
        answered = answered && SetMenu(kWindow, {KnownIcon(5)}) && set_default_menu(kWindow, &kind, 1) &&
                   set_current_custom_menu(kWindow, 5) && is_dial_present(kWindow);
    }
};

TEST_F(Reentrancy, ACallbackMayCallTheWindowFunctions) {
    ListenReentrantly();
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_TRUE(registered);
    EXPECT_TRUE(answered);
    EXPECT_EQ(dialsim_turn(kWindow + 1, 1.0), 0);
    EXPECT_EQ(other.rotations.size(), 1u);
}

TEST_F(Reentrancy, AClickMayRegisterAHostAgain) {
    ListenReentrantly();
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_TRUE(registered);
    // The second click displaced the listener that the first had inserted: both call the host, one of them
    // after uninit.
    EXPECT_EQ(dialsim_turn(kWindow + 1, 1.0), 0);
    EXPECT_EQ(other.rotations.size(), 2u);
    uninit();
    EXPECT_EQ(dialsim_objects(kControllers), 1u);
    dialsim_reset();
}

TEST_F(Reentrancy, ATurnDuringTheRegistrationReachesTheHost) {
    const InsideCall turn("IRadialController::add_ButtonClicked", [] { dialsim_turn(kWindow, 2.0); });
    EXPECT_TRUE(init_dial_listener(&host));
    ASSERT_EQ(host.rotations.size(), 1u);
    EXPECT_EQ(host.LastRotation().deltaDegrees, 2.0);
}

// The dial is clicked inside a platform call; the host rebuilds the menu in its callback.
class MenuMadeInACall : public InitializedTest {
protected:
    void SetUp() override {
        InitializedTest::SetUp();
        ASSERT_TRUE(init_dial_listener(&host_));
    }

    // With one item, tagged 50; `made` is the function's result.
    void MakeMenuInside(const char* operation, const std::function<void()>& act) {
        host_.on_click = [this](const DialContactRect&) { made = SetMenu(kWindow, {KnownIcon(50)}); };
        const InsideCall click(operation, [] { EXPECT_EQ(dialsim_click(kWindow), 0); });
        act();
    }
    // The nested call fails, prints a line and leaves no menu.
    void LoseMenuInside(const char* operation, const std::function<void()>& act) {
        host_.on_click = [this](const DialContactRect&) {
            dialsim_fail("IRadialController::get_Menu", kFail, 1, 3);
            made = SetMenu(kWindow, {KnownIcon(50)});
        };
        const InsideCall click(operation, [] { EXPECT_EQ(dialsim_click(kWindow), 0); });
        act();
    }
    std::optional<bool> made;
    RecordingHost host_{kWindow};
};

constexpr char kLostMenu[] = "failed with 80004005 at line 124\n";

TEST_F(MenuMadeInACall, WhileAnItemIsSubscribedIsJoinedByTheItem) {
    MakeMenuInside(kAddInvoked, [] { EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2)})); });
    EXPECT_EQ(made, true);
    EXPECT_EQ(TagsShown(), "50\n1\n2\n");
}

TEST_F(MenuMadeInACall, WhileTheMenuIsFetchedIsReplacedAndLeavesNoReference) {
    MakeMenuInside(kGetMenu, [] { EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1)})); });
    EXPECT_EQ(made, true);
    EXPECT_EQ(TagsShown(), "1\n");
}

TEST_F(MenuMadeInACall, WhileTheFactoryOfIconsIsFetchedIsJoinedByTheItemAndLeavesNoReference) {
    MakeMenuInside("RoGetActivationFactory(Windows.UI.Input.RadialControllerMenuItem)",
                   [] { EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1)})); });
    EXPECT_EQ(made, true);
    EXPECT_EQ(TagsShown(), "50\n1\n");
}

// The current item is added to the menu of its creation; the items after it have no menu.
TEST_F(MenuMadeInACall, AndLostWhileAnItemIsSubscribedCostsTheItemsAfterIt) {
    LoseMenuInside(kAddInvoked, [] { EXPECT_TRUE(SetMenu(kWindow, {SystemFont(1), SystemFont(2)})); });
    EXPECT_EQ(made, false);
    EXPECT_EQ(TagsShown(), "1\n");
    EXPECT_EQ(Printed(),
              kLostMenu + std::string("failed with 80004002 at line 533\n"
                                      "failed with 80004002 at line 533\n"
                                      "AddMenuItemFromSystemFont failed with 80004002 at line 157\n"));
}

TEST_F(MenuMadeInACall, AndLostWhileItsItemsAreFetchedIsStillCleared) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(9)}));
    FailInTurn(kGetItems, {kFail, kFail, 0});
    LoseMenuInside(kGetItems, [] { EXPECT_TRUE(SetMenu(kWindow, {})); });
    EXPECT_EQ(made, false);
    EXPECT_EQ(Printed(), kLostMenu + std::string("failed with 80004005 at line 129\n"));
}

TEST_F(MenuMadeInACall, AndLostWhileATurnReadsTheSelectionLeavesTheTurnItsMenu) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(9)}));
    FailInTurn(kGetSelected, {kFail, kAccessDenied, kDisconnected});
    LoseMenuInside(kGetSelected, [] { EXPECT_EQ(dialsim_turn(kWindow, 1.0), kDisconnected); });
    EXPECT_EQ(made, false);
    EXPECT_EQ(host_.rotations.size(), 0u);
    EXPECT_EQ(Printed(), kLostMenu + std::string("failed with 80070005 at line 847\n"));
}

// The inner menu releases the factory for known icons; the current item holds its own reference.
TEST_F(MenuMadeInACall, WithoutTheFactoryOfIconsLeavesTheItemItsFactory) {
    FailInTurn(kCreateFromKnownIcon, {kFail, kFail, kFail, 0, 0});
    host_.on_click = [this](const DialContactRect&) {
        dialsim_fail("RoGetActivationFactory(Windows.UI.Input.RadialControllerMenuItem)", kFail, 1, 3);
        made = SetMenu(kWindow, {KnownIcon(50)});
    };
    const InsideCall click(kCreateFromKnownIcon, [] { EXPECT_EQ(dialsim_click(kWindow), 0); });
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    EXPECT_EQ(made, false);
    EXPECT_EQ(Printed(),
              "failed with 80004005 at line 151\n"
              "failed with 80004005 at line 515\n"
              "AddMenuItemFromKnownIcon failed with 80004002 at line 152\n");
}

}  // namespace
