// The operations of the stores in the journal, and their faults.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "stores.h"

namespace brindle {
namespace {

// One call of each operation that the library uses.
void CallEveryExport() {
    InsertText("brush", "Palette");
    TextAt("brush");
    ContainerOf(Where::Local);
    abi::boolean replaced = 0;
    Values()->Insert(Text("runs"), NumberValue(3).Get(), &replaced);
    Object number;
    Lookup("runs", number);
    ComPtr<abi::IPropertyValue> value;
    Query(number.Get(), value);
    std::int32_t runs = 0;
    value->GetInt32(&runs);
    Values()->Remove(Text("runs"));
    AddCredential("resource", "user", "secret");
    const auto vault = OpenVault();
    Credentials list;
    vault->FindAllByUserName(Text("user"), list.Put());
    std::uint32_t size = 0;
    list->get_Size(&size);
    Credential credential;
    vault->Retrieve(Text("resource"), Text("user"), credential.Put());
    PasswordOf(credential);
    vault->Remove(credential.Get());
}

INSTANTIATE_TEST_SUITE_P(Places, Stores, kBothPlaces, NameOf);

TEST_P(Stores, AreJournaledByPublishedNames) {
    CallEveryExport();
    for (const char* call :
         {"IApplicationDataStatics::get_Current()",
          "IApplicationData::get_RoamingSettings()",
          "IApplicationData::get_LocalSettings()",
          "IApplicationDataContainer::get_Values()",
          "QueryInterface(IMap<String, Object>)",
          "IMap<String, Object>::Lookup(brush)",
          "IMap<String, Object>::Insert(brush)",
          "IMap<String, Object>::Remove(runs)",
          "IPropertyValueStatics::CreateString()",
          "IPropertyValueStatics::CreateInt32()",
          "IPropertyValue::GetString()",
          "IPropertyValue::GetInt32()",
          "IActivationFactory::ActivateInstance(Windows.Security.Credentials.PasswordVault)",
          "ICredentialFactory::CreatePasswordCredential(resource, user)",
          "IPasswordVault::Add(resource, user)",
          "IPasswordVault::FindAllByUserName(user)",
          "IVectorView<PasswordCredential>::get_Size()",
          "IPasswordVault::Retrieve(resource, user)",
          "IPasswordCredential::get_Password()",
          "IPasswordVault::Remove(resource, user)"}) {
        EXPECT_GT(dialsim_calls(call), 0u) << call;
    }
}

TEST_P(Stores, KeepPasswordsOutOfTheJournal) {
    CallEveryExport();
    Made("resource", "user", "first")->put_Password(Text("secret"));
    for (const std::string& line : LinesOf(Journal())) {
        const bool of_texts = line.find("Windows") == 0;  // string functions print every text
        EXPECT_TRUE(of_texts || line.find("secret") == std::string::npos) << line;
    }
}

TEST_P(Stores, ControlsAreNotJournaled) {
    dialsim_put_setting("roaming", "key", "String", "text");
    dialsim_put_credential("resource", "user", "secret");
    StoreText("roaming");
    dialsim_clear_stores();
    EXPECT_EQ(Journal(), "");
}

using FaultsOfStores = Stores;
INSTANTIATE_TEST_SUITE_P(Places, FaultsOfStores, kBothPlaces, NameOf);

TEST_P(FaultsOfStores, FailSettings) {
    const auto values = Values();
    ASSERT_TRUE(dialsim_fail("IMap<String, Object>::Insert(brush)", kFault, 1, 1));
    ASSERT_TRUE(dialsim_fail("IMap<String, Object>::Remove", kFault, 1, 1));
    ASSERT_TRUE(dialsim_fail("IMap<String, Object>::Lookup", kFault, 1, 1));
    EXPECT_EQ(InsertText("brush", "text"), kFault);
    EXPECT_EQ(StoreText("roaming"), "");
    EXPECT_EQ(InsertText("brush", "text"), S_OK);
    EXPECT_EQ(values->Remove(Text("brush")), kFault);
    EXPECT_NE(StoreText("roaming"), "");
    Object value;
    EXPECT_EQ(Lookup("brush", value), kFault);
    EXPECT_FALSE(value);
}

TEST_P(FaultsOfStores, ThatFailLateLeaveTheChangeInPlace) {
    ASSERT_TRUE(dialsim_fail_late("IMap<String, Object>::Insert", kFault, 1, 1));
    EXPECT_EQ(InsertText("brush", "text"), kFault);
    EXPECT_EQ(StoreText("roaming"), "\"brush\" String \"text\"\n");
    ASSERT_TRUE(dialsim_fail_late("IPasswordVault::Add", kFault, 1, 1));
    EXPECT_EQ(AddCredential("resource", "user", "secret"), kFault);
    EXPECT_EQ(StoreText("vault"), "\"resource\" \"user\" \"secret\"\n");
}

TEST_P(FaultsOfStores, MayYieldNothing) {
    InsertText("brush", "text");
    AddCredential("resource", "user", "secret");
    ASSERT_TRUE(dialsim_yield_null("IMap<String, Object>::Lookup", 1, 1));
    Object value;
    EXPECT_EQ(Lookup("brush", value), S_OK);
    EXPECT_FALSE(value);
    ASSERT_TRUE(dialsim_yield_null("IPasswordVault::Retrieve", 1, 1));
    Credential credential;
    EXPECT_EQ(OpenVault()->Retrieve(Text("resource"), Text("user"), credential.Put()), S_OK);
    EXPECT_FALSE(credential);
    ASSERT_TRUE(dialsim_yield_null("IApplicationDataStatics::get_Current", 1, 1));
    ComPtr<abi::IApplicationData> data;
    EXPECT_EQ(CurrentData(data), S_OK);
    EXPECT_FALSE(data);
}

TEST_P(FaultsOfStores, CanBeSetOnEverythingThatTheLibraryCalls) {
    CallEveryExport();
    for (const char* operation :
         {"IApplicationDataStatics::get_Current", "IApplicationData::get_RoamingSettings",
          "IApplicationData::get_LocalSettings", "IApplicationDataContainer::get_Values",
          "IMap<String, Object>::Lookup", "IMap<String, Object>::Remove", "IMap<String, Object>::Insert",
          "IPropertyValueStatics::CreateString", "IPropertyValueStatics::CreateInt32",
          "IPropertyValue::GetString", "IPropertyValue::GetInt32", "IActivationFactory::ActivateInstance",
          "IPasswordVault::FindAllByUserName", "IPasswordVault::Retrieve", "IPasswordVault::Remove",
          "IPasswordVault::Add", "IVectorView<PasswordCredential>::get_Size",
          "ICredentialFactory::CreatePasswordCredential", "IPasswordCredential::get_Password"}) {
        EXPECT_TRUE(dialsim_fail(operation, kFault, 1000, 1)) << operation;
        EXPECT_GT(dialsim_calls(operation), 0u) << operation;
    }
}

}  // namespace
}  // namespace brindle
