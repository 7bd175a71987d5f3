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

// Null when the platform succeeds and yields null.
inline HRESULT GetFactoryOrNull(std::basic_string_view<WCHAR> class_name, const GUID& iid,
                                void** factory) noexcept {
    StringReference string;
    const HRESULT code = string.Create(class_name);
    return code < 0 ? code : RoGetActivationFactory(string.Get(), iid, factory);
}

// A success that yields null counts as a failure.
inline HRESULT GetFactory(std::basic_string_view<WCHAR> class_name, const GUID& iid,
                          void** factory) noexcept {
    const HRESULT code = GetFactoryOrNull(class_name, iid, factory);
    return code >= 0 && *factory == nullptr ? E_NOINTERFACE : code;
}

// Both release the former factory first, before the string of the class name is created
// (CustomMenu.TheFormerFactoryForKnownIconsGoesBeforeTheNextOnesNameIsMade).

// An event inside the call may store a factory too: it is released and replaced
// (MenuMadeInACall.WhileTheFactoryOfIconsIsFetchedIsJoinedByTheItemAndLeavesNoReference).
template <class RuntimeClass, class Factory>
HRESULT GetFactoryOrNull(ComPtr<Factory>& factory) noexcept {
    factory.Reset();
    ComPtr<Factory> found;
    const HRESULT code =
        GetFactoryOrNull(ClassName<RuntimeClass>(), Factory::Iid, reinterpret_cast<void**>(found.Put()));
    factory = std::move(found);
    return code;
}

template <class RuntimeClass, class Factory>
HRESULT GetFactory(ComPtr<Factory>& factory) noexcept {
    return GetFactory(ClassName<RuntimeClass>(), Factory::Iid, reinterpret_cast<void**>(factory.Put()));
}

}  // namespace brindle
