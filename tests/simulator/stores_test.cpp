// The simulator's settings and its vault, as a program that uses the platform directly meets them, and their
// files.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
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
namespace {

using Map = abi::IMap<HSTRING, abi::IInspectable>;
using Object = ComPtr<abi::IInspectable>;
using Credential = ComPtr<abi::IPasswordCredential>;
using Credentials = ComPtr<abi::IVectorView<abi::PasswordCredential>>;

constexpr HRESULT kSettingsDamaged = Code(0x80073DB8);
constexpr HRESULT kVaultDamaged = Code(0x80070570);
constexpr HRESULT kNotFound = Code(0x80070490);
constexpr HRESULT kDenied = Code(0x80070005);

// A platform string over a text that it keeps itself.
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

ComPtr<abi::IPropertyValueStatics> PropertyValues() {
    ComPtr<abi::IPropertyValueStatics> values;
    EXPECT_EQ(GetFactory<abi::PropertyValue>(values), S_OK);
    return values;
}

Object TextValue(const Text& text) {
    Object value;
    EXPECT_EQ(PropertyValues()->CreateString(text, value.Put()), S_OK);
    return value;
}

Object NumberValue(std::int32_t number) {
    Object value;
    EXPECT_EQ(PropertyValues()->CreateInt32(number, value.Put()), S_OK);
    return value;
}

// The text in a value; "none" without a value.
WideText TextIn(const Object& object) {
    if (!object) {
        return UTF16("none");
    }
    ComPtr<abi::IPropertyValue> value;
    EXPECT_EQ(Query(object.Get(), value), S_OK);
    String text;
    EXPECT_EQ(value->GetString(text.Put()), S_OK);
    return CharactersOf(text.Get());
}

HRESULT CurrentData(ComPtr<abi::IApplicationData>& data) {
    ComPtr<abi::IApplicationDataStatics> statics;
    EXPECT_EQ(GetFactory<abi::ApplicationData>(statics), S_OK);
    return statics->get_Current(data.Put());
}

enum class Where { Roaming, Local };

ComPtr<abi::IApplicationDataContainer> ContainerOf(Where where) {
    ComPtr<abi::IApplicationData> data;
    EXPECT_EQ(CurrentData(data), S_OK);
    ComPtr<abi::IApplicationDataContainer> container;
    EXPECT_EQ(where == Where::Roaming ? data->get_RoamingSettings(container.Put())
                                      : data->get_LocalSettings(container.Put()),
              S_OK);
    return container;
}

ComPtr<Map> Values(Where where = Where::Roaming) {
    ComPtr<abi::IPropertySet> values;
    EXPECT_EQ(ContainerOf(where)->get_Values(values.Put()), S_OK);
    ComPtr<Map> map;
    EXPECT_EQ(Query(values.Get(), map), S_OK);
    return map;
}

HRESULT InsertText(const Text& key, const Text& text, Where where = Where::Roaming) {
    abi::boolean replaced = 0;
    return Values(where)->Insert(key, TextValue(text).Get(), &replaced);
}

HRESULT Lookup(const Text& key, Object& value, Where where = Where::Roaming) {
    return Values(where)->Lookup(key, value.Put());
}

WideText TextAt(const Text& key, Where where = Where::Roaming) {
    Object value;
    EXPECT_EQ(Lookup(key, value, where), S_OK);
    return TextIn(value);
}

ComPtr<abi::IPasswordVault> OpenVault() {
    ComPtr<abi::IActivationFactory> factory;
    EXPECT_EQ(GetFactory<abi::PasswordVault>(factory), S_OK);
    Object instance;
    EXPECT_EQ(factory->ActivateInstance(instance.Put()), S_OK);
    ComPtr<abi::IPasswordVault> vault;
    EXPECT_EQ(Query(instance.Get(), vault), S_OK);
    return vault;
}

HRESULT MakeCredential(const Text& resource, const Text& user, const Text& password, Credential& credential) {
    ComPtr<abi::ICredentialFactory> factory;
    EXPECT_EQ(GetFactory<abi::PasswordCredential>(factory), S_OK);
    return factory->CreatePasswordCredential(resource, user, password, credential.Put());
}

Credential Made(const Text& resource, const Text& user, const Text& password) {
    Credential credential;
    EXPECT_EQ(MakeCredential(resource, user, password, credential), S_OK);
    return credential;
}

HRESULT AddCredential(const Text& resource, const Text& user, const Text& password) {
    return OpenVault()->Add(Made(resource, user, password).Get());
}

WideText PasswordOf(const Credential& credential) {
    String password;
    EXPECT_EQ(credential->get_Password(password.Put()), S_OK);
    return CharactersOf(password.Get());
}

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

// A packaged program with stores in a folder of the test's own.
class StoresInAFolder : public SimulatorApartmentTest {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        dialsim_set_packaged(true);
    }

    StoresFolder folder;
};

enum class Place { Folder, Memory };

// The same there and in memory.
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

std::string NameOf(const testing::TestParamInfo<Place>& place) {
    return place.param == Place::Memory ? "InMemory" : "InAFolder";
}

constexpr const char* kStores[] = {"roaming", "local", "vault"};

