// How the platform raises events: on which thread, and what becomes of them.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/types.h"

namespace dialsim {

// What became of a raised event: the first failure among its handlers.
struct Outcome {
    HRESULT code = S_OK;
    bool raised = false;
    std::string what;

    void Join(Outcome other) {
        if (code >= 0 && !raised) {
            *this = std::move(other);
        }
    }
};

// The code of an event whose handler raised an exception instead of answering.
inline constexpr HRESULT kHandlerRaised = static_cast<HRESULT>(0xA0000001);

// As the journal and the callers of events get it; the message of what was raised is kept.
HRESULT CodeOf(const Outcome& outcome);
// The last such message; empty when nothing has been raised.
std::string LastRaised();

// Events are raised on the caller's thread, or each on a thread of its own.
void SetOwnThread(bool own_thread);

// On the thread that is set for events; returns when it is done.
void RunOnEventThread(const std::function<void()>& body);

}  // namespace dialsim
