// Reset of everything that the control functions set, except the stores and the clock.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "event_recorder.h"
#include "menu/kind_sequence.h"
#include "platform/interfaces/devices.h"
#include "platform/interfaces/metadata.h"
#include "platform/interfaces/storage.h"
#include "platform/text.h"
#include "support/environment_variable.h"
#include "support/stores_folder.h"

namespace brindle::reset_test {
namespace {

using Enumeration = abi::IAsyncOperation<abi::DeviceInformationCollection>;
using RotationHandler =
    abi::TypedEventHandler<abi::RadialController, abi::RadialControllerRotationChangedEventArgs>;

constexpr std::uint64_t kOther = kWindow + 1;  // the window whose dial is observed

// State that a row keeps during its test.
struct Held {
    ComPtr<abi::IRadialController> controller;
    ComPtr<Enumeration> enumeration;
    String string;
    HGLOBAL block = nullptr;
};
Held held;
const StoresFolder* folder = nullptr;

// --- results of the platform

std::string TurnHeard() {
    EventRecorder recorder(kOther);
    dialsim_turn(kOther, 1);
    return recorder.TakeEvents();
}

void MakeAMenu() {
    held.controller = MakeController(kWindow);
    EXPECT_TRUE(dialsim_append_null_item(kWindow));
}

// `body` receives the arguments of one turn.
template <class Body>
void DuringATurn(Body body) {
    const auto controller = MakeController(kOther);
    const auto handler = MakeDelegate<RotationHandler>([&](auto*, auto* args) {
        body(*args);
        return S_OK;
    });
    EventRegistrationToken token{};
    EXPECT_EQ(controller->add_RotationChanged(handler.Get(), &token), S_OK);
    dialsim_turn(kOther, 1);
}

bool HasHaptics() {
    bool has_haptics = false;
    DuringATurn([&](abi::IRadialControllerRotationChangedEventArgs& args) {
        ComPtr<abi::IRadialControllerRotationChangedEventArgs2> more;
        EXPECT_EQ(Query(&args, more), S_OK);
        ComPtr<abi::ISimpleHapticsController> haptics;
        EXPECT_EQ(more->get_SimpleHapticsController(haptics.Put()), S_OK);
        has_haptics = static_cast<bool>(haptics);
    });
    return has_haptics;
}

// The second thread lives at the same time, so that its variable has a different address.
bool EventsHaveTheirOwnThread() {
    static thread_local char mine;
    const char* event = &mine;
    DuringATurn([&](auto&) { event = &mine; });
    return event != &mine;
}

bool SomeTypeIsPresent() {
    ComPtr<abi::IApiInformationStatics> types;
    EXPECT_EQ(GetFactory<abi::ApiInformation>(types), S_OK);
    abi::boolean present = 0;
    const HRESULT code = types->IsTypePresent(ToPlatformString("Some.Type").Get(), &present);
    return code == S_OK && present == 1;
}
bool SomeTypeIsMissing() { return !SomeTypeIsPresent(); }

void SetSystemItems() {
    ComPtr<abi::IRadialControllerConfigurationInterop> factory;
    EXPECT_EQ(GetFactory<abi::RadialControllerConfiguration>(factory), S_OK);
    ComPtr<abi::IRadialControllerConfiguration> configuration;
    EXPECT_EQ(factory->GetForWindow(reinterpret_cast<HWND>(kWindow), abi::IRadialControllerConfiguration::Iid,
                                    reinterpret_cast<void**>(configuration.Put())),
              S_OK);
    const auto sequence = ComPtr<KindSequence>::Attach(new KindSequence(std::vector{SystemItemKind::Volume}));
    EXPECT_EQ(configuration->SetDefaultMenuItems(sequence.Get()), S_OK);
}
bool ASequenceIsKept() { return dialsim_use_kept_sequence() != 1; }

ComPtr<Enumeration> StartEnumeration() {
    ComPtr<abi::IDeviceInformationStatics> devices;
    EXPECT_EQ(GetFactory<abi::DeviceInformation>(devices), S_OK);
    ComPtr<Enumeration> enumeration;
    EXPECT_EQ(devices->FindAllAsync(enumeration.Put()), S_OK);
    return enumeration;
}
void StartHandledEnumeration() {
    held.enumeration = StartEnumeration();
    const auto handler = MakeDelegate<abi::AsyncOperationCompletedHandler<abi::DeviceInformationCollection>>(
        [](auto*, auto) { return S_FALSE; });
    EXPECT_EQ(held.enumeration->put_Completed(handler.Get()), S_OK);
}
bool OperationsCompleteAtOnce() {
    const auto enumeration = StartEnumeration();
    ComPtr<abi::IAsyncInfo> info;
    EXPECT_EQ(Query(enumeration.Get(), info), S_OK);
    abi::AsyncStatus status{};
    EXPECT_EQ(info->get_Status(&status), S_OK);
    return status != abi::AsyncStatus::Started;
}

// Initially there is one device.
bool HasOtherDevices() {
    dialsim_async(DIALSIM_AT_ONCE);
    ComPtr<abi::IVectorView<abi::DeviceInformation>> devices;
    if (StartEnumeration()->GetResults(devices.Put()) < 0) {
        return true;
    }
    std::uint32_t size = 0;
    EXPECT_EQ(devices->get_Size(&size), S_OK);
    return size != 1;
}

bool IsPackaged() {
    ComPtr<abi::IApplicationDataStatics> statics;
    EXPECT_EQ(GetFactory<abi::ApplicationData>(statics), S_OK);
    ComPtr<abi::IApplicationData> data;
    return statics->get_Current(data.Put()) == S_OK;
}

bool HoldingTheButtonIsRecorded() {
    const auto before = folder->Read("session.dial");
    dialsim_hold(true);
    return folder->Read("session.dial") != before;
}

int hook_calls = 0;
void CountCall(void*, const char*) { ++hook_calls; }

bool CallsAreHooked() {
    hook_calls = 0;
    SomeTypeIsPresent();
    return hook_calls > 0;
}

void AcquireOneOfEachKind() {
    held.controller = MakeController(kWindow);
    held.string = ToPlatformString("string");
    held.block = GlobalAlloc(GMEM_MOVEABLE, 1);
}

constexpr char kIsTypePresent[] = "IApiInformationStatics::IsTypePresent";

// --- the rows

struct Control {
    const char* name;
    void (*set)();
    bool (*is_set)();
};

const Control kControls[] = {
    {"dialsim_hold", [] { dialsim_hold(true); },
     [] { return TurnHeard().find(" held") != std::string::npos; }},
    {"dialsim_touch", [] { dialsim_touch(kOther, 1, 2, 3, 4); },
     [] { return TurnHeard().find(" at 1 2 3 4") != std::string::npos; }},
    {"dialsim_move", [] { dialsim_move(kOther, 1, 2, 3, 4); },
     [] { return TurnHeard().find(" at 1 2 3 4") != std::string::npos; }},
    {"dialsim_open_menu",
     [] {
         MakeAMenu();
         EXPECT_TRUE(dialsim_open_menu(kWindow));
     },
     [] {
         MakeAMenu();  // an open menu without items closes by itself
         return TurnHeard().empty();
     }},
    {"dialsim_raise_on_own_thread", [] { dialsim_raise_on_own_thread(true); }, EventsHaveTheirOwnThread},
    {"dialsim_set_haptics", [] { dialsim_set_haptics(false, nullptr, 0); }, [] { return !HasHaptics(); }},
    {"dialsim_set_type_present", [] { dialsim_set_type_present("Some.Type", false); }, SomeTypeIsMissing},
    {"dialsim_menu", [] { held.controller = MakeController(kWindow); },
     [] { return !MenuText(kWindow).empty(); }},
    // The number of a window in scripts: kOther is the first without the set one.
    {"dialsim_play", [] { held.controller = MakeController(kWindow); },
     [] {
         EventRecorder recorder(kOther);
         EXPECT_TRUE(dialsim_play("window @1\nturn 1", 0, nullptr, 0));
         return recorder.TakeEvents().empty();
     }},
    {"dialsim_system_items", SetSystemItems, [] { return dialsim_system_items(kWindow, nullptr, 0) != 5; }},
    {"dialsim_keep_sequences", [] { dialsim_keep_sequences(true); },
     [] {
         SetSystemItems();
         return ASequenceIsKept();
     }},
    {"dialsim_use_kept_sequence",
     [] {
         dialsim_keep_sequences(true);
         SetSystemItems();
     },
     ASequenceIsKept},
    {"dialsim_async", [] { dialsim_async(DIALSIM_AT_ONCE); }, OperationsCompleteAtOnce},
    {"dialsim_pending",
     [] {
         dialsim_async(DIALSIM_HELD);
         StartHandledEnumeration();
     },
     [] { return dialsim_pending() != 0; }},
    {"dialsim_completion_code",
     [] {
         dialsim_async(DIALSIM_AT_ONCE);
         StartHandledEnumeration();
     },
     [] { return dialsim_completion_code(0) == S_FALSE; }},
    {"dialsim_add_device", [] { dialsim_add_device("one", nullptr, true); }, HasOtherDevices},
    {"dialsim_remove_devices", [] { dialsim_remove_devices(); }, HasOtherDevices},
    {"dialsim_fail_devices", [] { dialsim_fail_devices(E_FAIL); }, HasOtherDevices},
    {"dialsim_set_packaged", [] { dialsim_set_packaged(true); }, IsPackaged},
    {"dialsim_record", [] { EXPECT_TRUE(dialsim_record(folder->PathOf("session.dial").c_str())); },
     HoldingTheButtonIsRecorded},
    {"dialsim_fail", [] { EXPECT_TRUE(dialsim_fail(kIsTypePresent, E_FAIL, 1, 0)); }, SomeTypeIsMissing},
    {"dialsim_fail_late", [] { EXPECT_TRUE(dialsim_fail_late(kIsTypePresent, E_FAIL, 1, 0)); },
     SomeTypeIsMissing},
    {"dialsim_yield_null", [] { EXPECT_TRUE(dialsim_yield_null(kIsTypePresent, 1, 0)); }, SomeTypeIsMissing},
    {"dialsim_journal", [] { SomeTypeIsPresent(); }, [] { return !Journal().empty(); }},
    {"dialsim_on_call", [] { dialsim_on_call(CountCall, nullptr); }, CallsAreHooked},
    {"dialsim_accounts", AcquireOneOfEachKind, [] { return !LeakReport().empty(); }},
#ifdef _WIN32
    {"dialsim_only_dial", [] { EXPECT_TRUE(dialsim_only_dial(true)); }, SomeTypeIsMissing},
    {"dialsim_skip_sleeps", [] { dialsim_skip_sleeps(true); },
     [] {
         const std::uint64_t before = dialsim_now();
         Sleep(1000);
         return dialsim_now() - before < 500;
     }},
#else
    {"dialsim_raised", [] { DuringATurn([](auto&) { throw std::runtime_error("raised"); }); },
     [] { return !Raised().empty(); }},
    {"dialsim_async_delay", [] { dialsim_async_delay(50); },
     [] {
         const std::uint64_t before = dialsim_now();
         StartHandledEnumeration();
         dialsim_wait_for_async();
         return dialsim_now() != before;
     }},
    {"dialsim_add_resource", [] { EXPECT_TRUE(dialsim_add_resource(1, 7, "PNG", "bytes", 5)); },
     [] {
         return FindResourceW(reinterpret_cast<HMODULE>(1), reinterpret_cast<const WCHAR*>(7),
                              UTF16("PNG")) != nullptr;
     }},
#endif
};

class Reset : public SimulatorApartmentTest {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        folder = &folder_;
    }
    void TearDown() override {
        folder_.Remove("session.dial");
        SimulatorApartmentTest::TearDown();
    }

