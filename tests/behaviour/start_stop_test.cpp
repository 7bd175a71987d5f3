#include <cstdio>
#include <cstdlib>

#include "behaviour.h"
#include "support/structured_exception.h"

namespace {

class StartStop : public UninitializedTest {};

TEST_F(StartStop, AFullPlatformIsReady) {
    EXPECT_EQ(initialize(), 0);
    EXPECT_EQ(Journal(),
              "RoInitialize(0)\n"
              "WindowsCreateStringReference(Windows.Foundation.Metadata.ApiInformation)\n"
              "RoGetActivationFactory(Windows.Foundation.Metadata.ApiInformation)\n"
              "WindowsCreateStringReference(Windows.UI.Input.EdgeGesture)\n"
              "IApiInformationStatics::IsTypePresent(Windows.UI.Input.EdgeGesture)\n");
    uninit();
}

TEST_F(StartStop, TheProbesFactoryIsReleasedBeforeInitializeReturns) {
    EXPECT_EQ(initialize(), 0);
    EXPECT_EQ(dialsim_objects(nullptr), 0u);
    uninit();
}

TEST_F(StartStop, APlatformThatDoesNotStartAnswersOneAndIsAskedNothingMore) {
    dialsim_fail("RoInitialize", kFail, 1, 1);
    EXPECT_EQ(initialize(), 1);
    EXPECT_EQ(Journal(), "RoInitialize(0) = 80004005\n");
}

TEST_F(StartStop, AMissingProbeAnswersOneAndLeavesThePlatformStarted) {
    dialsim_fail("RoGetActivationFactory", kClassNotRegistered, 1, 1);
    EXPECT_EQ(initialize(), 1);
    EXPECT_EQ(dialsim_calls("RoUninitialize"), 0u);
    uninit();
}

TEST_F(StartStop, AProbeThatIsYieldedAsNullAnswersOne) {
    dialsim_yield_null("RoGetActivationFactory", 1, 1);
    EXPECT_EQ(initialize(), 1);
    uninit();
}

TEST_F(StartStop, APlatformWithoutTheTypeAnswersTwo) {
    dialsim_set_type_present("Windows.UI.Input.EdgeGesture", false);
    EXPECT_EQ(initialize(), 2);
    uninit();
}

TEST_F(StartStop, AProbeThatFailsLeavesTheAnswerAtMissing) {
    dialsim_fail("IApiInformationStatics::IsTypePresent", kFail, 1, 1);
    EXPECT_EQ(initialize(), 2);
    uninit();
}

TEST_F(StartStop, AProbeThatAnswersAndClaimsToHaveFailedIsBelieved) {
    dialsim_fail_late("IApiInformationStatics::IsTypePresent", kFail, 1, 1);
    EXPECT_EQ(initialize(), 0);
    uninit();
}

TEST_F(StartStop, UninitOnAnEmptyRegistryOnlyStopsThePlatform) {
    uninit();
    EXPECT_EQ(Journal(), "RoUninitialize()\n");
}

using StartStopDeathTest = StartStop;

// Ends the process where no handler catches the exception.
void InitializeWithBrokenStringReference(std::uint32_t which) {
    ReportStructuredExceptions();
    dialsim_fail("WindowsCreateStringReference", kAccessDenied, which, 1);
    initialize();
    std::_Exit(EXIT_SUCCESS);
}

TEST_F(StartStopDeathTest, AProbeNameThatCannotBeMadeIsAStructuredException) {
    EXPECT_EXIT(InitializeWithBrokenStringReference(1), testing::ExitedWithCode(EXIT_FAILURE),
                "structured exception 80070005, flags 1, 0 arguments");
}

TEST_F(StartStopDeathTest, ATypeNameThatCannotBeMadeIsAStructuredException) {
    EXPECT_EXIT(InitializeWithBrokenStringReference(2), testing::ExitedWithCode(EXIT_FAILURE),
                "structured exception 80070005, flags 1, 0 arguments");
}

}  // namespace
