// The simulator's dial, used through the platform's interfaces without the library.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "event_recorder.h"
#include "platform/interfaces/haptics.h"
#include "platform/interfaces/metadata.h"
#include "platform/interfaces/property_value.h"
#include "platform/text.h"

namespace brindle {
namespace {

using SimulatedDial = SimulatorApartmentTest;

TEST_F(SimulatedDial, EveryMovementIsTheEventOfItsName) {
    EventRecorder recorder(kWindow);
    EXPECT_EQ(dialsim_turn(kWindow, -2.5), S_OK);
    EXPECT_EQ(dialsim_click(kWindow), S_OK);
    EXPECT_EQ(dialsim_touch(kWindow, 1.5F, 2, 3, 4), S_OK);
    EXPECT_EQ(dialsim_move(kWindow, 5, 6, 7, 8), S_OK);
    EXPECT_EQ(dialsim_lift(kWindow), S_OK);
    EXPECT_EQ(dialsim_acquire(kWindow), S_OK);
    EXPECT_EQ(dialsim_lose(kWindow), S_OK);
    EXPECT_EQ(recorder.TakeEvents(),
              "turn -2.5; click; touch at 1.5 2 3 4; move at 5 6 7 8; lift; acquire; lose; ");
}

TEST_F(SimulatedDial, StandsOnTheScreenUntilItIsLifted) {
    EventRecorder recorder(kWindow);
    dialsim_touch(kWindow, 1, 2, 3, 4);
    dialsim_turn(kWindow, 1);
    dialsim_move(kWindow, 5, 6, 7, 8);
    dialsim_click(kWindow);
    dialsim_acquire(kWindow);
    dialsim_lift(kWindow);
    dialsim_turn(kWindow, 2);
    EXPECT_EQ(
        recorder.TakeEvents(),
        "touch at 1 2 3 4; turn 1 at 1 2 3 4; move at 5 6 7 8; click at 5 6 7 8; acquire at 5 6 7 8; lift; "
        "turn 2; ");
}

TEST_F(SimulatedDial, TurnsReportAButtonThatIsHeld) {
    EventRecorder recorder(kWindow);
    dialsim_hold(true);
    EXPECT_EQ(recorder.TakeEvents(), "");
    dialsim_turn(kWindow, 1);
    dialsim_hold(false);
    dialsim_turn(kWindow, 2);
    EXPECT_EQ(recorder.TakeEvents(), "turn 1 held; turn 2; ");
}

TEST_F(SimulatedDial, ItsPositionIsTheMiddleOfItsBounds) {
    const auto controller = MakeController(kWindow);
    abi::Point position{};
    const auto handler = MakeDelegate<
        abi::TypedEventHandler<abi::RadialController, abi::RadialControllerScreenContactStartedEventArgs>>(
        [&](auto*, auto* args) {
            ComPtr<abi::IRadialControllerScreenContact> contact;
            args->get_Contact(contact.Put());
            return contact->get_Position(&position);
        });
    EventRegistrationToken token{};
    ASSERT_EQ(controller->add_ScreenContactStarted(handler.Get(), &token), S_OK);
    dialsim_touch(kWindow, 10, 20, 100, 50);
    EXPECT_EQ(position.X, 60.0F);
    EXPECT_EQ(position.Y, 45.0F);
}

// A new item at the end of the controller's menu that counts its invocations.
ComPtr<abi::IRadialControllerMenuItem> AddItem(abi::IRadialControllerMenu& menu, int& chosen) {
    ComPtr<abi::IRadialControllerMenuItemStatics> items;
    EXPECT_EQ(GetFactory<abi::RadialControllerMenuItem>(items), S_OK);
    ComPtr<abi::IRadialControllerMenuItem> item;
    EXPECT_EQ(items->CreateFromKnownIcon(nullptr, abi::RadialControllerMenuKnownIcon::Zoom, item.Put()),
              S_OK);
    const auto handler =
        MakeDelegate<abi::TypedEventHandler<abi::RadialControllerMenuItem, abi::IInspectable>>(
            [&](auto*, auto*) {
                ++chosen;
                return S_FALSE;
            });
    EventRegistrationToken token{};
    EXPECT_EQ(item->add_Invoked(handler.Get(), &token), S_OK);
    ComPtr<abi::IVector<abi::RadialControllerMenuItem>> list;
    EXPECT_EQ(menu.get_Items(list.Put()), S_OK);
    EXPECT_EQ(list->Append(item.Get()), S_OK);
    return item;
}

TEST_F(SimulatedDial, ChoosingAnItemInvokesAndSelectsIt) {
    const auto controller = MakeController(kWindow);
    ComPtr<abi::IRadialControllerMenu> menu;
    ASSERT_EQ(controller->get_Menu(menu.Put()), S_OK);
    int first_chosen = 0;
    int second_chosen = 0;
    const auto first = AddItem(*menu.Get(), first_chosen);
    const auto second = AddItem(*menu.Get(), second_chosen);
    EXPECT_EQ(dialsim_choose(kWindow, 1), S_FALSE);
    EXPECT_EQ(first_chosen, 0);
    EXPECT_EQ(second_chosen, 1);
    ComPtr<abi::IRadialControllerMenuItem> selected;
    EXPECT_EQ(menu->GetSelectedMenuItem(selected.Put()), S_OK);
    EXPECT_EQ(selected.Get(), second.Get());
}

TEST_F(SimulatedDial, AnEmptyPlaceOfTheMenuCannotBeChosen) {
    const auto controller = MakeController(kWindow);
    ComPtr<abi::IRadialControllerMenu> menu;
    ASSERT_EQ(controller->get_Menu(menu.Put()), S_OK);
    int chosen = 0;
    const auto item = AddItem(*menu.Get(), chosen);
    EXPECT_EQ(dialsim_choose(kWindow, 1), Code(0x8000000B));
    EXPECT_EQ(chosen, 0);
    EXPECT_EQ(dialsim_choose(kWindow + 1, 0), DIALSIM_NO_CONTROLLER);
}

TEST_F(SimulatedDial, AWindowReceivesItsOwnEventsOnly) {
    EventRecorder first(1);
    EventRecorder second(2);
    dialsim_turn(1, 5);
    dialsim_click(2);
    EXPECT_EQ(first.TakeEvents(), "turn 5; ");
    EXPECT_EQ(second.TakeEvents(), "click; ");
}

TEST_F(SimulatedDial, AnUnknownWindowHasNoController) {
    EventRecorder recorder(1);
    EXPECT_EQ(dialsim_turn(2, 5), Code(0x80070490));
    EXPECT_EQ(recorder.TakeEvents(), "");
}

TEST_F(SimulatedDial, WithoutAControllerNoWindowIsTheNewest) {
    EXPECT_EQ(dialsim_click(0), DIALSIM_NO_CONTROLLER);
}

TEST_F(SimulatedDial, WindowZeroIsTheOneWhoseControllerWasMadeLast) {
    EventRecorder older(1);
    {
        EventRecorder newest(2);
        dialsim_turn(0, 5);
        EXPECT_EQ(newest.TakeEvents(), "turn 5; ");
        EXPECT_EQ(older.TakeEvents(), "");
    }
    dialsim_turn(0, 6);
    EXPECT_EQ(older.TakeEvents(), "turn 6; ");
}

TEST_F(SimulatedDial, AllControllersOfAWindowReceiveItsEvents) {
    EventRecorder first(1);
    EventRecorder second(1);
    dialsim_turn(1, 5);
    EXPECT_EQ(first.TakeEvents(), "turn 5; ");
    EXPECT_EQ(second.TakeEvents(), "turn 5; ");
}

TEST_F(SimulatedDial, AnEventReturnsTheCodeOfItsHandler) {
    EventRecorder recorder(1);
    recorder.answer = Code(0x80070005);
    EXPECT_EQ(dialsim_turn(1, 5), Code(0x80070005));
    EXPECT_EQ(dialsim_lose(1), Code(0x80070005));
}

TEST_F(SimulatedDial, AnEventReturnsTheFirstFailureOfSeveral) {
    EventRecorder first(1);
    EventRecorder second(1);
    EventRecorder third(1);
    second.answer = Code(0x80000002);
    third.answer = Code(0x80000003);
    EXPECT_EQ(dialsim_turn(1, 5), Code(0x80000002));
    EXPECT_EQ(third.TakeEvents(), "turn 5; ");
}

TEST_F(SimulatedDial, EventsOnTheirOwnThreadAreWaitedFor) {
    EventRecorder recorder(1);
    recorder.answer = Code(0x80070005);
    dialsim_raise_on_own_thread(true);
    EXPECT_EQ(dialsim_turn(1, 5), Code(0x80070005));
    EXPECT_EQ(recorder.TakeEvents(), "turn 5; ");
}

TEST_F(SimulatedDial, ARemovedHandlerIsNotCalled) {
    EventRecorder recorder(kWindow);
    EventRegistrationToken token{};
    int calls = 0;
    const auto handler = MakeDelegate<
        abi::TypedEventHandler<abi::RadialController, abi::RadialControllerButtonClickedEventArgs>>(
        [&](auto*, auto*) {
            ++calls;
            return S_OK;
        });
    ASSERT_EQ(recorder.controller().add_ButtonClicked(handler.Get(), &token), S_OK);
    dialsim_click(kWindow);
    EXPECT_EQ(recorder.controller().remove_ButtonClicked(token), S_OK);
    dialsim_click(kWindow);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(recorder.TakeEvents(), "click; click; ");
}

// The waveforms of the haptics controller of a turn; {0} without a controller.
std::vector<std::uint16_t> Waveforms() {
    const auto controller = MakeController(kWindow);
    std::vector<std::uint16_t> waveforms;
    const auto list = [&](abi::IRadialControllerRotationChangedEventArgs* args) {
        ComPtr<abi::IRadialControllerRotationChangedEventArgs2> more;
        EXPECT_EQ(Query(args, more), S_OK);
        ComPtr<abi::ISimpleHapticsController> haptics;
        EXPECT_EQ(more->get_SimpleHapticsController(haptics.Put()), S_OK);
        if (!haptics) {
            waveforms.push_back(0);
            return;
        }
        ComPtr<abi::IVectorView<abi::SimpleHapticsControllerFeedback>> feedback;
        EXPECT_EQ(haptics->get_SupportedFeedback(feedback.Put()), S_OK);
        std::uint32_t count = 0;
        EXPECT_EQ(feedback->get_Size(&count), S_OK);
        for (std::uint32_t i = 0; i < count; ++i) {
            ComPtr<abi::ISimpleHapticsControllerFeedback> one;
            EXPECT_EQ(feedback->GetAt(i, one.Put()), S_OK);
            EXPECT_EQ(one->get_Waveform(&waveforms.emplace_back()), S_OK);
        }
        ComPtr<abi::ISimpleHapticsControllerFeedback> beyond;
        EXPECT_EQ(feedback->GetAt(count, beyond.Put()), Code(0x8000000B));
    };
    const auto handler = MakeDelegate<
        abi::TypedEventHandler<abi::RadialController, abi::RadialControllerRotationChangedEventArgs>>(
        [&](auto*, auto* args) {
            list(args);
            return S_OK;
        });
    EventRegistrationToken token{};
    EXPECT_EQ(controller->add_RotationChanged(handler.Get(), &token), S_OK);
    dialsim_turn(kWindow, 1);
    return waveforms;
}

TEST_F(SimulatedDial, CanPlayAClickAtTheStart) { EXPECT_EQ(Waveforms(), (std::vector<std::uint16_t>{4099})); }

TEST_F(SimulatedDial, CanPlayTheWaveformsItIsGivenInTheirOrder) {
    const std::uint16_t given[] = {4100, 4099, 65535};
    dialsim_set_haptics(true, given, 3);
    EXPECT_EQ(Waveforms(), (std::vector<std::uint16_t>{4100, 4099, 65535}));
    dialsim_set_haptics(true, nullptr, 0);
    EXPECT_EQ(Waveforms(), std::vector<std::uint16_t>());
}

TEST_F(SimulatedDial, MayHaveNoHapticsController) {
    dialsim_set_haptics(false, nullptr, 0);
    EXPECT_EQ(Waveforms(), (std::vector<std::uint16_t>{0}));
}

// Bound to the thread that subscribed it: it has no agility marker.
class NonAgileHandler final
    : public abi::TypedEventHandler<abi::RadialController, abi::RadialControllerButtonClickedEventArgs> {
public:
    HRESULT QueryInterface(const GUID&, void** object) noexcept override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    std::uint32_t AddRef() noexcept override { return ++references; }
    std::uint32_t Release() noexcept override { return --references; }
    HRESULT Invoke(abi::IRadialController*, abi::IRadialControllerButtonClickedEventArgs*) override {
        ++calls;
        return S_OK;
    }

    std::uint32_t references = 0;
    int calls = 0;
};

TEST_F(SimulatedDial, AHandlerThatIsNotAgileIsCalledOnItsThreadOnly) {
    NonAgileHandler handler;
    {
        const auto controller = MakeController(kWindow);
        EventRegistrationToken token{};
        ASSERT_EQ(controller->add_ButtonClicked(&handler, &token), S_OK);
        EXPECT_EQ(dialsim_click(kWindow), S_OK);
        dialsim_raise_on_own_thread(true);
        EXPECT_EQ(dialsim_click(kWindow), Code(0x8001010E));
        EXPECT_EQ(handler.calls, 1);
    }
    EXPECT_EQ(handler.references, 0u);
}

bool TypePresent(const char* type) {
    ComPtr<abi::IApiInformationStatics> types;
    EXPECT_EQ(GetFactory<abi::ApiInformation>(types), S_OK);
    abi::boolean present = 2;
    EXPECT_EQ(types->IsTypePresent(ToPlatformString(type).Get(), &present), S_OK);
    return present == 1;
}

TEST_F(SimulatedDial, TypesAreKnownUntilTheyAreTakenAway) {
    EXPECT_TRUE(TypePresent("Some.Type"));
    dialsim_set_type_present("Some.Type", false);
    EXPECT_FALSE(TypePresent("Some.Type"));
    EXPECT_TRUE(TypePresent("Some.Other.Type"));
    dialsim_set_type_present("Some.Type", true);
    EXPECT_TRUE(TypePresent("Some.Type"));
}

TEST_F(SimulatedDial, AClassThatThePlatformLacksIsNotRegistered) {
    StringReference name;
    ASSERT_EQ(name.Create(UTF16("Windows.No.Such.Class")), S_OK);
    int before = 0;
    void* factory = &before;
    EXPECT_EQ(RoGetActivationFactory(name.Get(), abi::IInspectable::Iid, &factory), Code(0x80040154));
    EXPECT_EQ(factory, nullptr);
}

TEST_F(SimulatedDial, ResetPutsTheDialBack) {
    dialsim_touch(kWindow, 1, 2, 3, 4);
    dialsim_hold(true);
    dialsim_set_haptics(false, nullptr, 0);
    dialsim_set_type_present("Some.Type", false);
    dialsim_reset();
    {
        EventRecorder recorder(kWindow);
        dialsim_turn(kWindow, 1);
        EXPECT_EQ(recorder.TakeEvents(), "turn 1; ");
    }
    EXPECT_EQ(Waveforms(), (std::vector<std::uint16_t>{4099}));
    EXPECT_TRUE(TypePresent("Some.Type"));
}

TEST_F(SimulatedDial, ControllersFromBeforeAResetNoLongerTakePart) {
    EventRecorder recorder(kWindow);
    dialsim_reset();
    EXPECT_EQ(dialsim_turn(kWindow, 1), DIALSIM_NO_CONTROLLER);
    EXPECT_EQ(dialsim_turn(0, 1), DIALSIM_NO_CONTROLLER);
    EXPECT_EQ(recorder.TakeEvents(), "");
}

using LeakTracking = SimulatorApartmentTest;

TEST_F(LeakTracking, CountsObjectsAndReferencesByClass) {
    const auto first = MakeController(1);
    const auto second = MakeController(2);
    const auto again = first;
    EXPECT_EQ(dialsim_objects(kControllers), 2u);
    EXPECT_EQ(dialsim_references(kControllers), 3u);
    EXPECT_EQ(dialsim_objects("Windows.UI.Input.NoSuchClass"), 0u);
}

TEST_F(LeakTracking, SumsOverAllClassesWithoutAName) {
    EXPECT_EQ(dialsim_objects(nullptr), 0u);
    ComPtr<abi::IPropertyValueStatics> values;
    ASSERT_EQ(GetFactory<abi::PropertyValue>(values), S_OK);
    ComPtr<abi::IInspectable> number;
    ASSERT_EQ(values->CreateUInt32(1, number.Put()), S_OK);
    values.Reset();
    EXPECT_EQ(dialsim_objects(nullptr), 1u);
    EXPECT_EQ(dialsim_references(nullptr), 1u);
}

TEST_F(LeakTracking, CountsHandlersThatThePlatformHolds) {
    {
        EventRecorder first(1);
        EventRecorder second(2);
        EXPECT_EQ(dialsim_handlers(), 14u);
    }
    EXPECT_EQ(dialsim_handlers(), 0u);
}

TEST_F(LeakTracking, CountsStrings) {
    const auto first = std::make_unique<String>(ToPlatformString("first"));
    auto second = std::make_unique<String>(ToPlatformString("second"));
    EXPECT_EQ(dialsim_strings(), 2u);
    second.reset();
    EXPECT_EQ(dialsim_strings(), 1u);
    EXPECT_NE(LeakReport(), "");
    *first = String();
    EXPECT_EQ(dialsim_strings(), 0u);
}

TEST_F(LeakTracking, ListsOneLinePerClassAndNothingWithoutLeaks) {
    EXPECT_EQ(LeakReport(), "");
    {
        const auto controller = MakeController(1);
        const auto again = controller;
        const std::string text = LeakReport();
        EXPECT_NE(text.find("Windows.UI.Input.RadialController: 1 objects, 2 references\n"),
                  std::string::npos)
            << text;
    }
    EXPECT_EQ(LeakReport(), "");
}

TEST_F(LeakTracking, IsEmptyAfterAReset) {
    EventRecorder recorder(kWindow);
    const String string = ToPlatformString("string");
    dialsim_reset();
    EXPECT_EQ(LeakReport(), "");
    EXPECT_EQ(dialsim_objects(nullptr) + dialsim_references(nullptr) + dialsim_strings() + dialsim_handlers(),
              0u);
}

TEST_F(LeakTracking, IgnoresReleasesAfterAReset) {
    {
        EventRecorder recorder(kWindow);
        const String string = ToPlatformString("string");
        dialsim_reset();
    }
    EXPECT_EQ(LeakReport(), "");
}

// The platform's text functions return the same results in both builds.

using PlatformTexts = SimulatorTest;

WideText Widened(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    WideText wide(64, 0);
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, wide.data(), 64);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0), length);
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