    static void Release() {
        GlobalFree(held.block);
        held = {};
    }

private:
    const StoresFolder folder_;
};

TEST_F(Reset, BringsEveryControlBack) {
    for (const Control& control : kControls) {
        SCOPED_TRACE(control.name);
        dialsim_reset();
        EXPECT_FALSE(control.is_set());
        dialsim_reset();
        control.set();
        EXPECT_TRUE(control.is_set());
        dialsim_reset();
        Release();
        control.set();
        dialsim_reset();
        EXPECT_FALSE(control.is_set());
        Release();
        dialsim_reset();
    }
}

#ifdef _WIN32
TEST_F(Reset, SimulatesOnlyTheDialWhenTheEnvironmentSaysSo) {
    const EnvironmentVariable only_dial("DIALSIM_ONLY_DIAL", "1");
    dialsim_reset();
    EXPECT_TRUE(SomeTypeIsMissing());
    EXPECT_TRUE(dialsim_only_dial(false));
    EXPECT_FALSE(SomeTypeIsMissing());
}
#else
TEST_F(Reset, ForgetsShortPaths) {
    folder->Write("session.dial", "");
    const std::string path = folder->PathOf("session.dial");
    const WideText wide(path.begin(), path.end());
    WCHAR short_path[256];
    ASSERT_LT(GetShortPathNameW(wide.c_str(), short_path, 256), 256u);
    ASSERT_TRUE(PathFileExistsW(short_path));
    dialsim_reset();
    EXPECT_FALSE(PathFileExistsW(short_path));
}

// Functions without a row: they end what others set, or set the stores or the clock. A turn's angle is
// visible in the drawn dial only, and shrinking belongs to a menu. Sleeps are skipped on Windows.
const char* const kWithoutARow[] = {
    "dialsim_turn",
    "dialsim_click",
    "dialsim_lift",
    "dialsim_choose",
    "dialsim_close_menu",
    "dialsim_acquire",
    "dialsim_lose",
    "dialsim_menu_svg",
    "dialsim_append_item",
    "dialsim_append_null_item",
    "dialsim_shrink_menu_after",
    "dialsim_complete",
    "dialsim_complete_all",
    "dialsim_complete_as",
    "dialsim_completion_marshals",
    "dialsim_abandon_pending",
    "dialsim_wait_for_async",
    "dialsim_set_stores",
    "dialsim_store",
    "dialsim_put_setting",
    "dialsim_put_credential",
    "dialsim_clear_stores",
    "dialsim_store_file",
    "dialsim_put_store_file",
    "dialsim_now",
    "dialsim_only_dial",
    "dialsim_wait",
    "dialsim_skip_sleeps",
    "dialsim_set_clock",
    "dialsim_play_in_background",
    "dialsim_wait_for_scripts",
    "dialsim_operation",
    "dialsim_clear_journal",
    "dialsim_calls",
    "dialsim_objects",
    "dialsim_references",
    "dialsim_strings",
    "dialsim_blocks",
    "dialsim_handlers",
    "dialsim_reset",
    "dialsim_start",
    "dialsim_watch",
};

bool HasARow(const std::string& name) {
    return std::any_of(std::begin(kControls), std::end(kControls),
                       [&](const Control& control) { return control.name == name; });
}

TEST(ResetTable, HasARowForEveryControlOrAReasonAgainstIt) {
    std::ifstream definition(CONTROL_FUNCTIONS);
    int functions = 0;
    for (std::string name; definition >> name;) {
        if (name.starts_with("dialsim_")) {
            ++functions;
            const bool without =
                std::find(std::begin(kWithoutARow), std::end(kWithoutARow), name) != std::end(kWithoutARow);
            EXPECT_NE(HasARow(name), without) << name;
        }
    }
    EXPECT_EQ(functions, static_cast<int>(std::size(kControls) + std::size(kWithoutARow)));
}
#endif

}  // namespace
}  // namespace brindle::reset_test
