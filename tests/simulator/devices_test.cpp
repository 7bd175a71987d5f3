// Device enumerations, delays of operations, and the platform's Sleep.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/activation.h"
#include "platform/delegate.h"
#include "platform/interfaces/devices.h"
#include "support/simulator_fixture.h"

namespace brindle {
namespace {

using Enumeration = abi::IAsyncOperation<abi::DeviceInformationCollection>;
using Handler = abi::AsyncOperationCompletedHandler<abi::DeviceInformationCollection>;

constexpr char kDialClass[] = "{80795c47-03f0-446d-b1f2-e424b30db4da}";
constexpr char kOtherClass[] = "{4d36e96f-e325-11ce-bfc1-08002be10318}";

std::string ClassIs(const std::string& interface_class) {
    return "System.Devices.InterfaceClassGuid:=\"" + interface_class + "\"";
}
std::string EnabledIs(const std::string& value) {
    return "System.Devices.InterfaceEnabled: = System.StructuredQueryType.Boolean#" + value;
}

class SimulatedDevices : public SimulatorApartmentTest {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        ASSERT_EQ(GetFactory<abi::DeviceInformation>(statics_), S_OK);
        dialsim_async(DIALSIM_AT_ONCE);
    }
    void TearDown() override {
        statics_.Reset();
        SimulatorApartmentTest::TearDown();
    }

    HRESULT Start(const std::string& filter, ComPtr<Enumeration>& enumeration) {
        const WideText text(filter.begin(), filter.end());
        StringReference query;
        EXPECT_EQ(query.Create(text), S_OK);
        return statics_->FindAllAsyncAqsFilter(query.Get(), enumeration.Put());
    }
    ComPtr<Enumeration> Started(const std::string& filter) {
        ComPtr<Enumeration> enumeration;
        EXPECT_EQ(Start(filter, enumeration), S_OK) << filter;
        return enumeration;
    }
    // The Ids; "null" for an entry without an object.
    static std::vector<std::string> IdsIn(Enumeration& enumeration) {
        ComPtr<abi::IVectorView<abi::DeviceInformation>> devices;
        EXPECT_EQ(enumeration.GetResults(devices.Put()), S_OK);
        std::uint32_t size = 0;
        EXPECT_EQ(devices->get_Size(&size), S_OK);
        std::vector<std::string> ids;
        for (std::uint32_t i = 0; i < size; ++i) {
            ComPtr<abi::IDeviceInformation> device;
            EXPECT_EQ(devices->GetAt(i, device.Put()), S_OK);
            ids.push_back(device ? IdOf(*device.Get()) : "null");
        }
        return ids;
    }
    std::vector<std::string> Found(const std::string& filter) { return IdsIn(*Started(filter).Get()); }

    static std::string IdOf(abi::IDeviceInformation& device) {
        String id;
        EXPECT_EQ(device.get_Id(id.Put()), S_OK);
        const WideText text = CharactersOf(id.Get());
        return {text.begin(), text.end()};
    }

    ComPtr<abi::IDeviceInformationStatics> statics_;
};

TEST_F(SimulatedDevices, HoldTheDialAtTheStart) {
    const auto found = Found(ClassIs(kDialClass) + " AND " + EnabledIs("True"));
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].find("\\\\?\\BTHLE#Dev_bc838528f72a#"), 0u);
}

TEST_F(SimulatedDevices, AreFoundInTheirOrderByClassAndByBeingEnabled) {
    dialsim_remove_devices();
    dialsim_add_device("other", kOtherClass, true);
    dialsim_add_device("second", nullptr, true);
    dialsim_add_device("off", nullptr, false);
    dialsim_add_device(nullptr, nullptr, true);
    dialsim_add_device("last", kDialClass, true);
    using Ids = std::vector<std::string>;
    EXPECT_EQ(Found(ClassIs(kDialClass) + "\tAND\t\t\t" + EnabledIs("True")),
              (Ids{"second", "null", "last"}));
    EXPECT_EQ(Found(EnabledIs("False")), (Ids{"off", "null"}));
    EXPECT_EQ(Found(ClassIs(kOtherClass)), (Ids{"other", "null"}));
}

TEST_F(SimulatedDevices, AFilterThatDoesNotParseIsAnInvalidArgument) {
    for (const std::string& filter :
         {std::string(), std::string("System.Devices.Paired:=True"), EnabledIs("Perhaps"), ClassIs("{x}"),
          ClassIs(kDialClass) + " OR " + EnabledIs("True"), EnabledIs("True") + " AND "}) {
        ComPtr<Enumeration> enumeration;
        EXPECT_EQ(Start(filter, enumeration), E_INVALIDARG) << filter;
        EXPECT_FALSE(enumeration);
    }
}

