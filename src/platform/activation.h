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

// Releases the former factory first, before it creates the string of the class name
// (CustomMenu.TheFormerFactoryForKnownIconsGoesBeforeTheNextOnesNameIsMade). Null when the platform succeeds
// and yields null.
inline HRESULT GetFactoryOrNull(std::basic_string_view<WCHAR> class_name, const GUID& iid,
                                abi::IUnknown*& factory) noexcept {
    ReleaseReference(std::exchange(factory, nullptr));
    StringReference string;
    const HRESULT code = string.Create(class_name);
    return code < 0 ? code : RoGetActivationFactory(string.Get(), iid, reinterpret_cast<void**>(&factory));
}

template <class RuntimeClass, class Factory>
HRESULT GetFactoryOrNull(ComPtr<Factory>& factory) noexcept {
    abi::IUnknown* untyped = factory.Detach();
    const HRESULT code = GetFactoryOrNull(ClassName<RuntimeClass>(), Factory::Iid, untyped);
    *factory.Put() = static_cast<Factory*>(untyped);
    return code;
}

// A success that yields null counts as a failure.
template <class RuntimeClass, class Factory>
HRESULT GetFactory(ComPtr<Factory>& factory) noexcept {
    const HRESULT code = GetFactoryOrNull<RuntimeClass>(factory);
    return code >= 0 && !factory ? E_NOINTERFACE : code;
}

}  // namespace brindle
