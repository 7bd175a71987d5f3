#include "simulator/classes/async.h"

#include <algorithm>

#include "simulator/classes/vectors.h"
#include "simulator/dial/commands.h"
#include "simulator/dialsim.h"
#include "simulator/functions/real.h"
#include "simulator/system/clock.h"

namespace dialsim {

namespace {

// The platform's threads belong to its multithreaded apartment; one of somebody else's keeps its own.
class InApartment {
public:
    InApartment() = default;
    InApartment(const InApartment&) = delete;
    InApartment& operator=(const InApartment&) = delete;
    ~InApartment() {
        if (entered_) {
            underlying::RoUninitialize();
        }
    }

private:
    const bool entered_ = underlying::RoInitialize(RO_INIT_MULTITHREADED) >= 0;
};

}  // namespace

Operations& TheOperations() {
    // Never destroyed: operations may complete after the end of main.
    static Operations& operations = *new Operations;
    return operations;
}

HRESULT CodeOf(const Outcome& outcome) {
    if (outcome.raised) {
        TheDial().SetRaised(outcome.what);
        return DIALSIM_RAISED;
    }
    return outcome.code;
}

AsyncMode Operations::Enter(Completable* operation) {
    const std::lock_guard guard(mutex_);
    slots_.push_back({operation, mode_, false, mode_ == AsyncMode::AtOnce, kPending});
    return mode_;
}

void Operations::Leave(Completable* operation) {
    const std::lock_guard guard(mutex_);
    if (Slot* slot = Find(operation)) {
        slot->operation = nullptr;
    }
}

void Operations::Attached(Completable* operation) {
    const std::lock_guard guard(mutex_);
    Slot* slot = Find(operation);
    if (slot == nullptr || slot->completed) {
        return;
    }
    slot->kept = operation->TryHold();
    if (slot->mode == AsyncMode::OwnThread) {
        const auto index = static_cast<std::uint32_t>(slot - slots_.data());
        RunAfter(delay_, [this, operation, index] { CompleteOnOwnThread(operation, index); });
    }
}

// It may have been completed otherwise or abandoned in the meantime.
void Operations::CompleteOnOwnThread(Completable* operation, std::uint32_t index) {
    Completable* taken = nullptr;
    {
        const std::lock_guard guard(mutex_);
        const bool here = index < slots_.size() && slots_[index].operation == operation;
        taken = here ? Take(slots_[index]) : nullptr;
    }
    if (taken != nullptr) {
        const InApartment apartment;
        taken->Complete({});
        taken->LetGo();
    }
}

void Operations::Answered(Completable* operation, HRESULT code) {
    const std::lock_guard guard(mutex_);
    if (Slot* slot = Find(operation)) {
        slot->code = code;
    }
}

void Operations::SetMode(AsyncMode mode) {
    const std::lock_guard guard(mutex_);
    mode_ = mode;
}

void Operations::SetDelay(std::uint32_t milliseconds) {
    const std::lock_guard guard(mutex_);
    delay_ = milliseconds;
}

std::uint32_t Operations::Pending() {
    const std::lock_guard guard(mutex_);
    return static_cast<std::uint32_t>(std::count_if(slots_.begin(), slots_.end(), [](const Slot& slot) {
        return slot.operation != nullptr && !slot.completed;
    }));
}

HRESULT Operations::Complete(std::uint32_t index, std::optional<abi::AsyncStatus> status) {
    Completable* taken = nullptr;
    {
        const std::lock_guard guard(mutex_);
        taken = index < slots_.size() ? Take(slots_[index]) : nullptr;
    }
    if (taken == nullptr) {
        return kOutOfBounds;
    }
    HRESULT code = S_OK;
    OnEventThread([&] {
        const InApartment apartment;
        if (const auto outcome = taken->Complete(status)) {
            code = CodeOf(*outcome);
        }
        taken->LetGo();
    });
    return code;
}

HRESULT Operations::CompleteAll() {
    std::size_t count = 0;
    {
        const std::lock_guard guard(mutex_);
        count = slots_.size();
    }
    HRESULT first_failure = S_OK;
    for (std::uint32_t index = 0; index < count; ++index) {
        const HRESULT code = Complete(index, {});
        if (first_failure >= 0 && code < 0 && code != kOutOfBounds) {
            first_failure = code;
        }
    }
    return first_failure;
}

HRESULT Operations::CompletionCode(std::uint32_t index) {
    const std::lock_guard guard(mutex_);
    return index < slots_.size() ? slots_[index].code : kOutOfBounds;
}

bool Operations::MarshalsFreeThreaded(std::uint32_t index) {
    Completable* held = nullptr;
    {
        const std::lock_guard guard(mutex_);
        const bool there = index < slots_.size() && slots_[index].operation != nullptr;
        held = there && slots_[index].operation->TryHold() ? slots_[index].operation : nullptr;
    }
    if (held == nullptr) {
        return false;
    }
    const bool answer = held->MarshalsFreeThreaded();
    held->LetGo();
    return answer;
}

void Operations::Abandon() {
    std::vector<Completable*> kept;
    {
        const std::lock_guard guard(mutex_);
        for (Slot& slot : slots_) {
            if (!std::exchange(slot.completed, true) && std::exchange(slot.kept, false)) {
                kept.push_back(slot.operation);
            }
        }
    }
    for (Completable* operation : kept) {
        operation->LetGo();
    }
}

void Operations::Reset() {
    WaitForActions();
    Abandon();
    const std::lock_guard guard(mutex_);
    slots_.clear();
    mode_ = AsyncMode::OwnThread;
    delay_ = 0;
}

Operations::Slot* Operations::Find(Completable* operation) {
    const auto found = std::find_if(slots_.begin(), slots_.end(),
                                    [&](const Slot& slot) { return slot.operation == operation; });
    return found == slots_.end() ? nullptr : &*found;
}

Completable* Operations::Take(Slot& slot) {
    if (slot.operation == nullptr || slot.completed) {
        return nullptr;
    }
    if (!slot.kept && !slot.operation->TryHold()) {
        return nullptr;
    }
    slot.kept = false;
    slot.completed = true;
    return slot.operation;
}

}  // namespace dialsim