TEST_F(PlatformTexts, DamagedUtf8IsReplacedPieceByPiece) {
    const struct {
        const char* damage;
        const char* utf8;
        WideText wide;
    } rows[] = {
        {"a continuation alone", "\x80", {0xFFFD}},
        {"an overlong slash", "\xC0\xAF", {0xFFFD, 0xFFFD}},
        {"a truncated sequence before another character", "\xE2\x82z", {0xFFFD, 'z'}},
        {"a truncated sequence at the end", "\xF0\x9F\x8E", {0xFFFD}},
        {"a truncated sequence before a lead byte", "\xE2\xC3\xA9", {0xFFFD, 0xE9}},
        {"bytes that never occur", "\xF5\xFE\xFF", {0xFFFD, 0xFFFD, 0xFFFD}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Widened(row.utf8), row.wide) << row.damage;
}

TEST_F(PlatformTexts, AConversionWithoutRoomGivesZero) {
    WCHAR wide[2] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 3, wide, 2), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 2, wide, 2), 2);
}

TEST_F(PlatformTexts, ACountOfNoBytesGivesZero) {
    WCHAR wide[2] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "", 0, wide, 2), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "", 0, nullptr, 0), 0);
}

TEST_F(PlatformTexts, AReferenceNeedsTerminatedText) {
    HSTRING_HEADER header{};
    HSTRING string = nullptr;
    EXPECT_EQ(WindowsCreateStringReference(UTF16("dial"), 4, &header, &string), S_OK);
    EXPECT_EQ(CharactersOf(string), UTF16("dial"));
    EXPECT_LT(WindowsCreateStringReference(UTF16("dial"), 3, &header, &string), 0);
    EXPECT_EQ(string, nullptr);
}

TEST_F(PlatformTexts, AReferenceToNoTextIsTheEmptyString) {
    HSTRING_HEADER header{};
    HSTRING string = nullptr;
    EXPECT_EQ(WindowsCreateStringReference(nullptr, 0, &header, &string), S_OK);
    EXPECT_EQ(string, nullptr);
    EXPECT_EQ(WindowsCreateStringReference(nullptr, 4, &header, &string), Code(0x80004003));
}

TEST_F(PlatformTexts, ReferencesAreNotCounted) {
    StringReference reference;
    ASSERT_EQ(reference.Create(UTF16("dial")), S_OK);
    EXPECT_EQ(dialsim_strings(), 0u);
}

}  // namespace
}  // namespace brindle
