// Settings in the application's roaming and local containers. A program without package identity has neither.
#include "platform/activation.h"
#include "platform/errors.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"
#include "platform/text.h"
#include "storage/storage_context.h"

namespace brindle {

namespace {

using Values = abi::IMap<HSTRING, abi::IInspectable>;

// Null when the platform refuses or yields null, as it does for a program without package identity.
ComPtr<Values> ValuesOf(Container container) {
    ComPtr<abi::IApplicationDataStatics> statics;
    if (Failed(GetFactory<abi::ApplicationData>(statics))) {
        return {};
    }
    ComPtr<abi::IApplicationData> data;
    if (Failed(statics->get_Current(data.Put())) || !data) {
        return {};
    }
    ComPtr<abi::IApplicationDataContainer> settings;
    if (Failed(container == Container::Roaming ? data->get_RoamingSettings(settings.Put())
                                               : data->get_LocalSettings(settings.Put())) ||
        !settings) {
        return {};
    }
    ComPtr<abi::IPropertySet> set;
    if (Failed(settings->get_Values(set.Put())) || !set) {
        return {};
    }
    ComPtr<Values> values;
    if (Failed(Query(set.Get(), values))) {
        return {};
    }
    return values;
}

// Null when there is no entry, when Lookup fails, or when the entry is no property value.
ComPtr<abi::IPropertyValue> LookUp(Values& values, HSTRING key) {
    ComPtr<abi::IInspectable> entry;
    if (Failed(values.Lookup(key, entry.Put())) || !entry) {
        return {};
    }
    ComPtr<abi::IPropertyValue> value;
    if (Failed(Query(entry.Get(), value))) {
        return {};
    }
    return value;
}

String TextIn(abi::IPropertyValue& value) {
    String text;
    ThrowIfFailed(value.GetString(text.Put()));
    return text;
}

std::int32_t NumberIn(abi::IPropertyValue& value) {
    std::int32_t number = 0;
    ThrowIfFailed(value.GetInt32(&number));
    return number;
}

// The entry as `read` converts it, or `absent`.
template <class Result, class Read>
Result ReadSetting(Container container, const WCHAR* key, Result absent, Read read) {
    try {
        const ComPtr<Values> values = ValuesOf(container);
        if (!values) {
            return absent;
        }
        const TextReference name(key);
        const ComPtr<abi::IPropertyValue> value = LookUp(*values.Get(), name.Get());
        return value ? read(*value.Get()) : std::move(absent);
    } catch (const hresult_error&) {
        return absent;
    }
}

// True when the entry has the new value already; otherwise it is removed. An entry that cannot be read or
// removed, such as one of another type, counts as different and stays for Insert to replace.
template <class IsSame>
bool KeepOrRemove(Values& values, HSTRING key, IsSame is_same) {
    try {
        if (const ComPtr<abi::IPropertyValue> value = LookUp(values, key)) {
            if (is_same(*value.Get())) {
                return true;
            }
            ThrowIfFailed(values.Remove(key));
        }
    } catch (const hresult_error&) {
        // Deliberately ignored: Insert replaces the entry
        // (NumberSettings.AnEntryOfAnotherKindIsOverwrittenWithoutBeingRemoved).
    }
    return false;
}

// `make` creates the new property value.
template <class IsSame, class Make>
void WriteSetting(Container container, const WCHAR* key, IsSame is_same, Make make) {
    try {
        const ComPtr<Values> values = ValuesOf(container);
        if (!values) {
            return;
        }
        const TextReference name(key);
        if (KeepOrRemove(*values.Get(), name.Get(), is_same)) {
            return;
        }
        ComPtr<abi::IPropertyValueStatics> factory;
        ThrowIfFailed(GetFactory<abi::PropertyValue>(factory));
        ComPtr<abi::IInspectable> made;
        ThrowIfFailed(make(*factory.Get(), made.Put()));
        abi::boolean replaced = 0;
        ThrowIfFailed(values->Insert(name.Get(), made.Get(), &replaced));
    } catch (const hresult_error&) {
        // Deliberately ignored: the setters write to the other stores and return 0
        // (SettingsFailures.SettersSucceedEvenWhereNothingCanBeWritten).
    }
}

}  // namespace

HostText StorageContext::GetStringFromSettings(Container container, const WCHAR* key) const {
    return ReadSetting(container, key, HostText(),
                       [](abi::IPropertyValue& value) { return CopyForHost(TextIn(value)); });
}

std::int32_t StorageContext::GetIntFromSettings(Container container, const WCHAR* key) const {
    return ReadSetting(container, key, std::int32_t{kAbsentNumber}, NumberIn);
}

void StorageContext::SetStringInSettings(Container container, const WCHAR* key, const WCHAR* value) const {
    WriteSetting(
        container, key, [=](abi::IPropertyValue& old) { return SameText(TextIn(old), value); },
        [=](abi::IPropertyValueStatics& factory, abi::IInspectable** made) {
            return factory.CreateString(TextReference(value).Get(), made);
        });
}

void StorageContext::SetIntInSettings(Container container, const WCHAR* key, std::int32_t value) const {
    WriteSetting(
        container, key, [=](abi::IPropertyValue& old) { return NumberIn(old) == value; },
        [=](abi::IPropertyValueStatics& factory, abi::IInspectable** made) {
            return factory.CreateInt32(value, made);
        });
}

}  // namespace brindle
