// Whether the dial is there.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/com_ptr.h"
#include "platform/implements.h"

namespace brindle {

// Shared with a completion that may outlive the call and the listener: each holds a reference.
class SharedFlag final : public Implements<abi::IUnknown> {
public:
    std::atomic<std::int32_t> value = 0;
};

// Part of a window's listener. The host's thread calls it.
class PresenceQuery {
public:
    // Waits for the platform's answer: S_OK when the dial is there, E_FAIL when it is not.
    HRESULT IsDialPresent();

private:
    friend struct DialListenerTest;

    // Throws platform failures; the completion sets both flags.
    static void Start(const ComPtr<SharedFlag>& found, const ComPtr<SharedFlag>& done);

    // 1 when a completion has finished since the last query began. Shared with the completion, which may
    // outlive the listener. Deliberately one per window: a late completion ends a later wait, as brindle.h
    // says (Presence.ACompletionThatComesDuringTheNextWaitEndsItWithoutAnAnswer).
    ComPtr<SharedFlag> done_ = ComPtr<SharedFlag>::Attach(new SharedFlag);
};

}  // namespace brindle
