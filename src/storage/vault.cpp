// Texts in the user's credential vault: the resource is the host's name for its settings, the user name is
// the key, the password is the text. Any process of the user can read them.
#include "platform/activation.h"
#include "platform/errors.h"
#include "platform/interfaces/credentials.h"
#include "platform/text.h"
#include "storage/storage_context.h"

namespace brindle {

namespace {

ComPtr<abi::IPasswordVault> MakeVault() {
    ComPtr<abi::IActivationFactory> factory;
    ThrowIfFailed(GetFactory<abi::PasswordVault>(factory));
    ComPtr<abi::IInspectable> instance;
    ThrowIfFailed(factory->ActivateInstance(instance.Put()));
    if (!instance) {
        Throw(E_NOINTERFACE);
    }
    ComPtr<abi::IPasswordVault> vault;
    ThrowIfFailed(Query(instance.Get(), vault));
    return vault;
}

// Under any resource. The platform fails a search without results; every failure counts as no result
// (SettingsFailures.ASearchThatFailsOrFindsNoListCountsAsNoMatch).
bool HasCredential(abi::IPasswordVault& vault, HSTRING key) {
    ComPtr<abi::IVectorView<abi::PasswordCredential>> found;
    if (Failed(vault.FindAllByUserName(key, found.Put())) || !found) {
        return false;
    }
    std::uint32_t size = 0;
    return !Failed(found->get_Size(&size)) && size > 0;
}

ComPtr<abi::IPasswordCredential> Retrieve(abi::IPasswordVault& vault, HSTRING resource, HSTRING key) {
    ComPtr<abi::IPasswordCredential> credential;
    ThrowIfFailed(vault.Retrieve(resource, key, credential.Put()));
    return credential;
}

String PasswordOf(abi::IPasswordCredential& credential) {
    String password;
    ThrowIfFailed(credential.get_Password(password.Put()));
    return password;
}

ComPtr<abi::IPasswordCredential> MakeCredential(HSTRING resource, HSTRING key, const WCHAR* value) {
    ComPtr<abi::ICredentialFactory> factory;
    ThrowIfFailed(GetFactory<abi::PasswordCredential>(factory));
    ComPtr<abi::IPasswordCredential> credential;
    const TextReference password(value);
    ThrowIfFailed(factory->CreatePasswordCredential(resource, key, password.Get(), credential.Put()));
    return credential;
}

}  // namespace

HostText StorageContext::GetStringFromVault(const WCHAR* key) const {
    try {
        const ComPtr<abi::IPasswordVault> vault = MakeVault();
        const TextReference user_name(key);
        if (!HasCredential(*vault.Get(), user_name.Get())) {
            return {};
        }
        const TextReference resource(resource_);
        const ComPtr<abi::IPasswordCredential> credential =
            Retrieve(*vault.Get(), resource.Get(), user_name.Get());
        return credential ? CopyForHost(PasswordOf(*credential.Get())) : HostText();
    } catch (const hresult_error&) {
        return {};
    }
}

void StorageContext::SetStringInVault(const WCHAR* key, const WCHAR* value) const {
    try {
        const ComPtr<abi::IPasswordVault> vault = MakeVault();
        const TextReference user_name(key);
        const TextReference resource(resource_);
        if (HasCredential(*vault.Get(), user_name.Get())) {
            // Fails for a key that exists under other resources only, and deliberately ends the write, as
            // brindle.h tells hosts (TextSettings.ACredentialOfAnotherResourceBlocksTheVault).
            const ComPtr<abi::IPasswordCredential> old =
                Retrieve(*vault.Get(), resource.Get(), user_name.Get());
            if (old && SameText(PasswordOf(*old.Get()), value)) {
                return;
            }
            if (old) {
                ThrowIfFailed(vault->Remove(old.Get()));
            }
        }
        const ComPtr<abi::IPasswordCredential> made = MakeCredential(resource.Get(), user_name.Get(), value);
        ThrowIfFailed(vault->Add(made.Get()));
    } catch (const hresult_error&) {
        // Deliberately ignored: the setter writes to the other stores and returns 0
        // (SettingsFailures.SettersSucceedEvenWhereNothingCanBeWritten).
    }
}

}  // namespace brindle
