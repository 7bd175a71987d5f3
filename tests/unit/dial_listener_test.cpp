#include "dial/dial_listener.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/activation.h"
#include "platform/interfaces/property_value.h"
#include "platform/text.h"
#include "support/inside_call.h"
#include "support/recording_host.h"
#include "support/simulator_fixture.h"

namespace brindle {

constexpr char kControllerFactories[] = "IRadialControllerInterop";
constexpr char kMenus[] = "Windows.UI.Input.RadialControllerMenu";

constexpr char kGetSelected[] = "IRadialControllerMenu::GetSelectedMenuItem";
constexpr char kGetTag[] = "IRadialControllerMenuItem::get_Tag";
constexpr char kGetNumber[] = "IPropertyValue::GetUInt32";

// A registered listener whose fields a test sets as the menu functions do.
struct DialListenerTest : SimulatorApartmentTest {
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        Listen(&host);
    }
    void TearDown() override {
        if (capturing_) {
            EXPECT_EQ(Printed(), "");
        }
        values.Reset();
        items.Reset();
        listener.reset();
        SimulatorApartmentTest::TearDown();
    }

    void Listen(IDialHost* to) {
        listener = std::make_unique<DialListener>(to);
        ASSERT_EQ(listener->Register(kWindow), S_OK);
        dialsim_clear_journal();
    }
    // From here on, output that the test does not read fails it.
    void Capture() {
        testing::internal::CaptureStdout();
        capturing_ = true;
    }
    std::string Printed() {
        capturing_ = false;
        return testing::internal::GetCapturedStdout();
    }

    abi::IRadialControllerMenu* FetchMenu() {
        EXPECT_EQ(listener->controller_->get_Menu(listener->menu_.menu_.Put()), S_OK);
        return listener->menu_.menu_.Get();
    }
    // Appends a new item to the menu and selects it.
    ComPtr<abi::IRadialControllerMenuItem> SelectNewItem() {
        abi::IRadialControllerMenu* menu = FetchMenu();
        EXPECT_EQ(GetFactory<abi::RadialControllerMenuItem>(items), S_OK);
        ComPtr<abi::IRadialControllerMenuItem> item;
        EXPECT_EQ(items->CreateFromKnownIcon(nullptr, abi::RadialControllerMenuKnownIcon::Ruler, item.Put()),
                  S_OK);
        ComPtr<abi::IVector<abi::RadialControllerMenuItem>> list;
        EXPECT_EQ(menu->get_Items(list.Put()), S_OK);
        EXPECT_EQ(list->Append(item.Get()), S_OK);
        EXPECT_EQ(menu->SelectMenuItem(item.Get()), S_OK);
        return item;
    }
    abi::IPropertyValueStatics& Values() {
        EXPECT_EQ(GetFactory<abi::PropertyValue>(values), S_OK);
        return *values.Get();
    }
    void SelectItemTagged(std::uint32_t number) {
        const auto item = SelectNewItem();
        ComPtr<abi::IInspectable> tag;
        EXPECT_EQ(Values().CreateUInt32(number, tag.Put()), S_OK);
        EXPECT_EQ(item->put_Tag(tag.Get()), S_OK);
        dialsim_clear_journal();
    }
    // Turns the dial once and returns the tag that the host receives.
    std::uint32_t ReportedTag() {
        host.rotations.clear();
        EXPECT_EQ(dialsim_turn(kWindow, 1.0), S_OK);
        EXPECT_EQ(host.rotations.size(), 1u);
        return host.rotations.empty() ? 0xDEAD : host.LastRotation().selectedItemTag;
    }
    void FailInTurn(const char* operation, std::initializer_list<HRESULT> codes) {
        std::uint32_t call = 0;
        for (const HRESULT code : codes) {
            ++call;
            if (code < 0) {
                ASSERT_TRUE(dialsim_fail(operation, code, call, 1)) << operation;
            }
        }
    }