TEST_F(SimulatedDevices, AreThoseOfTheMomentWhenTheEnumerationStarts) {
    const auto enumeration = Started(EnabledIs("True"));
    dialsim_remove_devices();
    EXPECT_EQ(IdsIn(*enumeration.Get()).size(), 1u);
    EXPECT_EQ(Found(EnabledIs("True")).size(), 0u);
}

TEST_F(SimulatedDevices, AnEnumerationMayEndAsFailed) {
    dialsim_fail_devices(Code(0x80070005));
    const auto enumeration = Started(EnabledIs("True"));
    ComPtr<abi::IVectorView<abi::DeviceInformation>> devices;
    EXPECT_EQ(enumeration->GetResults(devices.Put()), Code(0x80070005));
    EXPECT_FALSE(devices);
    ComPtr<abi::IAsyncInfo> info;
    ASSERT_EQ(Query(enumeration.Get(), info), S_OK);
    abi::AsyncStatus status{};
    EXPECT_EQ(info->get_Status(&status), S_OK);
    EXPECT_EQ(status, abi::AsyncStatus::Error);
    dialsim_fail_devices(0);
    EXPECT_EQ(Found(EnabledIs("True")).size(), 1u);
}

TEST_F(SimulatedDevices, HaveOtherPropertiesThanTheirId) {
    const auto enumeration = Started(EnabledIs("True"));
    ComPtr<abi::IVectorView<abi::DeviceInformation>> devices;
    ASSERT_EQ(enumeration->GetResults(devices.Put()), S_OK);
    ComPtr<abi::IDeviceInformation> device;
    ASSERT_EQ(devices->GetAt(0, device.Put()), S_OK);
    String name;
    EXPECT_EQ(device->get_Name(name.Put()), S_OK);
    EXPECT_EQ(CharactersOf(name.Get()), UTF16("Simulated device"));
    abi::boolean answer = 0;
    EXPECT_EQ(device->get_IsEnabled(&answer), S_OK);
    EXPECT_EQ(answer, 1);
    EXPECT_EQ(device->get_IsDefault(&answer), S_OK);
    EXPECT_EQ(answer, 0);
}

TEST_F(SimulatedDevices, OfAScriptAreThoseItNames) {
    char error[100];
    EXPECT_TRUE(dialsim_play("no-devices\ndevice one\ndevice two disabled\n", 0, error, sizeof error))
        << error;
    EXPECT_EQ(Found(EnabledIs("True")), (std::vector<std::string>{"one"}));
    EXPECT_EQ(Found(EnabledIs("False")), (std::vector<std::string>{"two"}));
    EXPECT_FALSE(dialsim_play("device one enabled", 0, error, sizeof error));
    EXPECT_EQ(std::string(error), "line 1: 'enabled' is not 'disabled'");
}

TEST_F(SimulatedDevices, AResetBringsTheDialBack) {
    dialsim_remove_devices();
    dialsim_fail_devices(E_FAIL);
    statics_.Reset();
    dialsim_reset();
    dialsim_async(DIALSIM_AT_ONCE);
    ASSERT_EQ(GetFactory<abi::DeviceInformation>(statics_), S_OK);
    EXPECT_EQ(Found(EnabledIs("True")).size(), 1u);
}

// A delayed operation, and whether its handler was called.
class Delays : public SimulatedDevices {
protected:
    void StartWithDelay(std::uint32_t milliseconds) {
        dialsim_async(DIALSIM_OWN_THREAD);
        dialsim_async_delay(milliseconds);
        enumeration_ = Started(EnabledIs("True"));
        const auto handler = MakeDelegate<Handler>([](auto*, auto) { return S_FALSE; });
        ASSERT_EQ(enumeration_->put_Completed(handler.Get()), S_OK);
    }
    static bool Completed() { return dialsim_completion_code(0) == S_FALSE; }
    void TearDown() override {
        enumeration_.Reset();
        SimulatedDevices::TearDown();
    }

    ComPtr<Enumeration> enumeration_;
};

TEST_F(Delays, AnOperationTakesAsLongAsItsDelay) {
    StartWithDelay(50);
    EXPECT_FALSE(Completed());
    EXPECT_EQ(dialsim_pending(), 1u);
    dialsim_wait(50);
    dialsim_wait_for_async();
    EXPECT_TRUE(Completed());
}

TEST_F(Delays, WaitingForOperationsWaitsForDelayedOnesToo) {
    const std::uint64_t before = dialsim_now();
    StartWithDelay(40);
    dialsim_wait_for_async();
    EXPECT_TRUE(Completed());
    EXPECT_GE(dialsim_now() - before, 30u);  // the system's clock has a coarse resolution
}

