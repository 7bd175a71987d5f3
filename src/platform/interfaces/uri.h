#pragma once

#include <cstdint>

#include "platform/interfaces/foundation.h"

namespace brindle::abi {

struct IUriRuntimeClass;

struct Uri {
    using Default = IUriRuntimeClass;
    static constexpr char Name[] = "Windows.Foundation.Uri";
};

struct WwwFormUrlDecoder;  // Opaque: declared for the signature of its slot.

struct IUriRuntimeClass : IInspectable {
    static constexpr GUID Iid = Id("9e365e57-48b2-4160-956f-c7385120bbfc");
    virtual HRESULT get_AbsoluteUri(HSTRING* result) noexcept = 0;
    virtual HRESULT get_DisplayUri(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Domain(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Extension(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Fragment(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Host(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Password(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Path(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Query(HSTRING* result) noexcept = 0;
    virtual HRESULT get_QueryParsed(WwwFormUrlDecoder** result) noexcept = 0;
    virtual HRESULT get_RawUri(HSTRING* result) noexcept = 0;
    virtual HRESULT get_SchemeName(HSTRING* result) noexcept = 0;
    virtual HRESULT get_UserName(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Port(std::int32_t* result) noexcept = 0;
    virtual HRESULT get_Suspicious(boolean* result) noexcept = 0;
    virtual HRESULT Equals(IUriRuntimeClass* pUri, boolean* result) noexcept = 0;
    virtual HRESULT CombineUri(HSTRING relativeUri, IUriRuntimeClass** result) noexcept = 0;

protected:
    ~IUriRuntimeClass() = default;
};

struct IUriRuntimeClassFactory : IInspectable {
    static constexpr GUID Iid = Id("44a9796f-723e-4fdf-a218-033e75b0c084");
    virtual HRESULT CreateUri(HSTRING uri, IUriRuntimeClass** result) noexcept = 0;
    virtual HRESULT CreateWithRelativeUri(HSTRING baseUri, HSTRING relativeUri,
                                          IUriRuntimeClass** result) noexcept = 0;

protected:
    ~IUriRuntimeClassFactory() = default;
};

}  // namespace brindle::abi
