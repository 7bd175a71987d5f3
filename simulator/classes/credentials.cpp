// The user's credentials and their vault.
#include "platform/interfaces/credentials.h"
#include "simulator/classes/factories.h"
#include "simulator/classes/vectors.h"
#include "simulator/stores/stores.h"

namespace dialsim {

namespace {

// The journal arguments of a credential. The password never appears in the journal.
std::string ResourceAndUserName(WideView resource, WideView user_name) {
    return Narrow(resource) + ", " + Narrow(user_name);
}

HRESULT FindPassword(const WideString& resource, const WideString& user_name, WideString& password) {
    return UseVault([&](Vault& vault) {
        const auto found = vault.find({resource, user_name});
        if (found == vault.end()) {
            return kNotFound;
        }
        password = found->second;
        return S_OK;
    });
}

struct CredentialTexts {
    WideString resource;
    WideString user_name;
    WideString password;
};

class Credential final : public Object<abi::IPasswordCredential> {
    using Interface = abi::IPasswordCredential;

public:
    explicit Credential(CredentialTexts texts)
        : Object(abi::PasswordCredential::Name), texts_(std::move(texts)) {}

    CredentialTexts Texts() {
        const std::lock_guard guard(mutex_);
        return texts_;
    }

    HRESULT get_Resource(HSTRING* result) noexcept override {
        return Get("get_Resource", &CredentialTexts::resource, result);
    }
    HRESULT put_Resource(HSTRING resource) noexcept override {
        return Put("put_Resource", Narrow(View(resource)), &CredentialTexts::resource, resource);
    }
    HRESULT get_UserName(HSTRING* result) noexcept override {
        return Get("get_UserName", &CredentialTexts::user_name, result);
    }
    HRESULT put_UserName(HSTRING user_name) noexcept override {
        return Put("put_UserName", Narrow(View(user_name)), &CredentialTexts::user_name, user_name);
    }
    HRESULT get_Password(HSTRING* result) noexcept override {
        return Get("get_Password", &CredentialTexts::password, result);
    }
    HRESULT put_Password(HSTRING password) noexcept override {
        return Put("put_Password", "", &CredentialTexts::password, password);
    }
    HRESULT RetrievePassword() noexcept override {
        return Perform(MethodName<Interface>("RetrievePassword"), "", [&] {
            CredentialTexts texts = Texts();
            const HRESULT code = FindPassword(texts.resource, texts.user_name, texts.password);
            if (code >= 0) {
                const std::lock_guard guard(mutex_);
                texts_.password = std::move(texts.password);
            }
            return code;
        });
    }
    HRESULT get_Properties(abi::IPropertySet** result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Properties"), "", result, [] { return E_NOTIMPL; });
    }

private:
    HRESULT Get(std::string_view method, WideString CredentialTexts::*text, HSTRING* result) {
        return PerformInto(MethodName<Interface>(method), "", result,
                           [&] { return NewString(Texts().*text, result); });
    }
    HRESULT Put(std::string_view method, const std::string& arguments, WideString CredentialTexts::*text,
                HSTRING value) {
        return Perform(MethodName<Interface>(method), arguments, [&] {
            const std::lock_guard guard(mutex_);
            texts_.*text = View(value);
            return S_OK;
        });
    }

    Mutex mutex_;
    CredentialTexts texts_;
};

Ref<abi::IPasswordCredential> MakeCredential(WideView resource, WideView user_name, WideView password) {
    return Ref<abi::IPasswordCredential>::Attach(
        new Credential({WideString(resource), WideString(user_name), WideString(password)}));
}

// Empty for null and for other implementations of the interface.
CredentialTexts TextsOf(abi::IPasswordCredential* credential) {
    auto* ours = OwnObject<Credential>(credential);
    return ours == nullptr ? CredentialTexts() : ours->Texts();
}

class CredentialFactory final : public Object<abi::ICredentialFactory> {
    using Interface = abi::ICredentialFactory;

public:
    CredentialFactory() : Object(TypeName<Interface>()) {}

