// Type arguments of the parameterised interfaces: their ABI types and their type signatures.
#pragma once

#include <type_traits>

#include "platform/identifiers.h"

namespace brindle::abi {

struct IInspectable;

// A runtime class is declared as a tag with its full Name and its Default interface.
template <class T>
concept RuntimeClass = requires {
    typename T::Default;
};

namespace detail {

template <class T>
struct AbiOf {
    static_assert(std::is_class_v<T>);
    using Type = T*;
};

template <RuntimeClass T>
struct AbiOf<T> {
    using Type = typename T::Default*;
};

template <class T>
requires std::is_enum_v<T>
struct AbiOf<T> {
    using Type = T;
};

template <>
struct AbiOf<HSTRING> {
    using Type = HSTRING;
};

}  // namespace detail

// The ABI type: for a class tag a pointer to its default interface, for an interface a pointer to it, for a
// value type the type.
template <class T>
using Abi = typename detail::AbiOf<T>::Type;

// An enumeration that is a type argument specialises this next to its declaration.
template <class T>
struct Signature {
    static constexpr auto Text = IdText(T::Iid);
};

template <RuntimeClass T>
struct Signature<T> {
    static constexpr auto Text =
        FixedText("rc(") + T::Name + ";" + Signature<typename T::Default>::Text + ")";
};

template <>
struct Signature<HSTRING> {
    static constexpr auto Text = FixedText("string");
};

template <>
struct Signature<IInspectable> {
    static constexpr auto Text = FixedText("cinterface(IInspectable)");
};

template <template <class...> class Generic, class... Arguments>
struct Signature<Generic<Arguments...>> {
    static constexpr auto Text = FixedText("pinterface(") + IdText(Generic<Arguments...>::GenericId) +
                                 (... + (FixedText(";") + Signature<Arguments>::Text)) + ")";
};

}  // namespace brindle::abi
