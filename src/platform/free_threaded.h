// A delegate that is the same object in every apartment, also for a caller that marshals it instead of
// querying for IAgileObject.
#pragma once

#include <atomic>

#include "platform/delegate.h"
#include "platform/functions.h"

namespace brindle {

template <class Handler, class Action>
class FreeThreadedDelegate final : public Delegate<Handler, Action> {
public:
    explicit FreeThreadedDelegate(Action&& action) : Delegate<Handler, Action>(std::move(action)) {}

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
        if (object == nullptr || !abi::SameId(iid, abi::IMarshalIid)) {
            return Delegate<Handler, Action>::QueryInterface(iid, object);
        }
        *object = nullptr;
        const HRESULT code = MakeMarshaler();
        return code < 0 ? code : marshaler_.load()->QueryInterface(iid, object);
    }

private:
    ~FreeThreadedDelegate() override {
        if (abi::IUnknown* marshaler = marshaler_) {
            marshaler->Release();
        }
    }

    // The platform's free-threaded marshaler, aggregated: its IMarshal counts references on this object. Two
    // threads may create one at once; the first is kept.
    HRESULT MakeMarshaler() noexcept {
        if (marshaler_ != nullptr) {
            return S_OK;
        }
        ComPtr<abi::IUnknown> made;
        const HRESULT code =
            CoCreateFreeThreadedMarshaler(reinterpret_cast<::IUnknown*>(static_cast<abi::IUnknown*>(this)),
                                          reinterpret_cast<::IUnknown**>(made.Put()));
        if (code < 0 || !made) {
            return code < 0 ? code : E_NOINTERFACE;
        }
        abi::IUnknown* none = nullptr;
        if (marshaler_.compare_exchange_strong(none, made.Get())) {
            made.Detach();
        }
        return S_OK;
    }

    std::atomic<abi::IUnknown*> marshaler_ = nullptr;
};

// Null without memory.
template <class Handler, class Action>
ComPtr<Handler> MakeFreeThreadedDelegate(Action&& action) noexcept {
    return ComPtr<Handler>::Attach(new (std::nothrow)
                                       FreeThreadedDelegate<Handler, Action>(std::forward<Action>(action)));
}

}  // namespace brindle