const auto kBothPlaces = testing::Values(Place::Folder, Place::Memory);

using StoredSettings = Stores;
INSTANTIATE_TEST_SUITE_P(Places, StoredSettings, kBothPlaces, NameOf);

TEST_P(StoredSettings, AreLookedUpAsTheyWereInserted) {
    EXPECT_EQ(InsertText("brush", "Palette"), S_OK);
    EXPECT_EQ(TextAt("brush"), UTF16("Palette"));
}

TEST_P(StoredSettings, ThatAreNotThereAreLookedUpAsNull) {
    Object value = NumberValue(1);
    EXPECT_EQ(Lookup("brush", value), S_OK);
    EXPECT_FALSE(value);
}

TEST_P(StoredSettings, ReportWhetherAnEntryWasReplaced) {
    const auto values = Values();
    abi::boolean replaced = 7;
    EXPECT_EQ(values->Insert(Text("brush"), TextValue("old").Get(), &replaced), S_OK);
    EXPECT_EQ(replaced, 0);
    EXPECT_EQ(values->Insert(Text("brush"), NumberValue(3).Get(), &replaced), S_OK);
    EXPECT_EQ(replaced, 1);
    EXPECT_EQ(StoreText("roaming"), "\"brush\" Int32 3\n");
}

TEST_P(StoredSettings, AreRoamingOrLocal) {
    InsertText("brush", "roaming", Where::Roaming);
    InsertText("brush", "local", Where::Local);
    EXPECT_EQ(TextAt("brush", Where::Roaming), UTF16("roaming"));
    EXPECT_EQ(TextAt("brush", Where::Local), UTF16("local"));
    EXPECT_EQ(StoreText("roaming"), "\"brush\" String \"roaming\"\n");
    EXPECT_EQ(StoreText("local"), "\"brush\" String \"local\"\n");
}

TEST_P(StoredSettings, AreFoundByTheirExactNames) {
    InsertText("brush", "small");
    EXPECT_EQ(TextAt("Brush"), UTF16("none"));
    EXPECT_EQ(TextAt("brush "), UTF16("none"));
    EXPECT_EQ(TextAt("brus"), UTF16("none"));
}

TEST_P(StoredSettings, CanBeRemovedOneByOne) {
    InsertText("brush", "b");
    InsertText("pen", "p");
    EXPECT_EQ(Values()->Remove(Text("brush")), S_OK);
    EXPECT_EQ(StoreText("roaming"), "\"pen\" String \"p\"\n");
    EXPECT_EQ(Values()->Remove(Text("brush")), S_OK);
}

TEST_P(StoredSettings, CanBeCountedAskedForAndCleared) {
    const auto values = Values();
    InsertText("brush", "b");
    InsertText("pen", "p");
    std::uint32_t size = 0;
    EXPECT_EQ(values->get_Size(&size), S_OK);
    EXPECT_EQ(size, 2u);
    abi::boolean there = 7;
    EXPECT_EQ(values->HasKey(Text("pen"), &there), S_OK);
    EXPECT_EQ(there, 1);
    EXPECT_EQ(values->HasKey(Text("ruler"), &there), S_OK);
    EXPECT_EQ(there, 0);
    EXPECT_EQ(values->Clear(), S_OK);
    EXPECT_EQ(StoreText("roaming"), "");
}

template <class T>
void ExpectKept(abi::PropertyType type,
                HRESULT (abi::IPropertyValueStatics::*create)(T, abi::IInspectable**) noexcept,
                HRESULT (abi::IPropertyValue::*get)(T*) noexcept, std::vector<T> numbers) {
    for (const T number : numbers) {
        Object inserted;
        ASSERT_EQ((PropertyValues().Get()->*create)(number, inserted.Put()), S_OK);
        abi::boolean replaced = 0;
        ASSERT_EQ(Values()->Insert(Text("key"), inserted.Get(), &replaced), S_OK);
        Object found;
        ASSERT_EQ(Lookup("key", found), S_OK);
        ComPtr<abi::IPropertyValue> value;
        ASSERT_EQ(Query(found.Get(), value), S_OK);
        abi::PropertyType found_type{};
        EXPECT_EQ(value->get_Type(&found_type), S_OK);
        EXPECT_EQ(found_type, type);
        T found_number{};
        EXPECT_EQ((value.Get()->*get)(&found_number), S_OK);
        EXPECT_EQ(found_number, number);
    }
}

template <class T>
std::vector<T> Extremes() {
    return {std::numeric_limits<T>::min(), 0, 1, std::numeric_limits<T>::max()};
}

TEST_P(StoredSettings, KeepEveryTypeOfNumber) {
    using Type = abi::PropertyType;
    using Make = abi::IPropertyValueStatics;
    using Value = abi::IPropertyValue;
    ExpectKept(Type::UInt8, &Make::CreateUInt8, &Value::GetUInt8, Extremes<std::uint8_t>());
    ExpectKept(Type::Int16, &Make::CreateInt16, &Value::GetInt16, Extremes<std::int16_t>());
    ExpectKept(Type::UInt16, &Make::CreateUInt16, &Value::GetUInt16, Extremes<std::uint16_t>());
    ExpectKept(Type::Int32, &Make::CreateInt32, &Value::GetInt32, Extremes<std::int32_t>());
    ExpectKept(Type::UInt32, &Make::CreateUInt32, &Value::GetUInt32, Extremes<std::uint32_t>());
    ExpectKept(Type::Int64, &Make::CreateInt64, &Value::GetInt64, Extremes<std::int64_t>());
    ExpectKept(Type::UInt64, &Make::CreateUInt64, &Value::GetUInt64, Extremes<std::uint64_t>());
    ExpectKept<abi::boolean>(Type::Boolean, &Make::CreateBoolean, &Value::GetBoolean, {0, 1});
}

