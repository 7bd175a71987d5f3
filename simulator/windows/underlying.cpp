// The system's own functions.
#include "simulator/underlying.h"

namespace dialsim::underlying {

HRESULT RoInitialize(RO_INIT_TYPE type) { return ::RoInitialize(type); }
void RoUninitialize() { ::RoUninitialize(); }
HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory) {
    return ::RoGetActivationFactory(class_name, iid, factory);
}
BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, ::IUnknown* language_exception) {
    return ::RoOriginateLanguageException(code, message, language_exception);
}

HRESULT WindowsCreateString(const WCHAR* text, UINT length, HSTRING* string) {
    return ::WindowsCreateString(text, length, string);
}
HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header,
                                     HSTRING* string) {
    return ::WindowsCreateStringReference(text, length, header, string);
}
HRESULT WindowsDeleteString(HSTRING string) { return ::WindowsDeleteString(string); }
const WCHAR* WindowsGetStringRawBuffer(HSTRING string, UINT* length) {
    return ::WindowsGetStringRawBuffer(string, length);
}
HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer) {
    return ::WindowsPreallocateStringBuffer(length, characters, buffer);
}
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string) {
    return ::WindowsPromoteStringBuffer(buffer, string);
}
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer) { return ::WindowsDeleteStringBuffer(buffer); }

ULONGLONG GetTickCount64() { return ::GetTickCount64(); }
int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count) {
    return ::MultiByteToWideChar(code_page, flags, bytes, byte_count, wide, wide_count);
}

}  // namespace dialsim::underlying