    void AddEntry(const char* label) {
        listener->menu_.entries_.push_back({std::make_unique<String>(ToPlatformString(label)), 7, 1, true});
    }
    void AddEntryWithoutLabel() { listener->menu_.entries_.emplace_back(); }
    void SetItemStatics(abi::IRadialControllerMenuItemStatics* statics) {
        listener->menu_.item_statics_ = ComPtr<abi::IRadialControllerMenuItemStatics>::Attach(statics);
    }
    HRESULT AddKnownIcon() {
        MenuEntry entry = MakeEntry(UTF16("Brush"), 7, true);
        return listener->menu_.AddMenuItemFromKnownIcon(entry, abi::RadialControllerMenuKnownIcon::Ruler);
    }
    // The token of a new item's subscription, from its entry.
    std::int64_t TokenOfNewItem() {
        MenuEntry entry = MakeEntry(UTF16("Brush"), 7, true);
        EXPECT_EQ(entry.invoked_token, 0);
        listener->menu_.AddMenuItemFromKnownIcon(entry, abi::RadialControllerMenuKnownIcon::Ruler);
        return entry.invoked_token;
    }
    static void StartQuery(const ComPtr<SharedFlag>& found, const ComPtr<SharedFlag>& done) {
        PresenceQuery::Start(found, done);
    }
    HRESULT InvokeNothing() { return listener->menu_.OnItemInvoked(nullptr, nullptr); }
    void SetMenu(abi::IRadialControllerMenu* menu) {
        listener->menu_.menu_ = ComPtr<abi::IRadialControllerMenu>::Attach(menu);
    }
    std::uint32_t StateWord() const { return listener->state_; }
    bool HasSpare() const { return static_cast<bool>(listener->spare_); }
    void SetSpare(abi::IUnknown* spare) { listener->spare_ = ComPtr<abi::IUnknown>::Attach(spare); }

    RecordingHost host{kWindow};
    std::unique_ptr<DialListener> listener;
    ComPtr<abi::IRadialControllerMenuItemStatics> items;
    ComPtr<abi::IPropertyValueStatics> values;

private:
    bool capturing_ = false;
};

TEST_F(DialListenerTest, ARotationReportsTheTagOfTheSelectedItem) {
    SelectItemTagged(42);
    EXPECT_EQ(ReportedTag(), 42u);
}

TEST_F(DialListenerTest, ATagMayUseAllItsBits) {
    SelectItemTagged(0xFEDCBA98);
    EXPECT_EQ(ReportedTag(), 0xFEDCBA98u);
}

TEST_F(DialListenerTest, EveryRotationReadsTheSelectionAgain) {
    SelectItemTagged(1);
    EXPECT_EQ(ReportedTag(), 1u);
    SelectItemTagged(2);
    EXPECT_EQ(ReportedTag(), 2u);
}

TEST_F(DialListenerTest, WithoutAMenuNoSelectionIsAskedFor) {
    EXPECT_EQ(ReportedTag(), 0u);
    EXPECT_EQ(dialsim_calls(kGetSelected), 0u);
}

TEST_F(DialListenerTest, WithoutASelectionTheRotationIsReportedWithoutATag) {
    FetchMenu();
    EXPECT_EQ(ReportedTag(), 0u);
    EXPECT_EQ(dialsim_calls(kGetSelected), 1u);
    EXPECT_EQ(dialsim_calls(kGetTag), 0u);
}

TEST_F(DialListenerTest, TheTagIsReadOnce) {
    SelectItemTagged(42);
    EXPECT_EQ(ReportedTag(), 42u);
    EXPECT_EQ(dialsim_calls(kGetSelected), 1u);
    EXPECT_EQ(dialsim_calls(kGetTag), 1u);
    EXPECT_EQ(dialsim_calls(kGetNumber), 1u);
}

TEST_F(DialListenerTest, AnItemWithoutATagHasTagZero) {
    SelectNewItem();
    EXPECT_EQ(ReportedTag(), 0u);
}

TEST_F(DialListenerTest, ATagThatIsATextIsTagZero) {
    const auto item = SelectNewItem();
    ComPtr<abi::IInspectable> tag;
    ASSERT_EQ(Values().CreateString(ToPlatformString("42").Get(), tag.Put()), S_OK);
    ASSERT_EQ(item->put_Tag(tag.Get()), S_OK);
    EXPECT_EQ(ReportedTag(), 0u);
}

TEST_F(DialListenerTest, ATagThatIsNoValueIsTagZero) {
    const auto item = SelectNewItem();
    ASSERT_EQ(item->put_Tag(items.Get()), S_OK);
    EXPECT_EQ(ReportedTag(), 0u);
}

TEST_F(DialListenerTest, ATagThatCannotBeReadIsTagZero) {
    SelectItemTagged(42);
    ASSERT_TRUE(dialsim_fail(kGetTag, E_FAIL, 1, 0));
    Capture();
    EXPECT_EQ(ReportedTag(), 0u);
    EXPECT_EQ(dialsim_calls(kGetTag), 1u);
}

