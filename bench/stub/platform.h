// The stub platform, in place of the simulator: static objects where possible, no journal, no locks, no
// atomic counts. Library and baseline share its cost. What no workload uses returns E_NOTIMPL.
//
// Built twice: stub_platform for the measurements, recording_platform to compare the calls of both sides.
// Used on one thread; only a delayed enumeration completes on another thread, while its caller waits.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace stub {

// The arguments of the next event.
struct Event {
    bool contact = false;
};

// Raise an event of the newest controller. The clock has advanced by 50 ms, so the acceleration is
// recomputed.
void RaiseRotation(const Event& event);
void RaiseClick(const Event& event);

// How long an enumeration takes; 0: it completes inside put_Completed. It finds another device and the dial.
void SetEnumerationTime(std::chrono::milliseconds time);
// Returns when the enumeration's thread has ended.
void WaitForEnumeration();

// Empties the stores. Without package identity there are no settings containers.
void ClearStores(bool package_identity);

// Returns and clears the recorded calls, in order. Empty in stub_platform.
std::vector<std::string> TakeCalls();

}  // namespace stub
