// Every platform function the library calls, in one place. On Windows the platform's headers declare them
// and its libraries answer; natively they are declared here and whatever is linked underneath answers.
//
//   function                     called by            on which thread        on failure
//   RoInitialize                 initialize           the host's             code; initialize returns 1
//   RoUninitialize               uninit               the host's             cannot fail
//   RoGetActivationFactory       GetFactory           the host's             code; no factory
//   WindowsCreateStringReference StringReference      any                    code; the string stays empty
//   WindowsPreallocateStringBuffer, WindowsPromoteStringBuffer, WindowsDeleteStringBuffer
//                                ToPlatformString     any                    code, raised; the last one gives
//                                back
//                                                                            a buffer that was not promoted
//   WindowsDeleteString          String               any                    cannot fail
//   RoOriginateLanguageException ErrorToCode          any                    ignored
//   GetTickCount64               NextAcceleration     the event's            cannot fail
//   MultiByteToWideChar          ToPlatformString     any                    0; the text becomes empty
//   RaiseException               initialize           the host's             does not return
//   _vsnwprintf                  FormatWide           any                    negative; nothing is formatted
//   DisableThreadLibraryCalls    DllMain              the loader's           ignored
//
// Ownership follows the platform's rules: a returned interface or string belongs to the caller, an argument
// is borrowed for the call.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <roapi.h>
#include <unknwn.h>
#include <winstring.h>

#include <cstdio>
#include <cwchar>

// Published in roerrorapi.h, which the toolchain lacks.
extern "C" BOOL WINAPI RoOriginateLanguageException(HRESULT code, HSTRING message,
                                                    IUnknown* languageException);

#else

#include <cstdarg>
#include <cstddef>

enum RO_INIT_TYPE : int { RO_INIT_SINGLETHREADED = 0, RO_INIT_MULTITHREADED = 1 };
struct IUnknown;

inline constexpr UINT CP_UTF8 = 65001;
inline constexpr DWORD EXCEPTION_NONCONTINUABLE = 1;

extern "C" {

HRESULT RoInitialize(RO_INIT_TYPE type);
void RoUninitialize();
HRESULT RoGetActivationFactory(HSTRING className, const IID& iid, void** factory);
BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, IUnknown* languageException);

HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header, HSTRING* string);
HRESULT WindowsDeleteString(HSTRING string);
HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer);
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string);
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer);

ULONGLONG GetTickCount64();
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int byteCount, WCHAR* wide,
                        int wideCount);
[[noreturn]] void RaiseException(DWORD code, DWORD flags, DWORD argumentCount,
                                 const std::uintptr_t* arguments);

// The runtime library's bounded wide formatter: %s takes UTF-16.
int _vsnwprintf(WCHAR* buffer, std::size_t size, const WCHAR* format, std::va_list arguments);

}  // extern "C"

#endif
