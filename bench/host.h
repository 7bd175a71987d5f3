#pragma once

#include <cstdint>

#include "brindle.h"

namespace bench {

inline constexpr std::uint64_t kWindow = 0x20316;

// Adds up what it is told.
class Host final : public IDialHost {
public:
    explicit Host(std::uint64_t window = kWindow, bool shakes = false) : window_(window), shakes_(shakes) {}

    void OnRotation(void*, const DialRotationInfo* turn) override {
        static constexpr std::uint32_t kShake = 1;
        told_ += turn->selectedItemTag;
        told_ += turn->contact.left + turn->contact.right + turn->buttonPressed;
        told_ += static_cast<std::int64_t>(turn->deltaDegrees);
        turn->hapticRequest = shakes_ ? &kShake : nullptr;
    }
    std::uint64_t GetWindowHandle() override { return window_; }
    void OnButtonClicked(void*, const DialContactRect* rect) override { told_ += rect->left + rect->right; }

    std::int64_t told() const { return told_; }

private:
    const std::uint64_t window_;
    const bool shakes_;
    std::int64_t told_ = 0;
};

}  // namespace bench
