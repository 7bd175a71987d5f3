// A host that records its calls and runs a test's actions in its callbacks.
#pragma once

#include <brindle.h>

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

class RecordingHost final : public IDialHost {
public:
    explicit RecordingHost(std::uint64_t window) : handles_{window} {}
    // GetWindowHandle returns these in turn, then the last one again.
    explicit RecordingHost(std::vector<std::uint64_t> handles) : handles_(std::move(handles)) {}

    void OnRotation(void* sender, const DialRotationInfo* info) override {
        senders.push_back(sender);
        rotations.push_back(*info);
        info->hapticRequest = haptic_request;
        on_rotation(*info);
    }
    std::uint64_t GetWindowHandle() override {
        const std::size_t asked = window_queries++;
        on_window_query();
        return handles_[asked < handles_.size() ? asked : handles_.size() - 1];
    }
    void OnButtonClicked(void* sender, const DialContactRect* rect) override {
        senders.push_back(sender);
        clicks.push_back(*rect);
        on_click(*rect);
    }

    const DialRotationInfo& LastRotation() const { return rotations.at(rotations.size() - 1); }
    const DialContactRect& LastClick() const { return clicks.at(clicks.size() - 1); }

    std::vector<DialRotationInfo> rotations;
    std::vector<DialContactRect> clicks;
    std::vector<void*> senders;
    std::size_t window_queries = 0;
    const std::uint32_t* haptic_request = nullptr;  // the result of the next rotations

    std::function<void(const DialRotationInfo&)> on_rotation = [](const DialRotationInfo&) {};
    std::function<void(const DialContactRect&)> on_click = [](const DialContactRect&) {};
    std::function<void()> on_window_query = [] {};

private:
    std::vector<std::uint64_t> handles_;
};

// For EXPECT_EQ and its messages.
inline bool operator==(const DialContactRect& a, const DialContactRect& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
