// Texts and numbers in the application's settings, texts also in the user's vault. Every function returns the
// code of the first failure. A step ignores it, as brindle.h says, except out of memory.
#include <cstdlib>
#include <new>
#include <string>

#include "bench/baseline/activation.h"
#include "bench/baseline/baseline.h"
#include "platform/interfaces/credentials.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"

namespace baseline {

namespace {

using Values = abi::IMap<HSTRING, abi::IInspectable>;

void EndStep(HRESULT code) {
    if (code < 0 && code == E_OUTOFMEMORY) {
        throw std::bad_alloc();
    }
}

HRESULT Refer(const WCHAR* text, HSTRING_HEADER& header, HSTRING& string) {
    const std::size_t length = std::char_traits<WCHAR>::length(text);
    if (length > UINT32_MAX) {
        return static_cast<HRESULT>(0x80070216);
    }
    return WindowsCreateStringReference(text, static_cast<UINT>(length), &header, &string);
}

// A program without package identity gets null or a failure from one of the calls below.
HRESULT ValuesOf(abi::IApplicationDataContainer* container, Values*& values) {
    abi::IPropertySet* set = nullptr;
    HRESULT code = container->get_Values(&set);
    if (set == nullptr) {
        return code < 0 ? code : E_NOINTERFACE;
    }
    if (code >= 0) {
        code = Query(set, values);
    }
    set->Release();
    return code;
}

HRESULT ValuesIn(abi::IApplicationData* data, bool roaming, Values*& values) {
    abi::IApplicationDataContainer* container = nullptr;
    HRESULT code = roaming ? data->get_RoamingSettings(&container) : data->get_LocalSettings(&container);
    if (container == nullptr) {
        return code < 0 ? code : E_NOINTERFACE;
    }
    if (code >= 0) {
        code = ValuesOf(container, values);
    }
    container->Release();
    return code;
}

// The map of a settings container.
HRESULT OpenValues(bool roaming, Values*& values) {
    abi::IApplicationDataStatics* statics = nullptr;
    HRESULT code = GetFactory<abi::ApplicationData>(statics);
    if (code < 0) {
        return code;
    }
    abi::IApplicationData* data = nullptr;
    code = statics->get_Current(&data);
    if (data == nullptr) {
        code = code < 0 ? code : E_NOINTERFACE;
    } else {
        if (code >= 0) {
            code = ValuesIn(data, roaming, values);
        }
        data->Release();
    }
    statics->Release();
    return code;
}

// Null without an entry.
HRESULT Find(Values* values, HSTRING key, abi::IPropertyValue*& value) {
    abi::IInspectable* entry = nullptr;
    HRESULT code = values->Lookup(key, &entry);
    if (entry == nullptr) {
        return code;
    }
    if (code >= 0) {
        code = Query(entry, value);
    }
    entry->Release();
    return code;
}

bool SameString(HSTRING string, const WCHAR* text) {
    const WCHAR* units = WindowsGetStringRawBuffer(string, nullptr);
    while (*units == *text && *text != 0) {
        ++units;
        ++text;
    }
    const bool same = *units == *text;
    if (string != nullptr) {
        WindowsDeleteString(string);
    }
    return same;
}

// Whether the entry has the value; removes an entry with another value. A failure counts as another value.
template <class IsSame>
HRESULT Has(Values* values, HSTRING key, bool& same, IsSame is_same) {
    abi::IPropertyValue* value = nullptr;
    HRESULT code = Find(values, key, value);
    if (value == nullptr) {
        return code;
    }
    code = is_same(value, same);
    if (code >= 0 && !same) {
        code = values->Remove(key);
    }
    value->Release();
    return code;
}

template <class Make>
HRESULT Insert(Values* values, HSTRING key, Make make) {
    abi::IPropertyValueStatics* factory = nullptr;
    HRESULT code = GetFactory<abi::PropertyValue>(factory);
    if (code < 0) {
        return code;
    }
    abi::IInspectable* made = nullptr;
    code = make(factory, &made);
    if (code >= 0) {
        abi::boolean replaced = 0;
        code = values->Insert(key, made, &replaced);
    }
    if (made != nullptr) {
        made->Release();
    }
    factory->Release();
    return code;
}

template <class IsSame, class Make>
HRESULT Write(bool roaming, const WCHAR* key, IsSame is_same, Make make) {
    Values* values = nullptr;
    HRESULT code = OpenValues(roaming, values);
    if (code < 0) {
        return code;
    }
    HSTRING_HEADER header;
    HSTRING name = nullptr;
    code = Refer(key, header, name);
    if (code >= 0) {
        bool same = false;
        const HRESULT searched = Has(values, name, same, is_same);
        if (!same) {
            code = searched == E_OUTOFMEMORY ? searched : Insert(values, name, make);
        }
    }
    values->Release();
    return code;
}

HRESULT WriteText(bool roaming, const WCHAR* key, const WCHAR* text) {
    return Write(
        roaming, key,
        [=](abi::IPropertyValue* value, bool& same) {
            HSTRING old = nullptr;
            const HRESULT code = value->GetString(&old);
            if (code >= 0) {
                same = SameString(old, text);
            }
            return code;
        },
        [=](abi::IPropertyValueStatics* factory, abi::IInspectable** made) {
            HSTRING_HEADER header;
            HSTRING string = nullptr;
            const HRESULT code = Refer(text, header, string);
            return code < 0 ? code : factory->CreateString(string, made);
        });
}

HRESULT WriteNumber(bool roaming, const WCHAR* key, std::int32_t number) {
    return Write(
        roaming, key,
        [=](abi::IPropertyValue* value, bool& same) {
            std::int32_t old = 0;
            const HRESULT code = value->GetInt32(&old);
            same = code >= 0 && old == number;
            return code;
        },
        [=](abi::IPropertyValueStatics* factory, abi::IInspectable** made) {
            return factory->CreateInt32(number, made);
        });
}

HRESULT OpenVault(abi::IPasswordVault*& vault) {
    abi::IActivationFactory* factory = nullptr;
    HRESULT code = GetFactory<abi::PasswordVault>(factory);
    if (code < 0) {
        return code;
    }
    abi::IInspectable* instance = nullptr;
    code = factory->ActivateInstance(&instance);
    if (instance == nullptr) {
        code = code < 0 ? code : E_NOINTERFACE;
    } else {
        if (code >= 0) {
            code = Query(instance, vault);
        }
        instance->Release();
    }
    factory->Release();
    return code;
}

// Under any resource; a failure counts as none.
HRESULT HasCredential(abi::IPasswordVault* vault, HSTRING user_name, std::uint32_t& count) {
    abi::IVectorView<abi::PasswordCredential>* found = nullptr;
    HRESULT code = vault->FindAllByUserName(user_name, &found);
    if (found == nullptr) {
        return code;
    }
    if (code >= 0) {
        code = found->get_Size(&count);
    }
    found->Release();
    return code;
}

HRESULT AddToVault(abi::IPasswordVault* vault, HSTRING resource, HSTRING user_name, const WCHAR* text) {
    abi::ICredentialFactory* factory = nullptr;
    HRESULT code = GetFactory<abi::PasswordCredential>(factory);
    if (code < 0) {
        return code;
    }
    HSTRING_HEADER header;
    HSTRING password = nullptr;
    code = Refer(text, header, password);
    abi::IPasswordCredential* made = nullptr;
    if (code >= 0) {
        code = factory->CreatePasswordCredential(resource, user_name, password, &made);
    }
    factory->Release();
    if (code >= 0) {
        code = vault->Add(made);
    }
    if (made != nullptr) {
        made->Release();
    }
    return code;
}

// `same` when the vault has the text; a credential with another text is removed.
HRESULT RemoveOther(abi::IPasswordVault* vault, HSTRING resource, HSTRING user_name, const WCHAR* text,
                    bool& same) {
    abi::IPasswordCredential* old = nullptr;
    HRESULT code = vault->Retrieve(resource, user_name, &old);
    if (old == nullptr) {
        return code;
    }
    if (code >= 0) {
        HSTRING password = nullptr;
        code = old->get_Password(&password);
        if (code >= 0) {
            same = SameString(password, text);
            if (!same) {
                code = vault->Remove(old);
            }
        }
    }
    old->Release();
    return code;
}

HRESULT WriteWith(abi::IPasswordVault* vault, const WCHAR* resource, const WCHAR* key, const WCHAR* text) {
    HSTRING_HEADER headers[2];
    HSTRING user_name = nullptr;
    HSTRING name = nullptr;
    HRESULT code = Refer(key, headers[0], user_name);
    if (code >= 0) {
        code = Refer(resource, headers[1], name);
    }
    if (code < 0) {
        return code;
    }
    std::uint32_t count = 0;
    code = HasCredential(vault, user_name, count);
    bool same = false;
    if (code < 0) {
        code = code == E_OUTOFMEMORY ? code : S_OK;
    } else if (count > 0) {
        code = RemoveOther(vault, name, user_name, text, same);
    }
    return code < 0 || same ? code : AddToVault(vault, name, user_name, text);
}

HRESULT WriteToVault(const WCHAR* resource, const WCHAR* key, const WCHAR* text) {
    abi::IPasswordVault* vault = nullptr;
    HRESULT code = OpenVault(vault);
    if (code >= 0) {
        code = WriteWith(vault, resource, key, text);
        vault->Release();
    }
    return code;
}

HRESULT Copy(HSTRING string, WCHAR*& text) {
    const std::size_t size = std::size_t{WindowsGetStringLen(string)} + 1;
    text = static_cast<WCHAR*>(std::calloc(size, sizeof(WCHAR)));
    if (text != nullptr) {
        wcscpy_s(text, size, WindowsGetStringRawBuffer(string, nullptr));
    }
    if (string != nullptr) {
        WindowsDeleteString(string);
    }
    return text != nullptr ? S_OK : E_OUTOFMEMORY;
}

template <class Read>
HRESULT ReadSetting(bool roaming, const WCHAR* key, Read read) {
    Values* values = nullptr;
    HRESULT code = OpenValues(roaming, values);
    if (code < 0) {
        return code;
    }
    HSTRING_HEADER header;
    HSTRING name = nullptr;
    code = Refer(key, header, name);
    if (code >= 0) {
        abi::IPropertyValue* value = nullptr;
        code = Find(values, name, value);
        if (value != nullptr) {
            if (code >= 0) {
                code = read(value);
            }
            value->Release();
        }
    }
    values->Release();
    return code;
}

HRESULT ReadText(bool roaming, const WCHAR* key, WCHAR*& text) {
    return ReadSetting(roaming, key, [&](abi::IPropertyValue* value) {
        HSTRING string = nullptr;
        const HRESULT code = value->GetString(&string);
        return code < 0 ? code : Copy(string, text);
    });
}

HRESULT ReadNumber(bool roaming, const WCHAR* key, std::int32_t& number) {
    return ReadSetting(roaming, key, [&](abi::IPropertyValue* value) {
        std::int32_t read = 0;
        const HRESULT code = value->GetInt32(&read);
        if (code >= 0) {
            number = read;
        }
        return code;
    });
}

HRESULT ReadWith(abi::IPasswordVault* vault, const WCHAR* resource, const WCHAR* key, WCHAR*& text) {
    HSTRING_HEADER headers[2];
    HSTRING user_name = nullptr;
    HRESULT code = Refer(key, headers[0], user_name);
    if (code < 0) {
        return code;
    }
    std::uint32_t count = 0;
    code = HasCredential(vault, user_name, count);
    if (code < 0 || count == 0) {
        return code;
    }
    HSTRING name = nullptr;
    code = Refer(resource, headers[1], name);
    abi::IPasswordCredential* credential = nullptr;
    if (code >= 0) {
        code = vault->Retrieve(name, user_name, &credential);
    }
    if (credential == nullptr) {
        return code;
    }
    if (code >= 0) {
        HSTRING password = nullptr;
        code = credential->get_Password(&password);
        if (code >= 0) {
            code = Copy(password, text);
        }
    }
    credential->Release();
    return code;
}

HRESULT ReadFromVault(const WCHAR* resource, const WCHAR* key, WCHAR*& text) {
    abi::IPasswordVault* vault = nullptr;
    HRESULT code = OpenVault(vault);
    if (code >= 0) {
        code = ReadWith(vault, resource, key, text);
        vault->Release();
    }
    return code;
}

// Not a memset, which the compiler removes before a free: the text may be a secret.
void WipeAndFree(WCHAR* text) {
    for (volatile WCHAR* unit = text; *unit != 0; ++unit) {
        *unit = 0;
    }
    std::free(text);
}

}  // namespace

std::int32_t SetText(const WCHAR* resource, const WCHAR* key, const WCHAR* value) {
    EndStep(WriteText(true, key, value));
    EndStep(WriteToVault(resource, key, value));
    EndStep(WriteText(false, key, value));
    return S_OK;
}

WCHAR* GetText(const WCHAR* resource, const WCHAR* key) {
    WCHAR* text = nullptr;
    EndStep(ReadText(true, key, text));
    if (text == nullptr) {
        EndStep(ReadFromVault(resource, key, text));
    }
    if (text == nullptr) {
        EndStep(ReadText(false, key, text));
    }
    return text;
}

std::int32_t SetNumber(const WCHAR* key, std::int32_t value) {
    EndStep(WriteNumber(true, key, value));
    EndStep(WriteNumber(false, key, value));
    return S_OK;
}

std::int32_t GetNumber(const WCHAR* resource, const WCHAR* key) {
    std::int32_t number = INT32_MIN;
    EndStep(ReadNumber(true, key, number));
    if (number == INT32_MIN) {
        WCHAR* text = nullptr;
        EndStep(ReadFromVault(resource, key, text));
        if (text != nullptr) {
            number = wcstol(text, nullptr, 10);
            WipeAndFree(text);
        }
    }
    if (number == INT32_MIN) {
        EndStep(ReadNumber(false, key, number));
    }
    return number;
}

}  // namespace baseline
