// The events that do not reach the host.
#include <string>

#include "behaviour.h"
#include "support/extreme_places.h"

namespace {

struct ContactEvent {
    const char* name;
    int line;
    std::int32_t (*raise)();
    const char* get_contact;
};

void PrintTo(const ContactEvent& event, std::ostream* stream) { *stream << event.name; }

class ContactEvents : public ListeningTest, public testing::WithParamInterface<ContactEvent> {
protected:
    void SetUp() override {
        ListeningTest::SetUp();
        // The dial is already on the screen when control is acquired.
        dialsim_touch(kWindow, 10, 20, 30, 40);
        dialsim_clear_journal();
    }
    static std::int32_t Raise() { return GetParam().raise(); }
    static std::string Line(const char* code, int line) {
        return "failed with " + std::string(code) + " at line " + std::to_string(line) + "\n";
    }
    static std::string OuterLine(const char* code) { return Line(code, GetParam().line); }
};

TEST_P(ContactEvents, ReadTheContactOnceAndDoNotReachTheHost) {
    EXPECT_EQ(Raise(), 0);
    EXPECT_EQ(Journal(), std::string(GetParam().get_contact) +
                             "()\n"
                             "IRadialControllerScreenContact::get_Position()\n"
                             "IRadialControllerScreenContact::get_Bounds()\n");
    EXPECT_TRUE(host.rotations.empty());
    EXPECT_TRUE(host.clicks.empty());
}

TEST_P(ContactEvents, WithoutAContactReadNothingMore) {
    dialsim_yield_null(GetParam().get_contact, 1, 0);
    EXPECT_EQ(Raise(), 0);
    EXPECT_EQ(dialsim_calls("IRadialControllerScreenContact::get_Position"), 0u);
    EXPECT_EQ(dialsim_calls("IRadialControllerScreenContact::get_Bounds"), 0u);
}

TEST_P(ContactEvents, BoundsThatAlwaysFailAreReadNineTimes) {
    dialsim_fail("IRadialControllerScreenContact::get_Bounds", kFail, 1, 0);
    EXPECT_EQ(Raise(), kFail);
    EXPECT_EQ(dialsim_calls("IRadialControllerScreenContact::get_Bounds"), 9u);
    EXPECT_EQ(Printed(), Line("80004005", 1073) + Line("80004005", 1073) + OuterLine("80004005") +
                             Line("80004005", 1073));
}

TEST_P(ContactEvents, APositionThatAlwaysFailsIsReadNineTimes) {
    dialsim_fail("IRadialControllerScreenContact::get_Position", kAccessDenied, 1, 0);
    EXPECT_EQ(Raise(), kAccessDenied);
    EXPECT_EQ(dialsim_calls("IRadialControllerScreenContact::get_Position"), 9u);
    EXPECT_EQ(dialsim_calls("IRadialControllerScreenContact::get_Bounds"), 0u);
    EXPECT_EQ(Printed(), Line("80070005", 1072) + Line("80070005", 1072) + OuterLine("80070005") +
                             Line("80070005", 1072));
}

TEST_P(ContactEvents, AContactThatAlwaysFailsIsReadNineTimes) {
    dialsim_fail(GetParam().get_contact, kDisconnected, 1, 0);
    EXPECT_EQ(Raise(), kDisconnected);
    EXPECT_EQ(dialsim_calls(GetParam().get_contact), 9u);
    EXPECT_EQ(Printed(), Line("80010108", 1065) + Line("80010108", 1065) + OuterLine("80010108") +
                             Line("80010108", 1065));
}

TEST_P(ContactEvents, AFailureThatPassesWithTheThirdReadEndsTheLogAsASuccess) {
    FailInTurn("IRadialControllerScreenContact::get_Bounds", {kFail, kAccessDenied, 0});
    EXPECT_EQ(Raise(), 0);
    EXPECT_EQ(dialsim_calls("IRadialControllerScreenContact::get_Bounds"), 3u);
    EXPECT_EQ(Printed(), Line("80070005", 1073));
}

// The first log fails, the second succeeds, the third decides.
TEST_P(ContactEvents, ASecondLogThatWorksIsPrintedAsZero) {
    dialsim_fail("IRadialControllerScreenContact::get_Bounds", kFail, 1, 3);
    EXPECT_EQ(Raise(), 0);
    EXPECT_EQ(dialsim_calls("IRadialControllerScreenContact::get_Bounds"), 5u);
    EXPECT_EQ(Printed(), Line("80004005", 1073) + OuterLine("0"));
}

TEST_P(ContactEvents, CodesThatMeanNoMemoryAreCodesHere) {
    dialsim_fail("IRadialControllerScreenContact::get_Bounds", kOutOfMemory, 1, 0);
    EXPECT_EQ(Raise(), kOutOfMemory);
    Printed();
}

TEST_P(ContactEvents, ReachAnAgileHandlerOnAnyThread) {
    dialsim_raise_on_own_thread(true);
    EXPECT_EQ(Raise(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    All, ContactEvents,
    testing::Values(ContactEvent{"ScreenContactContinued", 803,
                                 [] { return dialsim_move(kWindow, 11, 21, 30, 40); },
                                 "IRadialControllerScreenContactContinuedEventArgs::get_Contact"},
                    ContactEvent{"ScreenContactStarted", 810,
                                 [] { return dialsim_touch(kWindow, 12, 22, 30, 40); },
                                 "IRadialControllerScreenContactStartedEventArgs::get_Contact"},
                    ContactEvent{"ControlAcquired", 835, [] { return dialsim_acquire(kWindow); },
                                 "IRadialControllerControlAcquiredEventArgs::get_Contact"}),
    [](const auto& event_info) { return event_info.param.name; });

class PlaceOfAContact : public ListeningTest, public testing::WithParamInterface<ExtremePlace> {};

TEST_P(PlaceOfAContact, IsNoFailureOfAnyEvent) {
    EXPECT_EQ(GetParam().Touch(kWindow), 0);
    EXPECT_EQ(dialsim_acquire(kWindow), 0);
    EXPECT_EQ(GetParam().Move(kWindow), 0);
    EXPECT_EQ(dialsim_lift(kWindow), 0);
    EXPECT_EQ(dialsim_calls("IRadialControllerScreenContact::get_Bounds"), 3u);
}

INSTANTIATE_TEST_SUITE_P(Of, PlaceOfAContact, testing::ValuesIn(kExtremePlaces), kNameOfPlace);

using IgnoredEvents = ListeningTest;

TEST_F(IgnoredEvents, CallNeitherThePlatformNorTheHost) {
    dialsim_touch(kWindow, 10, 20, 30, 40);
    dialsim_clear_journal();
    const std::size_t asked = host.window_queries;
    EXPECT_EQ(dialsim_lift(kWindow), 0);
    EXPECT_EQ(dialsim_lose(kWindow), 0);
    EXPECT_EQ(Journal(), "");
    EXPECT_TRUE(host.rotations.empty());
    EXPECT_TRUE(host.clicks.empty());
    EXPECT_EQ(host.window_queries, asked);
}

TEST_F(IgnoredEvents, AcquiringControlWithoutAContactIsNoFailure) {
    EXPECT_EQ(dialsim_acquire(kWindow), 0);
    EXPECT_EQ(Journal(), "IRadialControllerControlAcquiredEventArgs::get_Contact()\n");
}

}  // namespace
