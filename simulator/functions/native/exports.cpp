// The platform's functions under their published names, for programs linked natively.
#include "platform/functions.h"
#include "simulator/functions/intercepted.h"

namespace watched = dialsim::watched;

HRESULT RoInitialize(RO_INIT_TYPE type) { return watched::RoInitialize(type); }
void RoUninitialize() { watched::RoUninitialize(); }
HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory) {
    return watched::RoGetActivationFactory(class_name, iid, factory);
}
BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, IUnknown* language_exception) {
    return watched::RoOriginateLanguageException(code, message, language_exception);
}

HRESULT WindowsCreateString(const WCHAR* text, UINT length, HSTRING* string) {
    return watched::WindowsCreateString(text, length, string);
}
HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header,
                                     HSTRING* string) {
    return watched::WindowsCreateStringReference(text, length, header, string);
}
HRESULT WindowsDuplicateString(HSTRING string, HSTRING* copy) {
    return watched::WindowsDuplicateString(string, copy);
}
HRESULT WindowsDeleteString(HSTRING string) { return watched::WindowsDeleteString(string); }
const WCHAR* WindowsGetStringRawBuffer(HSTRING string, UINT* length) {
    return watched::WindowsGetStringRawBuffer(string, length);
}
UINT WindowsGetStringLen(HSTRING string) { return watched::WindowsGetStringLen(string); }
HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer) {
    return watched::WindowsPreallocateStringBuffer(length, characters, buffer);
}
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string) {
    return watched::WindowsPromoteStringBuffer(buffer, string);
}
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer) {
    return watched::WindowsDeleteStringBuffer(buffer);
}

HRESULT CoCreateFreeThreadedMarshaler(IUnknown* outer, IUnknown** marshaler) {
    return watched::CoCreateFreeThreadedMarshaler(outer, marshaler);
}

ULONGLONG GetTickCount64() { return watched::GetTickCount64(); }
void Sleep(DWORD milliseconds) { watched::Sleep(milliseconds); }
int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count) {
    return watched::MultiByteToWideChar(code_page, flags, bytes, byte_count, wide, wide_count);
}
int _wcsnicmp(const WCHAR* a, const WCHAR* b, std::size_t count) { return watched::_wcsnicmp(a, b, count); }
int wcscpy_s(WCHAR* copy, std::size_t size, const WCHAR* text) { return watched::wcscpy_s(copy, size, text); }
LONG wcstol(const WCHAR* text, WCHAR** end, int base) { return watched::wcstol(text, end, base); }

BOOL PathFileExistsW(const WCHAR* path) { return watched::PathFileExistsW(path); }
DWORD GetShortPathNameW(const WCHAR* path, WCHAR* short_path, DWORD characters) {
    return watched::GetShortPathNameW(path, short_path, characters);
}

HRSRC FindResourceW(HMODULE module, const WCHAR* name, const WCHAR* type) {
    return watched::FindResourceW(module, name, type);
}
DWORD SizeofResource(HMODULE module, HRSRC resource) { return watched::SizeofResource(module, resource); }
HGLOBAL LoadResource(HMODULE module, HRSRC resource) { return watched::LoadResource(module, resource); }
void* LockResource(HGLOBAL resource) { return watched::LockResource(resource); }
BOOL FreeResource(HGLOBAL resource) { return watched::FreeResource(resource); }

HGLOBAL GlobalAlloc(UINT flags, std::size_t size) { return watched::GlobalAlloc(flags, size); }
void* GlobalLock(HGLOBAL block) { return watched::GlobalLock(block); }
BOOL GlobalUnlock(HGLOBAL block) { return watched::GlobalUnlock(block); }
HGLOBAL GlobalFree(HGLOBAL block) { return watched::GlobalFree(block); }
HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL delete_on_release, IStream** stream) {
    return watched::CreateStreamOnHGlobal(block, delete_on_release, stream);
}
HRESULT CreateRandomAccessStreamOverStream(IStream* stream, BSOS_OPTIONS options, const IID& iid,
                                           void** result) {
    return watched::CreateRandomAccessStreamOverStream(stream, options, iid, result);
}
