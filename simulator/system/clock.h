// Time, as far as the simulator may say what it is.
#pragma once

#include <cstdint>
#include <functional>

namespace dialsim {

std::uint64_t ClockNow();

// False on Windows, where the clock is the system's and stays as it is.
bool SetClock(std::uint64_t milliseconds);

// Lets time pass on the clock that the library reads; in real time also where the simulator owns that clock.
void Wait(std::uint32_t milliseconds, bool real_time);

// The platform's Sleep. Natively it is a Wait that takes no real time; on Windows it may be skipped.
void PlatformSleep(std::uint32_t milliseconds);
void SkipSleeps(bool skip);

// Runs the action on a thread of the simulator's, so many milliseconds from now. Where the simulator owns the
// clock, whoever moves it that far returns when the action has been run.
void RunAfter(std::uint32_t milliseconds, std::function<void()> action);

// Returns when every such action has been run; the simulator's own clock moves on as far as that takes.
void WaitForActions();

}  // namespace dialsim
