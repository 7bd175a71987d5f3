// Time, as far as the simulator may say what it is.
#pragma once

#include <cstdint>

namespace dialsim {

std::uint64_t ClockNow();

// False on Windows, where the clock is the system's and stays as it is.
bool SetClock(std::uint64_t milliseconds);

// Lets time pass on the clock that the library reads; in real time also where the simulator owns that clock.
void Wait(std::uint32_t milliseconds, bool real_time);

}  // namespace dialsim
