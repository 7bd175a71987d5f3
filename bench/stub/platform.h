// The leanest platform that answers the library, in place of the simulator: fixed objects where there is one
// of a kind, no journal, no locks, plain counts. What a measured piece of work costs here, it costs both
// sides. Whatever no measured work asks for is answered with E_NOTIMPL.
//
// Built twice: stub_platform to be measured, recording_platform to compare the calls of both sides. Used on
// one thread; only an enumeration that takes its time completes on another, while its caller waits.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace stub {

// What the next events carry.
struct Event {
    bool contact = false;
};

// Raised at the controller that was made last; the clock has gone on by 50 ms, which is when the acceleration
// is computed anew.
void RaiseRotation(const Event& event);
void RaiseClick(const Event& event);

// How long an enumeration takes; without a time it completes inside put_Completed. It yields some other
// device and then the dial.
void SetEnumerationTime(std::chrono::milliseconds time);
// Until the enumeration's thread has ended.
void WaitForEnumeration();

// No settings, nothing in the vault. Without package identity there are no containers for settings.
void ClearStores(bool package_identity);

// The calls since the last time, in order; empty but for the platform that records.
std::vector<std::string> TakeCalls();

}  // namespace stub
