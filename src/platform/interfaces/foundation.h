// The base interfaces, the delegates, and asynchronous operations.
//
// The order of the virtual functions is the binary interface: do not add, move or overload any. There is no
// virtual destructor, which would take slots of its own; objects are deleted by their own Release().
#pragma once

#include <cstdint>

#include "platform/interfaces/signature.h"
#include "platform/types.h"

namespace brindle::abi {

struct IUnknown {
    static constexpr GUID Iid = Id("00000000-0000-0000-c000-000000000046");
    virtual HRESULT QueryInterface(const GUID& iid, void** object) noexcept = 0;
    virtual std::uint32_t AddRef() noexcept = 0;
    virtual std::uint32_t Release() noexcept = 0;

protected:
    ~IUnknown() = default;
};

struct IInspectable : IUnknown {
    static constexpr GUID Iid = Id("af86e2e0-b12d-4c6a-9c5a-d7aa65101e90");
    virtual HRESULT GetIids(std::uint32_t* iidCount, GUID** iids) noexcept = 0;
    virtual HRESULT GetRuntimeClassName(HSTRING* className) noexcept = 0;
    virtual HRESULT GetTrustLevel(TrustLevel* trustLevel) noexcept = 0;

protected:
    ~IInspectable() = default;
};

struct IActivationFactory : IInspectable {
    static constexpr GUID Iid = Id("00000035-0000-0000-c000-000000000046");
    virtual HRESULT ActivateInstance(IInspectable** instance) noexcept = 0;

protected:
    ~IActivationFactory() = default;
};

// A marker interface: the object may be called from any thread.
struct IAgileObject : IUnknown {
    static constexpr GUID Iid = Id("94ea2b94-e9cc-49e0-c0ff-ee64ca8f5b90");

protected:
    ~IAgileObject() = default;
};

// Only queried for; the platform's free-threaded marshaler implements it.
inline constexpr GUID IMarshalIid = Id("00000003-0000-0000-c000-000000000046");

// Invoke of a delegate is not noexcept: an exception of an event handler leaves it
// (Delegates.AnExceptionOfTheActionLeavesInvoke).
template <class Sender, class Args>
struct TypedEventHandler : IUnknown {
    static constexpr GUID GenericId = Id("9de1c534-6ae1-11e0-84e1-18a905bcc53f");
    static constexpr GUID Iid = ParameterisedId(Signature<TypedEventHandler>::Text);
    virtual HRESULT Invoke(Abi<Sender> sender, Abi<Args> args) = 0;

protected:
    ~TypedEventHandler() = default;
};

template <class Result>
struct IAsyncOperation;

template <class Result>
struct AsyncOperationCompletedHandler : IUnknown {
    static constexpr GUID GenericId = Id("fcdcf02c-e5d8-4478-915a-4d90b74b83a5");
    static constexpr GUID Iid = ParameterisedId(Signature<AsyncOperationCompletedHandler>::Text);
    virtual HRESULT Invoke(IAsyncOperation<Result>* asyncInfo, AsyncStatus asyncStatus) = 0;

protected:
    ~AsyncOperationCompletedHandler() = default;
};

struct IAsyncInfo : IInspectable {
    static constexpr GUID Iid = Id("00000036-0000-0000-c000-000000000046");
    virtual HRESULT get_Id(std::uint32_t* result) noexcept = 0;
    virtual HRESULT get_Status(AsyncStatus* result) noexcept = 0;
    virtual HRESULT get_ErrorCode(HRESULT* result) noexcept = 0;
    virtual HRESULT Cancel() noexcept = 0;
    virtual HRESULT Close() noexcept = 0;

protected:
    ~IAsyncInfo() = default;
};

// Not derived from IAsyncInfo: an operation is queried for it.
template <class Result>
struct IAsyncOperation : IInspectable {
    static constexpr GUID GenericId = Id("9fc2b0bb-e446-44e2-aa61-9cab8f636af2");
    static constexpr GUID Iid = ParameterisedId(Signature<IAsyncOperation>::Text);
    virtual HRESULT put_Completed(AsyncOperationCompletedHandler<Result>* handler) noexcept = 0;
    virtual HRESULT get_Completed(AsyncOperationCompletedHandler<Result>** result) noexcept = 0;
    virtual HRESULT GetResults(Abi<Result>* result) noexcept = 0;

protected:
    ~IAsyncOperation() = default;
};

}  // namespace brindle::abi
