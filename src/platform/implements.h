// Base classes for the library's own platform objects.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/com_ptr.h"

namespace brindle {

// Answers for the object's own interface, IUnknown and IAgileObject.
inline HRESULT AnswerQuery(abi::IUnknown& self, const GUID& own, const GUID& iid, void** object) noexcept {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (!abi::SameId(iid, own) && !abi::SameId(iid, abi::IUnknown::Iid) &&
        !abi::SameId(iid, abi::IAgileObject::Iid)) {
        return E_NOINTERFACE;
    }
    self.AddRef();
    *object = &self;
    return S_OK;
}

// Reference-counted, created with one reference, and agile: the platform may call and release the object on
// any thread, so the count is atomic.
template <class Interface>
class Implements : public Interface {
public:
    Implements() = default;
    Implements(const Implements&) = delete;
    Implements& operator=(const Implements&) = delete;

    // A class with more interfaces overrides it.
    HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
        return AnswerQuery(*this, Interface::Iid, iid, object);
    }
    std::uint32_t AddRef() noexcept final { return references_.fetch_add(1) + 1; }
    std::uint32_t Release() noexcept final {
        const std::uint32_t left = references_.fetch_sub(1) - 1;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    virtual ~Implements() = default;

private:
    std::atomic<std::uint32_t> references_{1};
};

// The same with IInspectable: an object without a runtime class name.
template <class Interface>
class ImplementsInspectable : public Implements<Interface> {
public:
    HRESULT QueryInterface(const GUID& iid, void** object) noexcept final {
        const HRESULT code = Implements<Interface>::QueryInterface(iid, object);
        return code == E_NOINTERFACE ? AnswerQuery(*this, abi::IInspectable::Iid, iid, object) : code;
    }
    HRESULT GetIids(std::uint32_t* count, GUID** iids) noexcept final {
        *count = 0;
        *iids = nullptr;
        return S_OK;
    }
    HRESULT GetRuntimeClassName(HSTRING* name) noexcept final {
        *name = nullptr;
        return S_OK;
    }
    HRESULT GetTrustLevel(abi::TrustLevel* level) noexcept final {
        *level = abi::TrustLevel::BaseTrust;
        return S_OK;
    }
};

}  // namespace brindle
