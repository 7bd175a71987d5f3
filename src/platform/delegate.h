// Delegates: one template for every event handler and completion handler.
#pragma once

#include <new>
#include <utility>

#include "platform/implements.h"

namespace brindle {

// `Action` runs inside Invoke, on the thread that the platform raises the event on; its exceptions leave
// Invoke.
template <class Handler, class Action, class Signature = decltype(&Handler::Invoke)>
class Delegate;

template <class Handler, class Action, class... Parameters>
class Delegate<Handler, Action, HRESULT (Handler::*)(Parameters...)> : public Implements<Handler> {
public:
    explicit Delegate(Action&& action) : action_(std::move(action)) {}

    HRESULT Invoke(Parameters... parameters) override { return action_(parameters...); }

private:
    Action action_;
};

// Null without memory.
template <class Handler, class Action>
ComPtr<Handler> MakeDelegate(Action&& action) noexcept {
    return ComPtr<Handler>::Attach(new (std::nothrow)
                                       Delegate<Handler, Action>(std::forward<Action>(action)));
}

}  // namespace brindle
