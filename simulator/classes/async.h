// Asynchronous operations, and when they complete.
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
    AtOnce,    // before anybody can listen
    Held,      // when it is told to
    OwnThread  // soon after somebody listens, on a thread of its own
};

inline constexpr HRESULT kPending = static_cast<HRESULT>(0x8000000A);          // E_PENDING
inline constexpr HRESULT kIllegalCall = static_cast<HRESULT>(0x8000000E);      // E_ILLEGAL_METHOD_CALL
inline constexpr HRESULT kIllegalDelegate = static_cast<HRESULT>(0x80000018);  // its name ends in ASSIGNMENT
inline constexpr HRESULT kCancelled = static_cast<HRESULT>(0x800704C7);        // ERROR_CANCELLED

// What the list of operations needs of one.
class Completable {
public:
    // With its own status unless another is given. Empty when it has completed before or nobody listens yet.
    virtual std::optional<Outcome> Complete(std::optional<abi::AsyncStatus> status) = 0;
    // Whether its handler does, as long as it has one.
    virtual bool MarshalsFreeThreaded() = 0;
    virtual bool TryAddReference() = 0;
    virtual void ReleaseReference() = 0;

protected:
    ~Completable() = default;
};

// Every operation since the last reset, in the order of their starts.
class AsyncOperations {
public:
    AsyncMode Register(Completable* operation);
    void Unregister(Completable* operation);
    // Somebody listens.
    void OnHandlerAttached(Completable* operation);
    void OnHandlerReturned(Completable* operation, HRESULT code);

    void SetMode(AsyncMode mode);
    // How long those on threads of their own take.
    void SetDelay(std::uint32_t milliseconds);
    std::uint32_t Pending();
    HRESULT Complete(std::uint32_t index, std::optional<abi::AsyncStatus> status);
    HRESULT CompleteAll();
    HRESULT CompletionCode(std::uint32_t index);
    bool MarshalsFreeThreaded(std::uint32_t index);
    // Those that have not completed never will.
    void Abandon();
    void Reset();

private:
    struct Slot {
        Completable* operation;  // null when it is gone
        AsyncMode mode;
        bool kept = false;  // by a reference of the list's
        bool completed = false;
        HRESULT code = kPending;
    };

    void CompleteOnOwnThread(Completable* operation, std::uint32_t index);
    Slot* Find(Completable* operation);
    // Marks it completed, and takes over or gets a reference; null when it cannot be completed.
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
    // It will have failed with `code`, or yield the value.
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
    // What the simulator does cannot be stopped.
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

    // A handler is called once and then let go of.
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