TEST_F(Delays, AnOperationThatIsCompletedByHandDoesNotCompleteAgain) {
    StartWithDelay(20);
    EXPECT_EQ(dialsim_complete(0), S_FALSE);
    dialsim_wait_for_async();
    EXPECT_EQ(dialsim_calls("AsyncOperationCompletedHandler<DeviceInformationCollection>::Invoke"), 1u);
}

TEST_F(Delays, OneThatIsAbandonedNeverCompletes) {
    StartWithDelay(20);
    dialsim_abandon_pending();
    dialsim_wait_for_async();
    EXPECT_FALSE(Completed());
}

TEST_F(Delays, OfAScriptAreTheSame) {
    char error[100];
    EXPECT_TRUE(dialsim_play("async own-thread\ndelay 30\n", 0, error, sizeof error)) << error;
    enumeration_ = Started(EnabledIs("True"));
    const auto handler = MakeDelegate<Handler>([](auto*, auto) { return S_FALSE; });
    ASSERT_EQ(enumeration_->put_Completed(handler.Get()), S_OK);
    EXPECT_FALSE(Completed());
    EXPECT_TRUE(dialsim_play("settle", 0, error, sizeof error)) << error;
    EXPECT_TRUE(Completed());
}

using Sleeps = SimulatorApartmentTest;

TEST_F(Sleeps, LetTimePass) {
    const std::uint64_t before = dialsim_now();
    Sleep(60);
    EXPECT_GE(dialsim_now() - before, 40u);
    EXPECT_EQ(Journal(), "Sleep(60)\n");
}

TEST_F(Sleeps, ThatAreSkippedTakeNoTime) {
    dialsim_skip_sleeps(true);
    for (int i = 0; i < 1000; ++i) {
        Sleep(3'600'000);  // a real sleep would not end
    }
    EXPECT_EQ(dialsim_calls("Sleep(3600000)"), 1000u);
}

class RuntimeTexts : public SimulatorTest {
protected:
    static LONG Number(const WCHAR* text) { return wcstol(text, nullptr, 10); }
};

TEST_F(RuntimeTexts, NumbersBeginAfterBlanksAndEndAtTheFirstOtherCharacter) {
    EXPECT_EQ(Number(UTF16("42")), 42);
    EXPECT_EQ(Number(UTF16(" \t\n\v\f\r-42 7")), -42);
    EXPECT_EQ(Number(UTF16("+7abc")), 7);
    EXPECT_EQ(Number(UTF16("7\x20AC")), 7);
    EXPECT_EQ(Number(UTF16("")), 0);
    EXPECT_EQ(Number(UTF16("abc")), 0);
    EXPECT_EQ(Number(UTF16("- 7")), 0);
    WCHAR* end = nullptr;
    const WCHAR text[] = UTF16(" 12x");
    EXPECT_EQ(wcstol(text, &end, 10), 12);
    EXPECT_EQ(end, text + 3);
}

TEST_F(RuntimeTexts, NumbersStayInTheRangeOf32Bits) {
    EXPECT_EQ(Number(UTF16("2147483647")), 2147483647);
    EXPECT_EQ(Number(UTF16("2147483648")), 2147483647);
    EXPECT_EQ(Number(UTF16("-2147483648")), INT32_MIN);
    EXPECT_EQ(Number(UTF16("-2147483649")), INT32_MIN);
    EXPECT_EQ(Number(UTF16("99999999999999999999999")), 2147483647);
    EXPECT_EQ(Number(UTF16("-99999999999999999999999")), INT32_MIN);
}

TEST_F(RuntimeTexts, AreComparedWithoutCaseUpToACountOrTheirEnd) {
    EXPECT_EQ(_wcsnicmp(UTF16("aBc-1"), UTF16("AbC-2"), 4), 0);
    EXPECT_LT(_wcsnicmp(UTF16("aBc-1"), UTF16("AbC-2"), 5), 0);
    EXPECT_GT(_wcsnicmp(UTF16("b"), UTF16("A"), 1), 0);
    EXPECT_LT(_wcsnicmp(UTF16("ab"), UTF16("abc"), 9), 0);
    EXPECT_EQ(_wcsnicmp(UTF16("ab"), UTF16("AB"), 9), 0);
    EXPECT_EQ(_wcsnicmp(UTF16("x"), UTF16("y"), 0), 0);
}

TEST_F(RuntimeTexts, AreCopiedIfTheyFit) {
    WCHAR copy[4] = {'x', 'x', 'x', 'x'};
    EXPECT_EQ(wcscpy_s(copy, 4, UTF16("abc")), 0);
    EXPECT_EQ(WideText(copy), UTF16("abc"));
    EXPECT_EQ(wcscpy_s(copy, 1, UTF16("")), 0);
    EXPECT_EQ(copy[0], 0);
    EXPECT_EQ(dialsim_calls("wcscpy_s(4)"), 1u);
}

}  // namespace
}  // namespace brindle
