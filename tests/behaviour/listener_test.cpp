// Registration, the registry, and the destruction of listeners.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "behaviour.h"
#include "support/edges.h"
#include "support/menu_items.h"

namespace {

using Listener = InitializedTest;

constexpr char kRegistrationJournal[] =
    "WindowsCreateStringReference(Windows.UI.Input.RadialController)\n"
    "RoGetActivationFactory(Windows.UI.Input.RadialController)\n"
    "IRadialControllerInterop::CreateForWindow(131862)\n"
    "IRadialController::add_ScreenContactContinued()\n"
    "IRadialController::add_ScreenContactStarted()\n"
    "IRadialController::add_ScreenContactEnded()\n"
    "IRadialController::add_ControlLost()\n"
    "IRadialController::add_ControlAcquired()\n"
    "IRadialController::add_RotationChanged()\n"
    "IRadialController::add_ButtonClicked()\n";

TEST_F(Listener, ANullHostIsRefusedAndNothingIsAsked) {
    EXPECT_FALSE(init_dial_listener(nullptr));
    EXPECT_EQ(Journal(), "");
}

TEST_F(Listener, TheSevenEventsAreSubscribedInTheirOwnOrder) {
    RecordingHost host(kWindow);
    EXPECT_TRUE(init_dial_listener(&host));
    EXPECT_EQ(Journal(), kRegistrationJournal);
    EXPECT_EQ(dialsim_handlers(), 7u);
}

TEST_F(Listener, TheHostIsAskedForItsWindowExactlyTwice) {
    RecordingHost host(kWindow);
    EXPECT_TRUE(init_dial_listener(&host));
    EXPECT_EQ(host.window_queries, 2u);
}

TEST_F(Listener, AHostWhoseRegistrationFailsIsAskedForItsWindowOnce) {
    RecordingHost host(kWindow);
    dialsim_fail("IRadialControllerInterop::CreateForWindow", kFail, 1, 0);
    EXPECT_FALSE(init_dial_listener(&host));
    EXPECT_EQ(host.window_queries, 1u);
    Printed();
}

TEST_F(Listener, TheFirstAnswerIsTheControllersWindow) {
    RecordingHost host({10, 20});
    EXPECT_TRUE(init_dial_listener(&host));
    EXPECT_EQ(dialsim_calls("IRadialControllerInterop::CreateForWindow(10)"), 1u);
    EXPECT_EQ(dialsim_turn(10, 1.0), 0);
    EXPECT_EQ(host.rotations.size(), 1u);
}

TEST_F(Listener, TheSecondAnswerIsTheKey) {
    RecordingHost displaced({10, 20});
    RecordingHost second({30, 20});
    RecordingHost elsewhere({40, 10});
    EXPECT_TRUE(init_dial_listener(&displaced));
    EXPECT_TRUE(init_dial_listener(&second));
    EXPECT_TRUE(init_dial_listener(&elsewhere));
    uninit();
    // The first listener, registered under 20, was displaced there: uninit does not find it.
    EXPECT_EQ(dialsim_turn(10, 1.0), 0);
    EXPECT_EQ(dialsim_turn(30, 1.0), DIALSIM_NO_CONTROLLER);
    EXPECT_EQ(dialsim_turn(40, 1.0), DIALSIM_NO_CONTROLLER);
    EXPECT_EQ(dialsim_objects(kControllers), 1u);
    dialsim_reset();
}

TEST_F(Listener, UninitEndsListenersInUnsignedOrderOfWindows) {
    RecordingHost top(0x8000000000000001);
    RecordingHost low(1);
    RecordingHost middle(0x7FFFFFFFFFFFFFFF);
    EXPECT_TRUE(init_dial_listener(&top));
    EXPECT_TRUE(init_dial_listener(&middle));
    EXPECT_TRUE(init_dial_listener(&low));
    dialsim_clear_journal();
    uninit();
    EXPECT_EQ(Journal(),
              "end of RadialController(1)\n"
              "end of RadialController(9223372036854775807)\n"
              "end of RadialController(9223372036854775809)\n"
              "RoUninitialize()\n");
}

TEST_F(Listener, ASecondUninitFindsAnEmptyRegistry) {
    RecordingHost host(kWindow);
    EXPECT_TRUE(init_dial_listener(&host));
    uninit();
    dialsim_clear_journal();
    uninit();
    EXPECT_EQ(Journal(), "RoUninitialize()\n");
}

TEST_F(Listener, NoEventReachesAHostAfterUninit) {
    RecordingHost host(kWindow);
    EXPECT_TRUE(init_dial_listener(&host));
    uninit();
    EXPECT_EQ(dialsim_turn(kWindow, 5.0), DIALSIM_NO_CONTROLLER);
    EXPECT_TRUE(host.rotations.empty());
}

TEST_F(Listener, ADisplacedListenerGoesOnCallingItsHost) {
    RecordingHost first(kWindow);
    RecordingHost second(kWindow);
    EXPECT_TRUE(init_dial_listener(&first));
    EXPECT_TRUE(init_dial_listener(&second));
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(first.rotations.size(), 1u);
    EXPECT_EQ(second.rotations.size(), 1u);
    dialsim_reset();
}

TEST_F(Listener, ADisplacedListenerOutlivesUninit) {
    RecordingHost first(kWindow);
    RecordingHost second(kWindow);
    EXPECT_TRUE(init_dial_listener(&first));
    EXPECT_TRUE(init_dial_listener(&second));
    uninit();
    EXPECT_EQ(dialsim_objects(kControllers), 1u);
    EXPECT_EQ(dialsim_handlers(), 7u);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(first.rotations.size(), 1u);
    EXPECT_TRUE(second.rotations.empty());
    dialsim_reset();
}

TEST_F(Listener, NothingIsEverUnsubscribed) {
    RecordingHost first(kWindow);
    RecordingHost second(kWindow);
    RecordingHost refused(7);
    EXPECT_TRUE(init_dial_listener(&first));
    EXPECT_TRUE(init_dial_listener(&second));
    dialsim_fail("IRadialController::add_ButtonClicked", kFail, 1, 0);
    EXPECT_FALSE(init_dial_listener(&refused));
    Printed();
    uninit();
    EXPECT_EQ(Journal().find("remove_"), std::string::npos);
    dialsim_reset();
}

TEST_F(Listener, AMissingControllerClassIsActivatedThreeTimes) {
    RecordingHost host(kWindow);
    dialsim_fail("RoGetActivationFactory(Windows.UI.Input.RadialController)", kClassNotRegistered, 1, 0);
    EXPECT_FALSE(init_dial_listener(&host));
    EXPECT_EQ(dialsim_calls("RoGetActivationFactory(Windows.UI.Input.RadialController)"), 3u);
    EXPECT_EQ(Printed(),
              "failed with 80040154 at line 458\n"
              "register failed with 80040154 at line 110\n");
}

TEST_F(Listener, AClassNameThatCannotBeMadeCountsAsAMissingFactory) {
    RecordingHost host(kWindow);
    dialsim_fail("WindowsCreateStringReference", kOutOfMemory, 1, 0);
    EXPECT_FALSE(init_dial_listener(&host));
    EXPECT_EQ(Printed(),
              "failed with 8007000e at line 458\n"
              "register failed with 8007000e at line 110\n");
}

TEST_F(Listener, ASuccessWithoutAFactoryCountsAsAMissingFactory) {
    RecordingHost host(kWindow);
    dialsim_yield_null("RoGetActivationFactory(Windows.UI.Input.RadialController)", 1, 0);
    EXPECT_FALSE(init_dial_listener(&host));
    EXPECT_EQ(dialsim_calls("RoGetActivationFactory(Windows.UI.Input.RadialController)"), 3u);
    EXPECT_EQ(Printed(),
              "failed with 80004002 at line 458\n"
              "register failed with 80004002 at line 110\n");
}

TEST_F(Listener, ASuccessWithoutAControllerIsNoInterfaceSilently) {
    RecordingHost host(kWindow);
    dialsim_yield_null("IRadialControllerInterop::CreateForWindow", 1, 0);
    EXPECT_FALSE(init_dial_listener(&host));
    EXPECT_EQ(dialsim_calls("IRadialControllerInterop::CreateForWindow"), 1u);
    EXPECT_EQ(Printed(), "register failed with 80004002 at line 110\n");
}

// An attempt that returns its result and fails: the next attempt releases the stored result.
TEST_F(Listener, FactoriesAndControllersOfFailedAttemptsAreReleased) {
    for (const char* operation : {"RoGetActivationFactory(Windows.UI.Input.RadialController)",
                                  "IRadialControllerInterop::CreateForWindow"}) {
        RecordingHost host(kWindow);
        dialsim_fail_late(operation, kFail, 1, 3);
        EXPECT_FALSE(init_dial_listener(&host));
        EXPECT_EQ(dialsim_calls(operation), 3u);
        EXPECT_EQ(LeakReport(), "") << operation;
    }
    Printed();
}

TEST_F(Listener, TheControllerOfAFailedAttemptIsReleasedBeforeTheNextIsMade) {
    RecordingHost host(5);
    dialsim_fail_late("IRadialControllerInterop::CreateForWindow", kFail, 1, 3);
    EXPECT_FALSE(init_dial_listener(&host));
    EXPECT_EQ(Journal().substr(Journal().find("IRadialControllerInterop")),
              "IRadialControllerInterop::CreateForWindow(5) = 80004005\n"
              "end of RadialController(5)\n"
              "IRadialControllerInterop::CreateForWindow(5) = 80004005\n"
              "end of RadialController(5)\n"
              "IRadialControllerInterop::CreateForWindow(5) = 80004005\n"
              "end of RadialController(5)\n");
    Printed();
}

// A subscription that succeeds and reports a failure: the handlers of all three attempts live and differ.
TEST_F(Listener, EachAttemptOfASubscriptionMakesAFreshHandler) {
    RecordingHost host(kWindow);
    dialsim_fail_late("IRadialController::add_ButtonClicked", kFail, 1, 2);
    EXPECT_TRUE(init_dial_listener(&host));
    EXPECT_EQ(dialsim_handlers(), 6u + 3u);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(host.clicks.size(), 3u);
    EXPECT_EQ(Printed(), "failed with 80004005 at line 491\n");
}

struct Step {
    const char* operation;
    int line;
    std::uint32_t handlers_when_skipped;  // subscribed when this step ends the registration
};

void PrintTo(const Step& step, std::ostream* stream) { *stream << "line " << step.line; }

class EachStep : public InitializedTest, public testing::WithParamInterface<Step> {
protected:
    std::string LineWith(const char* code) const {
        return "failed with " + std::string(code) + " at line " + std::to_string(GetParam().line) + "\n";
    }
    bool Register() { return init_dial_listener(&host_); }
    std::uint32_t Attempts() const { return dialsim_calls(GetParam().operation); }

