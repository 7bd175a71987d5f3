// The system's own functions.
#include "simulator/functions/real.h"

#include "simulator/system/clock.h"

namespace dialsim::real {

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
HRESULT WindowsDuplicateString(HSTRING string, HSTRING* copy) {
    return ::WindowsDuplicateString(string, copy);
}
HRESULT WindowsDeleteString(HSTRING string) { return ::WindowsDeleteString(string); }
const WCHAR* WindowsGetStringRawBuffer(HSTRING string, UINT* length) {
    return ::WindowsGetStringRawBuffer(string, length);
}
UINT WindowsGetStringLen(HSTRING string) { return ::WindowsGetStringLen(string); }
HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer) {
    return ::WindowsPreallocateStringBuffer(length, characters, buffer);
}
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string) {
    return ::WindowsPromoteStringBuffer(buffer, string);
}
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer) { return ::WindowsDeleteStringBuffer(buffer); }

HRESULT CoCreateFreeThreadedMarshaler(::IUnknown* outer, ::IUnknown** marshaler) {
    return ::CoCreateFreeThreadedMarshaler(outer, marshaler);
}

ULONGLONG GetTickCount64() { return ::GetTickCount64(); }
void Sleep(DWORD milliseconds) { PlatformSleep(milliseconds); }
int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count) {
    return ::MultiByteToWideChar(code_page, flags, bytes, byte_count, wide, wide_count);
}
int _wcsnicmp(const WCHAR* a, const WCHAR* b, std::size_t count) { return ::_wcsnicmp(a, b, count); }
int wcscpy_s(WCHAR* copy, std::size_t size, const WCHAR* text) { return ::wcscpy_s(copy, size, text); }
LONG wcstol(const WCHAR* text, WCHAR** end, int base) { return ::wcstol(text, end, base); }

BOOL PathFileExistsW(const WCHAR* path) { return ::PathFileExistsW(path); }
DWORD GetShortPathNameW(const WCHAR* path, WCHAR* short_path, DWORD characters) {
    return ::GetShortPathNameW(path, short_path, characters);
}

HRSRC FindResourceW(HMODULE module, const WCHAR* name, const WCHAR* type) {
    return ::FindResourceW(module, name, type);
}
DWORD SizeofResource(HMODULE module, HRSRC resource) { return ::SizeofResource(module, resource); }
HGLOBAL LoadResource(HMODULE module, HRSRC resource) { return ::LoadResource(module, resource); }
void* LockResource(HGLOBAL resource) { return ::LockResource(resource); }
BOOL FreeResource(HGLOBAL resource) { return ::FreeResource(resource); }

HGLOBAL GlobalAlloc(UINT flags, std::size_t size) { return ::GlobalAlloc(flags, size); }
void* GlobalLock(HGLOBAL block) { return ::GlobalLock(block); }
BOOL GlobalUnlock(HGLOBAL block) { return ::GlobalUnlock(block); }
HGLOBAL GlobalFree(HGLOBAL block) { return ::GlobalFree(block); }
HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL delete_on_release, ::IStream** stream) {
    return ::CreateStreamOnHGlobal(block, delete_on_release, stream);
}

}  // namespace dialsim::real
