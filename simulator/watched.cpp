#include "simulator/watched.h"

#include <string>

#include "simulator/accounts.h"
#include "simulator/journal.h"
#include "simulator/strings.h"
#include "simulator/underlying.h"

namespace dialsim::watched {

HRESULT RoInitialize(RO_INIT_TYPE type) {
    return Perform("RoInitialize", std::to_string(type), [&] { return underlying::RoInitialize(type); });
}

void RoUninitialize() {
    Perform("RoUninitialize", "", [] {
        underlying::RoUninitialize();
        return S_OK;
    });
}

HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory) {
    return PerformInto("RoGetActivationFactory", Narrow(View(class_name)), factory, [&] {
        const Unobserved platforms_own;
        return underlying::RoGetActivationFactory(class_name, iid, factory);
    });
}

BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, ::IUnknown* language_exception) {
    BOOL answer = 0;
    Perform("RoOriginateLanguageException", Hex(code) + ", " + Narrow(View(message)), [&] {
        answer = underlying::RoOriginateLanguageException(code, message, language_exception);
        return S_OK;
    });
    return answer;
}

HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header,
                                     HSTRING* string) {
    const std::string shown = text == nullptr ? "null" : Narrow({text, length});
    return PerformInto("WindowsCreateStringReference", shown, string, [&] {
        return underlying::WindowsCreateStringReference(text, length, header, string);
    });
}

HRESULT WindowsDeleteString(HSTRING string) {
    return Perform("WindowsDeleteString", Narrow(View(string)), [&] {
        TheAccounts().StringReturned(string);
        return underlying::WindowsDeleteString(string);
    });
}

HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer) {
    return PerformInto("WindowsPreallocateStringBuffer", std::to_string(length), buffer, [&] {
        return underlying::WindowsPreallocateStringBuffer(length, characters, buffer);
    });
}

HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string) {
    return PerformInto("WindowsPromoteStringBuffer", "", string, [&] {
        const HRESULT code = underlying::WindowsPromoteStringBuffer(buffer, string);
        TheAccounts().StringTaken(*string);
        return code;
    });
}

HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer) {
    return Perform("WindowsDeleteStringBuffer", "",
                   [&] { return underlying::WindowsDeleteStringBuffer(buffer); });
}

ULONGLONG GetTickCount64() {
    ULONGLONG now = 0;
    Perform("GetTickCount64", "", [&] {
        now = underlying::GetTickCount64();
        return S_OK;
    });
    return now;
}

int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count) {
    int answer = 0;
    Perform("MultiByteToWideChar", std::to_string(code_page), [&] {
        answer = underlying::MultiByteToWideChar(code_page, flags, bytes, byte_count, wide, wide_count);
        return S_OK;
    });
    return answer;
}

}  // namespace dialsim::watched
