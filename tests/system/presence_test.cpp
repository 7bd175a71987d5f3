// Presence of the dial among the system's devices.
#include "platform/interfaces/devices.h"
#include "system/system.h"

namespace system_tests {
namespace {

using Presence = ListeningSystemTest;

// The sleeps of a wait that no completion ends, by brindle.h.
constexpr std::uint32_t kWholeWait = 10'001;

TEST_F(Presence, NoDialIsAmongTheDevicesOfTheSystem) {
    REQUIRE_CLASS(abi::DeviceInformation);
    if (is_dial_present(kWindow)) {
        std::printf("the dial is paired with this computer\n");
    }
    EXPECT_LT(dialsim_calls("Sleep"), kWholeWait) << "the enumeration has failed or not completed";
    EXPECT_EQ(dialsim_calls("RoGetActivationFactory(Windows.Devices.Enumeration.DeviceInformation)"), 1u);
    EXPECT_EQ(dialsim_calls("IDeviceInformationStatics::FindAllAsyncAqsFilter"), 0u)
        << "the simulator's devices";
}

}  // namespace
}  // namespace system_tests
