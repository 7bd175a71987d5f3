// The platform's functions under their published names, for programs linked natively.
#include "platform/functions.h"
#include "simulator/functions/intercepted.h"

namespace intercepted = dialsim::intercepted;

HRESULT RoInitialize(RO_INIT_TYPE type) { return intercepted::RoInitialize(type); }
void RoUninitialize() { intercepted::RoUninitialize(); }
HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory) {
    return intercepted::RoGetActivationFactory(class_name, iid, factory);
}
BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, IUnknown* language_exception) {
    return intercepted::RoOriginateLanguageException(code, message, language_exception);
}

HRESULT WindowsCreateString(const WCHAR* text, UINT length, HSTRING* string) {
    return intercepted::WindowsCreateString(text, length, string);
}
HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header,
                                     HSTRING* string) {
    return intercepted::WindowsCreateStringReference(text, length, header, string);
}
HRESULT WindowsDuplicateString(HSTRING string, HSTRING* copy) {
    return intercepted::WindowsDuplicateString(string, copy);
}
HRESULT WindowsDeleteString(HSTRING string) { return intercepted::WindowsDeleteString(string); }
const WCHAR* WindowsGetStringRawBuffer(HSTRING string, UINT* length) {
    return intercepted::WindowsGetStringRawBuffer(string, length);
}
UINT WindowsGetStringLen(HSTRING string) { return intercepted::WindowsGetStringLen(string); }
HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer) {
    return intercepted::WindowsPreallocateStringBuffer(length, characters, buffer);
}
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string) {
    return intercepted::WindowsPromoteStringBuffer(buffer, string);
}
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer) {
    return intercepted::WindowsDeleteStringBuffer(buffer);
}

HRESULT CoCreateFreeThreadedMarshaler(IUnknown* outer, IUnknown** marshaler) {
    return intercepted::CoCreateFreeThreadedMarshaler(outer, marshaler);
}

ULONGLONG GetTickCount64() { return intercepted::GetTickCount64(); }
void Sleep(DWORD milliseconds) { intercepted::Sleep(milliseconds); }
int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count) {
    return intercepted::MultiByteToWideChar(code_page, flags, bytes, byte_count, wide, wide_count);
}
int _wcsnicmp(const WCHAR* a, const WCHAR* b, std::size_t count) {
    return intercepted::_wcsnicmp(a, b, count);
}
int wcscpy_s(WCHAR* copy, std::size_t size, const WCHAR* text) {
    return intercepted::wcscpy_s(copy, size, text);
}
LONG wcstol(const WCHAR* text, WCHAR** end, int base) { return intercepted::wcstol(text, end, base); }

BOOL PathFileExistsW(const WCHAR* path) { return intercepted::PathFileExistsW(path); }
DWORD GetShortPathNameW(const WCHAR* path, WCHAR* short_path, DWORD characters) {
    return intercepted::GetShortPathNameW(path, short_path, characters);
}

HRSRC FindResourceW(HMODULE module, const WCHAR* name, const WCHAR* type) {
    return intercepted::FindResourceW(module, name, type);
}
DWORD SizeofResource(HMODULE module, HRSRC resource) { return intercepted::SizeofResource(module, resource); }
HGLOBAL LoadResource(HMODULE module, HRSRC resource) { return intercepted::LoadResource(module, resource); }
void* LockResource(HGLOBAL resource) { return intercepted::LockResource(resource); }
BOOL FreeResource(HGLOBAL resource) { return intercepted::FreeResource(resource); }

HGLOBAL GlobalAlloc(UINT flags, std::size_t size) { return intercepted::GlobalAlloc(flags, size); }
void* GlobalLock(HGLOBAL block) { return intercepted::GlobalLock(block); }
BOOL GlobalUnlock(HGLOBAL block) { return intercepted::GlobalUnlock(block); }
HGLOBAL GlobalFree(HGLOBAL block) { return intercepted::GlobalFree(block); }
HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL delete_on_release, IStream** stream) {
    return intercepted::CreateStreamOnHGlobal(block, delete_on_release, stream);
}
HRESULT CreateRandomAccessStreamOverStream(IStream* stream, BSOS_OPTIONS options, const IID& iid,
                                           void** result) {
    return intercepted::CreateRandomAccessStreamOverStream(stream, options, iid, result);
}
