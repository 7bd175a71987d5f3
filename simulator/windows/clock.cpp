#include "simulator/clock.h"

#include <windows.h>

namespace dialsim {

std::uint64_t ClockNow() { return GetTickCount64(); }

bool SetClock(std::uint64_t /*milliseconds*/) { return false; }

void Wait(std::uint32_t milliseconds, bool /*real_time*/) { Sleep(milliseconds); }

}  // namespace dialsim
