// What an object of the library's own needs to be one of the platform's.
#pragma once

#include <atomic>
#include <cstdint>
#include <type_traits>

#include "platform/com_ptr.h"

namespace brindle {

// Counted, made with one reference, and agile: the platform may call the object on any thread and let it go
// on any, so the count is atomic.
template <class Interface>
class Implements : public Interface {
public:
    Implements() = default;
    Implements(const Implements&) = delete;
    Implements& operator=(const Implements&) = delete;

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept final {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (!Answers(iid)) {
            return QueryMore(iid, object);
        }
        AddRef();
        *object = static_cast<Interface*>(this);
        return S_OK;
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

    // What the object answers beyond its interface, the roots and the agility marker.
    virtual HRESULT QueryMore(const GUID& /*iid*/, void** /*object*/) noexcept { return E_NOINTERFACE; }

private:
    static bool Answers(const GUID& iid) noexcept {
        return abi::SameId(iid, Interface::Iid) || abi::SameId(iid, abi::IUnknown::Iid) ||
               abi::SameId(iid, abi::IAgileObject::Iid) ||
               (std::is_base_of_v<abi::IInspectable, Interface> && abi::SameId(iid, abi::IInspectable::Iid));
    }

    std::atomic<std::uint32_t> references_{1};
};

// The same with the roots of a Windows Runtime interface: an object without a class of its own.
template <class Interface>
class ImplementsInspectable : public Implements<Interface> {
public:
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
