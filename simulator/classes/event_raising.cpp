#include "simulator/classes/event_raising.h"

#include <atomic>
#include <mutex>

#include "simulator/system/reset.h"
#include "sync.h"

namespace dialsim {

namespace {

std::atomic<bool> own_thread = false;

Mutex raised_mutex;
std::string& last_raised = *new std::string;  // never destroyed: handlers may be called after main

void SetLastRaised(const std::string& what) {
    const std::lock_guard guard(raised_mutex);
    last_raised = what;
}

const ResetAction reset_raising(ResetPhase::State, [] {
    own_thread = false;
    SetLastRaised("");
});

}  // namespace

HRESULT CodeOf(const Outcome& outcome) {
    if (outcome.raised) {
        SetLastRaised(outcome.what);
        return kHandlerRaised;
    }
    return outcome.code;
}

std::string LastRaised() {
    const std::lock_guard guard(raised_mutex);
    return last_raised;
}

void SetOwnThread(bool own) { own_thread = own; }

void RunOnEventThread(const std::function<void()>& body) {
    if (own_thread) {
        Thread own = StartThread(body);
        Join(own);
    } else {
        body();
    }
}

}  // namespace dialsim
