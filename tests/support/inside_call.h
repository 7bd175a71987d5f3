// Runs an action inside a platform call, as an event that the platform delivers there.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "simulator/dialsim.h"

// Runs `action` inside the first call of `operation`, given with or without arguments, during the object's
// lifetime. One object at a time.
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
            // Prevents a second run, also in the action's own calls.
            if (const auto action = std::exchange(self.action_, nullptr)) {
                action();
            }
        }
    }

    const std::string operation_;
    std::function<void()> action_;
};
