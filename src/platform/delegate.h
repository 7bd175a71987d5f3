// A callback object that the platform keeps: one template for every event handler and completion handler.
#pragma once

#include <atomic>
#include <cstdint>
#include <new>
#include <utility>

#include "platform/com_ptr.h"

namespace brindle {

// Made with one reference. Agile: the platform calls it directly on the thread that it raises the event on,
// and the last reference may go on any thread, so the count is atomic. `Action` runs inside Invoke; what it
// throws leaves Invoke.
template <class Handler, class Action, class Signature = decltype(&Handler::Invoke)>
class Delegate;

template <class Handler, class Action, class... Parameters>
class Delegate<Handler, Action, HRESULT (Handler::*)(Parameters...)> final : public Handler {
public:
    explicit Delegate(Action action) : action_(std::move(action)) {}

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
        if (object == nullptr) {
            return E_POINTER;
        }
        const bool answered = abi::SameId(iid, Handler::Iid) || abi::SameId(iid, abi::IUnknown::Iid) ||
                              abi::SameId(iid, abi::IAgileObject::Iid);
        *object = answered ? static_cast<Handler*>(this) : nullptr;
        if (!answered) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    std::uint32_t AddRef() noexcept override { return references_.fetch_add(1) + 1; }
    std::uint32_t Release() noexcept override {
        const std::uint32_t left = references_.fetch_sub(1) - 1;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    HRESULT Invoke(Parameters... parameters) override { return action_(parameters...); }

private:
    ~Delegate() = default;

    std::atomic<std::uint32_t> references_{1};
    Action action_;
};

// Empty when there is no memory for it.
template <class Handler, class Action>
ComPtr<Handler> MakeDelegate(Action action) noexcept {
    return ComPtr<Handler>::Own(new (std::nothrow) Delegate<Handler, Action>(std::move(action)));
}

}  // namespace brindle
