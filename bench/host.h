#pragma once

#include <cstdint>

#include "brindle.h"

namespace bench {

inline constexpr std::uint64_t kWindow = 0x20316;

// Computes a checksum of all events.
class Host final : public IDialHost {
public:
    explicit Host(std::uint64_t window = kWindow, bool plays_haptics = false)
        : window_(window), plays_haptics_(plays_haptics) {}

    void OnRotation(void*, const DialRotationInfo* turn) override {
        static constexpr std::uint32_t kHapticRequest = 1;
        checksum_ += turn->selectedItemTag;
        checksum_ += turn->contact.left + turn->contact.right + turn->buttonPressed;
        checksum_ += static_cast<std::int64_t>(turn->deltaDegrees);
        turn->hapticRequest = plays_haptics_ ? &kHapticRequest : nullptr;
    }
    std::uint64_t GetWindowHandle() override { return window_; }
    void OnButtonClicked(void*, const DialContactRect* rect) override {
        checksum_ += rect->left + rect->right;
    }

    std::int64_t checksum() const { return checksum_; }

private:
    const std::uint64_t window_;
    const bool plays_haptics_;
    std::int64_t checksum_ = 0;
};

}  // namespace bench