// Every text that a platform string can be, as a name and as a value.
const WideText kTexts[] = {
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

TEST_P(StoredSettings, KeepEveryText) {
    for (const WideText& text : kTexts) {
        ASSERT_EQ(InsertText(text, text), S_OK);
    }
    for (const WideText& text : kTexts) {
        EXPECT_EQ(TextAt(text), text);
    }
    std::uint32_t size = 0;
    EXPECT_EQ(Values()->get_Size(&size), S_OK);
    EXPECT_EQ(size, std::size(kTexts));
}

TEST_P(StoredSettings, RefuseNamesAbove255Characters) {
    EXPECT_EQ(InsertText(WideText(255, 'n'), "fits"), S_OK);
    EXPECT_EQ(TextAt(WideText(255, 'n')), UTF16("fits"));
    const std::string before = StoreText("roaming");
    EXPECT_EQ(InsertText(WideText(256, 'n'), "does not"), Code(0x80073DC9));
    EXPECT_EQ(StoreText("roaming"), before);
}

TEST_P(StoredSettings, RefuseValuesAbove8192Bytes) {
    EXPECT_EQ(InsertText("text", WideText(4096, 'v')), S_OK);
    EXPECT_EQ(TextAt("text"), WideText(4096, 'v'));
    EXPECT_EQ(InsertText("text", WideText(4097, 'w')), Code(0x80073DC8));
    EXPECT_EQ(TextAt("text"), WideText(4096, 'v'));
}

TEST_P(StoredSettings, RefuseWhatTheyDoNotKeep) {
    const auto values = Values();
    abi::boolean replaced = 7;
    EXPECT_EQ(values->Insert(Text("key"), nullptr, &replaced), E_POINTER);
    EXPECT_EQ(values->Insert(Text("key"), PropertyValues().Get(), &replaced), Code(0x8007065E));
    Object number;
    ASSERT_EQ(PropertyValues()->CreateDouble(1.5, number.Put()), S_OK);
    EXPECT_EQ(values->Insert(Text("key"), number.Get(), &replaced), Code(0x8007065E));
    EXPECT_EQ(replaced, 7);
    EXPECT_EQ(values->Insert(Text("key"), TextValue("text").Get(), nullptr), E_POINTER);
    EXPECT_EQ(StoreText("roaming"), "");
    EXPECT_EQ(StoreFile("roaming"), std::nullopt);
}

TEST_P(StoredSettings, MayBeObjectsThatAreNoValues) {
    ASSERT_TRUE(dialsim_put_setting("roaming", "key", "composite", "ignored"));
    Object object;
    EXPECT_EQ(Lookup("key", object), S_OK);
    ASSERT_TRUE(object);
    ComPtr<abi::IPropertyValue> value;
    EXPECT_EQ(Query(object.Get(), value), E_NOINTERFACE);
    abi::boolean replaced = 0;
    EXPECT_EQ(Values(Where::Local)->Insert(Text("copy"), object.Get(), &replaced), S_OK);
    EXPECT_EQ(StoreText("local"), "\"copy\" composite\n");
}

TEST_P(StoredSettings, NeedAPackage) {
    ComPtr<abi::IApplicationData> data;
    EXPECT_EQ(CurrentData(data), S_OK);
    dialsim_set_packaged(false);
    EXPECT_EQ(CurrentData(data), Code(0x80073D54));
    EXPECT_FALSE(data);
    dialsim_set_packaged(true);
    EXPECT_EQ(CurrentData(data), S_OK);
    dialsim_reset();
    EXPECT_EQ(CurrentData(data), Code(0x80073D54));
}

TEST_P(StoredSettings, AreInTheOutermostContainer) {
    for (const auto& [where, locality] : {std::pair(Where::Local, 0), std::pair(Where::Roaming, 1)}) {
        const auto container = ContainerOf(where);
        String name = ToPlatformString("before");
        EXPECT_EQ(container->get_Name(name.Put()), S_OK);
        EXPECT_EQ(CharactersOf(name.Get()), UTF16(""));
        abi::ApplicationDataLocality found{7};
        EXPECT_EQ(container->get_Locality(&found), S_OK);
        EXPECT_EQ(static_cast<int>(found), locality);
    }
}

TEST_P(StoredSettings, RefuseWhatTheSimulatorLacks) {
    ComPtr<abi::IApplicationData> data;
    ASSERT_EQ(CurrentData(data), S_OK);
    std::uint32_t version = 7;
    std::uint64_t quota = 7;
    EventRegistrationToken token{7};
    abi::IAsyncAction* action = nullptr;
    abi::StorageFolder* place = nullptr;
    EXPECT_EQ(data->get_Version(&version), E_NOTIMPL);
    EXPECT_EQ(data->SetVersionAsync(1, nullptr, &action), E_NOTIMPL);
    EXPECT_EQ(data->ClearAllAsync(&action), E_NOTIMPL);
    EXPECT_EQ(data->ClearAsync({}, &action), E_NOTIMPL);
    EXPECT_EQ(data->get_LocalFolder(&place), E_NOTIMPL);
    EXPECT_EQ(data->get_RoamingFolder(&place), E_NOTIMPL);
    EXPECT_EQ(data->get_TemporaryFolder(&place), E_NOTIMPL);
    EXPECT_EQ(data->add_DataChanged(nullptr, &token), E_NOTIMPL);
    EXPECT_EQ(data->remove_DataChanged(token), E_NOTIMPL);
    EXPECT_EQ(data->SignalDataChanged(), E_NOTIMPL);
    EXPECT_EQ(data->get_RoamingStorageQuota(&quota), E_NOTIMPL);
    const auto container = ContainerOf(Where::Local);
    abi::IMapView<HSTRING, abi::ApplicationDataContainer>* containers = nullptr;
    ComPtr<abi::IApplicationDataContainer> inner;
    EXPECT_EQ(container->get_Containers(&containers), E_NOTIMPL);
    EXPECT_EQ(container->CreateContainer(Text("inner"), {}, inner.Put()), E_NOTIMPL);
    EXPECT_EQ(container->DeleteContainer(Text("inner")), E_NOTIMPL);
    abi::IMapView<HSTRING, abi::IInspectable>* view = nullptr;
    EXPECT_EQ(Values()->GetView(&view), E_NOTIMPL);
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

// One of everything that the library calls.
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
        const bool of_texts =
            line.find("Windows") == 0;  // the functions for platform strings tell every text
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

using StoreControls = Stores;
INSTANTIATE_TEST_SUITE_P(Places, StoreControls, kBothPlaces, NameOf);

TEST_P(StoreControls, PutEntriesOfEveryType) {
    const struct {
        const char* type;
        const char* value;
        const char* shown;
    } rows[] = {
        {"String", "say \"hi\"", "String \"say \\\"hi\\\"\""},
        {"Int32", "-2147483648", "Int32 -2147483648"},
        {"UInt32", "4294967295", "UInt32 4294967295"},
        {"Int64", "-9223372036854775808", "Int64 -9223372036854775808"},
        {"UInt64", "18446744073709551615", "UInt64 18446744073709551615"},
        {"UInt8", "255", "UInt8 255"},
        {"Int16", "-32768", "Int16 -32768"},
        {"UInt16", "65535", "UInt16 65535"},
        {"Boolean", "true", "Boolean true"},
        {"Boolean", "false", "Boolean false"},
        {"composite", "ignored", "composite"},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(dialsim_put_setting("local", "key", row.type, row.value)) << row.type;
        EXPECT_EQ(StoreText("local"), std::string("\"key\" ") + row.shown + "\n");
    }
}

TEST_P(StoreControls, RefuseWhatTheStoresDoNotTake) {
    const struct {
        const char* store;
        const char* type;
        const char* value;
    } rows[] = {
        {"vault", "String", "text"},
        {"Roaming", "String", "text"},
        {"", "String", "text"},
        {"local", "Double", "1.5"},
        {"local", "string", "text"},
        {"local", "", ""},
        {"local", "Int32", "2147483648"},
        {"local", "Int32", "1.0"},
        {"local", "Int32", ""},
        {"local", "Int32", "one"},
        {"local", "Int32", "1 2"},
        {"local", "UInt8", "-1"},
        {"local", "UInt8", "256"},
        {"local", "Boolean", "1"},
        {"local", "Boolean", "True"},
        {"local", "UInt64", "18446744073709551616"},
        {"local", "Int16", "65536"},
        {"local", "Int32", "18446744073709551615"},
        {"local", "Int64", "9223372036854775808"},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(dialsim_put_setting(row.store, "key", row.type, row.value))
            << row.store << " " << row.type << " " << row.value;
    }
    EXPECT_FALSE(dialsim_put_setting("local", std::string(256, 'n').c_str(), "Int32", "1"));
    EXPECT_FALSE(dialsim_put_setting("local", "key", "String", std::string(4097, 'v').c_str()));
    EXPECT_EQ(StoreText("local"), "");
}

TEST_P(StoreControls, ShowEntriesInTheOrderOfTheirKeys) {
    for (const char* key : {"b", "a", "C", "ab", "\xC3\xA4"}) {
        ASSERT_TRUE(dialsim_put_setting("roaming", key, "Boolean", "true"));
    }
    EXPECT_EQ(StoreText("roaming"),
              "\"C\" Boolean true\n\"a\" Boolean true\n\"ab\" Boolean true\n\"b\" Boolean true\n"
              "\"\xC3\xA4\" Boolean true\n");
    EXPECT_EQ(StoreText("no such store"), "");
}

TEST_P(StoreControls, ClearEverythingDamagedOrNot) {
    dialsim_put_setting("roaming", "key", "Int32", "1");
    dialsim_put_credential("resource", "user", "secret");
    ASSERT_TRUE(PutStoreFile("local", "damaged"));
    EXPECT_TRUE(dialsim_clear_stores());
    for (const char* store : kStores) {
        EXPECT_EQ(StoreFile(store), std::nullopt) << store;
    }
    EXPECT_TRUE(dialsim_clear_stores());
}

TEST_P(StoreControls, PutAndGiveFilesByteByByte) {
    std::string bytes;
    for (const char* store : kStores) {
        EXPECT_TRUE(PutStoreFile(store, bytes));
        EXPECT_EQ(StoreFile(store), bytes) << store;
        bytes += std::string("\0\r\n\xFF", 4) + store;
    }
    EXPECT_EQ(StoreFile("roaming"), "");
    EXPECT_TRUE(PutStoreFile("roaming", R"({"settings": []})"));
    EXPECT_EQ(StoreText("roaming"), "");
    EXPECT_EQ(StoreFile("roaming"), R"({"settings": []})");
}

TEST_P(StoreControls, GiveTheBeginningOfAFileThatTheBufferCannotHold) {
    ASSERT_TRUE(PutStoreFile("local", "content"));
    char buffer[5] = "????";
    EXPECT_EQ(dialsim_store_file("local", buffer, sizeof buffer), sizeof "content");
    EXPECT_STREQ(buffer, "cont");
}

TEST_P(StoreControls, KnowNoFilesOfOtherStores) {
    for (const char* store : {"", "Roaming", "local.json", "lock"}) {
        EXPECT_FALSE(PutStoreFile(store, "content")) << store;
        EXPECT_EQ(dialsim_store_file(store, nullptr, 0), 0u) << store;
    }
}

TEST_P(StoreControls, OfScriptsArePackagedUnpackagedAndShowStores) {
    dialsim_set_packaged(false);
    ComPtr<abi::IApplicationData> data;
    EXPECT_TRUE(dialsim_play("packaged", 0, nullptr, 0));
    EXPECT_EQ(CurrentData(data), S_OK);
    EXPECT_TRUE(dialsim_play("unpackaged", 0, nullptr, 0));
    EXPECT_EQ(CurrentData(data), Code(0x80073D54));
    dialsim_put_setting("roaming", "brush", "String", "Palette");
    dialsim_put_credential("resource", "user", "secret");
    testing::internal::CaptureStdout();
    EXPECT_TRUE(dialsim_play("show stores", 0, nullptr, 0));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "roaming:\n\"brush\" String \"Palette\"\nlocal:\nvault:\n\"resource\" \"user\" \"secret\"\n");
}

using StoreFiles = Stores;
INSTANTIATE_TEST_SUITE_P(Places, StoreFiles, kBothPlaces, NameOf);

TEST_P(StoreFiles, OutliveAReset) {
    dialsim_put_setting("roaming", "key", "Int32", "1");
    dialsim_reset();
    EXPECT_EQ(StoreText("roaming"), "\"key\" Int32 1\n");
}

TEST_P(StoreFiles, AreMadeForAPersonToRead) {
    dialsim_put_setting("roaming", "runs", "Int32", "3");
    dialsim_put_setting("roaming", "brush", "String", "Palette");
    EXPECT_EQ(StoreFile("roaming"), R"({
  "settings": [
    {
      "key": "brush",
      "type": "String",
      "value": "Palette"
    },
    {
      "key": "runs",
      "type": "Int32",
      "value": 3
    }
  ]
}
)");
}

