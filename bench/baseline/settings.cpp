// Texts and numbers in the application's settings, texts also in the user's vault.
#include <cstdlib>
#include <string_view>

#include "bench/baseline/activation.h"
#include "bench/baseline/baseline.h"
#include "platform/interfaces/credentials.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"

namespace baseline {

namespace {

using Values = abi::IMap<HSTRING, abi::IInspectable>;

class Name {
public:
    explicit Name(const WCHAR* text) {
        const auto length = static_cast<UINT>(std::char_traits<WCHAR>::length(text));
        WindowsCreateStringReference(text, length, &header_, &string_);
    }
    HSTRING Get() const { return string_; }

private:
    HSTRING_HEADER header_;
    HSTRING string_ = nullptr;
};

Values* ValuesIn(abi::IApplicationData* data, bool roaming) {
    abi::IApplicationDataContainer* container = nullptr;
    if ((roaming ? data->get_RoamingSettings(&container) : data->get_LocalSettings(&container)) < 0) {
        return nullptr;
    }
    Values* values = nullptr;
    abi::IPropertySet* set = nullptr;
    if (container->get_Values(&set) >= 0) {
        Query(set, values);
        set->Release();
    }
    container->Release();
    return values;
}

// The map of a settings container; null when there is none.
Values* OpenValues(bool roaming) {
    abi::IApplicationDataStatics* statics = nullptr;
    if (GetFactory<abi::ApplicationData>(statics) < 0) {
        return nullptr;
    }
    Values* values = nullptr;
    abi::IApplicationData* data = nullptr;
    if (statics->get_Current(&data) >= 0) {
        values = ValuesIn(data, roaming);
        data->Release();
    }
    statics->Release();
    return values;
}

abi::IPropertyValue* Find(Values* values, HSTRING key) {
    abi::IInspectable* entry = nullptr;
    if (values->Lookup(key, &entry) < 0) {
        return nullptr;
    }
    abi::IPropertyValue* value = nullptr;
    Query(entry, value);
    entry->Release();
    return value;
}

bool SameString(HSTRING string, const WCHAR* text) {
    const bool same = std::basic_string_view<WCHAR>(WindowsGetStringRawBuffer(string, nullptr)) == text;
    WindowsDeleteString(string);
    return same;
}

// True when the entry has the value; removes an entry with another value.
template <class IsSame>
bool Has(Values* values, HSTRING key, IsSame is_same) {
    abi::IPropertyValue* value = Find(values, key);
    if (value == nullptr) {
        return false;
    }
    const bool same = is_same(value);
    if (!same) {
        values->Remove(key);
    }
    value->Release();
    return same;
}

template <class IsSame, class Make>
void Write(bool roaming, const WCHAR* key, IsSame is_same, Make make) {
    Values* values = OpenValues(roaming);
    if (values == nullptr) {
        return;
    }
    const Name name(key);
    if (!Has(values, name.Get(), is_same)) {
        abi::IPropertyValueStatics* factory = nullptr;
        if (GetFactory<abi::PropertyValue>(factory) >= 0) {
            abi::IInspectable* made = nullptr;
            make(factory, &made);
            abi::boolean replaced = 0;
            values->Insert(name.Get(), made, &replaced);
            made->Release();
            factory->Release();
        }
    }
    values->Release();
}

void WriteText(bool roaming, const WCHAR* key, const WCHAR* text) {
    Write(
        roaming, key,
        [=](abi::IPropertyValue* value) {
            HSTRING old = nullptr;
            return value->GetString(&old) >= 0 && SameString(old, text);
        },
        [=](abi::IPropertyValueStatics* factory, abi::IInspectable** made) {
            factory->CreateString(Name(text).Get(), made);
        });
}

void WriteNumber(bool roaming, const WCHAR* key, std::int32_t number) {
    Write(
        roaming, key,
        [=](abi::IPropertyValue* value) {
            std::int32_t old = 0;
            return value->GetInt32(&old) >= 0 && old == number;
        },
        [=](abi::IPropertyValueStatics* factory, abi::IInspectable** made) {
            factory->CreateInt32(number, made);
        });
}

abi::IPasswordVault* OpenVault() {
    abi::IActivationFactory* factory = nullptr;
    if (GetFactory<abi::PasswordVault>(factory) < 0) {
        return nullptr;
    }
    abi::IPasswordVault* vault = nullptr;
    abi::IInspectable* instance = nullptr;
    if (factory->ActivateInstance(&instance) >= 0) {
        Query(instance, vault);
        instance->Release();
    }
    factory->Release();
    return vault;
}

bool HasCredential(abi::IPasswordVault* vault, HSTRING user_name) {
    abi::IVectorView<abi::PasswordCredential>* found = nullptr;
    if (vault->FindAllByUserName(user_name, &found) < 0) {
        return false;
    }
    std::uint32_t size = 0;
    found->get_Size(&size);
    found->Release();
    return size > 0;
}

void AddToVault(abi::IPasswordVault* vault, HSTRING resource, HSTRING user_name, const WCHAR* text) {
    abi::ICredentialFactory* factory = nullptr;
    if (GetFactory<abi::PasswordCredential>(factory) < 0) {
        return;
    }
    abi::IPasswordCredential* made = nullptr;
    factory->CreatePasswordCredential(resource, user_name, Name(text).Get(), &made);
    factory->Release();
    vault->Add(made);
    made->Release();
}

void WriteToVault(abi::IPasswordVault* vault, HSTRING resource, HSTRING user_name, const WCHAR* text) {
    abi::IPasswordCredential* old = nullptr;
    if (HasCredential(vault, user_name)) {
        if (vault->Retrieve(resource, user_name, &old) < 0) {
            return;
        }
        HSTRING password = nullptr;
        if (old->get_Password(&password) >= 0 && SameString(password, text)) {
            old->Release();
            return;
        }
        vault->Remove(old);
        old->Release();
    }
    AddToVault(vault, resource, user_name, text);
}

WCHAR* Copy(HSTRING string) {
    const std::size_t size = std::size_t{WindowsGetStringLen(string)} + 1;
    auto* copy = static_cast<WCHAR*>(std::calloc(size, sizeof(WCHAR)));
    wcscpy_s(copy, size, WindowsGetStringRawBuffer(string, nullptr));
    WindowsDeleteString(string);
    return copy;
}

WCHAR* TextIn(bool roaming, const WCHAR* key) {
    Values* values = OpenValues(roaming);
    if (values == nullptr) {
        return nullptr;
    }
    WCHAR* text = nullptr;
    if (abi::IPropertyValue* value = Find(values, Name(key).Get())) {
        HSTRING string = nullptr;
        if (value->GetString(&string) >= 0) {
            text = Copy(string);
        }
        value->Release();
    }
    values->Release();
    return text;
}

std::int32_t NumberIn(bool roaming, const WCHAR* key) {
    std::int32_t number = INT32_MIN;
    Values* values = OpenValues(roaming);
    if (values == nullptr) {
        return number;
    }
    if (abi::IPropertyValue* value = Find(values, Name(key).Get())) {
        value->GetInt32(&number);
        value->Release();
    }
    values->Release();
    return number;
}

WCHAR* TextInVault(const WCHAR* resource, const WCHAR* key) {
    abi::IPasswordVault* vault = OpenVault();
    if (vault == nullptr) {
        return nullptr;
    }
    WCHAR* text = nullptr;
    const Name user_name(key);
    if (HasCredential(vault, user_name.Get())) {
        abi::IPasswordCredential* credential = nullptr;
        if (vault->Retrieve(Name(resource).Get(), user_name.Get(), &credential) >= 0) {
            HSTRING password = nullptr;
            if (credential->get_Password(&password) >= 0) {
                text = Copy(password);
            }
            credential->Release();
        }
    }
    vault->Release();
    return text;
}

void WipeAndFree(WCHAR* text) {
    for (volatile WCHAR* unit = text; *unit != 0; ++unit) {
        *unit = 0;
    }
    std::free(text);
}

}  // namespace

std::int32_t SetText(const WCHAR* resource, const WCHAR* key, const WCHAR* value) {
    WriteText(true, key, value);
    if (abi::IPasswordVault* vault = OpenVault()) {
        const Name user_name(key);
        WriteToVault(vault, Name(resource).Get(), user_name.Get(), value);
        vault->Release();
    }
    WriteText(false, key, value);
    return S_OK;
}

WCHAR* GetText(const WCHAR* resource, const WCHAR* key) {
    if (WCHAR* text = TextIn(true, key)) {
        return text;
    }
    if (WCHAR* text = TextInVault(resource, key)) {
        return text;
    }
    return TextIn(false, key);
}

std::int32_t SetNumber(const WCHAR* key, std::int32_t value) {
    WriteNumber(true, key, value);
    WriteNumber(false, key, value);
    return S_OK;
}

std::int32_t GetNumber(const WCHAR* resource, const WCHAR* key) {
    if (const std::int32_t number = NumberIn(true, key); number != INT32_MIN) {
        return number;
    }
    if (WCHAR* text = TextInVault(resource, key)) {
        const std::int32_t number = wcstol(text, nullptr, 10);
        WipeAndFree(text);
        return number;
    }
    return NumberIn(false, key);
}

}  // namespace baseline
