// An event of a platform object: its handlers and their tokens.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "simulator/classes/event_raising.h"
#include "simulator/classes/object.h"
#include "simulator/functions/marshal.h"
#include "sync.h"

namespace dialsim {

inline constexpr HRESULT kWrongThread = static_cast<HRESULT>(0x8001010E);  // RPC_E_WRONG_THREAD

// The platform's reference to a handler, counted by leak tracking.
template <class Handler>
class HeldHandler {
public:
    explicit HeldHandler(Handler* handler) : handler_(handler), agile_(IsAgile(handler)) {
        TheLeakTracker().TrackHandler(handler);
    }
    HeldHandler(const HeldHandler&) = delete;
    HeldHandler& operator=(const HeldHandler&) = delete;
    ~HeldHandler() { TheLeakTracker().UntrackHandler(handler_.get()); }

    // Catches and reports an exception of the handler. A handler that is not agile fails on any thread except
    // the one that subscribed it.
    template <class... Arguments>
    Outcome Call(Arguments... arguments) const {
        if (!agile_ && thread_ != CurrentThread()) {
            return {kWrongThread, false, {}};
        }
        try {
            return {handler_->Invoke(arguments...), false, {}};
        } catch (const std::exception& error) {
            return {S_OK, true, error.what()};
        } catch (...) {
            return {S_OK, true, "not a standard exception"};
        }
    }

    HRESULT CopyTo(Handler** result) const { return handler_.CopyTo(result); }

    // Whether every apartment gets the handler itself instead of a proxy.
    bool MarshalsFreeThreaded() const {
        IMarshal* marshal = nullptr;
        if (handler_->QueryInterface(IMarshal::Iid, reinterpret_cast<void**>(&marshal)) < 0) {
            return false;
        }
        GUID unmarshaler{};
        const HRESULT code =
            marshal->GetUnmarshalClass(Handler::Iid, handler_.get(), kInProcess, nullptr, 0, &unmarshaler);
        marshal->Release();
        return code >= 0 && abi::SameId(unmarshaler, kFreeThreadedMarshaler);
    }

private:
    static bool IsAgile(Handler* handler) {
        abi::IAgileObject* marker = nullptr;
        if (handler->QueryInterface(abi::IAgileObject::Iid, reinterpret_cast<void**>(&marker)) < 0) {
            return false;
        }
        marker->Release();
        return true;
    }

    const Ref<Handler> handler_;
    const bool agile_;
    const std::uint64_t thread_ = CurrentThread();
};

template <class Handler>
class Event {
public:
    HRESULT Add(Handler* handler, EventRegistrationToken* token) {
        if (handler == nullptr) {
            return E_INVALIDARG;
        }
        auto held = std::make_shared<HeldHandler<Handler>>(handler);
        const std::lock_guard guard(mutex_);
        token->value = ++last_token_;
        handlers_.emplace_back(last_token_, std::move(held));
        return S_OK;
    }

    // An unknown token is ignored.
    HRESULT Remove(EventRegistrationToken token) {
        const Handlers before = Snapshot();  // releases the removed handler after the lock
        const std::lock_guard guard(mutex_);
        std::erase_if(handlers_, [&](const auto& entry) { return entry.first == token.value; });
        return S_OK;
    }

    // Calls a snapshot of the handlers, without a lock.
    template <class Sender, class Args>
    Outcome Raise(Sender* sender, Args* args) {
        Outcome outcome;
        for (const auto& [token, handler] : Snapshot()) {
            outcome.Merge(handler->Call(sender, args));
        }
        return outcome;
    }

private:
    using Handlers = std::vector<std::pair<std::int64_t, std::shared_ptr<HeldHandler<Handler>>>>;

    Handlers Snapshot() {
        const std::lock_guard guard(mutex_);
        return handlers_;
    }

    Mutex mutex_;
    Handlers handlers_;
    std::int64_t last_token_ = 0;
};

}  // namespace dialsim
