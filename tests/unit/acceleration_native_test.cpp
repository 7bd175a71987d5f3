#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "dial/acceleration.h"
#include "simulator/dialsim.h"
#include "support/inside_call.h"

namespace brindle {
namespace {

constexpr std::uint64_t kWrap = std::uint64_t{1} << 32;

// The factor for the sum of degrees above the first ten, which do not accelerate.
double FactorFor(double beyond_ten) { return std::sqrt(beyond_ten) / 2.07 + 1.0; }

// Every test begins at `start` with an empty sum, immediately after an update of the factor.
class Acceleration : public testing::Test {
protected:
    void SetUp() override { StartAt(1'000'000); }
    void TearDown() override { dialsim_reset(); }

    // After any history, the first turn's last update is at most 49 ms old; the second turn follows a pause.
    void StartAt(std::uint64_t start) {
        start_ = start;
        dialsim_set_clock(start - 1000);
        NextAcceleration(0.0);
        dialsim_set_clock(start);
        NextAcceleration(0.0);
    }
    double TurnAt(std::uint64_t ms_after_start, double degrees) {
        dialsim_set_clock(start_ + ms_after_start);
        return NextAcceleration(degrees);
    }

private:
    std::uint64_t start_ = 0;
};

TEST_F(Acceleration, TheFactorStaysForFortyNineMilliseconds) { EXPECT_EQ(TurnAt(49, 100.0), 1.0); }

TEST_F(Acceleration, TheFactorIsRecomputedAfterFiftyMilliseconds) {
    EXPECT_DOUBLE_EQ(TurnAt(50, 100.0), FactorFor(90.0));
}

TEST_F(Acceleration, ATurnBetweenUpdatesCountsAtTheNextOne) {
    EXPECT_EQ(TurnAt(30, 40.0), 1.0);
    EXPECT_DOUBLE_EQ(TurnAt(60, 7.0), FactorFor(37.0));
}

TEST_F(Acceleration, TheFactorStaysUntilTheNextUpdate) {
    const double factor = TurnAt(60, 110.0);
    EXPECT_EQ(TurnAt(60 + 49, 500.0), factor);
    EXPECT_DOUBLE_EQ(TurnAt(60 + 50, 0.0), FactorFor(600.0));
}

TEST_F(Acceleration, TheFirstTenDegreesOfAMovementAreFree) {
    EXPECT_EQ(TurnAt(50, 10.0), 1.0);
    EXPECT_DOUBLE_EQ(TurnAt(100, 4.0), FactorFor(4.0));
}

TEST_F(Acceleration, TurnsSixtyMillisecondsApartAddUp) {
    for (int turn = 1; turn <= 20; ++turn) {
        const double beyond_ten = turn <= 2 ? 0.0 : 5.0 * turn - 10.0;
        EXPECT_DOUBLE_EQ(TurnAt(static_cast<std::uint64_t>(60 * turn), 5.0), FactorFor(beyond_ten)) << turn;
    }
}

TEST_F(Acceleration, AHundredMillisecondsAreNoPause) {
    TurnAt(50, 20.0);
    EXPECT_DOUBLE_EQ(TurnAt(50 + 100, 30.0), FactorFor(40.0));
}

TEST_F(Acceleration, ARotationAfterAPauseRestartsTheSum) {
    TurnAt(50, 20.0);
    EXPECT_DOUBLE_EQ(TurnAt(50 + 101, 30.0), FactorFor(20.0));
    EXPECT_DOUBLE_EQ(TurnAt(50 + 101 + 60, 30.0), FactorFor(50.0));
}

TEST_F(Acceleration, ASmallRotationAfterAPauseHasNoAcceleration) {
    TurnAt(50, 200.0);
    EXPECT_EQ(TurnAt(50 + 150, 10.0), 1.0);
}

TEST_F(Acceleration, ThePauseIsMeasuredFromTheLastUpdate) {
    TurnAt(49, 300.0);
    EXPECT_DOUBLE_EQ(TurnAt(101, 30.0), FactorFor(20.0));
}

TEST_F(Acceleration, TurningBackIsAsFast) {
    EXPECT_DOUBLE_EQ(TurnAt(50, -30.0), FactorFor(20.0));
    EXPECT_DOUBLE_EQ(TurnAt(100, -5.0), FactorFor(25.0));
}

TEST_F(Acceleration, TurningBackTakesAway) {
    TurnAt(50, 30.0);
    EXPECT_DOUBLE_EQ(TurnAt(100, -10.0), FactorFor(10.0));
    EXPECT_EQ(TurnAt(150, -25.0), 1.0);
    EXPECT_DOUBLE_EQ(TurnAt(200, -20.0), FactorFor(15.0));
}

TEST_F(Acceleration, WhatIsNoNumberHasNoAccelerationUntilAPause) {
    TurnAt(50, 100.0);
    EXPECT_EQ(TurnAt(100, std::numeric_limits<double>::quiet_NaN()), 1.0);
    EXPECT_EQ(TurnAt(150, 100.0), 1.0);
    EXPECT_DOUBLE_EQ(TurnAt(150 + 101, 30.0), FactorFor(20.0));
}

TEST_F(Acceleration, TimeGoesOnAcrossTheEndOfItsLowHalf) {
    StartAt(kWrap - 10);
    EXPECT_EQ(TurnAt(49, 20.0), 1.0);
    EXPECT_DOUBLE_EQ(TurnAt(50, 20.0), FactorFor(30.0));
    StartAt(2 * kWrap - 10);
    TurnAt(60, 20.0);
    EXPECT_DOUBLE_EQ(TurnAt(160, 20.0), FactorFor(30.0));
}

TEST_F(Acceleration, APauseAcrossTheEndOfTheLowHalfIsAPause) {
    StartAt(kWrap - 60);
    TurnAt(50, 200.0);
    EXPECT_DOUBLE_EQ(TurnAt(151, 30.0), FactorFor(20.0));
}

TEST_F(Acceleration, OnlyTheLowHalfOfTheTimeCounts) {
    TurnAt(50, 20.0);
    EXPECT_DOUBLE_EQ(TurnAt(50 + kWrap, 20.0), FactorFor(10.0));
    EXPECT_DOUBLE_EQ(TurnAt(50 + kWrap + 60, 20.0), FactorFor(50.0));
    EXPECT_DOUBLE_EQ(TurnAt(50 + 5 * kWrap + 120, 20.0), FactorFor(70.0));
}

TEST_F(Acceleration, TimeThatRunsBackwardsIsAPause) {
    TurnAt(50, 200.0);
    EXPECT_DOUBLE_EQ(TurnAt(49, 30.0), FactorFor(20.0));
}

// Gaps that are short in their low bits only.
TEST_F(Acceleration, ALongPauseIsAPauseWhateverItsLowBits) {
    for (const std::uint64_t gap :
         {std::uint64_t{0x8000}, std::uint64_t{0x10000}, std::uint64_t{0x80000000}}) {
        for (const std::uint64_t more : {std::uint64_t{10}, std::uint64_t{60}}) {
            StartAt(3 * kWrap);
            TurnAt(50, 200.0);
            EXPECT_DOUBLE_EQ(TurnAt(50 + gap + more, 30.0), FactorFor(20.0)) << gap + more;
            EXPECT_DOUBLE_EQ(TurnAt(50 + gap + more + 60, 30.0), FactorFor(50.0)) << gap + more;
        }
    }
}

TEST_F(Acceleration, TheClockIsReadOnce) {
    dialsim_clear_journal();
    TurnAt(60, 1.0);
    EXPECT_EQ(dialsim_calls("GetTickCount64"), 1u);
}

// The rule, implemented independently.
class Model {
public:
    explicit Model(std::uint64_t start) : updated_(start) {}

