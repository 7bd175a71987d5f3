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

template <class Factory>
HRESULT GetFactory(const StringReference& className, ComPtr<Factory>& factory) noexcept {
    return RoGetActivationFactory(className.Get(), Factory::Iid, reinterpret_cast<void**>(factory.Put()));
}

template <class RuntimeClass, class Factory>
HRESULT GetFactory(ComPtr<Factory>& factory) noexcept {
    StringReference className;
    if (const HRESULT code = className.Create(ClassName<RuntimeClass>()); code < 0) {
        return code;
    }
    return GetFactory(className, factory);
}

}  // namespace brindle
