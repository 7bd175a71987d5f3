// The data of a rotation, and its failures. Acceleration is tested separately.
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "behaviour.h"
#include "support/edges.h"
#include "support/extreme_places.h"

namespace {

using Rotation = ListeningTest;

TEST_F(Rotation, ReachesTheHostWithTheControllerAndTheDegrees) {
    EXPECT_EQ(dialsim_turn(kWindow, -7.25), 0);
    ASSERT_EQ(host.rotations.size(), 1u);
    EXPECT_NE(host.senders[0], nullptr);
    EXPECT_EQ(host.LastRotation().deltaDegrees, -7.25);
}

TEST_F(Rotation, WithoutAContactHasAnEmptyRectangle) {
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().contact, (DialContactRect{0, 0, 0, 0}));
}

TEST_F(Rotation, WithoutAMenuHasNoTagAndAsksForNoItem) {
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().selectedItemTag, 0u);
    EXPECT_EQ(dialsim_calls("IRadialControllerMenu::GetSelectedMenuItem"), 0u);
}

TEST_F(Rotation, ReadsThePlatformInItsOwnOrder) {
    dialsim_touch(kWindow, 1, 2, 3, 4);
    dialsim_clear_journal();
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(Journal().substr(0, Journal().find("GetTickCount64")),
              "IRadialControllerRotationChangedEventArgs::get_Contact()\n"
              "IRadialControllerScreenContact::get_Position()\n"
              "IRadialControllerScreenContact::get_Bounds()\n"
              "QueryInterface(IRadialControllerRotationChangedEventArgs)\n"
              "IRadialControllerRotationChangedEventArgs::get_RotationDeltaInDegrees()\n"
              "QueryInterface(IRadialControllerRotationChangedEventArgs2)\n"
              "IRadialControllerRotationChangedEventArgs2::get_IsButtonPressed()\n");
}

TEST_F(Rotation, ReportsWhetherTheButtonIsDown) {
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_FALSE(host.LastRotation().buttonPressed);
    dialsim_hold(true);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_TRUE(host.LastRotation().buttonPressed);
    dialsim_hold(false);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_FALSE(host.LastRotation().buttonPressed);
}

class Degrees : public ListeningTest, public testing::WithParamInterface<double> {};

TEST_P(Degrees, ReachTheHostAsTheyAre) {
    EXPECT_EQ(dialsim_turn(kWindow, GetParam()), 0);
    const double received = host.LastRotation().deltaDegrees;
    EXPECT_EQ(std::signbit(received), std::signbit(GetParam()));
    EXPECT_TRUE(received == GetParam() || (std::isnan(received) && std::isnan(GetParam()))) << received;
    EXPECT_GE(host.LastRotation().acceleration, 1.0);
}

using Doubles = std::numeric_limits<double>;
INSTANTIATE_TEST_SUITE_P(AtTheEdges, Degrees,
                         testing::Values(0.0, -0.0, Doubles::denorm_min(), -Doubles::denorm_min(),
                                         Doubles::min(), Doubles::epsilon(), 4294967296.0, -4294967296.0,
                                         16777217.0, 1e300, -1e300, Doubles::max(), Doubles::lowest(),
                                         Doubles::infinity(), -Doubles::infinity(), Doubles::quiet_NaN()));

TEST_F(Rotation, FarEdgesAreSummedBeforeTheyAreTruncated) {
    dialsim_touch(kWindow, 10.7F, 100.9F, 20.6F, 0.9F);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().contact, (DialContactRect{10, 100, 31, 101}));
}

TEST_F(Rotation, CoordinatesAreTruncatedTowardZero) {
    dialsim_touch(kWindow, -10.7F, -0.9F, 5.5F, -3.5F);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().contact, (DialContactRect{-10, 0, -5, -4}));
}

// 16777217 is not a float: 16777216 + 1 is rounded to even before truncation.
TEST_F(Rotation, FarEdgesAreSummedInSinglePrecision) {
    dialsim_touch(kWindow, 16777216.0F, 16777216.0F, 1.0F, 3.0F);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().contact, (DialContactRect{16777216, 16777216, 16777216, 16777220}));
}

TEST_F(Rotation, CoordinatesBeyondTheRangeBecomeTheSmallestNumber) {
    dialsim_touch(kWindow, 2147483648.0F, std::numeric_limits<float>::infinity(), -2147483648.0F,
                  -std::numeric_limits<float>::infinity());
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().contact, (DialContactRect{INT32_MIN, INT32_MIN, 0, INT32_MIN}));
}

class PlaceOfATurn : public ListeningTest, public testing::WithParamInterface<ExtremePlace> {};