    double Turn(std::uint64_t now, double degrees) {
        const std::uint64_t elapsed = (now - updated_) % kWrap;
        if (elapsed > 100) {
            sum_ = 0.0;
        }
        sum_ += degrees;
        if (elapsed >= 50) {
            updated_ = now;
            const double beyond = std::abs(sum_) - 10.0;
            factor_ = beyond > 0.0 ? FactorFor(beyond) : 1.0;
        }
        return factor_;
    }

private:
    std::uint64_t updated_;
    double sum_ = 0.0;
    double factor_ = 1.0;
};

TEST_F(Acceleration, ALongHistoryFollowsTheRule) {
    std::mt19937 random(2);  // reproducible
    std::uint64_t now = kWrap - 20'000;
    StartAt(now);
    Model model(now);
    for (int turn = 0; turn < 2000; ++turn) {
        now += random() % 120;
        const double degrees = static_cast<double>(random() % 400) / 10.0 - 15.0;
        dialsim_set_clock(now);
        ASSERT_EQ(NextAcceleration(degrees), model.Turn(now, degrees)) << "turn " << turn;
    }
}

// Each of these tests runs in a new process without an earlier turn.

void PrintTurn(std::uint64_t now, double degrees) {
    dialsim_set_clock(now);
    dialsim_clear_journal();
    const double factor = NextAcceleration(degrees);
    std::fprintf(stderr, "%.3f after %u clock reads;", factor, dialsim_calls("GetTickCount64"));
}

TEST(FirstRotationDeathTest, StartsTheClockWithASecondRead) {
    EXPECT_EXIT((PrintTurn(700'000, 500.0), std::_Exit(0)), testing::ExitedWithCode(0),
                "1.000 after 2 clock reads;");
}

TEST(FirstRotationDeathTest, IsPartOfTheSum) {
    EXPECT_EXIT((PrintTurn(700'000, 100.0), PrintTurn(700'050, 10.0), std::_Exit(0)),
                testing::ExitedWithCode(0), "5.831 after 1 clock reads;");
}

TEST(FirstRotationDeathTest, StartsThePauseToo) {
    EXPECT_EXIT((PrintTurn(700'000, 500.0), PrintTurn(700'101, 20.0), std::_Exit(0)),
                testing::ExitedWithCode(0), "2.528 after 1 clock reads;");
}

TEST(FirstRotationDeathTest, AloneReadsTheClockTwice) {
    EXPECT_EXIT((PrintTurn(700'000, 1.0), PrintTurn(700'000, 1.0), std::_Exit(0)), testing::ExitedWithCode(0),
                "1.000 after 2 clock reads;1.000 after 1 clock reads;");
}

TEST(FirstRotationDeathTest, MayComeAtTheClocksLastMoment) {
    constexpr std::uint64_t kLast = UINT64_MAX;
    EXPECT_EXIT((PrintTurn(kLast, 1.0), PrintTurn(kLast, 1.0), std::_Exit(0)), testing::ExitedWithCode(0),
                "1.000 after 2 clock reads;1.000 after 1 clock reads;");
}

// The inner rotation is the first; the outer one finds the clock started.
TEST(FirstRotationDeathTest, MayContainAnotherOneInItsClockRead) {
    const auto turn_inside = [] {
        const InsideCall turn("GetTickCount64", [] { PrintTurn(700'000, 500.0); });
        PrintTurn(700'000, 500.0);
    };
    EXPECT_EXIT((turn_inside(), std::_Exit(0)), testing::ExitedWithCode(0),
                "1.000 after 2 clock reads;1.000 after");
}

}  // namespace
}  // namespace brindle
