// Settings of a program without package identity, in the user's vault.
#include <optional>

#include "platform/interfaces/credentials.h"
#include "platform/interfaces/storage.h"
#include "system/system.h"

namespace system_tests {
namespace {

// The key too: the library does not write a key that the vault has under another resource.
constexpr wchar_t kOwnName[] = L"Brindle self-check";

std::optional<std::wstring> GetText() {
    BrindleChar* const text = get_string_from_storage(kOwnName, kOwnName);
    if (text == nullptr) {
        return std::nullopt;
    }
    const std::wstring copy = text;
    brindle_free(text);
    return copy;
}

// The credential of these tests in the vault of the user.
class Vault : public SystemTest {
protected:
    void SetUp() override {
        SystemTest::SetUp();
        REQUIRE_CLASS(abi::PasswordVault);
        REQUIRE_CLASS(abi::PasswordCredential);
        ComPtr<abi::IActivationFactory> factory;
        ComPtr<abi::IInspectable> instance;
        ASSERT_GE(brindle::GetFactory<abi::PasswordVault>(factory), 0);
        ASSERT_GE(factory->ActivateInstance(instance.Put()), 0);
        ASSERT_GE(brindle::Query(instance.Get(), vault_), 0);
        RemoveCredential();
    }
    void TearDown() override {
        if (vault_) {
            RemoveCredential();
            EXPECT_FALSE(RetrieveCredential());
            vault_.Reset();
        }
        SystemTest::TearDown();
    }

    ComPtr<abi::IPasswordCredential> RetrieveCredential() {
        ComPtr<abi::IPasswordCredential> credential;
        const Borrowed name(kOwnName);
        vault_->Retrieve(name.Get(), name.Get(), credential.Put());
        return credential;
    }
    void RemoveCredential() {
        if (const auto credential = RetrieveCredential()) {
            EXPECT_GE(vault_->Remove(credential.Get()), 0);
        }
    }
    std::optional<std::wstring> Password() {
        const auto credential = RetrieveCredential();
        brindle::String password;
        if (!credential || credential->get_Password(password.Put()) < 0) {
            return std::nullopt;
        }
        return TextOf(password);
    }

private:
    ComPtr<abi::IPasswordVault> vault_;
};

TEST_F(Vault, KeepsATextUntilItIsRemoved) {
    EXPECT_EQ(GetText(), std::nullopt);
    EXPECT_EQ(set_string_in_storage(kOwnName, kOwnName, L"first"), 0);
    EXPECT_EQ(Password(), L"first");
    EXPECT_EQ(set_string_in_storage(kOwnName, kOwnName, L"second"), 0);
    EXPECT_EQ(Password(), L"second");
    EXPECT_EQ(GetText(), L"second");
    RemoveCredential();
    EXPECT_EQ(GetText(), std::nullopt);
}

TEST_F(Vault, KeepsANumberAsAText) {
    EXPECT_EQ(set_string_in_storage(kOwnName, kOwnName, L"-7"), 0);
    EXPECT_EQ(get_int_from_storage(kOwnName, kOwnName), -7);
}

using ApplicationData = SystemTest;

TEST_F(ApplicationData, IsMissingWithoutPackageIdentity) {
    REQUIRE_CLASS(abi::ApplicationData);
    EXPECT_EQ(set_int_in_storage(kOwnName, kOwnName, 7), 0);
    EXPECT_EQ(get_int_from_storage(kOwnName, kOwnName), INT32_MIN);
    EXPECT_EQ(dialsim_calls("IApplicationDataStatics::get_Current"), 0u) << "the simulator's settings";
}

}  // namespace
}  // namespace system_tests
