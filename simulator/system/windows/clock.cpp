#include "simulator/system/clock.h"

#include <windows.h>

#include <atomic>

#include "simulator/system/reset.h"
#include "simulator/system/threads.h"

namespace dialsim {

namespace {

// Never destroyed: an action may run after main returns.
Threads& actions = *new Threads;

std::atomic<bool> skip_sleeps = false;

const ResetAction reset_sleeps(ResetPhase::State, [] { skip_sleeps = false; });

}  // namespace

std::uint64_t ClockNow() { return GetTickCount64(); }

bool SetClock(std::uint64_t /*milliseconds*/) { return false; }

void Wait(std::uint32_t milliseconds, bool /*real_time*/) { Sleep(milliseconds); }

void PlatformSleep(std::uint32_t milliseconds) {
    if (!skip_sleeps) {
        Sleep(milliseconds);
    }
}

void SkipSleeps(bool skip) { skip_sleeps = skip; }

void RunAfter(std::uint32_t milliseconds, std::function<void()> action) {
    actions.Start([milliseconds, action = std::move(action)] {
        Sleep(milliseconds);
        action();
    });
}

void WaitForActions() { actions.WaitForAll(); }

}  // namespace dialsim