TEST_F(DialListenerTest, ATagReadLateIsTagZeroAndIsReleased) {
    SelectItemTagged(42);
    ASSERT_TRUE(dialsim_fail_late(kGetTag, E_FAIL, 1, 0));
    EXPECT_EQ(ReportedTag(), 0u);
}

TEST_F(DialListenerTest, ATagThatRefusesToBeAValueIsTagZero) {
    SelectItemTagged(42);
    ASSERT_TRUE(dialsim_fail("QueryInterface(IPropertyValue)", E_NOINTERFACE, 1, 0));
    Capture();
    EXPECT_EQ(ReportedTag(), 0u);
    EXPECT_EQ(dialsim_calls(kGetNumber), 0u);
}

TEST_F(DialListenerTest, ATagWhoseNumberCannotBeReadIsTagZero) {
    SelectItemTagged(42);
    ASSERT_TRUE(dialsim_fail(kGetNumber, E_FAIL, 1, 0));
    Capture();
    EXPECT_EQ(ReportedTag(), 0u);
    EXPECT_EQ(dialsim_calls(kGetNumber), 1u);
}

TEST_F(DialListenerTest, ANumberThatIsGivenCountsWhateverItsReadAnswers) {
    SelectItemTagged(42);
    ASSERT_TRUE(dialsim_fail_late(kGetNumber, E_FAIL, 1, 0));
    EXPECT_EQ(ReportedTag(), 42u);
}

TEST_F(DialListenerTest, ASelectionThatCannotBeReadEndsTheTurnWithTheThirdCode) {
    SelectItemTagged(42);
    FailInTurn(kGetSelected, {Code(0x80000001), Code(0x80000002), Code(0x80000003)});
    Capture();
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), Code(0x80000003));
    EXPECT_EQ(dialsim_calls(kGetSelected), 3u);
    EXPECT_EQ(Printed(), "failed with 80000002 at line 847\n");
    EXPECT_TRUE(host.rotations.empty());
}

TEST_F(DialListenerTest, ASelectionThatFailsOnceStillEndsTheTurn) {
    SelectItemTagged(42);
    FailInTurn(kGetSelected, {E_FAIL, S_OK, S_OK});
    Capture();
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), S_OK);
    EXPECT_EQ(dialsim_calls(kGetSelected), 3u);
    EXPECT_EQ(dialsim_calls(kGetTag), 0u);
    EXPECT_EQ(Printed(), "failed with 0 at line 847\n");
    EXPECT_TRUE(host.rotations.empty());
}

TEST_F(DialListenerTest, AfterASelectionThatFailedNothingElseIsRead) {
    SelectItemTagged(42);
    ASSERT_TRUE(dialsim_fail(kGetSelected, E_FAIL, 1, 0));
    Capture();
    dialsim_turn(kWindow, 1.0);
    Printed();
    EXPECT_EQ(dialsim_calls("IRadialControllerRotationChangedEventArgs::get_Contact"), 0u);
    EXPECT_EQ(dialsim_calls("IRadialControllerRotationChangedEventArgs::get_RotationDeltaInDegrees"), 0u);
    EXPECT_EQ(dialsim_calls("GetTickCount64"), 0u);
}

TEST_F(DialListenerTest, SelectedItemsAndTagsAreReleased) {
    const auto item = SelectNewItem();
    ComPtr<abi::IInspectable> tag;
    ASSERT_EQ(Values().CreateUInt32(42, tag.Put()), S_OK);
    ASSERT_EQ(item->put_Tag(tag.Get()), S_OK);
    const std::uint32_t before = dialsim_references(nullptr);
    ReportedTag();
    ASSERT_TRUE(dialsim_fail_late(kGetSelected, E_FAIL, 1, 3));
    Capture();
    dialsim_turn(kWindow, 1.0);
    Printed();
    EXPECT_EQ(dialsim_references(nullptr), before);
}

TEST_F(DialListenerTest, WithoutAHostATurnSucceeds) {
    Listen(nullptr);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), S_OK);
    EXPECT_EQ(dialsim_calls("IRadialControllerRotationChangedEventArgs2::get_IsButtonPressed"), 1u);
    EXPECT_TRUE(host.rotations.empty());
}

TEST_F(DialListenerTest, WithoutAHostNoHapticsArePlayed) {
    Listen(nullptr);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), S_OK);
    EXPECT_EQ(dialsim_calls("IRadialControllerRotationChangedEventArgs2::get_SimpleHapticsController"), 0u);
}

