// The library through brindle.hpp, linked and loaded while the program runs.
#include <brindle.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "behaviour.h"
#include "support/pictures.h"

namespace {

using brindle_dial::Dial;
using brindle_dial::HapticFeedback;
using brindle_dial::Icon;
using brindle_dial::kNotAvailable;
using brindle_dial::Library;
using brindle_dial::MenuItem;
using brindle_dial::OnClick;
using brindle_dial::OnTurn;
using brindle_dial::Path;
using brindle_dial::Session;
using brindle_dial::Settings;
using brindle_dial::StartResult;
using brindle_dial::SystemItem;

Library LoadedLibrary() { return brindle_dial::loaded_library(); }

// The path of a file in the program's folder.
Path PathBesideProgram([[maybe_unused]] const char* windows_name, [[maybe_unused]] const char* native_name) {
    const Path library = brindle_dial::detail::library_beside_program();
#ifdef _WIN32
    const std::string name = windows_name;
    const Path folder = library.substr(0, library.rfind(L'\\') + 1);
#else
    const std::string name = native_name;
    const Path folder = library.substr(0, library.rfind('/') + 1);
#endif
    return folder + Path(name.begin(), name.end());
}

class CppHeader : public UninitializedTest, public testing::WithParamInterface<Library (*)()> {
protected:
    static Library TheLibrary() { return GetParam()(); }

    // Counts its events.
    Dial Listen(Session& session, std::uint64_t window) {
        return session.listen(
            window, [this](const DialRotationInfo&) { ++turns_; },
            [this](const DialContactRect&) { ++clicks_; });
    }

