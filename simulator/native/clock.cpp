// The native build's clock stands still until it is set or waited on.
#include "simulator/clock.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace dialsim {

namespace {

// A machine that has been up for some minutes.
std::atomic<std::uint64_t> clock_ms = 500'000;

}  // namespace

std::uint64_t ClockNow() { return clock_ms; }

bool SetClock(std::uint64_t milliseconds) {
    clock_ms = milliseconds;
    return true;
}

void Wait(std::uint32_t milliseconds, bool real_time) {
    if (real_time) {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
    clock_ms += milliseconds;
}

}  // namespace dialsim