TEST_F(DialListenerTest, WithoutAHostAClickSucceeds) {
    Listen(nullptr);
    EXPECT_EQ(dialsim_click(kWindow), S_OK);
    EXPECT_EQ(dialsim_calls("IRadialControllerButtonClickedEventArgs::get_Contact"), 1u);
    EXPECT_TRUE(host.clicks.empty());
}

TEST_F(DialListenerTest, WithoutAHostTheDefaultMenuIsNotAskedFor) {
    Listen(nullptr);
    const std::int32_t scroll = 0;
    EXPECT_EQ(listener->Menu().SetDefaultMenu(&scroll, 1), E_FAIL);
    EXPECT_EQ(Journal(), "");
}

TEST_F(DialListenerTest, WithoutAFactoryThereIsNoKnownIcon) {
    EXPECT_EQ(AddKnownIcon(), E_NOINTERFACE);
    EXPECT_EQ(dialsim_calls("IRadialControllerMenuItemStatics::CreateFromKnownIcon"), 0u);
}

TEST_F(DialListenerTest, NoItemInvokedIsNoFailure) {
    AddEntry("Brush");
    dialsim_clear_journal();
    EXPECT_EQ(InvokeNothing(), S_OK);
    EXPECT_EQ(Journal(), "");
}

TEST_F(DialListenerTest, AMissingDialIsAFailure) {
    dialsim_remove_devices();
    EXPECT_EQ(listener->Presence().IsDialPresent(), E_FAIL);
}

// A wait that another completion ends returns the result found so far.
TEST_F(DialListenerTest, TheResultIsStoredBeforeItsStringsAreReleased) {
    const auto found = ComPtr<SharedFlag>::Attach(new SharedFlag);
    const auto done = ComPtr<SharedFlag>::Attach(new SharedFlag);
    dialsim_async(DIALSIM_AT_ONCE);
    std::int32_t found_at_release = -1;
    {
        const InsideCall look("WindowsDeleteString", [&] { found_at_release = found->value; });
        StartQuery(found, done);
    }
    EXPECT_EQ(found_at_release, 1);
    EXPECT_EQ(done->value, 1);
}

TEST_F(DialListenerTest, TheDestructorReleasesTheLabelsOfItsEntries) {
    AddEntry("Brush");
    AddEntry("Ruler");
    EXPECT_EQ(dialsim_strings(), 2u);
    listener.reset();
    EXPECT_EQ(dialsim_strings(), 0u);
    EXPECT_EQ(dialsim_calls("WindowsDeleteString(Brush)"), 1u);
    EXPECT_EQ(dialsim_calls("WindowsDeleteString(Ruler)"), 1u);
}

TEST_F(DialListenerTest, TheDestructorHandlesEntriesWithoutALabel) {
    AddEntry("");
    AddEntryWithoutLabel();
    listener.reset();
    EXPECT_EQ(dialsim_strings(), 0u);
}

TEST_F(DialListenerTest, EntriesKeepTheirLabelsWhileTheListGrows) {
    for (int i = 0; i < 100; ++i) {
        AddEntry("Brush");
    }
    EXPECT_EQ(dialsim_strings(), 100u);
    EXPECT_EQ(dialsim_calls("WindowsDeleteString(Brush)"), 0u);
}

TEST_F(DialListenerTest, TheDestructorReleasesControllerMenuAndFactory) {
    SelectItemTagged(42);
    SetItemStatics(items.Detach());
    values.Reset();
    listener.reset();
    EXPECT_EQ(LeakReport(), "");
}

TEST_F(DialListenerTest, TheDestructorUnsubscribesNothing) {
    listener.reset();
    EXPECT_EQ(Journal().find("remove_"), std::string::npos) << Journal();
}

// An object whose last release records the objects that still exist.
template <class Interface>
class ReleaseObserver : public Interface {
public:
    HRESULT QueryInterface(const GUID&, void** object) noexcept override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    std::uint32_t AddRef() noexcept override { return 2; }
    std::uint32_t Release() noexcept override {
        ++releases;
        strings = dialsim_strings();
        menu_references = dialsim_references(kMenus);
        controllers = dialsim_objects(kControllers);
        factories = dialsim_objects(kControllerFactories);
        return 0;
    }

    int releases = 0;
    std::uint32_t strings = 0;
    std::uint32_t menu_references = 0;
    std::uint32_t controllers = 0;
    std::uint32_t factories = 0;

protected:
    ~ReleaseObserver() = default;
};

class ReleaseObserverForSpare final : public ReleaseObserver<abi::IUnknown> {};

