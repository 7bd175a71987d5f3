// The platform's flat functions as the library calls them: journaled, counted, and open to faults.
#pragma once

#include "platform/functions.h"

namespace dialsim::watched {

HRESULT RoInitialize(RO_INIT_TYPE type);
void RoUninitialize();
HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory);
BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, ::IUnknown* language_exception);

HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header, HSTRING* string);
HRESULT WindowsDeleteString(HSTRING string);
HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer);
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string);
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer);

ULONGLONG GetTickCount64();
int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count);

}  // namespace dialsim::watched