TEST_P(PlaceOfATurn, HasFarEdgesOfTheUncutNearOnes) {
    EXPECT_EQ(GetParam().Touch(kWindow), 0);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().contact, GetParam().of_a_turn);
}

INSTANTIATE_TEST_SUITE_P(Of, PlaceOfATurn, testing::ValuesIn(kExtremePlaces), kNameOfPlace);

TEST_F(Rotation, AContactThatFailsLeavesTheRectangleEmpty) {
    dialsim_touch(kWindow, 1, 2, 3, 4);
    dialsim_fail("IRadialControllerRotationChangedEventArgs::get_Contact", kFail, 1, 0);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().contact, (DialContactRect{0, 0, 0, 0}));
    EXPECT_EQ(dialsim_calls("IRadialControllerRotationChangedEventArgs::get_Contact"), 1u);
}

TEST_F(Rotation, APositionThatFailsIsIgnored) {
    dialsim_touch(kWindow, 1, 2, 3, 4);
    dialsim_fail("IRadialControllerScreenContact::get_Position", kFail, 1, 0);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().contact, (DialContactRect{1, 2, 4, 6}));
}

TEST_F(Rotation, BoundsThatFailLeaveTheRectangleEmpty) {
    dialsim_touch(kWindow, 1, 2, 3, 4);
    dialsim_fail_late("IRadialControllerScreenContact::get_Bounds", kFail, 1, 0);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    EXPECT_EQ(host.LastRotation().contact, (DialContactRect{0, 0, 0, 0}));
}

TEST_F(Rotation, ADeltaThatFailsIsZeroAndTheHostIsStillCalled) {
    dialsim_fail("IRadialControllerRotationChangedEventArgs::get_RotationDeltaInDegrees", kFail, 1, 0);
    EXPECT_EQ(dialsim_turn(kWindow, 30.0), 0);
    EXPECT_EQ(host.LastRotation().deltaDegrees, 0.0);
}

TEST_F(Rotation, RequiredDataThatFailsIsThrownOutOfTheHandler) {
    for (const char* operation : {"QueryInterface(IRadialControllerRotationChangedEventArgs)",
                                  "QueryInterface(IRadialControllerRotationChangedEventArgs2)",
                                  "IRadialControllerRotationChangedEventArgs2::get_IsButtonPressed"}) {
        dialsim_fail(operation, kDisconnected, 1, 1);
        EXPECT_EQ(dialsim_turn(kWindow, 1.0), DIALSIM_RAISED) << operation;
        EXPECT_EQ(Raised(), "platform error 80010108") << operation;
    }
    EXPECT_TRUE(host.rotations.empty());
}

TEST_F(Rotation, RequiredInterfacesThatAreYieldedAsNullAreRaisedAsMissing) {
    for (const char* operation : {"QueryInterface(IRadialControllerRotationChangedEventArgs)",
                                  "QueryInterface(IRadialControllerRotationChangedEventArgs2)"}) {
        dialsim_yield_null(operation, 1, 1);
        EXPECT_EQ(dialsim_turn(kWindow, 1.0), DIALSIM_RAISED) << operation;
        EXPECT_EQ(Raised(), "platform error 80004002") << operation;
    }
    EXPECT_TRUE(host.rotations.empty());
}

TEST_F(Rotation, ACodeThatMeansNoMemoryIsRaisedAsTheAllocationFailure) {
    dialsim_fail("IRadialControllerRotationChangedEventArgs2::get_IsButtonPressed", kOutOfMemory, 1, 1);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), DIALSIM_RAISED);
    EXPECT_EQ(Raised(), "std::bad_alloc");
    EXPECT_TRUE(host.rotations.empty());
}

TEST_F(Rotation, ATurnAfterARaisedErrorIsDeliveredAgain) {
    dialsim_fail("IRadialControllerRotationChangedEventArgs2::get_IsButtonPressed", kFail, 1, 1);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), DIALSIM_RAISED);
    EXPECT_EQ(dialsim_turn(kWindow, 2.0), 0);
    ASSERT_EQ(host.rotations.size(), 1u);
    EXPECT_EQ(host.LastRotation().deltaDegrees, 2.0);
}

TEST_F(Rotation, ReachesAnAgileHandlerOnAnyThread) {
    dialsim_raise_on_own_thread(true);
    EXPECT_EQ(dialsim_turn(kWindow, 3.0), 0);
    EXPECT_EQ(host.rotations.size(), 1u);
}

class Haptics : public ListeningTest {
protected:
    std::int32_t TurnAsking(std::uint32_t request) {
        request_ = request;
        host.haptic_request = &request_;
        return dialsim_turn(kWindow, 1.0);
    }
    static std::uint32_t Plays() {
        return dialsim_calls("ISimpleHapticsController::SendHapticFeedbackForPlayCount");
    }

