#include "player.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace model {

namespace {

// Makes the order of releases visible: objects of this class are counted inside these calls.
constexpr const char* kCounted[][2] = {
    {"WindowsCreateStringReference(Windows.UI.Input.RadialControllerMenuItem)",
     "IRadialControllerMenuItemStatics"},
    {"IAsyncOperation<DeviceInformationCollection>::put_Completed()", "IDeviceInformationStatics"},
};
// Above this number of items, counting is too slow.
constexpr std::size_t kManyItems = 50;

bool MakesManyItems(const Operation& operation) {
    return operation.items.size() * operation.times > kManyItems ||
           std::any_of(operation.reactions.begin(), operation.reactions.end(), MakesManyItems) ||
           std::any_of(operation.inside.begin(), operation.inside.end(),
                       [](const Inside& inside) { return MakesManyItems(inside.operation); });
}

std::string Text(double number) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", number);
    return std::isnan(number) ? "nan" : text;
}

std::string Text(const DialContactRect& rect) {
    return std::to_string(rect.left) + " " + std::to_string(rect.top) + " " + std::to_string(rect.right) +
           " " + std::to_string(rect.bottom);
}

}  // namespace

std::string Player::Play(const Operation& operation) {
    current_ = &operation;
    counts_ = !MakesManyItems(operation);
    calls_ = 0;
    next_reaction_ = 0;
    for (const Fault& fault : operation.faults) {
        SetFault(fault);
    }
    Perform(operation);
    return TakeRecord();
}

std::string Player::End() {
    const Operation completion = CompleteAll();
    current_ = &completion;
    Perform(completion);
    Uninit();
    return TakeRecord();
}

void Player::Perform(const Operation& operation) {
    ++operations_;
    if (operation.act <= Act::GetNumber) {
        CallExport(operation);
    } else if (operation.act <= Act::CompleteAll) {
        RaiseEvent(operation);
    } else {
        ChangePlatform(operation);
    }
}

void Player::AtCall(const std::string& call) {
    const std::uint32_t number = ++calls_;
    if (counts_) {
        for (const auto& [counted_in, class_name] : kCounted) {
            if (call == counted_in) {
                Write(std::string(class_name) + ": " + std::to_string(ObjectsOf(class_name)));
            }
        }
    }
    for (const Inside& inside : current_->inside) {
        if (inside.call == number) {
            ++events_inside_;
            Perform(inside.operation);
        }
    }
}

void Player::AtCallback() {
    if (next_reaction_ < current_->reactions.size()) {
        Perform(current_->reactions[next_reaction_++]);
    }
}

void Player::WriteTurn(int host, const void* sender, const DialRotationInfo& info) {
    Write("host " + std::to_string(host) + " turned by " + Text(info.deltaDegrees) +
          (info.buttonPressed ? " pressed" : "") + ", tag " + std::to_string(info.selectedItemTag) +
          ", contact " + Text(info.contact) + ", sender " + NameOf(sender) +
          (virtual_clock_ ? ", acceleration " + Text(info.acceleration) : "") +
          (info.hapticRequest == nullptr ? "" : ", a request"));
}

void Player::WriteClick(int host, const void* sender, const DialContactRect& rect) {
    Write("host " + std::to_string(host) + " clicked, contact " + Text(rect) + ", sender " + NameOf(sender));
}

// Controllers are numbered in the order of their events.
std::string Player::NameOf(const void* sender) {
    return std::to_string(senders_.emplace(sender, senders_.size()).first->second);
}

std::string Player::TakeRecord() {
    std::string record = std::exchange(seen_, {}) + TakePrinted();
    const std::string journal = TakeJournal();
    if (journal.find("end of ") != std::string::npos) {
        senders_.clear();  // the next controller may have the same address
    }
    record += "calls:\n" + journal;
    for (const std::uint64_t window : windows_) {
        const std::string menu = ShowMenu(window);
        record += menu.empty() ? "" : "menu of window " + std::to_string(window) + ":\n" + menu;
    }
    if (uses_stores_) {
        for (const char* name : {"roaming", "vault", "local"}) {
            record += std::string(name) + ":\n" + ShowStore(name);
        }
    }
    return record + "outstanding:\n" + Outstanding();
}

}  // namespace model
