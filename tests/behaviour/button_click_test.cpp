#include <limits>

#include "behaviour.h"
#include "support/extreme_places.h"

namespace {

class ButtonClick : public ListeningTest {
protected:
    void TearDown() override {
        uninit();
        // The library leaks one reference for each contact of a click, by contract.
        EXPECT_EQ(dialsim_objects(kContacts), kept_contacts_);
        EXPECT_EQ(dialsim_references(kContacts), kept_contacts_);
        EXPECT_EQ(dialsim_objects(nullptr), kept_contacts_);
        dialsim_reset();
        ListeningTest::TearDown();
    }

    std::uint32_t kept_contacts_ = 0;
};

constexpr char kGetContact[] = "IRadialControllerButtonClickedEventArgs::get_Contact";

TEST_F(ButtonClick, ReachesTheHostWithTheControllerAndAnEmptyRectangle) {
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
    ASSERT_EQ(host.clicks.size(), 1u);
    EXPECT_EQ(host.LastClick(), (DialContactRect{0, 0, 0, 0}));
    EXPECT_NE(host.senders[0], nullptr);
    EXPECT_EQ(host.senders[0], host.senders[1]);
}

TEST_F(ButtonClick, FarEdgesStartFromTheTruncatedNearOnes) {
    dialsim_touch(kWindow, 10.7F, 100.9F, 20.6F, 0.9F);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(host.LastClick(), (DialContactRect{10, 100, 30, 100}));
    kept_contacts_ = 1;
}

TEST_F(ButtonClick, CoordinatesAreTruncatedTowardZero) {
    dialsim_touch(kWindow, -10.7F, -0.9F, 5.5F, -3.5F);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(host.LastClick(), (DialContactRect{-10, 0, -4, -3}));
    kept_contacts_ = 1;
}

TEST_F(ButtonClick, CoordinatesBeyondTheRangeBecomeTheSmallestNumber) {
    dialsim_touch(kWindow, 3e9F, std::numeric_limits<float>::quiet_NaN(), 1.0F, 1.0F);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(host.LastClick(), (DialContactRect{INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN}));
    kept_contacts_ = 1;
}

class PlaceOfAClick : public ButtonClick, public testing::WithParamInterface<ExtremePlace> {};

TEST_P(PlaceOfAClick, HasFarEdgesOfTheCutNearOnes) {
    EXPECT_EQ(GetParam().Touch(kWindow), 0);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(host.LastClick(), GetParam().of_a_click);
    kept_contacts_ = 1;
}

INSTANTIATE_TEST_SUITE_P(Of, PlaceOfAClick, testing::ValuesIn(kExtremePlaces), kNameOfPlace);

TEST_F(ButtonClick, EveryContactIsKept) {
    dialsim_touch(kWindow, 1, 2, 3, 4);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    kept_contacts_ = 3;
}

TEST_F(ButtonClick, BoundsThatFailLeaveTheRectangleEmpty) {
    dialsim_touch(kWindow, 1, 2, 3, 4);
    dialsim_fail("IRadialControllerScreenContact::get_Bounds", kFail, 1, 0);
    dialsim_clear_journal();
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(host.LastClick(), (DialContactRect{0, 0, 0, 0}));
    EXPECT_EQ(dialsim_calls("IRadialControllerScreenContact::get_Bounds"), 1u);
    kept_contacts_ = 1;
}

TEST_F(ButtonClick, AContactThatFailsIsReadThreeTimesAndTheHostIsNotCalled) {
    FailInTurn(kGetContact, {kFail, kAccessDenied, kDisconnected});
    EXPECT_EQ(dialsim_click(kWindow), kDisconnected);
    EXPECT_EQ(dialsim_calls(kGetContact), 3u);
    EXPECT_EQ(Printed(), "failed with 80070005 at line 1038\n");
    EXPECT_TRUE(host.clicks.empty());
}

TEST_F(ButtonClick, AContactThatFailsOnceEndsTheHandlerAllTheSame) {
    FailInTurn(kGetContact, {kFail, 0, 0});
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(dialsim_calls(kGetContact), 3u);
    EXPECT_EQ(Printed(), "failed with 0 at line 1038\n");
    EXPECT_TRUE(host.clicks.empty());
}

TEST_F(ButtonClick, ReachesAnAgileHandlerOnAnyThread) {
    dialsim_raise_on_own_thread(true);
    EXPECT_EQ(dialsim_click(kWindow), 0);
    EXPECT_EQ(host.clicks.size(), 1u);
}

}  // namespace
