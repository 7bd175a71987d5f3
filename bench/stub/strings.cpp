// Reference-counted strings, and the runtime library's functions for UTF-16. Counts are not atomic: no two
// threads run concurrently.
#include "bench/stub/strings.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "bench/stub/calls.h"

struct HSTRING__ {
    std::uint32_t references;  // 0: a string reference, which is not counted
    std::uint32_t length;
    const WCHAR* characters;
};

namespace stub {

namespace {

HRESULT NewString(const WCHAR* text, UINT length, HSTRING* string) noexcept {
    void* block = std::malloc(sizeof(HSTRING__) + (length + 1) * sizeof(WCHAR));
    if (block == nullptr) {
        return E_OUTOFMEMORY;
    }
    auto* characters = reinterpret_cast<WCHAR*>(static_cast<HSTRING__*>(block) + 1);
    std::memcpy(characters, text, length * sizeof(WCHAR));
    characters[length] = 0;
    *string = new (block) HSTRING__{1, length, characters};
    return S_OK;
}

WCHAR FoldCase(WCHAR unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<WCHAR>(unit - u'A' + u'a') : unit;
}

}  // namespace

std::u16string_view View(HSTRING string) noexcept {
    return string == nullptr ? std::u16string_view()
                             : std::u16string_view(string->characters, string->length);
}

}  // namespace stub

HRESULT WindowsCreateString(const WCHAR* text, UINT length, HSTRING* string) {
    STUB_RECORD_CALL();
    return stub::NewString(text, length, string);
}

HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header,
                                     HSTRING* string) {
    STUB_RECORD_CALL();
    *string = length == 0 ? nullptr : new (header) HSTRING__{0, length, text};
    return S_OK;
}

HRESULT WindowsDuplicateString(HSTRING string, HSTRING* copy) {
    STUB_RECORD_CALL();
    *copy = string;
    if (string == nullptr) {
        return S_OK;
    }
    if (string->references == 0) {
        return stub::NewString(string->characters, string->length, copy);
    }
    ++string->references;
    return S_OK;
}

HRESULT WindowsDeleteString(HSTRING string) {
    STUB_RECORD_CALL();
    if (string != nullptr && string->references != 0 && --string->references == 0) {
        std::free(string);
    }
    return S_OK;
}

const WCHAR* WindowsGetStringRawBuffer(HSTRING string, UINT* length) {
    STUB_RECORD_CALL();
    const std::u16string_view view = stub::View(string);
    if (length != nullptr) {
        *length = static_cast<UINT>(view.size());
    }
    return string == nullptr ? u"" : view.data();
}

UINT WindowsGetStringLen(HSTRING string) {
    STUB_RECORD_CALL();
    return static_cast<UINT>(stub::View(string).size());
}

// Supports %s only, which is all that the workloads format.
int _vsnwprintf(WCHAR* buffer, std::size_t size, const WCHAR* format, std::va_list arguments) {
    STUB_RECORD_CALL();
    std::size_t written = 0;
    for (; *format != 0 && written < size; ++format) {
        if (*format != u'%') {
            buffer[written++] = *format;
            continue;
        }
        if (*++format != u's') {
            return -1;
        }
        for (const WCHAR* text = va_arg(arguments, const WCHAR*); *text != 0 && written < size; ++text) {
            buffer[written++] = *text;
        }
    }
    if (written == size) {
        return -1;
    }
    buffer[written] = 0;
    return static_cast<int>(written);
}

int _wcsnicmp(const WCHAR* a, const WCHAR* b, std::size_t count) {
    STUB_RECORD_CALL();
    for (; count > 0; --count, ++a, ++b) {
        const int difference = stub::FoldCase(*a) - stub::FoldCase(*b);
        if (difference != 0 || *a == 0) {
            return difference;
        }
    }
    return 0;
}

int wcscpy_s(WCHAR* copy, std::size_t size, const WCHAR* text) {
    STUB_RECORD_CALL();
    const std::u16string_view view(text);
    if (view.size() >= size) {
        *copy = 0;
        return 34;  // ERANGE
    }
    std::memcpy(copy, text, (view.size() + 1) * sizeof(WCHAR));
    return 0;
}

// Parses decimal digits and a sign.
LONG wcstol(const WCHAR* text, WCHAR**, int) {
    STUB_RECORD_CALL();
    const bool negative = *text == u'-';
    LONG number = 0;
    for (text += negative ? 1 : 0; *text >= u'0' && *text <= u'9'; ++text) {
        number = number * 10 + (*text - u'0');
    }
    return negative ? -number : number;
}
