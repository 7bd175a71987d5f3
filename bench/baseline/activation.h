#pragma once

#include <array>
#include <cstddef>

#include "platform/functions.h"

namespace baseline {

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

// Releases the former factory before it creates the string of the class name.
template <class RuntimeClass, class Factory>
HRESULT GetFactory(Factory*& factory) {
    if (factory != nullptr) {
        factory->Release();
        factory = nullptr;
    }
    HSTRING_HEADER header;
    HSTRING name = nullptr;
    WindowsCreateStringReference(kName<RuntimeClass>.data(), kName<RuntimeClass>.size() - 1, &header, &name);
    return RoGetActivationFactory(name, Factory::Iid, reinterpret_cast<void**>(&factory));
}

template <class Interface, class Object>
HRESULT Query(Object* object, Interface*& result) {
    return object->QueryInterface(Interface::Iid, reinterpret_cast<void**>(&result));
}

}  // namespace baseline
