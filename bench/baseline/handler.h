#pragma once

#include <atomic>
#include <cstdint>

#include "platform/interfaces/foundation.h"

namespace baseline {

namespace abi = brindle::abi;

// Base class of the event handlers.
template <class Handler>
class Counted : public Handler {
public:
    HRESULT QueryInterface(const GUID& iid, void** object) noexcept final {
        if (!abi::SameId(iid, Handler::Iid) && !abi::SameId(iid, abi::IUnknown::Iid) &&
            !abi::SameId(iid, abi::IAgileObject::Iid)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        *object = static_cast<Handler*>(this);
        return S_OK;
    }
    std::uint32_t AddRef() noexcept final { return ++references_; }
    std::uint32_t Release() noexcept final {
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    virtual ~Counted() = default;

private:
    std::atomic<std::uint32_t> references_{1};
};

}  // namespace baseline
