// Application settings, used through the platform's interfaces without the library.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "stores.h"
#include "support/environment_variable.h"

namespace brindle {
namespace {

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

TEST_P(StoredSettings, HaveAPackageFromTheStartWhereTheEnvironmentSaysSo) {
    ComPtr<abi::IApplicationData> data;
    {
        const EnvironmentVariable packaged("DIALSIM_PACKAGED", "1");
        dialsim_reset();
        EXPECT_EQ(CurrentData(data), S_OK);
    }
    {
        const EnvironmentVariable packaged("DIALSIM_PACKAGED", "0");
        dialsim_reset();
        EXPECT_EQ(CurrentData(data), Code(0x80073D54));
    }
}

}  // namespace
}  // namespace brindle
