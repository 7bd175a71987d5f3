// The platform's functions under their published names, for programs linked natively.
#include "platform/functions.h"
#include "simulator/watched.h"

namespace watched = dialsim::watched;

HRESULT RoInitialize(RO_INIT_TYPE type) { return watched::RoInitialize(type); }
void RoUninitialize() { watched::RoUninitialize(); }
HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory) {
    return watched::RoGetActivationFactory(class_name, iid, factory);
}
BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, IUnknown* language_exception) {
    return watched::RoOriginateLanguageException(code, message, language_exception);
}

HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header,
                                     HSTRING* string) {
    return watched::WindowsCreateStringReference(text, length, header, string);
}
HRESULT WindowsDeleteString(HSTRING string) { return watched::WindowsDeleteString(string); }
HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer) {
    return watched::WindowsPreallocateStringBuffer(length, characters, buffer);
}
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string) {
    return watched::WindowsPromoteStringBuffer(buffer, string);
}
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer) {
    return watched::WindowsDeleteStringBuffer(buffer);
}

ULONGLONG GetTickCount64() { return watched::GetTickCount64(); }
int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count) {
    return watched::MultiByteToWideChar(code_page, flags, bytes, byte_count, wide, wide_count);
}
