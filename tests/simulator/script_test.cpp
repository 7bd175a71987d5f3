// Scripts: every command, and every syntax error.
#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "event_recorder.h"
#include "platform/interfaces/metadata.h"
#include "platform/text.h"

namespace brindle {
namespace {

constexpr char kGetContact[] = "IRadialControllerButtonClickedEventArgs::get_Contact";

class Scripts : public SimulatorApartmentTest {
protected:
    static std::string ErrorOf(const std::string& script) {
        char error[200] = "not written";
        const bool played = dialsim_play(script.c_str(), 0, error, sizeof error);
        EXPECT_EQ(played, error[0] == '\0') << error;
        return error;
    }
    static void Play(const std::string& script) { EXPECT_EQ(ErrorOf(script), ""); }

    // The platform's result of a click's get_Contact, called inside the event.
    static HRESULT ContactCode(ComPtr<abi::IRadialControllerScreenContact>& contact) {
        const auto controller = MakeController(99);
        HRESULT code = S_OK;
        const auto handler = MakeDelegate<
            abi::TypedEventHandler<abi::RadialController, abi::RadialControllerButtonClickedEventArgs>>(
            [&](auto*, auto* args) {
                code = args->get_Contact(contact.Put());
                return S_OK;
            });
        EventRegistrationToken token{};
        EXPECT_EQ(controller->add_ButtonClicked(handler.Get(), &token), S_OK);
        dialsim_click(99);
        return code;
    }
    static HRESULT ContactCode() {
        ComPtr<abi::IRadialControllerScreenContact> contact;
        return ContactCode(contact);
    }
};

TEST_F(Scripts, TurnAndClick) {
    EventRecorder recorder(1);
    Play("turn 5\nturn -0.5\nclick\n");
    EXPECT_EQ(recorder.TakeEvents(), "turn 5; turn -0.5; click; ");
}

TEST_F(Scripts, HoldAndReleaseTheButton) {
    EventRecorder recorder(1);
    Play("hold\nturn 1\nrelease\nturn 2");
    EXPECT_EQ(recorder.TakeEvents(), "turn 1 held; turn 2; ");
}

TEST_F(Scripts, TouchMoveAndLift) {
    EventRecorder recorder(1);
    Play("touch 1.5 2 3 4\nmove -5 6 7 8\nturn 1\nlift\nturn 2");
    EXPECT_EQ(recorder.TakeEvents(),
              "touch at 1.5 2 3 4; move at -5 6 7 8; turn 1 at -5 6 7 8; lift; turn 2; ");
}

TEST_F(Scripts, AcquireAndLoseControl) {
    EventRecorder recorder(1);
    Play("acquire\nlose");
    EXPECT_EQ(recorder.TakeEvents(), "acquire; lose; ");
}

TEST_F(Scripts, ChooseAnItem) {
    const auto controller = MakeController(1);
    ComPtr<abi::IRadialControllerMenu> menu;
    ASSERT_EQ(controller->get_Menu(menu.Put()), S_OK);
    ComPtr<abi::IRadialControllerMenuItemStatics> items;
    ASSERT_EQ(GetFactory<abi::RadialControllerMenuItem>(items), S_OK);
    ComPtr<abi::IRadialControllerMenuItem> item;
    ASSERT_EQ(items->CreateFromKnownIcon(nullptr, abi::RadialControllerMenuKnownIcon::Zoom, item.Put()),
              S_OK);
    ComPtr<abi::IVector<abi::RadialControllerMenuItem>> list;
    ASSERT_EQ(menu->get_Items(list.Put()), S_OK);
    ASSERT_EQ(list->Append(item.Get()), S_OK);
    Play("choose 0");
    ComPtr<abi::IRadialControllerMenuItem> selected;
    EXPECT_EQ(menu->GetSelectedMenuItem(selected.Put()), S_OK);
    EXPECT_EQ(selected.Get(), item.Get());
}

TEST_F(Scripts, TheMenuIsOpenedAndClosed) {
    EventRecorder recorder(1);
    dialsim_append_item(1, "UInt32", 7);
    Play("menu\nturn 10\nclose\nturn 20\nmenu\nclick\nclick");
    EXPECT_EQ(recorder.TakeEvents(), "turn 20; click; ");
}

// For each, the window has a controller and an empty menu, and no operation has started.
TEST_F(Scripts, ACommandThatCannotTakePlaceFailsItsLine) {
    const auto controller = MakeController(16);
    const struct {
        const char* line;
        const char* reason;
    } rows[] = {
        {"choose 0", "no item 0 in the menu (8000000b)"},
        {"menu", "no menu to open"},
        {"complete 0", "no operation 0 to complete (8000000b)"},
        {"window @2", "no window @2"},
        {"window @0", "no window @0"},
        {"mouse 10 20 down", "no window for the mouse"},
        {"mouse 10 20 move", "no window for the mouse"},
        {"mouse 10 20 up", "no window for the mouse"},
        {"shot nowhere/shot.png", "cannot write the screenshot 'nowhere/shot.png'"},
        {"draw menu nowhere/menu.svg", "cannot write 'nowhere/menu.svg'"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ErrorOf(std::string("acquire\n\n") + row.line), std::string("line 3: ") + row.reason);
    }
}

TEST_F(Scripts, ACommandForAWindowWithoutAControllerFailsItsLine) {
    for (const char* line : {"turn 1", "click", "touch 1 2 3 4", "move 1 2 3 4", "lift", "acquire", "lose",
                             "choose 0", "show menu", "draw menu nowhere/menu.svg"}) {
        EXPECT_EQ(ErrorOf(line), "line 1: no window has a controller (80070490)") << line;
        EXPECT_EQ(ErrorOf(std::string("window 17\n") + line),
                  "line 2: no controller for window 17 (80070490)")
            << line;
    }
    EXPECT_EQ(ErrorOf("menu"), "line 1: no menu to open");
    EXPECT_EQ(ErrorOf("shot nowhere.png"), "line 1: cannot write the screenshot 'nowhere.png'");
}

TEST_F(Scripts, AClickOnAMenuThatHasLostTheItemFailsItsLine) {
    const auto controller = MakeController(1);
    dialsim_append_item(1, "UInt32", 7);
    ASSERT_TRUE(dialsim_open_menu(1));
    ASSERT_TRUE(dialsim_shrink_menu_after(1, 0));
    EXPECT_EQ(ErrorOf("click"), "line 1: the menu lacks the highlighted item (8000000b)");
}

TEST_F(Scripts, AHandlerThatThrowsFailsItsLine) {
    const auto controller = MakeController(1);
    const auto handler = MakeDelegate<
        abi::TypedEventHandler<abi::RadialController, abi::RadialControllerRotationChangedEventArgs>>(
        [](auto*, auto*) -> HRESULT { throw std::runtime_error("no such feedback"); });
    EventRegistrationToken token{};
    ASSERT_EQ(controller->add_RotationChanged(handler.Get(), &token), S_OK);
    EXPECT_EQ(ErrorOf("wait 0\nturn 1"), "line 2: a handler threw: no such feedback");
}

TEST_F(Scripts, TheCommandsBeforeAFailedLineTakePlaceAndNoneAfterIt) {
    EventRecorder recorder(1);
    ErrorOf("turn 1\nclick\nchoose 9\nturn 2\nhold");
    EXPECT_EQ(recorder.TakeEvents(), "turn 1; click; ");
    dialsim_turn(1, 3);
    EXPECT_EQ(recorder.TakeEvents(), "turn 3; ");
}

// The simulator's probe knows every type, the system's does not.
TEST_F(Scripts, SimulateOnlyTheDialWhereThereIsASystem) {
    const auto probe_knows_a_type = [] {
        ComPtr<abi::IApiInformationStatics> types;
        EXPECT_EQ(GetFactory<abi::ApiInformation>(types), S_OK);
        abi::boolean present = 0;
        types->IsTypePresent(ToPlatformString("Some.Type").Get(), &present);
        return present != 0;
    };
#ifdef _WIN32
    Play("only-dial on");
    EXPECT_FALSE(probe_knows_a_type());
    Play("only-dial off");
#else
    EXPECT_EQ(ErrorOf("only-dial on"), "line 1: there is no system beneath the simulator");
#endif
    EXPECT_TRUE(probe_knows_a_type());
}

TEST_F(Scripts, BeginWithTheNewestWindowAndDirectWhatFollows) {
    EventRecorder older(16);
    EventRecorder newest(17);
    Play("turn 1\nwindow 16\nturn 2\nwindow 0x11\nturn 3\nwindow 16\nclick\nwindow 0\nclick");
    EXPECT_EQ(older.TakeEvents(), "turn 2; click; ");
    EXPECT_EQ(newest.TakeEvents(), "turn 1; turn 3; click; ");
}

TEST_F(Scripts, NameAWindowByItsPlaceInTheOrderOfFirstControllers) {
    EventRecorder first(16);
    EventRecorder first_again(16);
    EventRecorder second(9);
    Play("window @2\nturn 2\nwindow @1\nturn 1");
    EXPECT_EQ(second.TakeEvents(), "turn 2; ");
    EXPECT_EQ(first.TakeEvents(), "turn 1; ");
}

TEST_F(Scripts, MayNameAWindowWithoutAController) { Play("window 99\nwindow 0"); }

TEST_F(Scripts, KeepTheWindowsPlaceWhenItsControllerEnds) {
    { EventRecorder ended(16); }
    EventRecorder second(9);
    Play("window @2\nclick");
    EXPECT_EQ(second.TakeEvents(), "click; ");
}

TEST_F(Scripts, CountWindowsFromOneAfterAReset) {
    { EventRecorder before(16); }
    dialsim_reset();
    EventRecorder recorder(17);
    Play("window @1\nclick");
    EXPECT_EQ(recorder.TakeEvents(), "click; ");
}

TEST_F(Scripts, EachBeginsWithTheNewestWindowAgain) {
    EventRecorder older(16);
    EventRecorder newest(17);
    Play("window 16");
    Play("turn 1");
    EXPECT_EQ(newest.TakeEvents(), "turn 1; ");
}

TEST_F(Scripts, HapticsListWaveforms) {
    const auto controller = MakeController(1);
    std::uint32_t count = 99;
    const auto handler = MakeDelegate<
        abi::TypedEventHandler<abi::RadialController, abi::RadialControllerRotationChangedEventArgs>>(
        [&](auto*, auto* args) {
            ComPtr<abi::IRadialControllerRotationChangedEventArgs2> more;
            Query(args, more);
            ComPtr<abi::ISimpleHapticsController> haptics;
            more->get_SimpleHapticsController(haptics.Put());
            ComPtr<abi::IVectorView<abi::SimpleHapticsControllerFeedback>> feedback;
            haptics->get_SupportedFeedback(feedback.Put());
            return feedback->get_Size(&count);
        });
    EventRegistrationToken token{};
    ASSERT_EQ(controller->add_RotationChanged(handler.Get(), &token), S_OK);
    Play("haptics 4099 0x1004 7\nturn 1");
    EXPECT_EQ(count, 3u);
    Play("haptics\nturn 1");
    EXPECT_EQ(count, 0u);
}

TEST_F(Scripts, FailSetsAFault) {
    Play(std::string("fail ") + kGetContact + " 80070005 2 1");
    EXPECT_EQ(ContactCode(), S_OK);
    EXPECT_EQ(ContactCode(), Code(0x80070005));
    EXPECT_EQ(ContactCode(), S_OK);
}

TEST_F(Scripts, AFaultWithoutCountsAppliesAtOnceAndForever) {
    Play(std::string("fail ") + kGetContact + " 0x80070005");
    EXPECT_EQ(ContactCode(), Code(0x80070005));
    EXPECT_EQ(ContactCode(), Code(0x80070005));
}

TEST_F(Scripts, AFaultWithoutTimesAppliesForever) {
    Play(std::string("fail ") + kGetContact + " 80070005 2");
    EXPECT_EQ(ContactCode(), S_OK);
    EXPECT_EQ(ContactCode(), Code(0x80070005));
    EXPECT_EQ(ContactCode(), Code(0x80070005));
}

TEST_F(Scripts, FailLateReturnsTheResult) {
    Play(std::string("fail-late ") + kGetContact + " 80070005 1 1");
    dialsim_touch(0, 1, 2, 3, 4);
    ComPtr<abi::IRadialControllerScreenContact> contact;
    EXPECT_EQ(ContactCode(contact), Code(0x80070005));
    EXPECT_TRUE(contact);
}

TEST_F(Scripts, NullYieldsNothing) {
    Play(std::string("null ") + kGetContact + " 1 1");
    dialsim_touch(0, 1, 2, 3, 4);
    ComPtr<abi::IRadialControllerScreenContact> contact;
    EXPECT_EQ(ContactCode(contact), S_OK);
    EXPECT_FALSE(contact);
    EXPECT_EQ(ContactCode(contact), S_OK);
    EXPECT_TRUE(contact);
}

TEST_F(Scripts, ShowPrintsTheJournal) {
    dialsim_fail("WindowsCreateStringReference", E_FAIL, 1, 1);
    StringReference reference;
    reference.Create(UTF16("dial"));
    testing::internal::CaptureStdout();
    Play("show journal");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "WindowsCreateStringReference(dial) = 80004005\n");
}

TEST_F(Scripts, ShowPrintsTheLeaks) {
    const auto controller = MakeController(1);
    const std::string leaks = LeakReport();
    testing::internal::CaptureStdout();
    Play("show accounts");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), leaks);
}