TEST_P(StoreFiles, CanBeWrittenByAPerson) {
    PutStoreFile("local",
                 "{\"settings\": [{\"value\": 3, \"key\": \"runs\", \"type\": \"Int32\"},\r\n"
                 "  {\"key\": \"a\", \"type\": \"String\", \"value\": [55357, 98]}]}");
    EXPECT_EQ(StoreText("local"), "\"a\" String [55357,98]\n\"runs\" Int32 3\n");
    EXPECT_EQ(TextAt("a", Where::Local), (WideText{static_cast<WCHAR>(55357), WCHAR('b')}));
}

TEST_P(StoreFiles, AreNotWrittenWhereNothingChanges) {
    Values()->Remove(Text("key"));
    Values()->Clear();
    EXPECT_EQ(StoreFile("roaming"), std::nullopt);
    const std::string hand_written = "{\"settings\":[{\"key\":\"key\",\"type\":\"Int32\",\"value\":1}]}";
    PutStoreFile("roaming", hand_written);
    EXPECT_EQ(Values()->Remove(Text("another")), S_OK);
    EXPECT_TRUE(dialsim_put_setting("roaming", "key", "Int32", "1"));
    EXPECT_EQ(StoreFile("roaming"), hand_written);
}

// Everything fails, and nothing is written.
void ExpectSettingsDamaged(const std::string& content) {
    PutStoreFile("roaming", content);
    const auto values = Values();
    Object value;
    EXPECT_EQ(values->Lookup(Text("key"), value.Put()), kSettingsDamaged) << content;
    EXPECT_FALSE(value);
    EXPECT_EQ(values->Remove(Text("key")), kSettingsDamaged) << content;
    EXPECT_EQ(values->Clear(), kSettingsDamaged) << content;
    EXPECT_EQ(InsertText("key", "text"), kSettingsDamaged) << content;
    EXPECT_FALSE(dialsim_put_setting("roaming", "key", "Int32", "1")) << content;
    EXPECT_EQ(StoreText("roaming"), "damaged\n") << content;
    EXPECT_EQ(StoreFile("roaming"), content);
}

