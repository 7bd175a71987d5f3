#include "simulator/classes/async.h"

#include <algorithm>

#include "simulator/classes/vectors.h"
#include "simulator/functions/real.h"
#include "simulator/system/clock.h"
#include "simulator/system/reset.h"

namespace dialsim {

namespace {

// Enters the multithreaded apartment, as the platform's threads do. A thread that is in another apartment
// stays in it.
class ApartmentScope {
public:
    ApartmentScope() = default;
    ApartmentScope(const ApartmentScope&) = delete;
    ApartmentScope& operator=(const ApartmentScope&) = delete;
    ~ApartmentScope() {
        if (entered_) {
            real::RoUninitialize();
        }
    }

private:
    const bool entered_ = real::RoInitialize(RO_INIT_MULTITHREADED) >= 0;
};

const ResetAction reset_operations(ResetPhase::Work, [] { TheAsyncOperations().Reset(); });

}  // namespace

AsyncOperations& TheAsyncOperations() {
    // Never destroyed: operations may complete after main returns.
    static AsyncOperations& operations = *new AsyncOperations;
    return operations;
}

AsyncMode AsyncOperations::Register(Completable* operation) {
    const std::lock_guard guard(mutex_);
    slots_.push_back({operation, mode_, false, mode_ == AsyncMode::AtOnce, kPending});
    return mode_;
}

void AsyncOperations::Unregister(Completable* operation) {
    const std::lock_guard guard(mutex_);
    if (Slot* slot = Find(operation)) {
        slot->operation = nullptr;
    }
}

void AsyncOperations::OnHandlerAttached(Completable* operation) {
    const std::lock_guard guard(mutex_);
    Slot* slot = Find(operation);
    if (slot == nullptr || slot->completed) {
        return;
    }
    slot->referenced = operation->TryAddReference();
    if (slot->mode == AsyncMode::OwnThread) {
        const auto index = static_cast<std::uint32_t>(slot - slots_.data());
        RunAfter(delay_, [this, operation, index] { CompleteOnOwnThread(operation, index); });
    }
}

// The operation may have been completed or abandoned before this runs.
void AsyncOperations::CompleteOnOwnThread(Completable* operation, std::uint32_t index) {
    Completable* claimed = nullptr;
    {
        const std::lock_guard guard(mutex_);
        const bool matches = index < slots_.size() && slots_[index].operation == operation;
        claimed = matches ? Claim(slots_[index]) : nullptr;
    }
    if (claimed != nullptr) {
        const ApartmentScope apartment;
        claimed->Complete({});
        claimed->ReleaseReference();
    }
}

void AsyncOperations::OnHandlerReturned(Completable* operation, HRESULT code) {
    const std::lock_guard guard(mutex_);
    if (Slot* slot = Find(operation)) {
        slot->code = code;
    }
}

void AsyncOperations::SetMode(AsyncMode mode) {
    const std::lock_guard guard(mutex_);
    mode_ = mode;
}

void AsyncOperations::SetDelay(std::uint32_t milliseconds) {
    const std::lock_guard guard(mutex_);
    delay_ = milliseconds;
}

std::uint32_t AsyncOperations::Pending() {
    const std::lock_guard guard(mutex_);
    return static_cast<std::uint32_t>(std::count_if(slots_.begin(), slots_.end(), [](const Slot& slot) {
        return slot.operation != nullptr && !slot.completed;
    }));
}

EventResult AsyncOperations::Complete(std::uint32_t index, std::optional<abi::AsyncStatus> status) {
    Completable* claimed = nullptr;
    {
        const std::lock_guard guard(mutex_);
        claimed = index < slots_.size() ? Claim(slots_[index]) : nullptr;
    }
    if (claimed == nullptr) {
        return {kOutOfBounds, false};
    }
    EventResult result;
    RunOnEventThread([&] {
        const ApartmentScope apartment;
        if (const auto outcome = claimed->Complete(status)) {
            result.code = CodeOf(*outcome);
        }
        claimed->ReleaseReference();
    });
    return result;
}

HRESULT AsyncOperations::CompleteAll() {
    std::size_t count = 0;
    {
        const std::lock_guard guard(mutex_);
        count = slots_.size();
    }
    HRESULT first_failure = S_OK;
    for (std::uint32_t index = 0; index < count; ++index) {
        const EventResult result = Complete(index, {});
        if (first_failure >= 0 && result.code < 0 && result.took_place) {
            first_failure = result.code;
        }
    }
    return first_failure;
}

HRESULT AsyncOperations::CompletionCode(std::uint32_t index) {
    const std::lock_guard guard(mutex_);
    return index < slots_.size() ? slots_[index].code : kOutOfBounds;
}

bool AsyncOperations::MarshalsFreeThreaded(std::uint32_t index) {
    Completable* referenced = nullptr;
    {
        const std::lock_guard guard(mutex_);
        const bool exists = index < slots_.size() && slots_[index].operation != nullptr;
        referenced = exists && slots_[index].operation->TryAddReference() ? slots_[index].operation : nullptr;
    }
    if (referenced == nullptr) {
        return false;
    }
    const bool free_threaded = referenced->MarshalsFreeThreaded();
    referenced->ReleaseReference();
    return free_threaded;
}

void AsyncOperations::Abandon() {
    std::vector<Completable*> referenced_operations;
    {
        const std::lock_guard guard(mutex_);
        for (Slot& slot : slots_) {
            if (!std::exchange(slot.completed, true) && std::exchange(slot.referenced, false)) {
                referenced_operations.push_back(slot.operation);
            }
        }
    }
    for (Completable* operation : referenced_operations) {
        operation->ReleaseReference();
    }
}

void AsyncOperations::Reset() {
    WaitForActions();
    Abandon();
    const std::lock_guard guard(mutex_);
    slots_.clear();
    mode_ = AsyncMode::OwnThread;
    delay_ = 0;
}

AsyncOperations::Slot* AsyncOperations::Find(Completable* operation) {
    const auto found = std::find_if(slots_.begin(), slots_.end(),
                                    [&](const Slot& slot) { return slot.operation == operation; });
    return found == slots_.end() ? nullptr : &*found;
}

Completable* AsyncOperations::Claim(Slot& slot) {
    if (slot.operation == nullptr || slot.completed) {
        return nullptr;
    }
    if (!slot.referenced && !slot.operation->TryAddReference()) {
        return nullptr;
    }
    slot.referenced = false;
    slot.completed = true;
    return slot.operation;
}

}  // namespace dialsim
