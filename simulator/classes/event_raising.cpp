#include "simulator/classes/event_raising.h"

#include <atomic>
#include <mutex>

#include "simulator/system/reset.h"
#include "sync.h"

namespace dialsim {

namespace {

std::atomic<bool> own_thread = false;

Mutex message_mutex;
std::string& last_message = *new std::string;  // never destroyed: handlers may run after main returns

void SetLastExceptionMessage(const std::string& message) {
    const std::lock_guard guard(message_mutex);
    last_message = message;
}

const ResetAction reset_raising(ResetPhase::State, [] {
    own_thread = false;
    SetLastExceptionMessage("");
});

}  // namespace

HRESULT CodeOf(const Outcome& outcome) {
    if (outcome.threw) {
        SetLastExceptionMessage(outcome.message);
        return kHandlerThrew;
    }
    return outcome.code;
}

std::string LastExceptionMessage() {
    const std::lock_guard guard(message_mutex);
    return last_message;
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
