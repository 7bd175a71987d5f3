// The roots of the lean platform's objects.
#pragma once

#include <cstdint>
#include <cstring>

#include "bench/stub/calls.h"
#include "platform/interfaces/foundation.h"

namespace lean {

namespace abi = brindle::abi;

inline constexpr HRESULT kOutOfBounds = static_cast<HRESULT>(0x8000000B);   // E_BOUNDS
inline constexpr HRESULT kNotFound = static_cast<HRESULT>(0x80070490);      // ERROR_NOT_FOUND
inline constexpr HRESULT kTypeMismatch = static_cast<HRESULT>(0x80028CA0);  // TYPE_E_TYPEMISMATCH

// All sixteen bytes at once.
inline bool SameId(const GUID& left, const GUID& right) noexcept {
    return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}

template <class Default, class... More>
class Rooted : public Default, public More... {
public:
    Rooted() = default;
    Rooted(const Rooted&) = delete;
    Rooted& operator=(const Rooted&) = delete;

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept final {
        if (Answers<Default>(iid, object) || (Answers<More>(iid, object) || ...)) {
            return S_OK;
        }
        *object = nullptr;
        return E_NOINTERFACE;
    }

    HRESULT GetIids(std::uint32_t*, GUID**) noexcept final { return E_NOTIMPL; }
    HRESULT GetRuntimeClassName(HSTRING*) noexcept final { return E_NOTIMPL; }
    HRESULT GetTrustLevel(abi::TrustLevel*) noexcept final { return E_NOTIMPL; }

protected:
    ~Rooted() = default;

private:
    template <class Interface>
    bool Answers(const GUID& iid, void** object) noexcept {
        if (!SameId(iid, Interface::Iid)) {
            return false;
        }
        LEAN_NOTE();
        static_cast<Default*>(this)->AddRef();
        *object = static_cast<Interface*>(this);
        return true;
    }
};

// There as long as the program, or as long as what it is a part of: nobody counts.
template <class Default, class... More>
class Fixed : public Rooted<Default, More...> {
public:
    std::uint32_t AddRef() noexcept final {
        LEAN_NOTE();
        return 2;
    }
    std::uint32_t Release() noexcept final {
        LEAN_NOTE();
        return 1;
    }

protected:
    ~Fixed() = default;
};

// Made with one reference.
template <class Default, class... More>
class Counted : public Rooted<Default, More...> {
public:
    std::uint32_t AddRef() noexcept final {
        LEAN_NOTE();
        return ++references_;
    }
    std::uint32_t Release() noexcept final {
        LEAN_NOTE();
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    virtual ~Counted() = default;

private:
    std::uint32_t references_ = 1;
};

// Hands a reference to the caller.
template <class Object, class Interface>
HRESULT Hand(Object* object, Interface** result) noexcept {
    if (object != nullptr) {
        object->AddRef();
    }
    *result = object;
    return S_OK;
}

// Keeps a reference to the new one in place of the old one.
template <class Interface>
void Keep(Interface*& place, Interface* object) noexcept {
    if (object != nullptr) {
        object->AddRef();
    }
    if (place != nullptr) {
        place->Release();
    }
    place = object;
}

}  // namespace lean