class ReleaseObserverForStatics final : public ReleaseObserver<abi::IRadialControllerMenuItemStatics> {
public:
    HRESULT GetIids(std::uint32_t*, GUID**) noexcept override { return E_NOTIMPL; }
    HRESULT GetRuntimeClassName(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT GetTrustLevel(abi::TrustLevel*) noexcept override { return E_NOTIMPL; }
    HRESULT CreateFromIcon(HSTRING, abi::IRandomAccessStreamReference*,
                           abi::IRadialControllerMenuItem**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT CreateFromKnownIcon(HSTRING, abi::RadialControllerMenuKnownIcon,
                                abi::IRadialControllerMenuItem**) noexcept override {
        return E_NOTIMPL;
    }
};

class ReleaseObserverForMenu final : public ReleaseObserver<abi::IRadialControllerMenu> {
public:
    HRESULT GetIids(std::uint32_t*, GUID**) noexcept override { return E_NOTIMPL; }
    HRESULT GetRuntimeClassName(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT GetTrustLevel(abi::TrustLevel*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Items(abi::IVector<abi::RadialControllerMenuItem>**) noexcept override { return E_NOTIMPL; }
    HRESULT get_IsEnabled(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT put_IsEnabled(abi::boolean) noexcept override { return E_NOTIMPL; }
    HRESULT GetSelectedMenuItem(abi::IRadialControllerMenuItem**) noexcept override { return E_NOTIMPL; }
    HRESULT SelectMenuItem(abi::IRadialControllerMenuItem*) noexcept override { return E_NOTIMPL; }
    HRESULT TrySelectPreviouslySelectedMenuItem(abi::boolean*) noexcept override { return E_NOTIMPL; }
};

TEST_F(DialListenerTest, ItemStaticsAreReleasedAfterTheEntriesAndBeforeTheMenu) {
    ReleaseObserverForStatics statics;
    FetchMenu();
    AddEntry("Brush");
    SetItemStatics(&statics);
    const std::uint32_t menu_references = dialsim_references(kMenus);
    listener.reset();
    EXPECT_EQ(statics.releases, 1);
    EXPECT_EQ(statics.strings, 0u);
    EXPECT_EQ(statics.menu_references, menu_references);
    EXPECT_EQ(statics.controllers, 1u);
}

TEST_F(DialListenerTest, TheMenuIsReleasedAfterTheEntriesAndBeforeTheController) {
    ReleaseObserverForMenu menu;
    AddEntry("Brush");
    SetMenu(&menu);
    listener.reset();
    EXPECT_EQ(menu.releases, 1);
    EXPECT_EQ(menu.strings, 0u);
    EXPECT_EQ(menu.controllers, 1u);
}

TEST_F(DialListenerTest, TheSpareInterfaceIsReleasedBetweenTheControllerAndItsFactory) {
    ReleaseObserverForSpare spare;
    SetSpare(&spare);
    EXPECT_EQ(dialsim_objects(kControllerFactories), 1u);
    listener.reset();
    EXPECT_EQ(spare.releases, 1);
    EXPECT_EQ(spare.controllers, 0u);
    EXPECT_EQ(spare.factories, 1u);
    EXPECT_EQ(dialsim_objects(kControllerFactories), 0u);
}

TEST_F(DialListenerTest, AnItemsSubscriptionIsKeptWithItsEntryWhenItSucceeded) {
    FetchMenu();
    EXPECT_EQ(GetFactory<abi::RadialControllerMenuItem>(items), S_OK);
    SetItemStatics(ComPtr<abi::IRadialControllerMenuItemStatics>(items).Detach());
    EXPECT_GT(TokenOfNewItem(), 0);
    Capture();
    dialsim_fail_late("IRadialControllerMenuItem::add_Invoked", E_FAIL, 1, 0);
    EXPECT_EQ(TokenOfNewItem(), 0);
    Printed();
}

TEST_F(DialListenerTest, TheStateWordAndTheSpareInterfaceStayEmpty) {
    ASSERT_EQ(listener->Menu().AddCustomMenu(nullptr, 0), S_OK);
    ASSERT_EQ(listener->Presence().IsDialPresent(), S_OK);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(StateWord(), 0u);
    EXPECT_FALSE(HasSpare());
}

TEST_F(DialListenerTest, AListenerThatNeverRegisteredEndsWithoutACall) {
    listener.reset();
    dialsim_clear_journal();
    { DialListener unregistered(&host); }
    EXPECT_EQ(Journal(), "");
}

}  // namespace brindle