void ExpectVaultDamaged(const std::string& content) {
    PutStoreFile("vault", content);
    const auto vault = OpenVault();
    Credential credential;
    Credentials list;
    EXPECT_EQ(vault->Retrieve(Text("a"), Text("b"), credential.Put()), kVaultDamaged) << content;
    EXPECT_EQ(vault->FindAllByUserName(Text("b"), list.Put()), kVaultDamaged) << content;
    EXPECT_EQ(vault->FindAllByResource(Text("a"), list.Put()), kVaultDamaged) << content;
    EXPECT_EQ(vault->RetrieveAll(list.Put()), kVaultDamaged) << content;
    EXPECT_EQ(vault->Remove(Made("a", "b", "c").Get()), kVaultDamaged) << content;
    EXPECT_EQ(AddCredential("a", "b", "c"), kVaultDamaged) << content;
    EXPECT_FALSE(dialsim_put_credential("a", "b", "c")) << content;
    EXPECT_EQ(StoreText("vault"), "damaged\n") << content;
    EXPECT_EQ(StoreFile("vault"), content);
}

// Standard error reports the damage; these tests look at what else there is.
class DamagedStores : public Stores {
protected:
    void SetUp() override {
        Stores::SetUp();
        testing::internal::CaptureStderr();
    }
    void TearDown() override {
        testing::internal::GetCapturedStderr();
        Stores::TearDown();
    }
};

