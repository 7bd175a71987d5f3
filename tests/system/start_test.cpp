// The probe of the system's version.
#include "platform/interfaces/metadata.h"
#include "system/system.h"

namespace system_tests {
namespace {

// Windows 10 and 11 have the class that the probe asks for.
TEST(Start, TheProbeFindsARecentSystem) {
    dialsim_reset();
    ASSERT_TRUE(dialsim_only_dial(true));
    ASSERT_GE(RoInitialize(RO_INIT_SINGLETHREADED), 0);
    const bool is_recent = HasClass<abi::EdgeGesture>();
    RoUninitialize();

    ASSERT_EQ(initialize(), is_recent ? 0 : 2);
    EXPECT_EQ(dialsim_calls("RoGetActivationFactory(Windows.Foundation.Metadata.ApiInformation)"), 1u);
    EXPECT_EQ(dialsim_calls("IApiInformationStatics::IsTypePresent"), 0u) << "the simulator's probe";
    uninit();
    EXPECT_EQ(LeakReport(), "");
}

}  // namespace
}  // namespace system_tests
