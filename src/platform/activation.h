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

// A success that yields nothing counts as a failure.
template <class Factory>
HRESULT GetFactory(const StringReference& class_name, ComPtr<Factory>& factory) noexcept {
    const HRESULT code =
        RoGetActivationFactory(class_name.Get(), Factory::Iid, reinterpret_cast<void**>(factory.Put()));
    return code >= 0 && !factory ? E_NOINTERFACE : code;
}

template <class RuntimeClass, class Factory>
HRESULT GetFactory(ComPtr<Factory>& factory) noexcept {
    StringReference class_name;
    if (const HRESULT code = class_name.Create(ClassName<RuntimeClass>()); code < 0) {
        return code;
    }
    return GetFactory(class_name, factory);
}

}  // namespace brindle
