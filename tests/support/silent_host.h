// A host without allocations and state, for tests that count allocations or race threads.
#pragma once

#include <brindle.h>

#include <cstdint>

class SilentHost final : public IDialHost {
public:
    explicit SilentHost(std::uint64_t window) : window_(window) {}

    void OnRotation(void*, const DialRotationInfo* info) override {
        ++events;
        info->hapticRequest = haptic_request;
    }
    std::uint64_t GetWindowHandle() override { return window_; }
    void OnButtonClicked(void*, const DialContactRect*) override { ++events; }

    std::uint64_t events = 0;
    const std::uint32_t* haptic_request = nullptr;

private:
    const std::uint64_t window_;
};