TEST_F(Scripts, MayHaveEmptyLinesCommentsAndSpaces) {
    EventRecorder recorder(1);
    Play("# a demonstration\n\n  turn   5   # slowly\n\t\nclick\r\n#turn 7");
    EXPECT_EQ(recorder.TakeEvents(), "turn 5; click; ");
}

TEST_F(Scripts, MayBeEmpty) { Play(""); }

TEST_F(Scripts, MayBeginWithAByteOrderMark) {
    EventRecorder recorder(1);
    Play("\xEF\xBB\xBFturn 5\r\nclick\r\n");
    EXPECT_EQ(recorder.TakeEvents(), "turn 5; click; ");
    Play("\xEF\xBB\xBF");
}

TEST_F(Scripts, HaveAByteOrderMarkOnlyAtTheBeginning) {
    EXPECT_EQ(ErrorOf("wait 0\n\xEF\xBB\xBFwait 0"), "line 2: unknown command '\xEF\xBB\xBFwait'");
}

// Also codes that a command returns when it cannot take place.
TEST_F(Scripts, PlayOnWhereAHandlerFails) {
    EventRecorder recorder(1);
    for (const std::uint32_t code : {0x80004005u, 0x80070490u, 0x8000000Bu}) {
        recorder.answer = Code(code);
        testing::internal::CaptureStderr();
        Play("turn 1\n\nturn 2");
        char reports[200];
        std::snprintf(reports, sizeof reports,
                      "dial script: line 1: a handler returned %08x\n"
                      "dial script: line 3: a handler returned %08x\n",
                      code, code);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), reports);
        EXPECT_EQ(recorder.TakeEvents(), "turn 1; turn 2; ");
    }
}