    HRESULT CreatePasswordCredential(HSTRING resource, HSTRING user_name, HSTRING password,
                                     abi::IPasswordCredential** result) noexcept override {
        return PerformInto(
            MethodName<Interface>("CreatePasswordCredential"),
            ResourceAndUserName(View(resource), View(user_name)), result, [&] {
                if (View(resource).empty() || View(user_name).empty() || View(password).empty()) {
                    return E_INVALIDARG;
                }
                return MakeCredential(View(resource), View(user_name), View(password)).CopyTo(result);
            });
    }
};

class PasswordVault final : public Object<abi::IPasswordVault> {
    using Interface = abi::IPasswordVault;
    using List = abi::IVectorView<abi::PasswordCredential>;

public:
    PasswordVault() : Object(abi::PasswordVault::Name) {}

    HRESULT Add(abi::IPasswordCredential* credential) noexcept override {
        const CredentialTexts texts = TextsOf(credential);
        return Perform(MethodName<Interface>("Add"), ResourceAndUserName(texts.resource, texts.user_name),
                       [&] { return PutCredential(texts.resource, texts.user_name, texts.password); });
    }
    HRESULT Remove(abi::IPasswordCredential* credential) noexcept override {
        const CredentialTexts texts = TextsOf(credential);
        return Perform(MethodName<Interface>("Remove"), ResourceAndUserName(texts.resource, texts.user_name),
                       [&] {
                           return UseVault([&](Vault& vault) {
                               return vault.erase({texts.resource, texts.user_name}) == 0 ? kNotFound : S_OK;
                           });
                       });
    }
    HRESULT Retrieve(HSTRING resource, HSTRING user_name,
                     abi::IPasswordCredential** result) noexcept override {
        return PerformInto(
            MethodName<Interface>("Retrieve"), ResourceAndUserName(View(resource), View(user_name)), result,
            [&] {
                WideString password;
                const HRESULT code =
                    FindPassword(WideString(View(resource)), WideString(View(user_name)), password);
                return code < 0 ? code
                                : MakeCredential(View(resource), View(user_name), password).CopyTo(result);
            });
    }
    HRESULT FindAllByResource(HSTRING resource, List** result) noexcept override {
        return PerformInto(MethodName<Interface>("FindAllByResource"), Narrow(View(resource)), result, [&] {
            return Find([&](const auto& names) { return names.first == View(resource); }, kNotFound, result);
        });
    }
    HRESULT FindAllByUserName(HSTRING user_name, List** result) noexcept override {
        return PerformInto(MethodName<Interface>("FindAllByUserName"), Narrow(View(user_name)), result, [&] {
            return Find([&](const auto& names) { return names.second == View(user_name); }, kNotFound,
                        result);
        });
    }
    HRESULT RetrieveAll(List** result) noexcept override {
        return PerformInto(MethodName<Interface>("RetrieveAll"), "", result,
                           [&] { return Find([](const auto&) { return true; }, S_OK, result); });
    }

private:
    // Credentials in lists have no password until RetrievePassword is called.
    template <class Predicate>
    static HRESULT Find(Predicate matches, HRESULT none, List** result) {
        std::vector<Ref<abi::IPasswordCredential>> found;
        const HRESULT code = UseVault([&](Vault& vault) {
            for (const auto& [names, password] : vault) {
                if (matches(names)) {
                    found.push_back(MakeCredential(names.first, names.second, {}));
                }
            }
            return found.empty() ? none : S_OK;
        });
        return code < 0 ? code : Make<VectorView<abi::PasswordCredential>>(std::move(found)).CopyTo(result);
    }
};

class VaultFactory final : public Object<abi::IActivationFactory> {
    using Interface = abi::IActivationFactory;

public:
    VaultFactory() : Object(TypeName<Interface>()) {}

    HRESULT ActivateInstance(abi::IInspectable** result) noexcept override {
        return PerformInto(MethodName<Interface>("ActivateInstance"), abi::PasswordVault::Name, result,
                           [&] { return Make<PasswordVault>().CopyTo(result); });
    }
};

}  // namespace

Ref<abi::IInspectable> MakeVaultFactory() { return Ref<abi::IInspectable>::Attach(new VaultFactory); }
Ref<abi::IInspectable> MakeCredentialFactory() {
    return Ref<abi::IInspectable>::Attach(new CredentialFactory);
}

}  // namespace dialsim
