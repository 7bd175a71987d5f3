// Every platform function that the library calls. On Windows the platform's headers declare them and its
// import libraries define them; natively they are declared here, and the simulator or the stub platform of
// bench/ defines them.
//
//   function                            called by                   thread          on failure
//   RoInitialize                        initialize                  the host's      code; result 1
//   RoUninitialize                      uninit                      the host's      cannot fail
//   RoGetActivationFactory              GetFactory, initialize      any             code; no factory
//   WindowsCreateStringReference        StringReference             any             code; no string
//   WindowsCreateString                 MakeString                  any             code, thrown
//   WindowsDuplicateString              CopyText                    host's, load's  code, thrown
//   WindowsGetStringRawBuffer           TextOf                      any             cannot fail
//   WindowsGetStringLen                 LengthOf                    any             cannot fail
//   WindowsPreallocateStringBuffer      ToPlatformString            any             code, thrown
//   WindowsPromoteStringBuffer          ToPlatformString            any             code, thrown
//   WindowsDeleteStringBuffer           ToPlatformString            any             cannot fail
//   WindowsDeleteString                 String                      any             cannot fail
//   RoOriginateLanguageException        ErrorToCode                 any             ignored
//   CoCreateFreeThreadedMarshaler       FreeThreadedDelegate        the platform's  code; no IMarshal
//   GetTickCount64                      NextAcceleration            the event's     cannot fail
//   Sleep                               IsDialPresent               the host's      cannot fail
//   MultiByteToWideChar                 ToPlatformString            any             0; an empty text
//   RaiseException                      initialize                  the host's      does not return
//   _vsnwprintf                         FormatWide                  any             negative; no text
//   _wcsnicmp                           IsTheDial                   completion's    cannot fail
//   wcscpy_s                            CopyForHost                 the host's      cannot: it fits
//   wcstol                              get_int_from_storage        the host's      0 without digits
//   PathFileExistsW                     AddCustomFontItem           the host's      false; skipped
//   GetShortPathNameW                   ShortPath                   the host's      0; skipped
//   FindResourceW, SizeofResource       LoadPngResourceStream       the host's      null, 0; no stream
//   LoadResource, LockResource          LoadPngResourceStream       the host's      null; no stream
//   FreeResource                        LoadPngResourceStream       the host's      ignored
//   GlobalAlloc, GlobalLock             LoadPngResourceStream       the host's      null; no stream
//   GlobalUnlock                        LoadPngResourceStream       the host's      ignored
//   GlobalFree                          GlobalBlock                 the host's      ignored
//   CreateStreamOnHGlobal               LoadPngResourceStream       the host's      code; no stream
//   CreateRandomAccessStreamOverStream  AddMenuItemFromResourcePNG  the host's      code
//   DisableThreadLibraryCalls           DllMain                     the loader's    ignored
//
// Ownership follows the platform's rules: a returned interface or string belongs to the caller, an argument
// is borrowed for the call.
#pragma once

#include "platform/function_table.h"
#include "platform/types.h"

#ifdef _WIN32

#include <objbase.h>
#include <roapi.h>
#include <shlwapi.h>
#include <unknwn.h>
#include <winstring.h>

#include <cstdio>
#include <cwchar>

// Published in roerrorapi.h and shcore.h, which the toolchain lacks.
enum BSOS_OPTIONS : int { BSOS_DEFAULT = 0 };
extern "C" BOOL WINAPI RoOriginateLanguageException(HRESULT code, HSTRING message,
                                                    IUnknown* languageException);
extern "C" HRESULT WINAPI CreateRandomAccessStreamOverStream(IStream* stream, BSOS_OPTIONS options,
                                                             REFIID iid, void** result);

#else

#include <cstdarg>
#include <cstddef>
#include <cwchar>  // before the overload of one of its functions

enum RO_INIT_TYPE : int { RO_INIT_SINGLETHREADED = 0, RO_INIT_MULTITHREADED = 1 };
enum BSOS_OPTIONS : int { BSOS_DEFAULT = 0 };
struct IUnknown;
struct IStream;
using HMODULE = struct HINSTANCE__*;
using HRSRC = struct HRSRC__*;
using HGLOBAL = void*;
using LONG = std::int32_t;

inline constexpr UINT GMEM_MOVEABLE = 2;
inline constexpr UINT CP_UTF8 = 65001;
inline constexpr DWORD EXCEPTION_NONCONTINUABLE = 1;

#define DECLARE_FUNCTION(result, name, parameters, ...) result name parameters;
#define SKIP_FUNCTION(...)
extern "C" {
PLATFORM_FUNCTIONS_AND_OVERLOADS(DECLARE_FUNCTION, SKIP_FUNCTION)
}
PLATFORM_FUNCTIONS_AND_OVERLOADS(SKIP_FUNCTION, DECLARE_FUNCTION)
#undef DECLARE_FUNCTION
#undef SKIP_FUNCTION

extern "C" {

[[noreturn]] void RaiseException(DWORD code, DWORD flags, DWORD argument_count,
                                 const std::uintptr_t* arguments);
// The runtime library's bounded wide formatter; %s takes UTF-16.
int _vsnwprintf(WCHAR* buffer, std::size_t size, const WCHAR* format, std::va_list arguments);

}  // extern "C"

#endif
