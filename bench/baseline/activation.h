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
HRESULT GetFactoryOrNull(Factory*& factory) {
    if (factory != nullptr) {
        factory->Release();
        factory = nullptr;
    }
    HSTRING_HEADER header;
    HSTRING name = nullptr;
    const HRESULT code = WindowsCreateStringReference(kName<RuntimeClass>.data(),
                                                      kName<RuntimeClass>.size() - 1, &header, &name);
    return code < 0 ? code : RoGetActivationFactory(name, Factory::Iid, reinterpret_cast<void**>(&factory));
}

// A null factory or interface under a success code counts as a failure (docs/guarantees.md).
template <class RuntimeClass, class Factory>
HRESULT GetFactory(Factory*& factory) {
    const HRESULT code = GetFactoryOrNull<RuntimeClass>(factory);
    return code >= 0 && factory == nullptr ? E_NOINTERFACE : code;
}

template <class Interface, class Object>
HRESULT Query(Object* object, Interface*& result) {
    const HRESULT code = object->QueryInterface(Interface::Iid, reinterpret_cast<void**>(&result));
    return code >= 0 && result == nullptr ? E_NOINTERFACE : code;
}

// A platform failure that leaves a handler or an export as an exception; out of memory is a std::bad_alloc.
struct Failure {
    HRESULT code;
};

[[noreturn]] void Raise(HRESULT code);

// The line of a step that fails and does not end its operation.
void LogFailure(const char* step, HRESULT code, int line);

}  // namespace baseline
