// Platform failures while the library starts, while a window is registered, and while the dial is turned,
// clicked and placed on the screen.
#include "support/menu_items.h"
#include "sweep.h"

namespace sweep {
namespace {

// --- starting and registering

Row Initializing() {
    return Table({Call("RoInitialize"), Factory("Windows.Foundation.Metadata.ApiInformation"),
                  Call("WindowsCreateStringReference(Windows.UI.Input.EdgeGesture)"),
                  Absent(Call("IApiInformationStatics::IsTypePresent").NullEnds(2))})
        .FailsAs(1)
        .Answers(Answer::Code);
}

Row QueryingWindow() {
    return Then([](ExpectedState& state) { state.log += "asked for the window\n"; });
}

Row Subscribing(int line, const char* event) {
    return Guarded(line, Call(std::string("IRadialController::add_") + event));
}

Row Registering() {
    const Row registration = Table({
        Guarded(458, Factory("Windows.UI.Input.RadialController")),
        Guarded(460, Call("IRadialControllerInterop::CreateForWindow").NullEnds(kNoInterface)),
        Subscribing(467, "ScreenContactContinued"),
        Subscribing(471, "ScreenContactStarted"),
        Subscribing(475, "ScreenContactEnded"),
        Subscribing(479, "ControlLost"),
        Subscribing(483, "ControlAcquired"),
        Subscribing(487, "RotationChanged"),
        Subscribing(491, "ButtonClicked"),
    });
    return Table({QueryingWindow(), Reported("register", 110, registration), QueryingWindow()})
        .Answers(Answer::Bool);
}

// --- the contact with the screen

constexpr char kPosition[] = "IRadialControllerScreenContact::get_Position";
constexpr char kBounds[] = "IRadialControllerScreenContact::get_Bounds";

Row LoggingTheContact(const char* args, int line) {
    const Row log = Table({
        Guarded(1065, Call(std::string(args) + "::get_Contact").NullEnds(0)),
        Guarded(1072, Call(kPosition)),
        Guarded(1073, Call(kBounds)),
    });
    return Table({Guarded(line, log)}).Answers(Answer::Code);
}

// --- turning and clicking; the dial is at 10.7, 20.2 with a size of 20.6 by 5.9

Row SelectedItem() {
    return Guarded(847, Call("IRadialControllerMenu::GetSelectedMenuItem").Gives(&ExpectedState::selected));
}

Row ReadingTheTag() {
    const Row tag = Table({Call("IRadialControllerMenuItem::get_Tag").NullEnds(0), View("IPropertyValue"),
                           Ignored(Call("IPropertyValue::GetUInt32").Gives(&ExpectedState::tag_read))});
    return Ignored(Table({tag}).Needs(&ExpectedState::selected, 0));
}

Row ReadingTheBounds() {
    return Ignored(Table({Call("IRadialControllerRotationChangedEventArgs::get_Contact").NullEnds(0),
                          Ignored(Call(kPosition)), Call(kBounds).Gives(&ExpectedState::bounds_read)}));
}

void NotifyRotation(ExpectedState& state) {
    state.log += std::string("turned by ") + (state.degrees_read ? "1.5" : "0") +
                 (state.button_read ? ", pressed" : ", not pressed") +
                 (state.tag_read ? ", tag 7" : ", tag 0") + ", contact " +
                 (state.bounds_read ? "10 20 31 26\n" : "0 0 0 0\n");
}

Row NotifyingRotation() {
    return Table({
        Thrown(View("IRadialControllerRotationChangedEventArgs")),
        Ignored(Call("IRadialControllerRotationChangedEventArgs::get_RotationDeltaInDegrees")
                    .Gives(&ExpectedState::degrees_read)),
        Thrown(View("IRadialControllerRotationChangedEventArgs2")),
        Thrown(Call("IRadialControllerRotationChangedEventArgs2::get_IsButtonPressed")
                   .Gives(&ExpectedState::button_read)),
        Then(NotifyRotation),
    });
}

Row AnsweringWithHaptics() {
    return Table({
        Thrown(View("IRadialControllerRotationChangedEventArgs2")),
        Thrown(Call("IRadialControllerRotationChangedEventArgs2::get_SimpleHapticsController").NullEnds(0)),
        Thrown(Call("ISimpleHapticsController::get_SupportedFeedback").NullEnds(0)),
        Thrown(Call("IVectorView<SimpleHapticsControllerFeedback>::get_Size").NullEnds(0)),
        Thrown(Call("IVectorView<SimpleHapticsControllerFeedback>::GetAt").Gives(&ExpectedState::waveform)),
        Thrown(Call("ISimpleHapticsController::SendHapticFeedbackForPlayCount")
                   .Needs(&ExpectedState::waveform, kInvalidArgument)),
    });
}

Row Clicking() {
    return Table({Guarded(1038, Call("IRadialControllerButtonClickedEventArgs::get_Contact")
                                    .Gives(&ExpectedState::contact)
                                    .Does([](ExpectedState& state) { ++state.contacts_kept; })),
                  Table({Ignored(Call(kBounds).Gives(&ExpectedState::bounds_read))})
                      .Needs(&ExpectedState::contact, 0),
                  Then([](ExpectedState& state) {
                      state.log +=
                          state.bounds_read ? "clicked, contact 10 20 30 25\n" : "clicked, contact 0 0 0 0\n";
                  })})
        .Answers(Answer::Code);
}

class EventSweep : public Sweep {
protected:
    void Listen() {
        ASSERT_EQ(initialize(), 0);
        ASSERT_TRUE(init_dial_listener(&host));
    }
    void ListenOnTheScreen() {
        Listen();
        EXPECT_EQ(dialsim_touch(kWindow, 10.7F, 20.2F, 20.6F, 5.9F), 0);
    }
    void SweepRotation(const char* name, Rows rows, std::function<void()> prepare) {
        InjectEachFault({.name = name,
                         .table = Table(std::move(rows)).Answers(Answer::Code),
                         .act = [this] { LogCode(dialsim_turn(kWindow, 1.5)); },
                         .prepare =
                             [prepare] {
                                 prepare();
                                 dialsim_hold(true);
                             }});
    }
    void SweepContact(const char* name, const char* args, int line, std::int32_t (*raise)()) {
        InjectEachFault({.name = name,
                         .table = LoggingTheContact(args, line),
                         .act = [this, raise] { LogCode(raise()); },
                         .prepare = [this] { ListenOnTheScreen(); }});
    }
};

TEST_F(EventSweep, OfStarting) {
    InjectEachFault({.name = "initialize",
                     .table = Initializing(),
                     .act = [this] { LogCode(initialize()); },
                     .string_failure_is_fatal = true});
}

TEST_F(EventSweep, OfRegistering) {
    InjectEachFault({.name = "init_dial_listener",
                     .table = Registering(),
                     .act = [this] { LogResult(init_dial_listener(&host)); },
                     .prepare = [] { ASSERT_EQ(initialize(), 0); }});
}

TEST_F(EventSweep, OfTurning) {
    const Row no_contact = Ignored(Call("IRadialControllerRotationChangedEventArgs::get_Contact"));
    SweepRotation("without a menu", {no_contact, NotifyingRotation()}, [this] { Listen(); });
    SweepRotation("without a selected item", {SelectedItem(), ReadingTheBounds(), NotifyingRotation()},
                  [this] {
                      ListenOnTheScreen();
                      ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(7)}));
                  });
    SweepRotation(
        "with everything, answered with haptics",
        {SelectedItem(), ReadingTheTag(), ReadingTheBounds(), NotifyingRotation(), AnsweringWithHaptics()},
        [this] {
            ListenOnTheScreen();
            ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(7)}));
            ASSERT_EQ(dialsim_choose(kWindow, 0), 0);
            static const std::uint32_t buzz = 1;
            host.haptic_request = &buzz;
        });
}

TEST_F(EventSweep, OfClicking) {
    InjectEachFault({.name = "on the screen",
                     .table = Clicking(),
                     .act = [this] { LogCode(dialsim_click(kWindow)); },
                     .prepare = [this] { ListenOnTheScreen(); }});
}

TEST_F(EventSweep, OfContactsAndControl) {
    SweepContact("started", "IRadialControllerScreenContactStartedEventArgs", 810,
                 [] { return dialsim_touch(kWindow, 1, 2, 3, 4); });
    SweepContact("continued", "IRadialControllerScreenContactContinuedEventArgs", 803,
                 [] { return dialsim_move(kWindow, 1, 2, 3, 4); });
    SweepContact("acquired", "IRadialControllerControlAcquiredEventArgs", 835,
                 [] { return dialsim_acquire(kWindow); });
}

}  // namespace
}  // namespace sweep
