// The sequence of system entries that set_default_menu gives the platform.
#pragma once

#include <cstdint>
#include <new>
#include <vector>

#include "platform/implements.h"
#include "platform/interfaces/ui_input.h"

namespace brindle {

using SystemItemKind = abi::RadialControllerSystemMenuItemKind;

// A read-only sequence for one call. Its list is deliberately freed when the call ends, so that the host's
// values are used during the call only: a platform that keeps the sequence or an iterator then gets
// RO_E_CLOSED (DefaultMenu.ASequenceThatThePlatformKeptIsClosedAfterTheCall). No lock: the platform must not
// read it on another thread while the call ends.
class KindSequence final : public ImplementsInspectable<abi::IIterable<SystemItemKind>> {
public:
    static constexpr HRESULT kOutOfBounds = static_cast<HRESULT>(0x8000000B);  // E_BOUNDS
    static constexpr HRESULT kClosed = static_cast<HRESULT>(0x80000013);       // RO_E_CLOSED

    explicit KindSequence(std::vector<SystemItemKind> kinds) : kinds_(std::move(kinds)) {}

    HRESULT First(abi::IIterator<SystemItemKind>** result) noexcept override;

    // On the thread of the call that created the sequence.
    void Close() noexcept {
        closed_ = true;
        std::vector<SystemItemKind>().swap(kinds_);
    }
    bool IsClosed() const noexcept { return closed_; }
    const std::vector<SystemItemKind>& Kinds() const noexcept { return kinds_; }

private:
    bool closed_ = false;
    std::vector<SystemItemKind> kinds_;
};

class KindIterator final : public ImplementsInspectable<abi::IIterator<SystemItemKind>> {
public:
    explicit KindIterator(ComPtr<KindSequence> sequence) : sequence_(std::move(sequence)) {}

    HRESULT get_Current(SystemItemKind* result) noexcept override {
        if (sequence_->IsClosed()) {
            return KindSequence::kClosed;
        }
        if (Left() == 0) {
            return KindSequence::kOutOfBounds;
        }
        *result = sequence_->Kinds()[next_];
        return S_OK;
    }
    HRESULT get_HasCurrent(abi::boolean* result) noexcept override {
        *result = Left() > 0;
        return sequence_->IsClosed() ? KindSequence::kClosed : S_OK;
    }
    // At the end it stays there and returns false.
    HRESULT MoveNext(abi::boolean* result) noexcept override {
        next_ += Left() > 0;
        return get_HasCurrent(result);
    }
    HRESULT GetMany(std::uint32_t count, SystemItemKind* items, std::uint32_t* result) noexcept override {
        *result = 0;
        if (sequence_->IsClosed()) {
            return KindSequence::kClosed;
        }
        while (*result < count && Left() > 0) {
            items[(*result)++] = sequence_->Kinds()[next_++];
        }
        return S_OK;
    }

private:
    std::size_t Left() const noexcept {
        return sequence_->IsClosed() ? 0 : sequence_->Kinds().size() - next_;
    }

    const ComPtr<KindSequence> sequence_;
    std::size_t next_ = 0;
};

inline HRESULT KindSequence::First(abi::IIterator<SystemItemKind>** result) noexcept {
    *result = nullptr;
    if (IsClosed()) {
        return kClosed;
    }
    AddRef();
    // Owned before the iterator is allocated: when nothrow new fails, its arguments are not evaluated, and
    // the reference would leak (AllocationFailures.OfAnIteratorKeepNoReference).
    auto self = ComPtr<KindSequence>::Attach(this);
    *result = new (std::nothrow) KindIterator(std::move(self));
    return *result == nullptr ? E_OUTOFMEMORY : S_OK;
}

}  // namespace brindle
