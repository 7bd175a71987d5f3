// One event of a platform object: its handlers and their tokens.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "simulator/object.h"
#include "sync.h"

namespace dialsim {

// What became of a raised event: the first failure among its handlers.
struct Outcome {
    HRESULT code = S_OK;
    bool raised = false;
    std::string what;

    void Join(Outcome other) {
        if (code >= 0 && !raised) {
            *this = std::move(other);
        }
    }
};

// A handler that the platform holds; entered in the accounts as long as it does.
template <class Handler>
class HeldHandler {
public:
    explicit HeldHandler(Handler* handler) : handler_(handler) { TheAccounts().HandlerTaken(handler); }
    HeldHandler(const HeldHandler&) = delete;
    HeldHandler& operator=(const HeldHandler&) = delete;
    ~HeldHandler() { TheAccounts().HandlerReleased(handler_.get()); }

    Handler* get() const { return handler_.get(); }

private:
    Ref<Handler> handler_;
};

template <class Handler>
class Event {
public:
    HRESULT Add(Handler* handler, EventRegistrationToken* token) {
        if (handler == nullptr) {
            return E_INVALIDARG;
        }
        const std::lock_guard guard(mutex_);
        token->value = ++last_token_;
        handlers_.emplace_back(last_token_, std::make_shared<HeldHandler<Handler>>(handler));
        return S_OK;
    }

    // An unknown token is no failure.
    HRESULT Remove(EventRegistrationToken token) {
        const std::lock_guard guard(mutex_);
        std::erase_if(handlers_, [&](const auto& entry) { return entry.first == token.value; });
        return S_OK;
    }

    // Calls the handlers of this moment, with no lock held.
    template <class Sender, class Args>
    Outcome Raise(Sender* sender, Args* args) {
        Outcome outcome;
        for (const auto& [token, handler] : Snapshot()) {
            outcome.Join(CallOne(*handler->get(), sender, args));
        }
        return outcome;
    }

private:
    using Handlers = std::vector<std::pair<std::int64_t, std::shared_ptr<HeldHandler<Handler>>>>;

    Handlers Snapshot() {
        const std::lock_guard guard(mutex_);
        return handlers_;
    }

    // Nothing stands above the platform: what a handler raises stops here and is reported.
    template <class Sender, class Args>
    static Outcome CallOne(Handler& handler, Sender* sender, Args* args) {
        try {
            return {handler.Invoke(sender, args), false, {}};
        } catch (const std::exception& error) {
            return {S_OK, true, error.what()};
        } catch (...) {
            return {S_OK, true, "something that is no standard exception"};
        }
    }

    Mutex mutex_;
    Handlers handlers_;
    std::int64_t last_token_ = 0;
};

}  // namespace dialsim
