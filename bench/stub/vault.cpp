// The user's vault: one credential for each user name.
#include "bench/stub/vault.h"

#include <map>
#include <string>

#include "bench/stub/factories.h"
#include "bench/stub/strings.h"
#include "platform/interfaces/credentials.h"

namespace stub {

namespace {

class Credential final : public Counted<abi::IPasswordCredential> {
public:
    Credential(HSTRING resource, HSTRING user_name, HSTRING password)
        : resource_(resource), user_name_(user_name), password_(password) {}

    HRESULT get_Password(HSTRING* result) noexcept override {
        STUB_RECORD_CALL();
        return password_.ReturnReference(result);
    }
    HRESULT get_Resource(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT put_Resource(HSTRING) noexcept override { return E_NOTIMPL; }
    HRESULT get_UserName(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT put_UserName(HSTRING) noexcept override { return E_NOTIMPL; }
    HRESULT put_Password(HSTRING) noexcept override { return E_NOTIMPL; }
    HRESULT RetrievePassword() noexcept override { return E_NOTIMPL; }
    HRESULT get_Properties(abi::IPropertySet**) noexcept override { return E_NOTIMPL; }

    const Text& resource() const { return resource_; }
    const Text& user_name() const { return user_name_; }

private:
    const Text resource_;
    const Text user_name_;
    const Text password_;
};

// The result of a search: one credential; a search without results fails.
class Found final : public StaticObject<abi::IVectorView<abi::PasswordCredential>> {
public:
    HRESULT get_Size(std::uint32_t* result) noexcept override {
        STUB_RECORD_CALL();
        *result = 1;
        return S_OK;
    }
    HRESULT GetAt(std::uint32_t, abi::IPasswordCredential**) noexcept override { return E_NOTIMPL; }
    HRESULT IndexOf(abi::IPasswordCredential*, std::uint32_t*, abi::boolean*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT GetMany(std::uint32_t, std::uint32_t, abi::IPasswordCredential**,
                    std::uint32_t*) noexcept override {
        return E_NOTIMPL;
    }
};

class Vault final : public StaticObject<abi::IPasswordVault> {
public:
    ~Vault() { Empty(); }

    HRESULT Add(abi::IPasswordCredential* credential) noexcept override {
        STUB_RECORD_CALL();
        auto* added = static_cast<Credential*>(credential);
        StoreReference(credentials_[std::u16string(added->user_name().View())], added);
        return S_OK;
    }
    HRESULT Remove(abi::IPasswordCredential* credential) noexcept override {
        STUB_RECORD_CALL();
        const auto entry = credentials_.find(static_cast<Credential*>(credential)->user_name().View());
        if (entry == credentials_.end()) {
            return kNotFound;
        }
        entry->second->Release();
        credentials_.erase(entry);
        return S_OK;
    }
    HRESULT Retrieve(HSTRING resource, HSTRING user_name,
                     abi::IPasswordCredential** result) noexcept override {
        STUB_RECORD_CALL();
        const auto entry = credentials_.find(View(user_name));
        if (entry == credentials_.end() || entry->second->resource().View() != View(resource)) {
            return kNotFound;
        }
        return ReturnReference(entry->second, result);
    }
    HRESULT FindAllByUserName(HSTRING user_name,
                              abi::IVectorView<abi::PasswordCredential>** result) noexcept override {
        STUB_RECORD_CALL();
        return credentials_.find(View(user_name)) == credentials_.end() ? kNotFound
                                                                        : ReturnReference(&found_, result);
    }
    HRESULT FindAllByResource(HSTRING, abi::IVectorView<abi::PasswordCredential>**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT RetrieveAll(abi::IVectorView<abi::PasswordCredential>**) noexcept override { return E_NOTIMPL; }

    void Empty() {
        for (const auto& [user_name, credential] : credentials_) {
            credential->Release();
        }
        credentials_.clear();
    }

private:
    Found found_;
    std::map<std::u16string, Credential*, std::less<>> credentials_;
};

Vault& TheVault() {
    static Vault vault;
    return vault;
}

class VaultFactory final : public StaticObject<abi::IActivationFactory> {
public:
    HRESULT ActivateInstance(abi::IInspectable** instance) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&TheVault(), instance);
    }
};

class Credentials final : public StaticObject<abi::ICredentialFactory> {
public:
    HRESULT CreatePasswordCredential(HSTRING resource, HSTRING user_name, HSTRING password,
                                     abi::IPasswordCredential** result) noexcept override {
        STUB_RECORD_CALL();
        *result = new Credential(resource, user_name, password);
        return S_OK;
    }
};

}  // namespace

void ClearVault() { TheVault().Empty(); }

abi::IUnknown& PasswordVaultFactory() {
    static VaultFactory factory;
    return factory;
}

abi::IUnknown& CredentialFactory() {
    static Credentials factory;
    return factory;
}

}  // namespace stub
