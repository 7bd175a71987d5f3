// The clock and delayed actions.
#pragma once

#include <cstdint>
#include <functional>

namespace dialsim {

std::uint64_t ClockNow();

// False on Windows, where the clock is the system's and is unchanged.
bool SetClock(std::uint64_t milliseconds);

// Advances the clock that the library reads; with `real_time` the native build also waits that long.
void Wait(std::uint32_t milliseconds, bool real_time);

// The platform's Sleep. Natively it advances the clock at once; on Windows it may be skipped.
void PlatformSleep(std::uint32_t milliseconds);
void SkipSleeps(bool skip);

// Runs the action on a new thread after this time. Natively, the call that advances the clock that far
// returns when the action has ended.
void RunAfter(std::uint32_t milliseconds, std::function<void()> action);

// Returns when every such action has ended; natively advances the clock as far as necessary.
void WaitForActions();

}  // namespace dialsim
