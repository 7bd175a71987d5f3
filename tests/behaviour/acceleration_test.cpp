// Acceleration of fast turns. The clock may be the system's here, which ticks every 16 ms at most: a scenario
// whose gaps miss their ranges is repeated. Tests with a simulated clock check the exact limits.
#include <cmath>
#include <cstdlib>
#include <limits>
#include <vector>

#include "behaviour.h"

namespace {

constexpr std::uint32_t kStepMs = 77;    // between a recomputation (50) and a pause (100), with margins
constexpr std::uint32_t kPauseMs = 160;  // a pause, with a margin

double FactorFor(double degrees) { return std::sqrt(std::fabs(degrees) - 10.0) / 2.07 + 1.0; }

class Acceleration : public ListeningTest {
protected:
    // Starts a new sum with a turn of 0 degrees.
    void Settle() {
        dialsim_wait(kPauseMs);
        dialsim_turn(kWindow, 0.0);
        last_turn_ = dialsim_now();
        clean_ = true;
    }
    // A turn after `wait_ms`, which must leave a gap between `least_ms` and `most_ms` since the last one.
    double TurnAfter(std::uint32_t wait_ms, double degrees, std::uint64_t least_ms, std::uint64_t most_ms,
                     std::uint64_t window = kWindow) {
        dialsim_wait(wait_ms);
        const std::uint64_t before = dialsim_now();
        dialsim_turn(window, degrees);
        const std::uint64_t after = dialsim_now();
        // The turn reads the clock between `before` and `after`.
        clean_ =
            clean_ && before - last_turn_ >= least_ms && after - last_turn_ <= most_ms && before == after;
        last_turn_ = after;
        return host.rotations.empty() ? 0.0 : host.LastRotation().acceleration;
    }
    double Step(double degrees) { return TurnAfter(kStepMs, degrees, 50, 100); }
    double Pause(double degrees) { return TurnAfter(kPauseMs, degrees, 101, 1000); }

    // Repeats the scenario until its gaps are in range; the expectations apply to that run.
    template <class Scenario>
    void Play(Scenario scenario) {
        for (int attempt = 0; attempt < 50; ++attempt) {
            Settle();
            const auto check = scenario();
            if (clean_) {
                check();
                return;
            }
        }
        FAIL() << "the gaps were never in range";
    }

