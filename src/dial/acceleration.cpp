#include "dial/acceleration.h"

#include <atomic>
#include <cmath>
#include <cstdint>

#include "platform/functions.h"

namespace brindle {

namespace {

constexpr std::uint32_t kPauseMs = 100;
constexpr std::uint32_t kRecomputeMs = 50;
constexpr double kFreeDegrees = 10.0;
constexpr double kFlatness = 2.07;

double accumulated = 0.0;
double currentAcceleration = 1.0;

// The tick count of the last computation. The first rotation sets it, not the loading of the library, so that
// the first rotation computes nothing (FirstRotationDeathTest.StartsTheClockWithASecondRead). A separate flag
// marks it as set: every tick count is valid.
std::atomic<std::uint64_t> lastTick = 0;
std::atomic<bool> started = false;

// Another thread, or an event that arrives inside GetTickCount64, may start it too: the first value stays
// (FirstRotationDeathTest.MayContainAnotherOneInItsClockRead).
void StartClock() {
    std::uint64_t unset = 0;
    lastTick.compare_exchange_strong(unset, GetTickCount64());
    started = true;
}

double FactorFor(double degrees) {
    double beyond = std::fabs(degrees) - kFreeDegrees;
    if (!(beyond > 0.0)) {
        beyond = 0.0;
    }
    return std::sqrt(beyond) / kFlatness + 1.0;
}

}  // namespace

double NextAcceleration(double delta_degrees) {
    if (!started) {
        StartClock();
    }
    const std::uint64_t now = GetTickCount64();
    // Only the low 32 bits are compared: the difference is correct across their wrap every 49.7 days
    // (Acceleration.OnlyTheLowHalfOfTheTimeCounts).
    const std::uint32_t elapsed_ms =
        static_cast<std::uint32_t>(now) - static_cast<std::uint32_t>(lastTick.load());

    accumulated = (elapsed_ms <= kPauseMs ? accumulated : 0.0) + delta_degrees;
    if (elapsed_ms >= kRecomputeMs) {
        currentAcceleration = FactorFor(accumulated);
        lastTick = now;
    }
    return currentAcceleration;
}

}  // namespace brindle
