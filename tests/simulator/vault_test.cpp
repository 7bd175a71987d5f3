// The user's vault, used through the platform's interfaces without the library.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "stores.h"

namespace brindle {
namespace {

constexpr HRESULT kNotFound = Code(0x80070490);

// "resource/user/password" of a credential.
WideText All(const Credential& credential) {
    String resource;
    String user;
    EXPECT_EQ(credential->get_Resource(resource.Put()), S_OK);
    EXPECT_EQ(credential->get_UserName(user.Put()), S_OK);
    return CharactersOf(resource.Get()) + UTF16("/") + CharactersOf(user.Get()) + UTF16("/") +
           PasswordOf(credential);
}

std::vector<WideText> All(const Credentials& list) {
    std::uint32_t size = 0;
    EXPECT_EQ(list->get_Size(&size), S_OK);
    std::vector<WideText> all;
    for (std::uint32_t i = 0; i < size; ++i) {
        Credential credential;
        EXPECT_EQ(list->GetAt(i, credential.Put()), S_OK);
        all.push_back(All(credential));
    }
    return all;
}

using TheVault = Stores;
INSTANTIATE_TEST_SUITE_P(Places, TheVault, kBothPlaces, NameOf);

TEST_P(TheVault, RetrievesACredentialWithItsPassword) {
    EXPECT_EQ(AddCredential("resource", "user", "secret"), S_OK);
    Credential credential;
    EXPECT_EQ(OpenVault()->Retrieve(Text("resource"), Text("user"), credential.Put()), S_OK);
    EXPECT_EQ(All(credential), UTF16("resource/user/secret"));
}

TEST_P(TheVault, NeedsNoPackage) {
    dialsim_set_packaged(false);
    EXPECT_EQ(AddCredential("resource", "user", "secret"), S_OK);
    EXPECT_EQ(StoreText("vault"), "\"resource\" \"user\" \"secret\"\n");
}

TEST_P(TheVault, ReplacesThePasswordOfACredentialThatIsThere) {
    AddCredential("resource", "user", "old");
    EXPECT_EQ(AddCredential("resource", "user", "new"), S_OK);
    EXPECT_EQ(StoreText("vault"), "\"resource\" \"user\" \"new\"\n");
}

TEST_P(TheVault, FindsByExactNamesOnly) {
    AddCredential("resource", "user", "secret");
    Credential credential = Made("a", "b", "c");
    const auto vault = OpenVault();
    EXPECT_EQ(vault->Retrieve(Text("resource"), Text("User"), credential.Put()), kNotFound);
    EXPECT_FALSE(credential);
    EXPECT_EQ(vault->Retrieve(Text("Resource"), Text("user"), credential.Put()), kNotFound);
    Credentials list;
    EXPECT_EQ(vault->FindAllByUserName(Text("User"), list.Put()), kNotFound);
    EXPECT_EQ(vault->FindAllByUserName(Text("use"), list.Put()), kNotFound);
    EXPECT_EQ(vault->FindAllByResource(Text("user"), list.Put()), kNotFound);
    EXPECT_FALSE(list);
}

TEST_P(TheVault, ListsCredentialsWithoutTheirPasswords) {
    AddCredential("one", "user", "1");
    AddCredential("one", "other", "2");
    AddCredential("two", "user", "3");
    using Texts = std::vector<WideText>;
    const auto vault = OpenVault();
    Credentials list;
    EXPECT_EQ(vault->FindAllByUserName(Text("user"), list.Put()), S_OK);
    EXPECT_EQ(All(list), (Texts{UTF16("one/user/"), UTF16("two/user/")}));
    EXPECT_EQ(vault->FindAllByResource(Text("one"), list.Put()), S_OK);
    EXPECT_EQ(All(list), (Texts{UTF16("one/other/"), UTF16("one/user/")}));
    EXPECT_EQ(vault->RetrieveAll(list.Put()), S_OK);
    EXPECT_EQ(All(list), (Texts{UTF16("one/other/"), UTF16("one/user/"), UTF16("two/user/")}));
}

TEST_P(TheVault, ListsNothingWhenItIsEmpty) {
    Credentials list;
    EXPECT_EQ(OpenVault()->RetrieveAll(list.Put()), S_OK);
    EXPECT_EQ(All(list), std::vector<WideText>());
    EXPECT_EQ(OpenVault()->FindAllByUserName(Text("user"), list.Put()), kNotFound);
}

TEST_P(TheVault, GivesAListedCredentialItsPasswordWhenItIsAskedTo) {
    AddCredential("resource", "user", "secret");
    Credentials list;
    ASSERT_EQ(OpenVault()->RetrieveAll(list.Put()), S_OK);
    Credential credential;
    ASSERT_EQ(list->GetAt(0, credential.Put()), S_OK);
    EXPECT_EQ(credential->RetrievePassword(), S_OK);
    EXPECT_EQ(PasswordOf(credential), UTF16("secret"));
    ASSERT_EQ(OpenVault()->Remove(credential.Get()), S_OK);
    EXPECT_EQ(credential->RetrievePassword(), kNotFound);
    EXPECT_EQ(PasswordOf(credential), UTF16("secret"));
}

TEST_P(TheVault, RemovesByTheNamesAlone) {
    AddCredential("resource", "user", "secret");
    AddCredential("resource", "other", "secret");
    const auto vault = OpenVault();
    EXPECT_EQ(vault->Remove(Made("resource", "user", "another").Get()), S_OK);
    EXPECT_EQ(StoreText("vault"), "\"resource\" \"other\" \"secret\"\n");
    EXPECT_EQ(vault->Remove(Made("resource", "user", "secret").Get()), kNotFound);
    EXPECT_EQ(vault->Remove(nullptr), kNotFound);
}

TEST_P(TheVault, RefusesCredentialsWithAnEmptyPart) {
    Credential credential;
    EXPECT_EQ(MakeCredential("", "user", "secret", credential), E_INVALIDARG);
    EXPECT_EQ(MakeCredential("resource", "", "secret", credential), E_INVALIDARG);
    EXPECT_EQ(MakeCredential("resource", "user", "", credential), E_INVALIDARG);
    EXPECT_FALSE(credential);
    const auto vault = OpenVault();
    credential = Made("resource", "user", "secret");
    EXPECT_EQ(credential->put_Password(nullptr), S_OK);
    EXPECT_EQ(vault->Add(credential.Get()), E_INVALIDARG);
    EXPECT_EQ(vault->Add(nullptr), E_INVALIDARG);
    EXPECT_FALSE(dialsim_put_credential("", "user", "secret"));
    EXPECT_FALSE(dialsim_put_credential("resource", "", "secret"));
    EXPECT_FALSE(dialsim_put_credential("resource", "user", ""));
    EXPECT_EQ(StoreText("vault"), "");
}

TEST_P(TheVault, TakesACredentialAsItsOwnerHasMadeIt) {
    const Credential credential = Made("a", "b", "c");
    EXPECT_EQ(credential->put_Resource(Text("resource")), S_OK);
    EXPECT_EQ(credential->put_UserName(Text("user")), S_OK);
    EXPECT_EQ(credential->put_Password(Text("secret")), S_OK);
    EXPECT_EQ(All(credential), UTF16("resource/user/secret"));
    EXPECT_EQ(OpenVault()->Add(credential.Get()), S_OK);
    EXPECT_EQ(StoreText("vault"), "\"resource\" \"user\" \"secret\"\n");
    abi::IPropertySet* properties = nullptr;
    EXPECT_EQ(credential->get_Properties(&properties), E_NOTIMPL);
}

TEST_P(TheVault, KeepsEveryText) {
    for (const WideText& text : kTexts) {
        if (!text.empty()) {
            ASSERT_EQ(AddCredential(text, text, text), S_OK);
        }
    }
    for (const WideText& text : kTexts) {
        if (!text.empty()) {
            Credential credential;
            ASSERT_EQ(OpenVault()->Retrieve(Text(text), Text(text), credential.Put()), S_OK);
            EXPECT_EQ(PasswordOf(credential), text);
        }
    }
}

}  // namespace
}  // namespace brindle