TEST_F(Scripts, AParseErrorIsReported) {
    const struct {
        const char* line;
        const char* reason;
    } rows[] = {
        {"spin 5", "'spin'"},
        {"Turn 5", "'Turn'"},
        {"turn", "'turn'"},
        {"turn 1 2", "'turn'"},
        {"turn five", "'five'"},
        {"turn 5x", "'5x'"},
        {"click 1", "'click'"},
        {"hold on", "'hold'"},
        {"touch 1 2 3", "'touch'"},
        {"touch 1 2 3 4 5", "'touch'"},
        {"move 1 2 3 d", "'d'"},
        {"choose", "'choose'"},
        {"choose -1", "'-1'"},
        {"menu 1", "'menu'"},
        {"mouse 1 2", "'mouse'"},
        {"mouse 1 x down", "'x'"},
        {"mouse 1 2 drag", "'drag'"},
        {"shot", "'shot'"},
        {"only-dial", "'only-dial'"},
        {"only-dial yes", "'yes'"},
        {"wait -1", "'-1'"},
        {"wait 1.5", "'1.5'"},
        {"wait 4294967296", "'4294967296'"},
        {"window x", "'x'"},
        {"window 0x", "'0x'"},
        {"window @", "''"},
        {"window @first", "'first'"},
        {"window 0x10000000000000000", "'0x10000000000000000'"},
        {"haptics 4099 70000", "'70000'"},
        {"thread other", "'other'"},
        {"thread", "'thread'"},
        {"show", "'show'"},
        {"show everything", "'everything'"},
        {"fail", "'fail'"},
        {"fail IRadialController::add_RotationChanged", "'fail'"},
        {"fail IRadialController::add_Rotation 80004005", "'IRadialController::add_Rotation'"},
        {"fail IRadialController::add_RotationChanged zz", "zz'"},
        {"fail IRadialController::add_RotationChanged 80004005 one", "'one'"},
        {"fail IRadialController::add_RotationChanged 80004005 1 -1", "'-1'"},
        {"fail IRadialController::add_RotationChanged 80004005 1 1 1", "'fail'"},
        {"fail-late IRadialController::add_RotationChanged", "'fail-late'"},
        {"fail-late NoSuch 80004005", "'NoSuch'"},
        {"fail-late WindowsPromoteStringBuffer 80004005", "'WindowsPromoteStringBuffer'"},
        {"null NoSuch", "'NoSuch'"},
        {"null IRadialController::add_RotationChanged one", "'one'"},
    };
    for (const auto& row : rows) {
        const std::string error = ErrorOf(std::string("# comment\n\nwait 0\n") + row.line + "\nwait 0\n");
        EXPECT_EQ(error.find("line 4:"), 0u) << row.line << " -> " << error;
        EXPECT_NE(error.find(row.reason), std::string::npos) << row.line << " -> " << error;
    }
}

