#pragma once

#include <cstdint>

#include "platform/interfaces/collections.h"

namespace brindle::abi {

struct IPasswordVault;
struct IPasswordCredential;

struct PasswordVault {
    using Default = IPasswordVault;
    static constexpr char Name[] = "Windows.Security.Credentials.PasswordVault";
};

struct PasswordCredential {
    using Default = IPasswordCredential;
    static constexpr char Name[] = "Windows.Security.Credentials.PasswordCredential";
};

struct IPasswordVault : IInspectable {
    static constexpr GUID Iid = Id("61fd2c0b-c8d4-48c1-a54f-bc5a64205af2");
    virtual HRESULT Add(IPasswordCredential* credential) noexcept = 0;
    virtual HRESULT Remove(IPasswordCredential* credential) noexcept = 0;
    virtual HRESULT Retrieve(HSTRING resource, HSTRING userName, IPasswordCredential** result) noexcept = 0;
    virtual HRESULT FindAllByResource(HSTRING resource,
                                      IVectorView<PasswordCredential>** result) noexcept = 0;
    virtual HRESULT FindAllByUserName(HSTRING userName,
                                      IVectorView<PasswordCredential>** result) noexcept = 0;
    virtual HRESULT RetrieveAll(IVectorView<PasswordCredential>** result) noexcept = 0;

protected:
    ~IPasswordVault() = default;
};

struct IPasswordCredential : IInspectable {
    static constexpr GUID Iid = Id("6ab18989-c720-41a7-a6c1-feadb36329a0");
    virtual HRESULT get_Resource(HSTRING* result) noexcept = 0;
    virtual HRESULT put_Resource(HSTRING resource) noexcept = 0;
    virtual HRESULT get_UserName(HSTRING* result) noexcept = 0;
    virtual HRESULT put_UserName(HSTRING userName) noexcept = 0;
    virtual HRESULT get_Password(HSTRING* result) noexcept = 0;
    virtual HRESULT put_Password(HSTRING password) noexcept = 0;
    virtual HRESULT RetrievePassword() noexcept = 0;
    virtual HRESULT get_Properties(IPropertySet** result) noexcept = 0;

protected:
    ~IPasswordCredential() = default;
};

struct ICredentialFactory : IInspectable {
    static constexpr GUID Iid = Id("54ef13a1-bf26-47b5-97dd-de779b7cad58");
    virtual HRESULT CreatePasswordCredential(HSTRING resource, HSTRING userName, HSTRING password,
                                             IPasswordCredential** result) noexcept = 0;

protected:
    ~ICredentialFactory() = default;
};

}  // namespace brindle::abi
