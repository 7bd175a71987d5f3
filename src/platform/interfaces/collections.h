#pragma once

#include <cstdint>

#include "platform/interfaces/foundation.h"

namespace brindle::abi {

template <class T>
struct IIterator : IInspectable {
    static constexpr GUID GenericId = Id("6a79e863-4300-459a-9966-cbb660963ee1");
    static constexpr GUID Iid = ParameterisedId(Signature<IIterator>::Text);
    virtual HRESULT get_Current(Abi<T>* result) noexcept = 0;
    virtual HRESULT get_HasCurrent(boolean* result) noexcept = 0;
    virtual HRESULT MoveNext(boolean* result) noexcept = 0;
    virtual HRESULT GetMany(std::uint32_t n, Abi<T>* items, std::uint32_t* result) noexcept = 0;

protected:
    ~IIterator() = default;
};

template <class T>
struct IIterable : IInspectable {
    static constexpr GUID GenericId = Id("faa585ea-6214-4217-afda-7f46de5869b3");
    static constexpr GUID Iid = ParameterisedId(Signature<IIterable>::Text);
    virtual HRESULT First(IIterator<T>** result) noexcept = 0;

protected:
    ~IIterable() = default;
};

template <class T>
struct IVectorView : IInspectable {
    static constexpr GUID GenericId = Id("bbe1fa4c-b0e3-4583-baef-1f1b2e483e56");
    static constexpr GUID Iid = ParameterisedId(Signature<IVectorView>::Text);
    virtual HRESULT GetAt(std::uint32_t index, Abi<T>* result) noexcept = 0;
    virtual HRESULT get_Size(std::uint32_t* result) noexcept = 0;
    virtual HRESULT IndexOf(Abi<T> value, std::uint32_t* index, boolean* result) noexcept = 0;
    virtual HRESULT GetMany(std::uint32_t startIndex, std::uint32_t n, Abi<T>* items,
                            std::uint32_t* result) noexcept = 0;

protected:
    ~IVectorView() = default;
};

template <class T>
struct IVector : IInspectable {
    static constexpr GUID GenericId = Id("913337e9-11a1-4345-a3a2-4e7f956e222d");
    static constexpr GUID Iid = ParameterisedId(Signature<IVector>::Text);
    virtual HRESULT GetAt(std::uint32_t index, Abi<T>* result) noexcept = 0;
    virtual HRESULT get_Size(std::uint32_t* result) noexcept = 0;
    virtual HRESULT GetView(IVectorView<T>** result) noexcept = 0;
    virtual HRESULT IndexOf(Abi<T> value, std::uint32_t* index, boolean* result) noexcept = 0;
    virtual HRESULT SetAt(std::uint32_t index, Abi<T> value) noexcept = 0;
    virtual HRESULT InsertAt(std::uint32_t index, Abi<T> value) noexcept = 0;
    virtual HRESULT RemoveAt(std::uint32_t index) noexcept = 0;
    virtual HRESULT Append(Abi<T> value) noexcept = 0;
    virtual HRESULT RemoveAtEnd() noexcept = 0;
    virtual HRESULT Clear() noexcept = 0;
    virtual HRESULT GetMany(std::uint32_t startIndex, std::uint32_t n, Abi<T>* items,
                            std::uint32_t* result) noexcept = 0;
    virtual HRESULT ReplaceAll(std::uint32_t n, Abi<T>* items) noexcept = 0;

protected:
    ~IVector() = default;
};

template <class Key, class Value>
struct IMapView;  // Opaque: declared for the signatures of the slots.

template <class Key, class Value>
struct IMap : IInspectable {
    static constexpr GUID GenericId = Id("3c2925fe-8519-45c1-aa79-197b6718c1c1");
    static constexpr GUID Iid = ParameterisedId(Signature<IMap>::Text);
    virtual HRESULT Lookup(Abi<Key> key, Abi<Value>* result) noexcept = 0;
    virtual HRESULT get_Size(std::uint32_t* result) noexcept = 0;
    virtual HRESULT HasKey(Abi<Key> key, boolean* result) noexcept = 0;
    virtual HRESULT GetView(IMapView<Key, Value>** result) noexcept = 0;
    virtual HRESULT Insert(Abi<Key> key, Abi<Value> value, boolean* result) noexcept = 0;
    virtual HRESULT Remove(Abi<Key> key) noexcept = 0;
    virtual HRESULT Clear() noexcept = 0;

protected:
    ~IMap() = default;
};

// Without methods of its own: it is queried for IMap<HSTRING, IInspectable>.
struct IPropertySet : IInspectable {
    static constexpr GUID Iid = Id("8a43ed9f-f4e6-4421-acf9-1dab2986820c");

protected:
    ~IPropertySet() = default;
};

}  // namespace brindle::abi
