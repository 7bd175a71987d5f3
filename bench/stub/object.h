// Base classes of the stub platform's objects.
#pragma once

#include <cstdint>
#include <cstring>

#include "bench/stub/calls.h"
#include "platform/interfaces/foundation.h"

namespace stub {

namespace abi = brindle::abi;

inline constexpr HRESULT kOutOfBounds = static_cast<HRESULT>(0x8000000B);   // E_BOUNDS
inline constexpr HRESULT kNotFound = static_cast<HRESULT>(0x80070490);      // ERROR_NOT_FOUND
inline constexpr HRESULT kTypeMismatch = static_cast<HRESULT>(0x80028CA0);  // TYPE_E_TYPEMISMATCH

// Compares identifiers as two 64-bit numbers.
inline bool SameId(const GUID& left, const GUID& right) noexcept {
    return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}

template <class Default, class... More>
class ObjectBase : public Default, public More... {
public:
    ObjectBase() = default;
    ObjectBase(const ObjectBase&) = delete;
    ObjectBase& operator=(const ObjectBase&) = delete;

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
    ~ObjectBase() = default;

private:
    template <class Interface>
    bool Answers(const GUID& iid, void** object) noexcept {
        if (!SameId(iid, Interface::Iid)) {
            return false;
        }
        STUB_RECORD_CALL();
        static_cast<Default*>(this)->AddRef();
        *object = static_cast<Interface*>(this);
        return true;
    }
};

// A static object or a member: not reference-counted.
template <class Default, class... More>
class StaticObject : public ObjectBase<Default, More...> {
public:
    std::uint32_t AddRef() noexcept final {
        STUB_RECORD_CALL();
        return 2;
    }
    std::uint32_t Release() noexcept final {
        STUB_RECORD_CALL();
        return 1;
    }

protected:
    ~StaticObject() = default;
};

// Created with one reference.
template <class Default, class... More>
class Counted : public ObjectBase<Default, More...> {
public:
    std::uint32_t AddRef() noexcept final {
        STUB_RECORD_CALL();
        return ++references_;
    }
    std::uint32_t Release() noexcept final {
        STUB_RECORD_CALL();
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

// Returns a reference to the caller.
template <class Object, class Interface>
HRESULT ReturnReference(Object* object, Interface** result) noexcept {
    if (object != nullptr) {
        object->AddRef();
    }
    *result = object;
    return S_OK;
}

// Stores a reference to the new object and releases the old one.
template <class Interface>
void StoreReference(Interface*& place, Interface* object) noexcept {
    if (object != nullptr) {
        object->AddRef();
    }
    if (place != nullptr) {
        place->Release();
    }
    place = object;
}

}  // namespace stub
