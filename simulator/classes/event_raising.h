// The thread and the result of raised events.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/types.h"

namespace dialsim {

// The result of a raised event: the first failure among its handlers.
struct Outcome {
    HRESULT code = S_OK;
    bool threw = false;
    std::string message;
    bool took_place = true;  // false when no handler was called because there was nothing to do

    void Merge(Outcome other) {
        if (code >= 0 && !threw) {
            *this = std::move(other);
        }
    }
};

// The result of a command that raises an event: the first failure of its handlers, or why it did not take
// place, which a handler's code alone does not tell.
struct EventResult {
    HRESULT code = S_OK;
    bool took_place = true;

    operator HRESULT() const { return code; }
};

// The code of an event whose handler threw an exception.
inline constexpr HRESULT kHandlerThrew = static_cast<HRESULT>(0xA0000001);

// The code for journal and callers. Stores the message of an exception.
HRESULT CodeOf(const Outcome& outcome);
// The message of the last exception; empty when there was none.
std::string LastExceptionMessage();

// Raises events on the caller's thread, or each on a new thread.
void SetOwnThread(bool own_thread);

// Runs `body` on the thread for events and returns when it has ended.
void RunOnEventThread(const std::function<void()>& body);

}  // namespace dialsim
