// Asynchronous operations and the time of their completion.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/interfaces/foundation.h"
#include "simulator/classes/event.h"
#include "simulator/classes/object.h"
#include "sync.h"

namespace dialsim {

enum class AsyncMode {
    AtOnce,    // before a handler can be attached
    Held,      // by a call of Complete
    OwnThread  // on a new thread, after a handler is attached and the delay
};

inline constexpr HRESULT kPending = static_cast<HRESULT>(0x8000000A);      // E_PENDING
inline constexpr HRESULT kIllegalCall = static_cast<HRESULT>(0x8000000E);  // E_ILLEGAL_METHOD_CALL
// E_ILLEGAL_DELEGATE_ASSIGNMENT
inline constexpr HRESULT kIllegalDelegate = static_cast<HRESULT>(0x80000018);
inline constexpr HRESULT kCancelled = static_cast<HRESULT>(0x800704C7);  // ERROR_CANCELLED

// An operation, independent of its result type.
class Completable {
public:
    // Completes with `status`, or without one with the status of its result. Empty when the operation has
    // already completed or has no handler.
    virtual std::optional<Outcome> Complete(std::optional<abi::AsyncStatus> status) = 0;
    // Whether its handler uses the free-threaded marshaler; false without a handler.
    virtual bool MarshalsFreeThreaded() = 0;
    virtual bool TryAddReference() = 0;
    virtual void ReleaseReference() = 0;

protected:
    ~Completable() = default;
};

// Every operation since the last reset, in starting order.
class AsyncOperations {
public:
    AsyncMode Register(Completable* operation);
    void Unregister(Completable* operation);
    void OnHandlerAttached(Completable* operation);
    void OnHandlerReturned(Completable* operation, HRESULT code);

    void SetMode(AsyncMode mode);
    // The time until completion in mode OwnThread.
    void SetDelay(std::uint32_t milliseconds);
    std::uint32_t Pending();
    EventResult Complete(std::uint32_t index, std::optional<abi::AsyncStatus> status);
    HRESULT CompleteAll();
    HRESULT CompletionCode(std::uint32_t index);
    bool MarshalsFreeThreaded(std::uint32_t index);
    // Pending operations never complete.
    void Abandon();
    void Reset();

private:
    struct Slot {
        Completable* operation;  // null after its destruction
        AsyncMode mode;
        bool referenced = false;  // the list owns a reference
        bool completed = false;
        HRESULT code = kPending;
    };

    void CompleteOnOwnThread(Completable* operation, std::uint32_t index);
    Slot* Find(Completable* operation);
    // Marks the operation as completed and returns a reference to it; null when it cannot be completed.
    Completable* Claim(Slot& slot);

