// A smart pointer that owns a reference to a platform object.
#pragma once

#include <utility>

#include "platform/interfaces/foundation.h"

namespace brindle {

template <class Interface>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(const ComPtr& other) noexcept : pointer_(other.pointer_) {
        if (pointer_ != nullptr) {
            pointer_->AddRef();
        }
    }
    ComPtr(ComPtr&& other) noexcept : pointer_(other.Detach()) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() {
        if (pointer_ != nullptr) {
            pointer_->Release();
        }
    }

    // Takes over a reference that the caller owns.
    static ComPtr Attach(Interface* pointer) noexcept {
        ComPtr owner;
        owner.pointer_ = pointer;
        return owner;
    }

    Interface* Get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    // Cleared before the release: the object's destructor may call back and must find null here
    // (OwnedReferences.AReentrantReleaseInResetReadsNull).
    void Reset() noexcept {
        if (Interface* former = Detach()) {
            former->Release();
        }
    }
    Interface* Detach() noexcept { return std::exchange(pointer_, nullptr); }

    // For an out parameter; the former reference is released first.
    Interface** Put() noexcept {
        Reset();
        return &pointer_;
    }

private:
    Interface* pointer_ = nullptr;
};

// Its destructor also clears it before the release: for a member that an event reads.
template <class Interface>
class ClearedComPtr : public ComPtr<Interface> {
public:
    using ComPtr<Interface>::operator=;
    ~ClearedComPtr() { this->Reset(); }
};

// A success that yields null counts as a failure.
inline HRESULT Query(abi::IUnknown* object, const GUID& iid, void** result) noexcept {
    const HRESULT code = object->QueryInterface(iid, result);
    return code >= 0 && *result == nullptr ? E_NOINTERFACE : code;
}

template <class Wanted>
HRESULT Query(abi::IUnknown* object, ComPtr<Wanted>& result) noexcept {
    return Query(object, Wanted::Iid, reinterpret_cast<void**>(result.Put()));
}

}  // namespace brindle
