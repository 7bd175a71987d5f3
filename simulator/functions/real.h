// The platform's flat functions as they are, without journal and faults: natively the simulator's own, on
// Windows the system's.
#pragma once

#include "platform/functions.h"

namespace dialsim::real {

HRESULT RoInitialize(RO_INIT_TYPE type);
void RoUninitialize();
HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory);
BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, ::IUnknown* language_exception);

HRESULT WindowsCreateString(const WCHAR* text, UINT length, HSTRING* string);
HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header, HSTRING* string);
HRESULT WindowsDuplicateString(HSTRING string, HSTRING* copy);
HRESULT WindowsDeleteString(HSTRING string);
const WCHAR* WindowsGetStringRawBuffer(HSTRING string, UINT* length);
UINT WindowsGetStringLen(HSTRING string);
HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer);
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string);
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer);

HRESULT CoCreateFreeThreadedMarshaler(::IUnknown* outer, ::IUnknown** marshaler);

ULONGLONG GetTickCount64();
void Sleep(DWORD milliseconds);
int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count);
int _wcsnicmp(const WCHAR* a, const WCHAR* b, std::size_t count);
int wcscpy_s(WCHAR* copy, std::size_t size, const WCHAR* text);
LONG wcstol(const WCHAR* text, WCHAR** end, int base);

BOOL PathFileExistsW(const WCHAR* path);
DWORD GetShortPathNameW(const WCHAR* path, WCHAR* short_path, DWORD characters);

HRSRC FindResourceW(HMODULE module, const WCHAR* name, const WCHAR* type);
DWORD SizeofResource(HMODULE module, HRSRC resource);
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
void* LockResource(HGLOBAL resource);
BOOL FreeResource(HGLOBAL resource);

HGLOBAL GlobalAlloc(UINT flags, std::size_t size);
void* GlobalLock(HGLOBAL block);
BOOL GlobalUnlock(HGLOBAL block);
HGLOBAL GlobalFree(HGLOBAL block);
HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL delete_on_release, ::IStream** stream);

}  // namespace dialsim::real