INSTANTIATE_TEST_SUITE_P(Places, DamagedStores, kBothPlaces, NameOf);

// The end of the last line alone carries nothing.
TEST_P(DamagedStores, AreThoseCutOffAnywhere) {
    dialsim_put_setting("roaming", "key", "String", "text");
    dialsim_put_setting("roaming", "runs", "Int32", "12");
    dialsim_put_credential("a", "b", "c");
    const std::string settings = StoreFile("roaming").value();
    const std::string vault = StoreFile("vault").value();
    for (std::size_t length = 0; length < settings.size() - 1 && !HasFailure(); ++length) {
        ExpectSettingsDamaged(settings.substr(0, length));
    }
    for (std::size_t length = 0; length < vault.size() - 1 && !HasFailure(); ++length) {
        ExpectVaultDamaged(vault.substr(0, length));
    }
    PutStoreFile("roaming", settings.substr(0, settings.size() - 1));
    EXPECT_EQ(StoreText("roaming"), "\"key\" String \"text\"\n\"runs\" Int32 12\n");
}

TEST_P(DamagedStores, AreSettingsOfAnotherShape) {
    for (const char* entry : {"",
                              "1",
                              "[]",
                              "{}",
                              R"({"key":"a","type":"Int32"})",
                              R"({"key":"a","value":1})",
                              R"({"type":"Int32","value":1})",
                              R"({"key":"a","type":"Int32","value":1,"more":1})",
                              R"({"key":"a","key":"b","type":"Int32","value":1})",
                              R"({"key":"a","type":"Int32","valeu":1})",
                              R"({"key":1,"type":"Int32","value":1})",
                              R"({"key":"a","type":1,"value":1})",
                              R"({"key":"a","type":"Int","value":1})",
                              R"({"key":"a","type":"Int32","value":"1"})",
                              R"({"key":"a","type":"Int32","value":1.5})",
                              R"({"key":"a","type":"Int32","value":2147483648})",
                              R"({"key":"a","type":"Int32","value":18446744073709551615})",
                              R"({"key":"a","type":"Int64","value":9223372036854775808})",
                              R"({"key":"a","type":"Int32","value":null})",
                              R"({"key":"a","type":"UInt64","value":-1})",
                              R"({"key":"a","type":"UInt64","value":1e999})",
                              R"({"key":"a","type":"Boolean","value":1})",
                              R"({"key":"a","type":"String","value":1})",
                              R"({"key":"a","type":"String","value":[65536]})",
                              R"({"key":"a","type":"String","value":[-1]})",
                              R"({"key":"a","type":"String","value":["a"]})",
                              R"({"key":"a","type":"composite","value":1})",
                              R"({"key":"a","type":"Int32","value":1},{"key":"a","type":"Int32","value":1})",
                              R"({"key":"a","type":"String","value":"\uD83D"})",
                              "{\"key\":\"a\",\"type\":\"String\",\"value\":\"\xFF\"}",
                              "{\"key\":\"a\",\"type\":\"String\",\"value\":\"\xED\xA0\xBD\"}"}) {
        ExpectSettingsDamaged(std::string("{\"settings\":[") + entry + (*entry == '\0' ? "," : "") + "]}");
    }
    for (const char* content :
         {"", " ", "null", "1", "[]", "{}", R"({"settings":{}})", R"({"settings":[],"more":1})",
          R"({"settings":[{"key":"a","type":"Int32","value":1}],"settings":[]})", R"({"credentials":[]})",
          "\xFF\xFE{", "{\"settings\":[]}}", "not a store"}) {
        ExpectSettingsDamaged(content);
    }
    ExpectSettingsDamaged(std::string(100000, '['));
}