    int turns_ = 0;
    int clicks_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Library, CppHeader, testing::Values(&brindle_dial::linked_library, &LoadedLibrary),
                         [](const auto& library) { return library.index == 0 ? "Linked" : "Loaded"; });

// --- start and stop

TEST_P(CppHeader, ASessionStartsAndStopsTheLibrary) {
    {
        const Session session(TheLibrary());
        EXPECT_EQ(session.start_result(), StartResult::Ready);
        EXPECT_EQ(dialsim_calls("RoInitialize"), 1u);
        EXPECT_EQ(dialsim_calls("RoUninitialize"), 0u);
    }
    EXPECT_EQ(dialsim_calls("RoUninitialize"), 1u);
}

TEST_P(CppHeader, WithoutTheWindowsRuntimeNothingMoreIsCalled) {
    dialsim_fail("RoInitialize", kFail, 1, 1);
    {
        Session session(TheLibrary());
        EXPECT_EQ(session.start_result(), StartResult::NoRuntime);
        dialsim_clear_journal();
        const Dial dial = Listen(session, kWindow);
        EXPECT_FALSE(dial.is_listening());
        EXPECT_FALSE(dial.set_menu({}));
        EXPECT_EQ(session.settings(UTF16("host")).set_text(UTF16("key"), UTF16("text")), kNotAvailable);
    }
    EXPECT_EQ(Journal(), "");
}

TEST_P(CppHeader, AnOldSystemIsReportedAndTheLibraryIsStopped) {
    dialsim_set_type_present("Windows.UI.Input.EdgeGesture", false);
    { EXPECT_EQ(Session(TheLibrary()).start_result(), StartResult::SystemTooOld); }
    EXPECT_EQ(dialsim_calls("RoUninitialize"), 1u);
}

// --- events

TEST_P(CppHeader, ATurnReachesItsCallback) {
    Session session(TheLibrary());
    std::vector<DialRotationInfo> turns;
    const Dial dial = session.listen(
        kWindow, [&](const DialRotationInfo& turn) { turns.push_back(turn); }, nullptr);
    ASSERT_TRUE(dial.is_listening());
    dialsim_hold(true);
    EXPECT_EQ(dialsim_turn(kWindow, -2.5), 0);
    ASSERT_EQ(turns.size(), 1u);
    EXPECT_EQ(turns[0].deltaDegrees, -2.5);
    EXPECT_TRUE(turns[0].buttonPressed);
}

TEST_P(CppHeader, AClickReachesItsCallback) {
    std::vector<DialContactRect> clicks;
    {
        Session session(TheLibrary());
        session.listen(kWindow, nullptr, [&](const DialContactRect& place) { clicks.push_back(place); });
        EXPECT_EQ(dialsim_touch(kWindow, 10, 20, 30, 40), 0);
        EXPECT_EQ(dialsim_click(kWindow), 0);
    }
    EXPECT_EQ(clicks, (std::vector<DialContactRect>{{10, 20, 40, 60}}));
    dialsim_reset();  // the library leaks the contact of a click, by contract
}

TEST_P(CppHeader, EventsWithoutACallbackAreIgnored) {
    Session session(TheLibrary());
    EXPECT_TRUE(session.listen(kWindow, nullptr, nullptr).is_listening());
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(dialsim_click(kWindow), 0);
}

TEST_P(CppHeader, HapticFeedbackIsPlayedForTheTurnThatRequestsIt) {
    Session session(TheLibrary());
    session.listen(
        kWindow,
        [](const DialRotationInfo& turn) {
            if (turn.deltaDegrees > 0) {
                brindle_dial::play_haptics(turn);
            }
        },
        nullptr);
    EXPECT_EQ(dialsim_turn(kWindow, -1.0), 0);
    EXPECT_EQ(dialsim_calls("ISimpleHapticsController::SendHapticFeedbackForPlayCount"), 0u);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(dialsim_calls("ISimpleHapticsController::SendHapticFeedbackForPlayCount"), 1u);
}

TEST_P(CppHeader, EachWindowHasItsOwnCallbacks) {
    Session session(TheLibrary());
    double degrees = 0.0;
    Listen(session, kWindow);
    session.listen(
        kOtherWindow, [&](const DialRotationInfo& turn) { degrees += turn.deltaDegrees; }, nullptr);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(dialsim_turn(kOtherWindow, 2.0), 0);
    EXPECT_EQ(dialsim_turn(kOtherWindow, 3.0), 0);
    EXPECT_EQ(turns_, 1);
    EXPECT_EQ(degrees, 5.0);
}

TEST_P(CppHeader, AWindowMayBeGivenAsAHandle) {
    Session session(TheLibrary());
    int turns = 0;
    const void* const handle = reinterpret_cast<const void*>(kWindow);
    session.listen(
        handle, [&](const DialRotationInfo&) { ++turns; }, nullptr);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(turns, 1);
}

TEST_P(CppHeader, ASecondListenReplacesTheCallbacksOfItsWindow) {
    Session session(TheLibrary());
    Listen(session, kWindow);
    Listen(session, kOtherWindow);
    int turns = 0;
    int clicks = 0;
    session.listen(
        kWindow, [&](const DialRotationInfo&) { ++turns; }, [&](const DialContactRect&) { ++clicks; });
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(turns, 1);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(turns_ + clicks_, 0);
    EXPECT_EQ(dialsim_turn(kOtherWindow, 1.0), 0);
    EXPECT_EQ(turns_, 1);
    dialsim_reset();  // destroys the displaced listener's controller
}

TEST_P(CppHeader, ADisplacedListenerMayRaiseEventsAfterTheSession) {
    {
        Session session(TheLibrary());
        Listen(session, kWindow);
        Listen(session, kWindow);
    }
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(turns_, 0);
    dialsim_reset();
}

TEST_P(CppHeader, AListenThatFailsKeepsTheFormerCallbacks) {
    Session session(TheLibrary());
    Listen(session, kWindow);
    dialsim_fail("IRadialControllerInterop::CreateForWindow", kFail, 1, 0);
    EXPECT_FALSE(session.listen(kWindow, nullptr, nullptr).is_listening());
    EXPECT_NE(Printed().find("at line 460"), std::string::npos);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(turns_, 1);
}

TEST_P(CppHeader, ACallbackMayUseTheDial) {
    Session session(TheLibrary());
    std::optional<Dial> dial;
    dial = session.listen(
        kWindow, [&](const DialRotationInfo&) { dial->select(2); }, nullptr);
    EXPECT_TRUE(dial->set_menu({brindle_dial::known_icon(UTF16("One"), 1, Icon::Zoom),
                                brindle_dial::known_icon(UTF16("Two"), 2, Icon::Zoom)}));
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_NE(MenuText(kWindow).find("1 * \"Two\""), std::string::npos);
}

using CppHeaderDeathTest = CppHeader;

TEST_P(CppHeaderDeathTest, ACallbackThatThrowsEndsTheProgram) {
    EXPECT_DEATH(
        {
            Session session(TheLibrary());
            session.listen(
                kWindow, [](const DialRotationInfo&) { throw std::runtime_error("thrown"); }, nullptr);
            dialsim_turn(kWindow, 1.0);
        },
        "");
}

INSTANTIATE_TEST_SUITE_P(Library, CppHeaderDeathTest,
                         testing::Values(&brindle_dial::linked_library, &LoadedLibrary),
                         [](const auto& library) { return library.index == 0 ? "Linked" : "Loaded"; });

// --- the menu

TEST_P(CppHeader, EachKindOfItemIsShown) {
    const TemporaryFile picture("picture.png", SmallPng());
    const TemporaryFile font("font.ttf", SmallPng());
    Session session(TheLibrary());
    const Dial dial = Listen(session, kWindow);
    EXPECT_TRUE(dial.set_menu(
        {brindle_dial::known_icon(UTF16("Icon"), 1, Icon::PenType),
         brindle_dial::system_font_glyph(UTF16("Glyph"), 2, UTF16("A"), UTF16("Symbols")),
         brindle_dial::font_file_glyph(UTF16("Own"), 3, UTF16("B"), UTF16("Signs"), font.Path()),
         brindle_dial::png_resource(UTF16("Resource"), 4, reinterpret_cast<const void*>(ModuleWithPng()),
                                    kPngResource),
         brindle_dial::png_file(UTF16("File"), 5, picture.Path())}));
    dialsim_wait_for_async();
    const std::string menu = MenuText(kWindow);
    EXPECT_NE(menu.find("\"Icon\" known icon PenType, tag 1\n"), std::string::npos) << menu;
    EXPECT_NE(menu.find("\"Glyph\" glyph A of Symbols, tag 2\n"), std::string::npos) << menu;
    EXPECT_NE(menu.find("\"Own\" glyph B of font file file:///"), std::string::npos) << menu;
    EXPECT_NE(menu.find(", tag 3\n"), std::string::npos) << menu;
    EXPECT_NE(menu.find("\"Resource\" PNG image 2x3, tag 4\n"), std::string::npos) << menu;
    EXPECT_NE(menu.find("\"File\" PNG file 2x3, tag 5\n"), std::string::npos) << menu;
}

TEST_P(CppHeader, ChoosingAnItemAppliesItsHapticFeedback) {
    const TemporaryFile font("font.ttf", SmallPng());
    const void* const module = reinterpret_cast<const void*>(ModuleWithPng());
    for (const HapticFeedback feedback : {HapticFeedback::On, HapticFeedback::Off}) {
        Session session(TheLibrary());
        const Dial dial = Listen(session, kWindow);
        // Before each item, one with the other setting is chosen.
        const HapticFeedback other =
            feedback == HapticFeedback::On ? HapticFeedback::Off : HapticFeedback::On;
        EXPECT_TRUE(dial.set_menu(
            {brindle_dial::known_icon(UTF16("Other"), 9, Icon::Zoom, other),
             brindle_dial::known_icon(UTF16("Icon"), 1, Icon::Zoom, feedback),
             brindle_dial::system_font_glyph(UTF16("Glyph"), 2, UTF16("A"), UTF16("Symbols"), feedback),
             brindle_dial::font_file_glyph(UTF16("Own"), 3, UTF16("B"), UTF16("Signs"), font.Path(),
                                           feedback),
             brindle_dial::png_resource(UTF16("Resource"), 4, module, kPngResource, feedback)}));
        const std::string expected =
            feedback == HapticFeedback::On ? "automatic haptics: on\n" : "automatic haptics: off\n";
        for (std::uint32_t item = 1; item <= 4; ++item) {
            EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
            EXPECT_EQ(dialsim_choose(kWindow, item), 0);
            EXPECT_NE(MenuText(kWindow).find(expected), std::string::npos) << item;
        }
    }
}

TEST_P(CppHeader, AMenuWithoutItemsClearsTheOldOne) {
    Session session(TheLibrary());
    const Dial dial = Listen(session, kWindow);
    EXPECT_TRUE(dial.set_menu({brindle_dial::known_icon(UTF16("Icon"), 1, Icon::Zoom)}));
    EXPECT_NE(MenuText(kWindow).find("\"Icon\""), std::string::npos);
    EXPECT_TRUE(dial.set_menu({}));
    EXPECT_EQ(MenuText(kWindow).find("\"Icon\""), std::string::npos);
}

TEST_P(CppHeader, ASelectedItemIsReportedByTurns) {
    Session session(TheLibrary());
    std::uint32_t item = 0;
    const Dial dial = session.listen(
        kWindow, [&](const DialRotationInfo& turn) { item = turn.selectedItemTag; }, nullptr);
    EXPECT_TRUE(dial.set_menu({brindle_dial::known_icon(UTF16("One"), 7, Icon::Zoom),
                               brindle_dial::known_icon(UTF16("Two"), 8, Icon::Zoom)}));
    EXPECT_TRUE(dial.select(8));
    EXPECT_FALSE(dial.select(9));
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(item, 8u);
}

TEST_P(CppHeader, TheSystemsItemsAreSetInTheirOrder) {
    Session session(TheLibrary());
    const Dial dial = Listen(session, kWindow);
    EXPECT_TRUE(dial.set_system_items({SystemItem::NextPreviousTrack, SystemItem::Scroll, SystemItem::Volume,
                                       SystemItem::UndoRedo, SystemItem::Zoom}));
    EXPECT_EQ(SystemItemsOf(kWindow), (std::vector<std::int32_t>{4, 0, 3, 2, 1}));
    EXPECT_TRUE(dial.set_system_items({}));
    EXPECT_EQ(SystemItemsOf(kWindow), std::vector<std::int32_t>{});
}

// --- presence

TEST_P(CppHeader, ThePresenceOfTheDialIsReported) {
    Session session(TheLibrary());
    const Dial dial = Listen(session, kWindow);
    EXPECT_TRUE(dial.is_present());
    dialsim_remove_devices();
    EXPECT_FALSE(dial.is_present());
}

// --- settings

TEST_P(CppHeader, AnAbsentSettingIsEmpty) {
    Session session(TheLibrary());
    const Settings settings = session.settings(UTF16("host"));
    EXPECT_EQ(settings.text(UTF16("never")), std::nullopt);
    EXPECT_EQ(settings.number(UTF16("never")), std::nullopt);
}

TEST_P(CppHeader, SettingsAreStoredAndRead) {
    dialsim_set_packaged(true);
    Session session(TheLibrary());
    const Settings settings = session.settings(UTF16("host"));
    EXPECT_EQ(settings.set_text(UTF16("brush"), UTF16("\u00E9 round")), 0);
    EXPECT_EQ(settings.text(UTF16("brush")), UTF16("\u00E9 round"));
    EXPECT_EQ(settings.set_text(UTF16("empty"), UTF16("")), 0);
    EXPECT_EQ(settings.text(UTF16("empty")), UTF16(""));
    for (const std::int32_t number : {-7, 0, INT32_MAX}) {
        EXPECT_EQ(settings.set_number(UTF16("size"), number), 0);
        EXPECT_EQ(settings.number(UTF16("size")), number);
    }
    EXPECT_EQ(settings.set_number(UTF16("size"), INT32_MIN), 0);
    EXPECT_EQ(settings.number(UTF16("size")), std::nullopt);
}

TEST_P(CppHeader, SettingsAreStoredUnderTheirResource) {
    Session session(TheLibrary());  // without package identity: in the vault
    const Settings settings = session.settings(UTF16("host"));
    EXPECT_EQ(settings.set_text(UTF16("key"), UTF16("12")), 0);
    EXPECT_EQ(StoreText("vault"), "\"host\" \"key\" \"12\"\n");
    EXPECT_EQ(settings.number(UTF16("key")), 12);
    EXPECT_EQ(session.settings(UTF16("other")).text(UTF16("key")), std::nullopt);
}

// --- the library is missing

class MissingLibrary : public UninitializedTest {
protected:
    static void ExpectMissing(const Library& library) {
        Session session(library);
        EXPECT_EQ(session.start_result(), StartResult::NoLibrary);
        const Dial dial = session.listen(
            kWindow, [](const DialRotationInfo&) {}, [](const DialContactRect&) {});
        EXPECT_FALSE(dial.is_listening());
        EXPECT_FALSE(dial.set_menu({brindle_dial::known_icon(UTF16("Icon"), 1, Icon::Zoom)}));
        EXPECT_FALSE(dial.set_system_items({SystemItem::Volume}));
        EXPECT_FALSE(dial.select(1));
        EXPECT_FALSE(dial.is_present());
        const Settings settings = session.settings(UTF16("host"));
        EXPECT_EQ(settings.set_text(UTF16("key"), UTF16("text")), kNotAvailable);
        EXPECT_EQ(settings.text(UTF16("key")), std::nullopt);
        EXPECT_EQ(settings.set_number(UTF16("key"), 1), kNotAvailable);
        EXPECT_EQ(settings.number(UTF16("key")), std::nullopt);
        EXPECT_EQ(Journal(), "");
    }
};

TEST_F(MissingLibrary, AFileThatDoesNotExistIsNotAvailable) {
    ExpectMissing(brindle_dial::loaded_library(PathBesideProgram("missing.dll", "missing.so")));
}

TEST_F(MissingLibrary, ALibraryWithoutTheFunctionsIsNotAvailable) {
    ExpectMissing(brindle_dial::loaded_library(PathBesideProgram("dialsim.dll", "libdialsim.so")));
}

// Its name alone would find the library, which is loaded already.
TEST_F(MissingLibrary, ARelativePathIsNotSearchedFor) {
    const Path path = brindle_dial::detail::library_beside_program();
    const std::size_t name = path.find_last_of(PathBesideProgram("\\", "/").back()) + 1;
    ExpectMissing(brindle_dial::loaded_library(path.substr(name)));
    ExpectMissing(brindle_dial::loaded_library(Path()));
}

TEST_F(MissingLibrary, AnAbsolutePathOfTheLibraryLoadsIt) {
    const Session session(brindle_dial::loaded_library(brindle_dial::detail::library_beside_program()));
    EXPECT_EQ(session.start_result(), StartResult::Ready);
}

// --- texts

TEST(ReleasedTexts, NullIsIgnored) { brindle_free(nullptr); }

}  // namespace