    Mutex mutex_;
    AsyncMode mode_ = AsyncMode::OwnThread;
    std::uint32_t delay_ = 0;
    std::vector<Slot> slots_;
};

AsyncOperations& TheAsyncOperations();

template <class Result>
class AsyncOperation final : public Object<abi::IAsyncOperation<Result>, abi::IAsyncInfo>,
                             public Completable {
    using Interface = abi::IAsyncOperation<Result>;
    using Handler = abi::AsyncOperationCompletedHandler<Result>;
    using Value = typename Result::Default;

public:
    // Completes with the value, or fails with a negative `code`.
    AsyncOperation(HRESULT code, Ref<Value> value)
        : Object<Interface, abi::IAsyncInfo>(TypeName<Interface>()), code_(code), value_(std::move(value)) {
        if (TheAsyncOperations().Register(this) == AsyncMode::AtOnce) {
            status_ = OwnStatus();
            completed_ = true;
        }
    }

    HRESULT put_Completed(Handler* handler) noexcept override {
        return Perform(MethodName<Interface>("put_Completed"), "", [&] {
            if (handler == nullptr) {
                return E_INVALIDARG;
            }
            auto held = std::make_shared<HeldHandler<Handler>>(handler);
            bool completed = false;
            {
                const std::lock_guard guard(mutex_);
                if (std::exchange(assigned_, true)) {
                    return kIllegalDelegate;
                }
                handler_ = std::move(held);
                completed = completed_;
            }
            if (completed) {
                Call();
            } else {
                TheAsyncOperations().OnHandlerAttached(this);
            }
            return S_OK;
        });
    }
    HRESULT get_Completed(Handler** result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Completed"), "", result, [&] {
            const std::lock_guard guard(mutex_);
            return handler_ == nullptr ? S_OK : handler_->CopyTo(result);
        });
    }
    HRESULT GetResults(Value** result) noexcept override {
        return PerformInto(MethodName<Interface>("GetResults"), "", result, [&] {
            switch (Status()) {
                case abi::AsyncStatus::Started:
                    return kIllegalCall;
                case abi::AsyncStatus::Canceled:
                    return kCancelled;
                case abi::AsyncStatus::Error:
                    return Failure();
                default:
                    return code_ < 0 ? code_ : value_.CopyTo(result);
            }
        });
    }

    HRESULT get_Id(std::uint32_t* result) noexcept override {
        return PerformInto(MethodName<abi::IAsyncInfo>("get_Id"), "", result, [&] {
            *result = 1;
            return S_OK;
        });
    }
    HRESULT get_Status(abi::AsyncStatus* result) noexcept override {
        return PerformInto(MethodName<abi::IAsyncInfo>("get_Status"), "", result, [&] {
            *result = Status();
            return S_OK;
        });
    }
    HRESULT get_ErrorCode(HRESULT* result) noexcept override {
        return PerformInto(MethodName<abi::IAsyncInfo>("get_ErrorCode"), "", result, [&] {
            *result = Status() == abi::AsyncStatus::Error ? Failure() : S_OK;
            return S_OK;
        });
    }
    // The simulated work cannot be cancelled.
    HRESULT Cancel() noexcept override {
        return Perform(MethodName<abi::IAsyncInfo>("Cancel"), "", [] { return S_OK; });
    }
    HRESULT Close() noexcept override {
        return Perform(MethodName<abi::IAsyncInfo>("Close"), "", [] { return S_OK; });
    }

    std::optional<Outcome> Complete(std::optional<abi::AsyncStatus> status) override {
        {
            const std::lock_guard guard(mutex_);
            if (std::exchange(completed_, true)) {
                return {};
            }
            status_ = status.value_or(OwnStatus());
        }
        return Call();
    }
    bool MarshalsFreeThreaded() override {
        std::shared_ptr<HeldHandler<Handler>> handler;
        {
            const std::lock_guard guard(mutex_);
            handler = handler_;
        }
        return handler != nullptr && handler->MarshalsFreeThreaded();
    }
    bool TryAddReference() override { return this->TryAddRef(); }
    void ReleaseReference() override { this->Release(); }

private:
    ~AsyncOperation() override { TheAsyncOperations().Unregister(this); }

    abi::AsyncStatus OwnStatus() const {
        return code_ < 0 ? abi::AsyncStatus::Error : abi::AsyncStatus::Completed;
    }
    abi::AsyncStatus Status() {
        const std::lock_guard guard(mutex_);
        return status_;
    }
    HRESULT Failure() const { return code_ < 0 ? code_ : E_FAIL; }

    // Calls the handler once and releases it.
    std::optional<Outcome> Call() {
        std::shared_ptr<HeldHandler<Handler>> handler;
        {
            const std::lock_guard guard(mutex_);
            handler.swap(handler_);
        }
        if (handler == nullptr) {
            return {};
        }
        const abi::AsyncStatus status = Status();
        const Journal::Entry entry = TheJournal().Begin(MethodName<Handler>("Invoke"),
                                                        std::to_string(static_cast<std::int32_t>(status)));
        const Outcome outcome = handler->Call(static_cast<Interface*>(this), status);
        TheJournal().End(entry, CodeOf(outcome));
        TheAsyncOperations().OnHandlerReturned(this, CodeOf(outcome));
        return outcome;
    }

    Mutex mutex_;
    const HRESULT code_;
    const Ref<Value> value_;
    abi::AsyncStatus status_ = abi::AsyncStatus::Started;
    bool completed_ = false;
    bool assigned_ = false;
    std::shared_ptr<HeldHandler<Handler>> handler_;
};

template <class Result>
Ref<abi::IAsyncOperation<Result>> StartOperation(HRESULT code, Ref<typename Result::Default> value) {
    return Ref<abi::IAsyncOperation<Result>>::Attach(new AsyncOperation<Result>(code, std::move(value)));
}

}  // namespace dialsim
