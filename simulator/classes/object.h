// Reference counting of the simulator's objects, independent of the library's.
#pragma once

#include <atomic>
#include <string>
#include <string_view>
#include <utility>

#include "platform/interfaces/foundation.h"
#include "simulator/functions/strings.h"
#include "simulator/instruments/journal.h"
#include "simulator/instruments/leak_tracker.h"
#include "simulator/instruments/type_names.h"

namespace dialsim {

namespace abi = brindle::abi;

// A counted reference.
template <class T>
class Ref {
public:
    Ref() = default;
    explicit Ref(T* object) : object_(object) {
        if (object_ != nullptr) {
            object_->AddRef();
        }
    }
    Ref(const Ref& other) : Ref(other.object_) {}
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() {
        if (object_ != nullptr) {
            object_->Release();
        }
    }

    // Takes ownership of a reference.
    static Ref Attach(T* object) {
        Ref ref;
        ref.object_ = object;
        return ref;
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    // Returns a reference to the caller.
    template <class Interface>
    HRESULT CopyTo(Interface** result) const {
        if (object_ != nullptr) {
            object_->AddRef();
        }
        *result = object_;
        return S_OK;
    }

private:
    T* object_ = nullptr;
};

template <class T, class... Arguments>
Ref<T> Make(Arguments&&... arguments) {
    return Ref<T>::Attach(new T(std::forward<Arguments>(arguments)...));
}

// Null when the object does not implement the interface.
template <class Wanted>
Ref<Wanted> QueryFor(abi::IUnknown* object) {
    void* found = nullptr;
    object->QueryInterface(Wanted::Iid, &found);
    return Ref<Wanted>::Attach(static_cast<Wanted*>(found));
}

// The objects of the simulator answer it, and no others.
inline constexpr GUID kOwnObject = abi::Id("7029315f-e6eb-4275-9b01-09fbe556f00b");

// The object as its class in the simulator; null for null and for another implementation. The object is
// queried first, because dynamic_cast must not see objects of other compilers, such as the system's.
template <class Own, class Interface>
Own* OwnObject(Interface* object) {
    void* own = nullptr;
    if (object == nullptr || object->QueryInterface(kOwnObject, &own) < 0) {
        return nullptr;
    }
    object->Release();
    return dynamic_cast<Own*>(object);
}

// An object of a runtime class, created with one reference; its default interface is the first base. A query
// for a published interface is a journaled operation, "QueryInterface(IPropertyValue)"; one for IUnknown,
// IInspectable or IAgileObject is not.
template <class Default, class... More>
class Object : public Default, public More... {
public:
    explicit Object(std::string_view class_name) : class_name_(class_name) {
        TheLeakTracker().TrackObject(this, class_name, references_);
    }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept final {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (abi::SameId(iid, abi::IUnknown::Iid) || abi::SameId(iid, abi::IInspectable::Iid) ||
            abi::SameId(iid, abi::IAgileObject::Iid) || abi::SameId(iid, kOwnObject)) {
            return ReturnInterface<Default>(object);
        }
        HRESULT code = E_NOINTERFACE;
        (TryQuery<Default>(iid, object, code) || ... || TryQuery<More>(iid, object, code));
        return code;
    }
    std::uint32_t AddRef() noexcept final { return ++references_; }
    std::uint32_t Release() noexcept final {
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    HRESULT GetIids(std::uint32_t* count, GUID** iids) noexcept final {
        // Only language projections call this, and the simulator has no CoTaskMemAlloc for the list.
        *count = 0;
        *iids = nullptr;
        return E_NOTIMPL;
    }
    HRESULT GetRuntimeClassName(HSTRING* name) noexcept final { return NewString(Widen(class_name_), name); }
    HRESULT GetTrustLevel(abi::TrustLevel* level) noexcept final {
        *level = abi::TrustLevel::BaseTrust;
        return S_OK;
    }

    // Adds a reference unless the object is being destroyed.
    bool TryAddRef() noexcept {
        std::uint32_t count = references_;
        while (count != 0 && !references_.compare_exchange_weak(count, count + 1)) {
        }
        return count != 0;
    }

protected:
    // Objects are deleted by Release only.
    virtual ~Object() { TheLeakTracker().UntrackObject(this); }

private:
    template <class Interface>
    HRESULT ReturnInterface(void** object) noexcept {
        AddRef();
        *object = static_cast<Interface*>(this);
        return S_OK;
    }
    template <class Interface>
    bool TryQuery(const GUID& iid, void** object, HRESULT& code) noexcept {
        if (!abi::SameId(iid, Interface::Iid)) {
            return false;
        }
        code = Perform("QueryInterface", TypeName<Interface>(),
                       [&] { return ReturnInterface<Interface>(object); });
        return true;
    }

    std::atomic<std::uint32_t> references_{1};
    std::string_view class_name_;
};

}  // namespace dialsim