    RecordingHost host_{kWindow};
};

TEST_P(EachStep, FailingThriceEndsTheRegistrationWithTheThirdCode) {
    FailInTurn(GetParam().operation, {kFail, kAccessDenied, kDisconnected});
    EXPECT_FALSE(Register());
    EXPECT_EQ(Attempts(), 3u);
    EXPECT_EQ(Printed(), LineWith("80070005") + "register failed with 80010108 at line 110\n");
    EXPECT_EQ(LeakReport(), "");
}

TEST_P(EachStep, FailingTwiceAndThenWorkingEndsTheRegistrationAsASuccess) {
    FailInTurn(GetParam().operation, {kFail, kAccessDenied, 0});
    EXPECT_TRUE(Register());
    EXPECT_EQ(Attempts(), 3u);
    EXPECT_EQ(Printed(), LineWith("80070005"));
    EXPECT_EQ(dialsim_handlers(), GetParam().handlers_when_skipped);
}

TEST_P(EachStep, FailingOnceAndThenAgainEndsTheRegistrationWithTheThirdCode) {
    FailInTurn(GetParam().operation, {kFail, 0, kDisconnected});
    EXPECT_FALSE(Register());
    EXPECT_EQ(Attempts(), 3u);
    EXPECT_EQ(Printed(), LineWith("0") + "register failed with 80010108 at line 110\n");
    EXPECT_EQ(LeakReport(), "");
}

TEST_P(EachStep, FailingOnceEndsTheRegistrationAsASuccessAfterALineWithZero) {
    FailInTurn(GetParam().operation, {kFail, 0, 0});
    EXPECT_TRUE(Register());
    EXPECT_EQ(Attempts(), 3u);
    EXPECT_EQ(Printed(), LineWith("0"));
}

INSTANTIATE_TEST_SUITE_P(Registration, EachStep,
                         testing::Values(Step{"RoGetActivationFactory(Windows.UI.Input.RadialController)",
                                              458, 0},
                                         Step{"IRadialControllerInterop::CreateForWindow", 460, 0},
                                         Step{"IRadialController::add_ScreenContactContinued", 467, 1},
                                         Step{"IRadialController::add_ScreenContactStarted", 471, 2},
                                         Step{"IRadialController::add_ScreenContactEnded", 475, 3},
                                         Step{"IRadialController::add_ControlLost", 479, 4},
                                         Step{"IRadialController::add_ControlAcquired", 483, 5},
                                         Step{"IRadialController::add_RotationChanged", 487, 6},
                                         Step{"IRadialController::add_ButtonClicked", 491, 7}),
                         [](const auto& step_info) { return "Line" + std::to_string(step_info.param.line); });

// The host sees the difference in the line, not in the result.
TEST_F(Listener, ATrueWithLine460IsAListenerWithoutEvents) {
    FailInTurn("IRadialControllerInterop::CreateForWindow", {kFail});
    RecordingHost host(kWindow);
    EXPECT_TRUE(init_dial_listener(&host));
    EXPECT_EQ(Printed(), "failed with 0 at line 460\n");
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_TRUE(host.rotations.empty());
    EXPECT_TRUE(host.clicks.empty());
}

TEST_F(Listener, ATrueWithLine487IsEachTurnTwiceAndNoClick) {
    FailInTurn("IRadialController::add_RotationChanged", {kFail});
    RecordingHost host(kWindow);
    EXPECT_TRUE(init_dial_listener(&host));
    EXPECT_EQ(Printed(), "failed with 0 at line 487\n");
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(host.rotations.size(), 2u);
    EXPECT_TRUE(host.clicks.empty());
}

using Windows = ListeningTest;

TEST_F(Windows, AWindowThatWasNeverRegisteredGetsFalseAndAsksNothing) {
    EXPECT_FALSE(add_custom_menu(kWindow + 1, nullptr, 0));
    EXPECT_FALSE(set_default_menu(kWindow + 1, nullptr, 0));
    EXPECT_FALSE(set_current_custom_menu(kWindow + 1, 0));
    EXPECT_FALSE(is_dial_present(kWindow + 1));
    EXPECT_EQ(Journal(), "");
}

TEST_F(Windows, AMissInsertsNoEntry) {
    EXPECT_FALSE(is_dial_present(kWindow + 1));
    uninit();
    EXPECT_EQ(Journal(), "end of RadialController(131862)\nRoUninitialize()\n");
}

using SimilarHandles = SimilarPair<std::uint64_t>;

class SimilarWindows : public InitializedTest, public testing::WithParamInterface<SimilarHandles> {
protected:
    static std::string WithHandle(const char* operation, std::uint64_t window) {
        return std::string(operation) + "(" + std::to_string(window) + ")";
    }

