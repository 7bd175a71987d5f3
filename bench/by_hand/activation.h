#pragma once

#include <array>
#include <cstddef>

#include "platform/functions.h"

namespace by_hand {

template <std::size_t N>
consteval std::array<WCHAR, N> Wide(const char (&text)[N]) {
    std::array<WCHAR, N> wide{};
    for (std::size_t i = 0; i < N; ++i) {
        wide[i] = static_cast<WCHAR>(text[i]);
    }
    return wide;
}

template <class RuntimeClass>
inline constexpr auto kName = Wide(RuntimeClass::Name);

// Lets go of what the place held, when the class's name has been made.
template <class RuntimeClass, class Factory>
HRESULT GetFactory(Factory*& factory) {
    HSTRING_HEADER header;
    HSTRING name = nullptr;
    WindowsCreateStringReference(kName<RuntimeClass>.data(), kName<RuntimeClass>.size() - 1, &header, &name);
    if (factory != nullptr) {
        factory->Release();
        factory = nullptr;
    }
    return RoGetActivationFactory(name, Factory::Iid, reinterpret_cast<void**>(&factory));
}

template <class Interface, class Object>
HRESULT Query(Object* object, Interface*& result) {
    return object->QueryInterface(Interface::Iid, reinterpret_cast<void**>(&result));
}

}  // namespace by_hand
