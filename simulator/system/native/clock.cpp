// The native build's clock advances only when it is set or waited on.
#include "simulator/system/clock.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <map>
#include <thread>

#include "simulator/system/threads.h"

namespace dialsim {

namespace {

// Starts at a plausible time since system start.
std::atomic<std::uint64_t> clock_ms = 500'000;

// Never destroyed: an action may run after main returns.
Threads& actions = *new Threads;

// The pending actions by due time.
Mutex scheduled_mutex;
std::multimap<std::uint64_t, std::function<void()>>& scheduled =
    *new std::multimap<std::uint64_t, std::function<void()>>;

void RunDueActions() {
    {
        const std::lock_guard guard(scheduled_mutex);
        const auto end = scheduled.upper_bound(clock_ms);
        std::for_each(scheduled.begin(), end, [](auto& entry) { actions.Start(std::move(entry.second)); });
        scheduled.erase(scheduled.begin(), end);
    }
    actions.WaitForAll();
}

// The due time of the next action; 0 when there is none.
std::uint64_t NextDueTime() {
    const std::lock_guard guard(scheduled_mutex);
    return scheduled.empty() ? 0 : scheduled.begin()->first;
}

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
    RunDueActions();
}

void PlatformSleep(std::uint32_t milliseconds) { Wait(milliseconds, false); }

void SkipSleeps(bool /*skip*/) {}

void RunAfter(std::uint32_t milliseconds, std::function<void()> action) {
    if (milliseconds == 0) {
        actions.Start(std::move(action));
        return;
    }
    const std::lock_guard guard(scheduled_mutex);
    scheduled.emplace(clock_ms + milliseconds, std::move(action));
}

void WaitForActions() {
    actions.WaitForAll();
    while (const std::uint64_t next = NextDueTime()) {
        clock_ms = std::max<std::uint64_t>(clock_ms, next);
        RunDueActions();
    }
}

}  // namespace dialsim