TEST_F(Scripts, TheFirstParseErrorIsReported) {
    EXPECT_EQ(ErrorOf("spin 5\nspin 6").find("line 1:"), 0u);
    EXPECT_EQ(ErrorOf("wait 0\r\nspin 6").find("line 2:"), 0u);
}

TEST_F(Scripts, NothingIsPlayedOfAScriptWithAParseError) {
    EventRecorder recorder(1);
    ErrorOf("turn 1\nhold\nfail RoInitialize 80004005\nspin 5\n");
    EXPECT_EQ(recorder.TakeEvents(), "");
    EXPECT_EQ(RoInitialize(RO_INIT_SINGLETHREADED), S_FALSE);
    RoUninitialize();
    dialsim_turn(1, 1);
    EXPECT_EQ(recorder.TakeEvents(), "turn 1; ");
}

TEST_F(Scripts, TheReasonIsCutToItsBuffer) {
    char error[8] = "xxxxxxx";
    EXPECT_FALSE(dialsim_play("spin 5", 0, error, sizeof error));
    EXPECT_STREQ(error, "line 1:");
}

TEST_F(Scripts, NeedNoBufferForTheReason) {
    EXPECT_FALSE(dialsim_play("spin 5", 0, nullptr, 0));
    EXPECT_TRUE(dialsim_play("wait 0", 0, nullptr, 0));
}

}  // namespace
}  // namespace brindle