TEST_P(DamagedStores, AreVaultsOfAnotherShape) {
    for (const char* content : {"", "null", "[]", "{}", R"({"credentials":{}})", R"({"settings":[]})",
                                R"({"credentials":[1]})", R"({"credentials":[{"resource":"a","user":"b"}]})",
                                R"({"credentials":[{"resource":"a","user":"b","password":1}]})",
                                R"({"credentials":[{"resource":"a","user":"b","password":"c","user":"d"}]})",
                                R"({"credentials":[{"resource":"a","user":"b","password":"c","more":1}]})",
                                R"({"credentials":[{"resource":"a","user":"b","password":"c"},)"
                                R"({"resource":"a","user":"b","password":"d"}]})"}) {
        ExpectVaultDamaged(content);
    }
}

TEST_P(DamagedStores, LeaveTheOthersAlone) {
    PutStoreFile("roaming", "damaged");
    EXPECT_EQ(InsertText("key", "text", Where::Local), S_OK);
    EXPECT_EQ(AddCredential("a", "b", "c"), S_OK);
    EXPECT_EQ(StoreText("local"), "\"key\" String \"text\"\n");
}

// What standard error reports of a read.
std::string ReportedError(const char* store) {
    testing::internal::CaptureStderr();
    StoreText(store);
    return testing::internal::GetCapturedStderr();
}

TEST_P(StoreFiles, ThatAreDamagedAreReportedOnce) {
    PutStoreFile("local", "{\n  \"settings\": [x]\n}\n");
    EXPECT_EQ(ReportedError("local"),
              "dialsim: " + path +
                  "/local.json is damaged and left alone: line 2, column 16: this is not JSON, or it ends "
                  "too early\n");
    EXPECT_EQ(ReportedError("local"), "");
    PutStoreFile("local", R"({"settings": []})");
    EXPECT_EQ(ReportedError("local"), "");
    PutStoreFile("local", R"({"settings": [{"key": "a", "type": "Int32", "value": 1}, {}]})");
    EXPECT_EQ(ReportedError("local"),
              "dialsim: " + path +
                  "/local.json is damaged and left alone: entry 2: there is something else than 3 members\n");
}

TEST_P(StoreFiles, ThatAreDamagedDoNotPrintTheirPasswords) {
    dialsim_put_credential("resource", "user", "secret");
    const std::string whole = StoreFile("vault").value();
    for (const std::string& damaged : {whole.substr(0, whole.find("secret") + 6), "[" + whole + "]"}) {
        PutStoreFile("vault", whole);
        EXPECT_EQ(ReportedError("vault"), "");
        PutStoreFile("vault", damaged);
        const std::string reported = ReportedError("vault");
        EXPECT_NE(reported, "");
        EXPECT_EQ(reported.find("secret"), std::string::npos) << reported;
    }
}

TEST_F(StoresInAFolder, ThatCannotBeReadFailWithTheSystemsCode) {
    const std::string in_the_way = folder.PathOf("roaming.json");
    StoresFolder::MakeFolder(in_the_way);
    Object value;
    EXPECT_EQ(Lookup("key", value), kDenied);
    EXPECT_EQ(StoreFile("roaming"), std::nullopt);
    StoresFolder::RemoveFolder(in_the_way);
    EXPECT_EQ(Lookup("key", value), S_OK);
}

TEST_F(StoresInAFolder, ThatCannotBeWrittenFailWithTheSystemsCodeAndStay) {
    ASSERT_EQ(InsertText("key", "old"), S_OK);
    const std::string in_the_way = folder.PathOf("roaming.json.new");
    StoresFolder::MakeFolder(in_the_way);
    EXPECT_EQ(InsertText("key", "new"), kDenied);
    EXPECT_FALSE(PutStoreFile("roaming", "content"));
    EXPECT_EQ(TextAt("key"), UTF16("old"));
    StoresFolder::RemoveFolder(in_the_way);
    EXPECT_EQ(InsertText("key", "new"), S_OK);
}

TEST_F(StoresInAFolder, InNoFolderFailWithTheSystemsCode) {
    folder.Write("file", "no folder");
    dialsim_set_stores(folder.PathOf("file").c_str());
    EXPECT_EQ(InsertText("key", "text"), Code(0x80070003));
    EXPECT_FALSE(dialsim_clear_stores());
    EXPECT_FALSE(PutStoreFile("roaming", "content"));
    EXPECT_EQ(StoreFile("roaming"), std::nullopt);
    std::remove(folder.PathOf("file").c_str());
}

TEST_F(StoresInAFolder, AreTheFilesThere) {
    const std::string bytes("\0\r\n\xFF", 4);
    for (const char* store : kStores) {
        const std::string file = std::string(store) + ".json";
        EXPECT_TRUE(PutStoreFile(store, bytes));
        EXPECT_EQ(folder.Read(file), bytes) << store;
        folder.Write(file, store);
        EXPECT_EQ(StoreFile(store), store);
    }
}

