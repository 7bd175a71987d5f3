// The length of the wait in milliseconds: natively only sleeps move the clock.
#include <brindle.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "support/recording_host.h"
#include "support/simulator_fixture.h"

namespace brindle {
namespace {

class PresenceWait : public testing::Test {
protected:
    void SetUp() override {
        dialsim_reset();
        ASSERT_EQ(initialize(), 0);
        ASSERT_TRUE(init_dial_listener(&host_));
    }
    void TearDown() override {
        uninit();
        EXPECT_EQ(LeakReport(), "");
        dialsim_reset();
    }

    // The dial is among the devices; the enumeration completes this long after the start of the wait.
    bool IsPresentAfter(std::uint32_t milliseconds) {
        dialsim_async_delay(milliseconds);
        return is_dial_present(kWindow);
    }
    static std::uint32_t Sleeps() { return dialsim_calls("Sleep(1)"); }

private:
    RecordingHost host_{kWindow};
};

TEST_F(PresenceWait, EndsWithTheSleepInWhichTheAnswerCame) {
    EXPECT_TRUE(IsPresentAfter(5));
    EXPECT_EQ(Sleeps(), 5u);
}

TEST_F(PresenceWait, ReadsTheFlagLastAfterTheTenThousandthSleep) {
    EXPECT_TRUE(IsPresentAfter(10'000));
    EXPECT_EQ(Sleeps(), 10'000u);
}

// The flag is not read again, but the result is.
TEST_F(PresenceWait, TakesAnAnswerThatCameDuringTheLastSleep) {
    EXPECT_TRUE(IsPresentAfter(10'001));
    EXPECT_EQ(Sleeps(), 10'001u);
}

TEST_F(PresenceWait, IsOverWhenTheAnswerComesAfterTheLastSleep) {
    EXPECT_FALSE(IsPresentAfter(10'002));
    EXPECT_EQ(Sleeps(), 10'001u);
    dialsim_wait(1);
    dialsim_wait_for_async();
    EXPECT_EQ(dialsim_completion_code(0), 0);
}

}  // namespace
}  // namespace brindle
