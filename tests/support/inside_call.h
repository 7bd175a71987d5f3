// Does something inside a platform call, as an event does that the platform lets in there.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "simulator/dialsim.h"

// Runs `action` inside the first call of `operation`, an operation with or without arguments, that is made
// during the object's life. One at a time.
class InsideCall {
public:
    InsideCall(std::string operation, std::function<void()> action)
        : operation_(std::move(operation)), action_(std::move(action)) {
        dialsim_on_call(OnCall, this);
    }
    InsideCall(const InsideCall&) = delete;
    InsideCall& operator=(const InsideCall&) = delete;
    ~InsideCall() { dialsim_on_call(nullptr, nullptr); }

private:
    static void OnCall(void* context, const char* call) {
        auto& self = *static_cast<InsideCall*>(context);
        const std::string text = call;
        if (text == self.operation_ || text.starts_with(self.operation_ + "(")) {
            // None after the first, and none in the calls that the action leads to.
            if (const auto action = std::exchange(self.action_, nullptr)) {
                action();
            }
        }
    }

    const std::string operation_;
    std::function<void()> action_;
};