    const std::uint64_t first_ = GetParam().first;
    const std::uint64_t second_ = GetParam().second;
    RecordingHost first_host_{first_};
    RecordingHost second_host_{second_};
};

TEST_P(SimilarWindows, EachReceivesItsOwnEvents) {
    EXPECT_TRUE(init_dial_listener(&first_host_));
    EXPECT_TRUE(init_dial_listener(&second_host_));
    EXPECT_EQ(dialsim_turn(second_, 4.0), 0);
    EXPECT_EQ(dialsim_click(first_), 0);
    EXPECT_EQ(first_host_.rotations.size(), 0u);
    EXPECT_EQ(first_host_.clicks.size(), 1u);
    EXPECT_EQ(second_host_.rotations.size(), 1u);
    EXPECT_EQ(second_host_.clicks.size(), 0u);
}

TEST_P(SimilarWindows, ReachThePlatformWithAllBitsOfTheirHandles) {
    EXPECT_TRUE(init_dial_listener(&first_host_));
    EXPECT_TRUE(init_dial_listener(&second_host_));
    const std::int32_t kind = 1;
    for (const std::uint64_t window : {first_, second_}) {
        EXPECT_TRUE(set_default_menu(window, &kind, 1));
        const std::string create = WithHandle("IRadialControllerInterop::CreateForWindow", window);
        const std::string find = WithHandle("IRadialControllerConfigurationInterop::GetForWindow", window);
        EXPECT_EQ(dialsim_calls(create.c_str()), 1u);
        EXPECT_EQ(dialsim_calls(find.c_str()), 1u);
    }
}

TEST_P(SimilarWindows, HaveMenusOfTheirOwn) {
    EXPECT_TRUE(init_dial_listener(&first_host_));
    EXPECT_TRUE(init_dial_listener(&second_host_));
    EXPECT_TRUE(SetMenu(first_, {KnownIcon(1)}));
    EXPECT_TRUE(SetMenu(second_, {KnownIcon(2)}));
    EXPECT_NE(MenuText(first_).find("tag 1\n"), std::string::npos);
    EXPECT_NE(MenuText(second_).find("tag 2\n"), std::string::npos);
    EXPECT_FALSE(set_current_custom_menu(first_, 2));
    EXPECT_FALSE(set_current_custom_menu(second_, 1));
    EXPECT_TRUE(set_current_custom_menu(first_, 1));
    EXPECT_TRUE(set_current_custom_menu(second_, 2));
}

TEST_P(SimilarWindows, AreNotTakenForOneAnother) {
    EXPECT_TRUE(init_dial_listener(&second_host_));
    dialsim_clear_journal();
    EXPECT_FALSE(add_custom_menu(first_, nullptr, 0));
    EXPECT_FALSE(set_default_menu(first_, nullptr, 0));
    EXPECT_FALSE(set_current_custom_menu(first_, 0));
    EXPECT_FALSE(is_dial_present(first_));
    EXPECT_EQ(Journal(), "");
    EXPECT_TRUE(add_custom_menu(second_, nullptr, 0));
    EXPECT_TRUE(is_dial_present(second_));
}

INSTANTIATE_TEST_SUITE_P(
    DifferIn, SimilarWindows,
    testing::Values(SimilarHandles{"BitZero", 0x20316, 0x20317},
                    SimilarHandles{"BitSixteen", 0x20316, 0x30316},
                    SimilarHandles{"BitThirtyOne", 0x20316, 0x80020316},
                    SimilarHandles{"BitThirtyTwo", 0x20316, 0x100020316},
                    SimilarHandles{"TheUpperHalf", 0x1234567800020316, 0x8765432100020316},
                    SimilarHandles{"TheTopBit", 0x20316, 0x8000000000020316},
                    SimilarHandles{"TheTopBitOfAll", 0x7FFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF}),
    kNameOfPair);

class WindowAtTheEdge : public InitializedTest, public testing::WithParamInterface<std::uint64_t> {};

TEST_P(WindowAtTheEdge, IsServedLikeAnyOther) {
    RecordingHost host(GetParam());
    EXPECT_TRUE(init_dial_listener(&host));
    EXPECT_TRUE(SetMenu(GetParam(), {KnownIcon(9)}));
    EXPECT_TRUE(set_current_custom_menu(GetParam(), 9));
    EXPECT_TRUE(is_dial_present(GetParam()));
    EXPECT_EQ(dialsim_turn(GetParam(), 1.0), 0);
    EXPECT_EQ(host.LastRotation().selectedItemTag, 9u);
}

INSTANTIATE_TEST_SUITE_P(All, WindowAtTheEdge,
                         testing::Values(0, 1, 0xFFFFFFFF, 0x100000000, 0x8000000000000000, UINT64_MAX));

// The handles are neither sorted nor small.
TEST_F(Listener, FiveThousandWindowsHaveTheirOwnHosts) {
    std::vector<std::unique_ptr<RecordingHost>> hosts;
    const auto window_of = [](std::uint64_t number) { return (number + 1) * 0x9E3779B97F4A7C15; };
    for (std::uint32_t i = 0; i < kVeryMany; ++i) {
        hosts.push_back(std::make_unique<RecordingHost>(window_of(i)));
        ASSERT_TRUE(init_dial_listener(hosts.back().get())) << i;
    }
    for (const std::uint32_t i : {0u, 100u, 4095u, 4096u, kVeryMany - 1}) {
        EXPECT_EQ(dialsim_turn(window_of(i), 1.0), 0) << i;
        EXPECT_EQ(hosts[i]->rotations.size(), 1u) << i;
    }
    for (std::uint32_t i = 0; i < kVeryMany; ++i) {
        ASSERT_TRUE(add_custom_menu(window_of(i), nullptr, 0)) << i;
    }
    EXPECT_FALSE(add_custom_menu(window_of(kVeryMany), nullptr, 0));
    uninit();
    EXPECT_EQ(dialsim_objects(kControllers), 0u);
}

class FailureCode : public InitializedTest, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(FailureCode, IsPrintedWithAllItsDigits) {
    RecordingHost host(kWindow);
    dialsim_fail("IRadialController::add_ButtonClicked", static_cast<std::int32_t>(GetParam()), 1, 0);
    EXPECT_FALSE(init_dial_listener(&host));
    char code[9];
    std::snprintf(code, sizeof code, "%x", GetParam());
    EXPECT_EQ(Printed(), "failed with " + std::string(code) + " at line 491\nregister failed with " + code +
                             " at line 110\n");
}

INSTANTIATE_TEST_SUITE_P(AtTheEdges, FailureCode,
                         testing::Values(0x80000000, 0x80000001, 0x8000FFFF, 0xFFFF0000, 0xFFFFFFFF));

class SuccessCode : public InitializedTest, public testing::WithParamInterface<std::int32_t> {};

TEST_P(SuccessCode, IsNoFailure) {
    RecordingHost host(kWindow);
    dialsim_fail("IRadialController::add_ButtonClicked", GetParam(), 1, 0);
    EXPECT_TRUE(init_dial_listener(&host));
    EXPECT_EQ(dialsim_calls("IRadialController::add_ButtonClicked"), 1u);
}

INSTANTIATE_TEST_SUITE_P(AtTheEdges, SuccessCode, testing::Values(1, 0x7FFFFFFF));

using DiagnosticsDeathTest = Listener;

// Standard output is not writable.
void RegisterWithoutOutput() {
#ifdef _WIN32
    constexpr char kReadOnly[] = "NUL";
#else
    constexpr char kReadOnly[] = "/dev/null";
#endif
    dialsim_reset();
    initialize();
    RecordingHost host(kWindow);
    dialsim_fail("IRadialControllerInterop::CreateForWindow", kFail, 1, 0);
    const bool unwritable = std::freopen(kReadOnly, "r", stdout) != nullptr && std::fputs("x", stdout) == EOF;
    const bool refused = !init_dial_listener(&host);
    std::_Exit(unwritable && refused ? EXIT_SUCCESS : EXIT_FAILURE);
}

TEST_F(DiagnosticsDeathTest, ALineThatCannotBeWrittenIsIgnored) {
    EXPECT_EXIT(RegisterWithoutOutput(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

}  // namespace