    std::uint64_t last_turn_ = 0;
    bool clean_ = true;
};

TEST_F(Acceleration, TheFirstTenDegreesOfAMovementAddNothing) {
    Play([&] {
        const double five = Step(5.0);
        const double ten = Step(5.0);
        return [=] {
            EXPECT_EQ(five, 1.0);
            EXPECT_EQ(ten, 1.0);
        };
    });
}

TEST_F(Acceleration, DegreesBeyondTenInOneMovementRaiseTheFactor) {
    Play([&] {
        std::vector<double> factors;
        for (int i = 0; i < 6; ++i) {
            factors.push_back(Step(5.0));
        }
        return [=] {
            EXPECT_DOUBLE_EQ(factors[2], FactorFor(15.0));
            EXPECT_DOUBLE_EQ(factors[3], FactorFor(20.0));
            EXPECT_DOUBLE_EQ(factors[4], FactorFor(25.0));
            EXPECT_DOUBLE_EQ(factors[5], FactorFor(30.0));
        };
    });
}

TEST_F(Acceleration, ARotationAfterAPauseRestartsTheSum) {
    Play([&] {
        Step(40.0);
        const double small = Pause(5.0);
        Step(40.0);
        const double large = Pause(25.0);
        return [=] {
            EXPECT_EQ(small, 1.0);
            EXPECT_DOUBLE_EQ(large, FactorFor(25.0));
        };
    });
}

TEST_F(Acceleration, TurningBackAcceleratesAsTurningForth) {
    Play([&] {
        Step(-15.0);
        const double factor = Step(-15.0);
        return [=] { EXPECT_DOUBLE_EQ(factor, FactorFor(30.0)); };
    });
}

TEST_F(Acceleration, TurningBackTakesFromTheSum) {
    Play([&] {
        Step(40.0);
        const double factor = Step(-25.0);
        return [=] { EXPECT_DOUBLE_EQ(factor, FactorFor(15.0)); };
    });
}

TEST_F(Acceleration, TurnsInQuickSuccessionKeepTheLastFactorAndStillCount) {
    Play([&] {
        const double first = Step(20.0);
        const double quick = TurnAfter(0, 20.0, 0, 0);
        // Measured from the last recomputation, one step earlier.
        const double later = TurnAfter(kStepMs, 20.0, 50, 100);
        return [=] {
            EXPECT_DOUBLE_EQ(first, FactorFor(20.0));
            EXPECT_DOUBLE_EQ(quick, FactorFor(20.0));
            EXPECT_DOUBLE_EQ(later, FactorFor(60.0));
        };
    });
}

TEST_F(Acceleration, TheFactorIsDueAgainAfterItsLastRecomputationNotAfterTheLastTurn) {
    Play([&] {
        Step(20.0);
        const std::uint64_t recomputed = last_turn_;
        TurnAfter(32, 20.0, 1, 49);
        const double factor = TurnAfter(32, 20.0, 1, 49);
        clean_ = clean_ && last_turn_ - recomputed >= 50;
        return [=] { EXPECT_DOUBLE_EQ(factor, FactorFor(60.0)); };
    });
}

TEST_F(Acceleration, ADeltaThatFailsAddsNothing) {
    Play([&] {
        Step(20.0);
        dialsim_fail("IRadialControllerRotationChangedEventArgs::get_RotationDeltaInDegrees", kFail, 1, 1);
        const double factor = Step(100.0);
        return [=] { EXPECT_DOUBLE_EQ(factor, FactorFor(20.0)); };
    });
}

TEST_F(Acceleration, ATurnWhoseRequiredDataFailsIsNotCounted) {
    Play([&] {
        Step(20.0);
        dialsim_fail("IRadialControllerRotationChangedEventArgs2::get_IsButtonPressed", kFail, 1, 1);
        TurnAfter(0, 100.0, 0, 0);
        const double factor = Step(20.0);
        return [=] { EXPECT_DOUBLE_EQ(factor, FactorFor(40.0)); };
    });
}

TEST_F(Acceleration, VeryLargeDegreesAreSummedLikeAnyOthers) {
    Play([&] {
        const double large = Step(1e300);
        const double back = Step(-1e300);
        return [=] {
            EXPECT_DOUBLE_EQ(large, FactorFor(1e300));
            EXPECT_EQ(back, 1.0);
        };
    });
}

TEST_F(Acceleration, DegreesTooSmallForTheSumAddNothing) {
    Play([&] {
        Step(20.0);
        const double factor = Step(std::numeric_limits<double>::denorm_min());
        return [=] { EXPECT_DOUBLE_EQ(factor, FactorFor(20.0)); };
    });
}

TEST_F(Acceleration, ASumBeyondTheLargestNumberIsInfiniteUntilAPause) {
    Play([&] {
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        Step(std::numeric_limits<double>::max());
        const double overflown = Step(std::numeric_limits<double>::max());
        const double forth = Step(-20.0);
        const double back = Step(-kInfinity);
        const double after = Step(20.0);
        const double paused = Pause(20.0);
        return [=] {
            EXPECT_EQ(overflown, kInfinity);
            EXPECT_EQ(forth, kInfinity);
            EXPECT_EQ(back, 1.0) << "the sum is NaN";
            EXPECT_EQ(after, 1.0);
            EXPECT_DOUBLE_EQ(paused, FactorFor(20.0));
        };
    });
}

TEST_F(Acceleration, DegreesThatAreNoNumberHaveNoAccelerationUntilAPause) {
    Play([&] {
        Step(40.0);
        const double none = Step(std::numeric_limits<double>::quiet_NaN());
        const double after = Step(40.0);
        const double paused = Pause(20.0);
        return [=] {
            EXPECT_EQ(none, 1.0);
            EXPECT_EQ(after, 1.0);
            EXPECT_DOUBLE_EQ(paused, FactorFor(20.0));
        };
    });
}

TEST_F(Acceleration, TwoWindowsFeedOneHistory) {
    RecordingHost other(kWindow + 1);
    ASSERT_TRUE(init_dial_listener(&other));
    Play([&] {
        Step(20.0);
        TurnAfter(kStepMs, 20.0, 50, 100, kWindow + 1);
        const double factor = other.LastRotation().acceleration;
        return [=] { EXPECT_DOUBLE_EQ(factor, FactorFor(40.0)); };
    });
}

TEST_F(Acceleration, StoppingTheLibraryDoesNotResetTheHistory) {
    Play([&] {
        Step(20.0);
        uninit();
        initialize();
        init_dial_listener(&host);
        const double factor = Step(20.0);
        return [=] { EXPECT_DOUBLE_EQ(factor, FactorFor(40.0)); };
    });
}

using AccelerationDeathTest = Acceleration;

// Runs in its own process: the history begins with the first turn that reads the clock, not when the library
// is loaded.
void TurnForTheFirstTime() {
    dialsim_reset();
    initialize();
    RecordingHost host(kWindow);
    init_dial_listener(&host);
    dialsim_wait(kPauseMs);
    dialsim_turn(kWindow, 500.0);
    std::_Exit(host.LastRotation().acceleration == 1.0 ? EXIT_SUCCESS : EXIT_FAILURE);
}

TEST_F(AccelerationDeathTest, TheFirstTurnEverIsNotAccelerated) {
    EXPECT_EXIT(TurnForTheFirstTime(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

}  // namespace
