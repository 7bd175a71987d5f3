// Platform failures while the system's items are set, while the host selects or the user chooses an item, and
// while the presence of the dial is queried.
#include "support/menu_items.h"
#include "sweep.h"

namespace sweep {
namespace {

class WindowSweep : public Sweep {
protected:
    void Listen() {
        ASSERT_EQ(initialize(), 0);
        ASSERT_TRUE(init_dial_listener(&host));
    }
    void ListenWithAMenu(const std::vector<MenuItemDescription>& items) {
        Listen();
        ASSERT_TRUE(SetMenu(kWindow, items));
    }
};

// --- the system's items

Row SettingTheDefaultMenu() {
    return Table(
               {
                   Then([](ExpectedState& state) { state.log += "asked for the window\n"; }),
                   Factory("Windows.UI.Input.RadialControllerConfiguration"),
                   View("IRadialControllerConfigurationInterop"),
                   Absent(Call("IRadialControllerConfigurationInterop::GetForWindow").NullEnds(kNoInterface)),
                   Call("IRadialControllerConfiguration::SetDefaultMenuItems").Does([](ExpectedState& state) {
                       state.system_items = {3, 2};
                   }),
               })
        .Answers(Answer::Bool);
}

TEST_F(WindowSweep, OfTheDefaultMenu) {
    InjectEachFault(
        {.name = "set_default_menu",
         .table = SettingTheDefaultMenu(),
         .act = [this] { LogResult(set_default_menu(kWindow, kTwoSystemItems, 2)); },
         .prepare = [this] { Listen(); },
         .check = [](const ExpectedState& state) { EXPECT_EQ(SystemItemsOf(kWindow), state.system_items); }});
}

// --- selecting an item

// The end of the list is reached before the identifier is found.
Row Size() { return Call("IVector<RadialControllerMenuItem>::get_Size").NullEnds(kFail); }

Rows SearchSteps() {
    return {Call("IVector<RadialControllerMenuItem>::GetAt").NullEnds(kSkipped),
            Call("IRadialControllerMenuItem::get_Tag").NullEnds(kSkipped), View("IPropertyValue")};
}

Row With(Rows rows, std::initializer_list<Row> more) {
    rows.insert(rows.end(), more.begin(), more.end());
    return Table(std::move(rows));
}

Row AnotherItem() { return With(SearchSteps(), {Call("IPropertyValue::GetUInt32")}); }

// A tag of another type, unless it is read as zero.
Row AForeignItem() {
    return With(SearchSteps(),
                {Call("IPropertyValue::GetUInt32").Needs(&ExpectedState::never, kTypeMismatch)});
}

Row TheItem() {
    const Row select = Call("IRadialControllerMenu::SelectMenuItem").Does([](ExpectedState& state) {
        state.selected = true;
    });
    return Final(With(SearchSteps(), {Call("IPropertyValue::GetUInt32").NullEnds(kSkipped), select}));
}

Row Selecting(std::initializer_list<Row> search) {
    Rows rows = {
        View("IRadialController"),
        Call("IRadialController::get_Menu").NullEnds(kNoInterface),
        Call("IRadialControllerMenu::get_Items").NullEnds(kNoInterface),
    };
    rows.insert(rows.end(), search.begin(), search.end());
    return Table(std::move(rows)).EndsAs(kFail).Answers(Answer::Bool);
}

class SelectionSweep : public WindowSweep {
protected:
    void SweepSelection(const char* name, Row table, std::function<void()> prepare) {
        InjectEachFault(
            {.name = name,
             .table = std::move(table),
             .act = [this] { LogResult(set_current_custom_menu(kWindow, 2)); },
             .prepare = std::move(prepare),
             .check = [](const ExpectedState& state) { EXPECT_EQ(SomethingIsSelected(), state.selected); }});
    }

private:
    static bool SomethingIsSelected() { return MenuText(kWindow).find(" * \"") != std::string::npos; }
};

TEST_F(SelectionSweep, OfTheSecondItem) {
    SweepSelection("hit", Selecting({Size(), AnotherItem(), Size(), TheItem(), Size()}), [this] {
        ListenWithAMenu({KnownIcon(1), KnownIcon(2)});
    });
}

TEST_F(SelectionSweep, OfNoItem) {
    SweepSelection("miss", Selecting({Size(), AnotherItem(), Size(), AnotherItem(), Size()}), [this] {
        ListenWithAMenu({KnownIcon(1), KnownIcon(3)});
    });
}

TEST_F(SelectionSweep, OfAnItemBehindAForeignTag) {
    SweepSelection("foreign", Selecting({Size(), AForeignItem(), Size(), TheItem(), Size()}), [this] {
        ListenWithAMenu({});
        ASSERT_TRUE(dialsim_append_item(kWindow, "String", 2));
        ASSERT_TRUE(dialsim_append_item(kWindow, "UInt32", 2));
    });
}

// --- an item that the user chooses

Row Invoking() {
    const Row tag = Table({Call("IRadialControllerMenuItem::get_Tag").NullEnds(0), View("IPropertyValue"),
                           Ignored(Call("IPropertyValue::GetUInt32").Gives(&ExpectedState::tag_read))});
    const Row haptics = Call("IRadialController::put_UseAutomaticHapticFeedback");
    return Table({Ignored(tag), Table({Ignored(haptics)}).Needs(&ExpectedState::tag_read, 0),
                  Ignored(Call("IRadialControllerMenuItem::get_DisplayText"))})
        .Answers(Answer::Code);
}

TEST_F(WindowSweep, OfAChoice) {
    InjectEachFault({.name = "Invoked",
                     .table = Invoking(),
                     .act = [this] { LogCode(dialsim_choose(kWindow, 0)); },
                     .prepare = [this] { ListenWithAMenu({KnownIcon(7)}); }});
}

// --- presence query

constexpr std::uint32_t kFullWait = 10'001;
constexpr char kDialId[] = R"(\\?\BTHLE#Dev_bc838528f72a#1)";

// Reads one device; only the dial's Id sets `found`.
Row ReadingADevice(bool is_the_dial) {
    return Table({Call("IVectorView<DeviceInformation>::GetAt").NullEnds(0), Call("WindowsCreateString"),
                  is_the_dial ? Call("IDeviceInformation::get_Id").Gives(&ExpectedState::found)
                              : Call("IDeviceInformation::get_Id")});
}

Row Scanning(Rows devices) {
    Rows rows = {Call("IAsyncOperation<DeviceInformationCollection>::GetResults").NullEnds(0),
                 Call("IVectorView<DeviceInformation>::get_Size").NullEnds(0)};
    rows.insert(rows.end(), devices.begin(), devices.end());
    return Table({Table(std::move(rows)), Then([](ExpectedState& state) { state.scanned = true; })})
        .Answers(Answer::Completion);
}

Row Querying(Rows devices) {
    const Row query = Table({
        Call("WindowsCreateString"),
        Factory("Windows.Devices.Enumeration.DeviceInformation"),
        Call("IDeviceInformationStatics::FindAllAsyncAqsFilter").NullEnds(0),
        Call("IAsyncOperation<DeviceInformationCollection>::put_Completed")
            .Contains(Scanning(std::move(devices))),
    });
    const Row wait =
        Then([](ExpectedState& state) { state.log += state.scanned ? "" : "waited to the bound\n"; });
    return Table({query, wait, Table({}).Needs(&ExpectedState::found, kFail)}).Answers(Answer::Bool);
}

class PresenceSweep : public WindowSweep {
protected:
    // Null is an entry without an object.
    void SweepPresence(const char* name, std::initializer_list<const char*> ids, Rows devices) {
        InjectEachFault({.name = name,
                         .table = Querying(std::move(devices)),
                         .act = [this] { QueryPresence(); },
                         .prepare =
                             [this, ids] {
                                 Listen();
                                 dialsim_async(DIALSIM_AT_ONCE);
                                 dialsim_skip_sleeps(true);
                                 dialsim_remove_devices();
                                 for (const char* id : ids) {
                                     dialsim_add_device(id, nullptr, true);
                                 }
                             }});
    }

private:
    void QueryPresence() {
        constexpr std::int32_t kNotCalled = static_cast<std::int32_t>(0x8000000A);
        constexpr std::int32_t kNotStarted = static_cast<std::int32_t>(0x8000000B);
        const bool present = is_dial_present(kWindow);
        const std::int32_t code = dialsim_completion_code(0);
        if (code != kNotCalled && code != kNotStarted) {
            log += "completed with " + Hex(code) + "\n";
        }
        const std::uint32_t sleeps = dialsim_calls("Sleep(1)");
        EXPECT_TRUE(sleeps == 0 || sleeps == kFullWait) << sleeps;
        log += sleeps == 0 ? "" : "waited to the bound\n";
        LogResult(present);
    }
};

TEST_F(PresenceSweep, OfTheDialAlone) { SweepPresence("the dial alone", {kDialId}, {ReadingADevice(true)}); }

TEST_F(PresenceSweep, OfTheDialBehindOthers) {
    SweepPresence(
        "others first", {nullptr, "USB#1", kDialId},
        {Call("IVectorView<DeviceInformation>::GetAt"), ReadingADevice(false), ReadingADevice(true)});
}

TEST_F(PresenceSweep, OfAnotherDevice) {
    SweepPresence("another device", {"USB#1"}, {ReadingADevice(false)});
}

TEST_F(PresenceSweep, OfNoDevice) { SweepPresence("no device", {}, {}); }

}  // namespace
}  // namespace sweep