    std::uint32_t request_ = 0;
};

TEST_F(Haptics, TheHostIsCalledWithNoRequest) {
    TurnAsking(1);
    TurnAsking(1);
    for (const DialRotationInfo& info : host.rotations) {
        EXPECT_EQ(info.hapticRequest, nullptr);
    }
}

TEST_F(Haptics, OneAndTwoPlayTheFirstWaveformThreeTimesAtFullIntensityWithAPauseOf200Ms) {
    const std::vector<std::uint16_t> waveforms = {4102, 4099};
    dialsim_set_haptics(true, waveforms.data(), 2);
    for (const std::uint32_t request : {1u, 2u}) {
        dialsim_clear_journal();
        EXPECT_EQ(TurnAsking(request), 0);
        EXPECT_EQ(
            dialsim_calls("ISimpleHapticsController::SendHapticFeedbackForPlayCount(4102, 1, 3, 2000000)"),
            1u);
    }
}

TEST_F(Haptics, TheFirstOfFiveThousandWaveformsIsPlayed) {
    for (const unsigned first : {0u, 1u, 0x7FFFu, 0x8000u, 0xFFFFu}) {
        std::vector<std::uint16_t> waveforms(kVeryMany, 4099);
        waveforms.front() = static_cast<std::uint16_t>(first);
        dialsim_set_haptics(true, waveforms.data(), kVeryMany);
        EXPECT_EQ(TurnAsking(1), 0);
        const std::string play = "ISimpleHapticsController::SendHapticFeedbackForPlayCount(" +
                                 std::to_string(first) + ", 1, 3, 2000000)";
        EXPECT_EQ(dialsim_calls(play.c_str()), 1u);
    }
}

TEST_F(Haptics, EveryOtherRequestPlaysNothing) {
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    for (const std::uint32_t request :
         {0u, 3u, 0x101u, 0x10001u, 0x80000000u, 0x80000001u, 0x80000002u, 0xFFFFFFFFu}) {
        EXPECT_EQ(TurnAsking(request), 0);
    }
    EXPECT_EQ(Plays(), 0u);
    EXPECT_EQ(dialsim_calls("IRadialControllerRotationChangedEventArgs2::get_SimpleHapticsController"), 0u);
}

TEST_F(Haptics, ADialWithoutAHapticsControllerPlaysNothing) {
    dialsim_set_haptics(false, nullptr, 0);
    EXPECT_EQ(TurnAsking(1), 0);
    EXPECT_EQ(Plays(), 0u);
}

TEST_F(Haptics, ADialThatListsNoWaveformPlaysNothing) {
    dialsim_set_haptics(true, nullptr, 0);
    EXPECT_EQ(TurnAsking(2), 0);
    EXPECT_EQ(dialsim_calls("IVectorView<SimpleHapticsControllerFeedback>::GetAt"), 0u);
    EXPECT_EQ(Plays(), 0u);
}

TEST_F(Haptics, AListThatIsYieldedAsNullPlaysNothing) {
    dialsim_yield_null("ISimpleHapticsController::get_SupportedFeedback", 1, 0);
    EXPECT_EQ(TurnAsking(1), 0);
    EXPECT_EQ(Plays(), 0u);
}

TEST_F(Haptics, EveryFailureIsThrownAfterTheHostWasCalled) {
    for (const char* operation : {"IRadialControllerRotationChangedEventArgs2::get_SimpleHapticsController",
                                  "ISimpleHapticsController::get_SupportedFeedback",
                                  "IVectorView<SimpleHapticsControllerFeedback>::get_Size",
                                  "IVectorView<SimpleHapticsControllerFeedback>::GetAt",
                                  "ISimpleHapticsController::SendHapticFeedbackForPlayCount"}) {
        host.rotations.clear();
        dialsim_fail(operation, kAccessDenied, 1, 1);
        EXPECT_EQ(TurnAsking(1), DIALSIM_RAISED) << operation;
        EXPECT_EQ(Raised(), "platform error 80070005") << operation;
        EXPECT_EQ(host.rotations.size(), 1u) << operation;
    }
}

// The arguments are queried once for the button and once for the haptics.
TEST_F(Haptics, ASecondQueryThatFailsIsThrownAfterTheHostWasCalled) {
    dialsim_fail("QueryInterface(IRadialControllerRotationChangedEventArgs2)", kNoInterface, 2, 1);
    EXPECT_EQ(TurnAsking(1), DIALSIM_RAISED);
    EXPECT_EQ(Raised(), "platform error 80004002");
    EXPECT_EQ(host.rotations.size(), 1u);
}

}  // namespace
