// The simulator's settings and vault, used through the platform's interfaces without the library.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/activation.h"
#include "platform/interfaces/credentials.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"
#include "platform/text.h"
#include "support/simulator_fixture.h"
#include "support/stores_folder.h"

namespace brindle {

using Map = abi::IMap<HSTRING, abi::IInspectable>;
using Object = ComPtr<abi::IInspectable>;
using Credential = ComPtr<abi::IPasswordCredential>;
using Credentials = ComPtr<abi::IVectorView<abi::PasswordCredential>>;

// A platform string with its own copy of the text.
class Text {
public:
    Text(const char* text) : Text(WideText(text, text + std::char_traits<char>::length(text))) {}
    Text(WideText text) : text_(std::move(text)) { EXPECT_EQ(reference_.Create(text_), S_OK); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    operator HSTRING() const { return reference_.Get(); }

private:
    const WideText text_;
    StringReference reference_;
};

inline ComPtr<abi::IPropertyValueStatics> PropertyValues() {
    ComPtr<abi::IPropertyValueStatics> values;
    EXPECT_EQ(GetFactory<abi::PropertyValue>(values), S_OK);
    return values;
}

inline Object TextValue(const Text& text) {
    Object value;
    EXPECT_EQ(PropertyValues()->CreateString(text, value.Put()), S_OK);
    return value;
}

inline Object NumberValue(std::int32_t number) {
    Object value;
    EXPECT_EQ(PropertyValues()->CreateInt32(number, value.Put()), S_OK);
    return value;
}

// The text of a value; "none" without a value.
inline WideText TextIn(const Object& object) {
    if (!object) {
        return UTF16("none");
    }
    ComPtr<abi::IPropertyValue> value;
    EXPECT_EQ(Query(object.Get(), value), S_OK);
    String text;
    EXPECT_EQ(value->GetString(text.Put()), S_OK);
    return CharactersOf(text.Get());
}

inline HRESULT CurrentData(ComPtr<abi::IApplicationData>& data) {
    ComPtr<abi::IApplicationDataStatics> statics;
    EXPECT_EQ(GetFactory<abi::ApplicationData>(statics), S_OK);
    return statics->get_Current(data.Put());
}

enum class Where { Roaming, Local };

inline ComPtr<abi::IApplicationDataContainer> ContainerOf(Where where) {
    ComPtr<abi::IApplicationData> data;
    EXPECT_EQ(CurrentData(data), S_OK);
    ComPtr<abi::IApplicationDataContainer> container;
    EXPECT_EQ(where == Where::Roaming ? data->get_RoamingSettings(container.Put())
                                      : data->get_LocalSettings(container.Put()),
              S_OK);
    return container;
}

inline ComPtr<Map> Values(Where where = Where::Roaming) {
    ComPtr<abi::IPropertySet> values;
    EXPECT_EQ(ContainerOf(where)->get_Values(values.Put()), S_OK);
    ComPtr<Map> map;
    EXPECT_EQ(Query(values.Get(), map), S_OK);
    return map;
}

inline HRESULT InsertText(const Text& key, const Text& text, Where where = Where::Roaming) {
    abi::boolean replaced = 0;
    return Values(where)->Insert(key, TextValue(text).Get(), &replaced);
}

inline HRESULT Lookup(const Text& key, Object& value, Where where = Where::Roaming) {
    return Values(where)->Lookup(key, value.Put());
}

inline WideText TextAt(const Text& key, Where where = Where::Roaming) {
    Object value;
    EXPECT_EQ(Lookup(key, value, where), S_OK);
    return TextIn(value);
}

inline ComPtr<abi::IPasswordVault> OpenVault() {
    ComPtr<abi::IActivationFactory> factory;
    EXPECT_EQ(GetFactory<abi::PasswordVault>(factory), S_OK);
    Object instance;
    EXPECT_EQ(factory->ActivateInstance(instance.Put()), S_OK);
    ComPtr<abi::IPasswordVault> vault;
    EXPECT_EQ(Query(instance.Get(), vault), S_OK);
    return vault;
}

inline HRESULT MakeCredential(const Text& resource, const Text& user, const Text& password,
                              Credential& credential) {
    ComPtr<abi::ICredentialFactory> factory;
    EXPECT_EQ(GetFactory<abi::PasswordCredential>(factory), S_OK);
    return factory->CreatePasswordCredential(resource, user, password, credential.Put());
}

inline Credential Made(const Text& resource, const Text& user, const Text& password) {
    Credential credential;
    EXPECT_EQ(MakeCredential(resource, user, password, credential), S_OK);
    return credential;
}

inline HRESULT AddCredential(const Text& resource, const Text& user, const Text& password) {
    return OpenVault()->Add(Made(resource, user, password).Get());
}

inline WideText PasswordOf(const Credential& credential) {
    String password;
    EXPECT_EQ(credential->get_Password(password.Put()), S_OK);
    return CharactersOf(password.Get());
}

// A packaged program with stores in a folder of its own.
class StoresInAFolder : public SimulatorApartmentTest {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        dialsim_set_packaged(true);
    }

    StoresFolder folder;
};

enum class Place { Folder, Memory };

// The same in a folder and in memory.
class Stores : public StoresInAFolder, public testing::WithParamInterface<Place> {
protected:
    void SetUp() override {
        StoresInAFolder::SetUp();
        dialsim_set_stores(path.c_str());
    }
    void TearDown() override {
        EXPECT_TRUE(dialsim_clear_stores());
        StoresInAFolder::TearDown();
    }

    const std::string path = GetParam() == Place::Memory ? DIALSIM_MEMORY : folder.path();
};

inline std::string NameOf(const testing::TestParamInfo<Place>& place) {
    return place.param == Place::Memory ? "InMemory" : "InAFolder";
}

inline constexpr const char* kStores[] = {"roaming", "local", "vault"};

// Texts with every kind of character that a platform string can hold, as names and values.
inline const WideText kTexts[] = {
    UTF16(""),
    UTF16("plain"),
    UTF16("\"quoted\" \\ and /slashed/"),
    UTF16("line\r\nand tab\t and escape\x1B"),
    WideText(UTF16("nul\0inside"), 10),
    UTF16("\x7F\x80\x9F\u00E4\u00DF\u20AC\uFFFD\uFFFE\uFEFF"),
    UTF16("\U0001F58C\U0010FFFF"),
    {static_cast<WCHAR>(0xD83D)},
    {WCHAR('a'), static_cast<WCHAR>(0xDD8C), static_cast<WCHAR>(0xD83D), WCHAR('b')},
};

inline const auto kBothPlaces = testing::Values(Place::Folder, Place::Memory);

}  // namespace brindle