TEST_F(StoresInAFolder, AreClearedWithWhatAKilledWriterHasLeftBehind) {
    folder.Write("vault.json.new", "left behind");
    EXPECT_TRUE(dialsim_clear_stores());
    EXPECT_FALSE(folder.Has("vault.json.new"));
}

// An environment variable, as it was before when the object is gone.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) {
        const char* before = std::getenv(name);
        before_ = before == nullptr ? "" : before;
        Set(value);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { Set(before_); }

private:
    void Set(const std::string& value) const {
#ifdef _WIN32
        SetEnvironmentVariableA(name_, value.empty() ? nullptr : value.c_str());
#else
        value.empty() ? unsetenv(name_) : setenv(name_, value.c_str(), 1);
#endif
    }

    const char* const name_;
    std::string before_;
};

// Uses the folder that is not given, and takes it away again.
void ExpectStoresIn(const StoresFolder& folder, const std::vector<std::string>& below) {
    dialsim_set_stores(nullptr);
    std::string path;
    std::vector<std::string> made;
    for (const std::string& name : below) {
        path += (path.empty() ? "" : "/") + name;
        made.insert(made.begin(), folder.PathOf(path));
    }
    EXPECT_TRUE(dialsim_put_setting("local", "key", "Int32", "1"));
    EXPECT_TRUE(folder.Has(path + "/local.json")) << path;
    EXPECT_TRUE(dialsim_clear_stores());
    std::remove(folder.PathOf(path + "/lock").c_str());
    for (const std::string& each : made) {
        StoresFolder::RemoveFolder(each);
    }
}

TEST_F(StoresInAFolder, AreInTheFolderOfTheEnvironment) {
    const Variable stores("DIALSIM_STORES", folder.PathOf("some/where"));
    ExpectStoresIn(folder, {"some", "where"});
}

TEST_F(StoresInAFolder, AreInTheUsersOwnDataOtherwise) {
    const Variable stores("DIALSIM_STORES", "");
#ifdef _WIN32
    const Variable data("LOCALAPPDATA", folder.path());
    ExpectStoresIn(folder, {"dialsim"});
#else
    const Variable home("HOME", folder.path());
    {
        const Variable state("XDG_STATE_HOME", folder.PathOf("state"));
        ExpectStoresIn(folder, {"state", "dialsim"});
    }
    const Variable no_state("XDG_STATE_HOME", "");
    ExpectStoresIn(folder, {".local", "state", "dialsim"});
    const Variable no_home("HOME", "");
    EXPECT_FALSE(dialsim_put_setting("local", "key", "Int32", "1"));
#endif
}

using StoresInMemory = StoresInAFolder;

// Each place keeps its own while the other one is used.
TEST_F(StoresInMemory, AreApartFromThoseInAFolder) {
    dialsim_put_setting("roaming", "key", "String", "in the folder");
    dialsim_set_stores(DIALSIM_MEMORY);
    EXPECT_EQ(StoreText("roaming"), "");
    dialsim_put_setting("roaming", "key", "String", "in memory");
    dialsim_put_setting("local", "key", "String", "in memory");
    dialsim_put_credential("resource", "user", "secret");
    dialsim_set_stores(folder.path().c_str());
    EXPECT_EQ(StoreText("roaming"), "\"key\" String \"in the folder\"\n");
    EXPECT_FALSE(folder.Has("local.json"));
    EXPECT_FALSE(folder.Has("vault.json"));
    EXPECT_TRUE(dialsim_clear_stores());
    dialsim_set_stores(DIALSIM_MEMORY);
    EXPECT_EQ(StoreText("roaming"), "\"key\" String \"in memory\"\n");
    EXPECT_EQ(StoreText("vault"), "\"resource\" \"user\" \"secret\"\n");
    EXPECT_TRUE(dialsim_clear_stores());
}

TEST_F(StoresInMemory, MakeNoFolder) {
    dialsim_set_stores(DIALSIM_MEMORY);
    EXPECT_TRUE(dialsim_put_setting("local", "key", "Int32", "1"));
    EXPECT_EQ(std::fopen(DIALSIM_MEMORY "/lock", "rb"), nullptr);
    EXPECT_TRUE(dialsim_clear_stores());
}

TEST_F(StoresInMemory, MayBeThoseOfTheEnvironment) {
    const Variable stores("DIALSIM_STORES", DIALSIM_MEMORY);
    dialsim_set_stores(DIALSIM_MEMORY);
    dialsim_put_setting("local", "key", "Int32", "1");
    dialsim_set_stores(nullptr);
    EXPECT_EQ(StoreText("local"), "\"key\" Int32 1\n");
    EXPECT_TRUE(dialsim_clear_stores());
}

TEST_P(StoredSettings, HaveAPackageFromTheStartWhereTheEnvironmentSaysSo) {
    ComPtr<abi::IApplicationData> data;
    {
        const Variable packaged("DIALSIM_PACKAGED", "1");
        dialsim_reset();
        EXPECT_EQ(CurrentData(data), S_OK);
    }
    {
        const Variable packaged("DIALSIM_PACKAGED", "0");
        dialsim_reset();
        EXPECT_EQ(CurrentData(data), Code(0x80073D54));
    }
}

}  // namespace
}  // namespace brindle
