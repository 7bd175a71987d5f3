// The native build's clock stands still until it is set or waited on.
#include "simulator/system/clock.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <map>
#include <thread>

#include "simulator/system/threads.h"

namespace dialsim {

namespace {

// A machine that has been up for some minutes.
std::atomic<std::uint64_t> clock_ms = 500'000;

// Never destroyed: an action may outlive main.
Threads& actions = *new Threads;

// Actions whose time has not come, by that time.
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

// Where the clock has to stand for the next action; 0 without one.
std::uint64_t NextTime() {
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
    while (const std::uint64_t next = NextTime()) {
        clock_ms = std::max<std::uint64_t>(clock_ms, next);
        RunDueActions();
    }
}

}  // namespace dialsim
