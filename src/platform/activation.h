// Activation factories.
#pragma once

#include <string_view>

#include "platform/com_ptr.h"
#include "platform/strings.h"

namespace brindle {

template <class RuntimeClass>
inline constexpr auto kClassName = Wide(RuntimeClass::Name);

template <class RuntimeClass>
constexpr std::basic_string_view<WCHAR> ClassName() noexcept {
    return {kClassName<RuntimeClass>.data(), kClassName<RuntimeClass>.size() - 1};
}

// A success that yields nothing counts as a failure. What was held before is released first.
inline HRESULT GetFactory(const StringReference& class_name, const GUID& iid,
                          abi::IUnknown*& factory) noexcept {
    ReleaseReference(std::exchange(factory, nullptr));
    const HRESULT code = RoGetActivationFactory(class_name.Get(), iid, reinterpret_cast<void**>(&factory));
    return code >= 0 && factory == nullptr ? E_NOINTERFACE : code;
}

inline HRESULT GetFactory(const WCHAR* class_name, std::size_t length, const GUID& iid,
                          abi::IUnknown*& factory) noexcept {
    StringReference string;
    const HRESULT code = string.Create({class_name, length});
    return code < 0 ? code : GetFactory(string, iid, factory);
}

template <class Factory>
HRESULT GetFactory(const StringReference& class_name, ComPtr<Factory>& factory) noexcept {
    abi::IUnknown* untyped = factory.Detach();
    const HRESULT code = GetFactory(class_name, Factory::Iid, untyped);
    *factory.Put() = static_cast<Factory*>(untyped);
    return code;
}

template <class RuntimeClass, class Factory>
HRESULT GetFactory(ComPtr<Factory>& factory) noexcept {
    constexpr auto name = ClassName<RuntimeClass>();
    abi::IUnknown* untyped = factory.Detach();
    const HRESULT code = GetFactory(name.data(), name.size(), Factory::Iid, untyped);
    *factory.Put() = static_cast<Factory*>(untyped);
    return code;
}

}  // namespace brindle
