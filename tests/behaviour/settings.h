// Fixture of the settings tests: a packaged program with empty stores, and queries of the stores.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

#include "behaviour.h"
#include "support/utf16.h"

inline constexpr BrindleChar kResource[] = UTF16("host");
inline constexpr BrindleChar kOtherResource[] = UTF16("other");
inline constexpr BrindleChar kKey[] = UTF16("key");

inline constexpr std::int32_t kAbsentNumber = INT32_MIN;

// The operations: from the application data to a container's entries, and from the vault to its credentials.
inline constexpr char kApplicationData[] = "RoGetActivationFactory(Windows.Storage.ApplicationData)";
inline constexpr char kCurrent[] = "IApplicationDataStatics::get_Current";
inline constexpr char kRoamingSettings[] = "IApplicationData::get_RoamingSettings";
inline constexpr char kLocalSettings[] = "IApplicationData::get_LocalSettings";
inline constexpr char kValues[] = "IApplicationDataContainer::get_Values";
inline constexpr char kViewAsMap[] = "QueryInterface(IMap<String, Object>)";
inline constexpr char kLookup[] = "IMap<String, Object>::Lookup";
inline constexpr char kViewAsValue[] = "QueryInterface(IPropertyValue)";
inline constexpr char kGetString[] = "IPropertyValue::GetString";
inline constexpr char kGetInt32[] = "IPropertyValue::GetInt32";
inline constexpr char kRemoveEntry[] = "IMap<String, Object>::Remove";
inline constexpr char kValueFactory[] = "RoGetActivationFactory(Windows.Foundation.PropertyValue)";
inline constexpr char kCreateString[] = "IPropertyValueStatics::CreateString";
inline constexpr char kCreateInt32[] = "IPropertyValueStatics::CreateInt32";
inline constexpr char kInsertEntry[] = "IMap<String, Object>::Insert";
inline constexpr char kVaultFactory[] = "RoGetActivationFactory(Windows.Security.Credentials.PasswordVault)";
inline constexpr char kNewVault[] = "IActivationFactory::ActivateInstance";
inline constexpr char kViewAsVault[] = "QueryInterface(IPasswordVault)";
inline constexpr char kSearch[] = "IPasswordVault::FindAllByUserName";
inline constexpr char kCountFound[] = "IVectorView<PasswordCredential>::get_Size";
inline constexpr char kRetrieve[] = "IPasswordVault::Retrieve";
inline constexpr char kGetPassword[] = "IPasswordCredential::get_Password";
inline constexpr char kRemoveCredential[] = "IPasswordVault::Remove";
inline constexpr char kCredentialFactory[] =
    "RoGetActivationFactory(Windows.Security.Credentials.PasswordCredential)";
inline constexpr char kCreateCredential[] = "ICredentialFactory::CreatePasswordCredential";
inline constexpr char kAddCredential[] = "IPasswordVault::Add";

class Settings : public InitializedTest {
protected:
    void SetUp() override {
        InitializedTest::SetUp();
        dialsim_set_packaged(true);
    }

    // How the stores print one entry under the key.
    static std::string StringEntry(const std::string& text) { return "\"key\" String \"" + text + "\"\n"; }
    static std::string NumberEntry(std::int32_t number) {
        return "\"key\" Int32 " + std::to_string(number) + "\n";
    }
    static std::string Credential(const std::string& resource, const std::string& password) {
        return "\"" + resource + "\" \"key\" \"" + password + "\"\n";
    }

    static std::int32_t SetText(const WideText& text, const BrindleChar* resource = kResource) {
        return set_string_in_storage(resource, kKey, text.c_str());
    }
    static std::optional<WideText> GetText(const BrindleChar* resource = kResource,
                                           const BrindleChar* key = kKey) {
        BrindleChar* const text = get_string_from_storage(resource, key);
        if (text == nullptr) {
            return std::nullopt;
        }
        const WideText copy = text;
        std::free(text);
        return copy;
    }
    static std::int32_t SetNumber(std::int32_t number) { return set_int_in_storage(kResource, kKey, number); }
    static std::int32_t GetNumber() { return get_int_from_storage(kResource, kKey); }

    // Prepares the content of a store.
    static void Put(const char* store, const char* type, const char* value) {
        ASSERT_TRUE(dialsim_put_setting(store, "key", type, value)) << store;
    }
    static void PutInVault(const char* password, const char* resource = "host") {
        ASSERT_TRUE(dialsim_put_credential(resource, "key", password)) << resource;
    }

    static std::uint32_t ContainerWrites() {
        return dialsim_calls(kRemoveEntry) + dialsim_calls(kInsertEntry);
    }
    static std::uint32_t VaultWrites() {
        return dialsim_calls(kRemoveCredential) + dialsim_calls(kAddCredential);
    }
    // The calls that look up the entry under the key.
    static std::string ContainerLookup(const char* container) {
        return "RoGetActivationFactory(Windows.Storage.ApplicationData)\n"
               "IApplicationDataStatics::get_Current()\n"
               "IApplicationData::get_" +
               std::string(container) +
               "Settings()\n"
               "IApplicationDataContainer::get_Values()\n"
               "IMap<String, Object>::Lookup(key)\n";
    }
    // The platform calls without strings and interface queries.
    static std::string Calls() {
        std::string calls;
        for (const std::string& line : LinesOf(Journal())) {
            const bool aside = line.find("Windows") == 0 || line.find("QueryInterface") == 0 ||
                               line.find("wcs") == 0 || line.find("end of") == 0;
            calls += aside ? "" : line + "\n";
        }
        return calls;
    }
};
