// The platform's strings: reference-counted, immutable, null-terminated; null is the empty string.
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

#include "simulator/functions/real.h"

// The common head of counted strings and string references.
struct HSTRING__ {
    std::uint32_t is_reference;
    std::uint32_t length;
    const WCHAR* characters;
};

namespace dialsim::real {

namespace {

constexpr HRESULT kNotTerminated = static_cast<HRESULT>(0x80000017);  // E_STRING_NOT_NULL_TERMINATED

// The characters follow in the same block, starting with `text`.
struct CountedString : HSTRING__ {
    std::atomic<std::uint32_t> references;
    WCHAR text[1];
};

static_assert(sizeof(HSTRING__) <= sizeof(HSTRING_HEADER));

CountedString* Allocate(UINT length) {
    void* block = std::malloc(sizeof(CountedString) + length * sizeof(WCHAR));
    if (block == nullptr) {
        return nullptr;
    }
    auto* string = new (block) CountedString{{0, length, nullptr}, {1}, {}};
    string->characters = string->text;
    string->text[length] = 0;
    return string;
}

CountedString* FromBuffer(HSTRING_BUFFER buffer) { return reinterpret_cast<CountedString*>(buffer); }

}  // namespace

HRESULT WindowsCreateString(const WCHAR* text, UINT length, HSTRING* string) {
    if (string == nullptr) {
        return E_INVALIDARG;
    }
    *string = nullptr;
    if (length == 0) {
        return S_OK;
    }
    if (text == nullptr) {
        return E_POINTER;
    }
    CountedString* made = Allocate(length);
    if (made == nullptr) {
        return E_OUTOFMEMORY;
    }
    std::memcpy(made->text, text, length * sizeof(WCHAR));
    *string = made;
    return S_OK;
}

HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header,
                                     HSTRING* string) {
    if (header == nullptr || string == nullptr) {
        return E_INVALIDARG;
    }
    *string = nullptr;
    if (text == nullptr) {
        return length == 0 ? S_OK : E_POINTER;
    }
    if (text[length] != 0) {
        return kNotTerminated;
    }
    *string = length == 0 ? nullptr : new (header) HSTRING__{1, length, text};
    return S_OK;
}

HRESULT WindowsDuplicateString(HSTRING string, HSTRING* copy) {
    if (copy == nullptr) {
        return E_INVALIDARG;
    }
    if (string != nullptr && string->is_reference != 0) {
        return real::WindowsCreateString(string->characters, string->length, copy);
    }
    if (string != nullptr) {
        ++static_cast<CountedString*>(string)->references;
    }
    *copy = string;
    return S_OK;
}

HRESULT WindowsDeleteString(HSTRING string) {
    if (string == nullptr || string->is_reference != 0) {
        return S_OK;
    }
    auto* counted = static_cast<CountedString*>(string);
    if (--counted->references == 0) {
        counted->~CountedString();
        std::free(counted);
    }
    return S_OK;
}

const WCHAR* WindowsGetStringRawBuffer(HSTRING string, UINT* length) {
    if (length != nullptr) {
        *length = string == nullptr ? 0 : string->length;
    }
    return string == nullptr ? u"" : string->characters;
}

UINT WindowsGetStringLen(HSTRING string) { return string == nullptr ? 0 : string->length; }

HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer) {
    CountedString* made = Allocate(length);
    if (made == nullptr) {
        return E_OUTOFMEMORY;
    }
    *characters = made->text;
    *buffer = reinterpret_cast<HSTRING_BUFFER>(made);
    return S_OK;
}

HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string) {
    *string = FromBuffer(buffer);
    return S_OK;
}

HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer) {
    return real::WindowsDeleteString(FromBuffer(buffer));
}

}  // namespace dialsim::real
