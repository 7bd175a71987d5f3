// Every platform function the library calls, in one place. On Windows the platform's headers declare them
// and its libraries answer; natively they are declared here and whatever is linked underneath answers.
//
//   function                            called by                   thread          on failure
//   RoInitialize                        initialize                  the host's      code; result 1
//   RoUninitialize                      uninit                      the host's      cannot fail
//   RoGetActivationFactory              GetFactory, initialize      any             code; no factory
//   WindowsCreateStringReference        StringReference             any             code; no string
//   WindowsCreateString                 MakeString                  any             code, raised
//   WindowsDuplicateString              CopyText                    host's, load's  code, raised
//   WindowsGetStringRawBuffer           TextOf                      any             cannot fail
//   WindowsGetStringLen                 LengthOf                    any             cannot fail
//   WindowsPreallocateStringBuffer      ToPlatformString            any             code, raised
//   WindowsPromoteStringBuffer          ToPlatformString            any             code, raised
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
#include <cwchar>  // before an overload of one of its functions

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

extern "C" {

HRESULT RoInitialize(RO_INIT_TYPE type);
void RoUninitialize();
HRESULT RoGetActivationFactory(HSTRING className, const IID& iid, void** factory);
BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, IUnknown* languageException);

HRESULT WindowsCreateString(const WCHAR* text, UINT length, HSTRING* string);
HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header, HSTRING* string);
HRESULT WindowsDuplicateString(HSTRING string, HSTRING* copy);
HRESULT WindowsDeleteString(HSTRING string);
const WCHAR* WindowsGetStringRawBuffer(HSTRING string, UINT* length);
UINT WindowsGetStringLen(HSTRING string);
HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer);
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string);
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer);

HRESULT CoCreateFreeThreadedMarshaler(IUnknown* outer, IUnknown** marshaler);

ULONGLONG GetTickCount64();
void Sleep(DWORD milliseconds);
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int byteCount, WCHAR* wide,
                        int wideCount);
[[noreturn]] void RaiseException(DWORD code, DWORD flags, DWORD argumentCount,
                                 const std::uintptr_t* arguments);

BOOL PathFileExistsW(const WCHAR* path);
DWORD GetShortPathNameW(const WCHAR* path, WCHAR* short_path, DWORD characters);

// An integer below 65536 in place of `name` is an identifier.
HRSRC FindResourceW(HMODULE module, const WCHAR* name, const WCHAR* type);
DWORD SizeofResource(HMODULE module, HRSRC resource);
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
void* LockResource(HGLOBAL resource);
BOOL FreeResource(HGLOBAL resource);

HGLOBAL GlobalAlloc(UINT flags, std::size_t size);
void* GlobalLock(HGLOBAL block);
BOOL GlobalUnlock(HGLOBAL block);
HGLOBAL GlobalFree(HGLOBAL block);
HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL delete_on_release, IStream** stream);
HRESULT CreateRandomAccessStreamOverStream(IStream* stream, BSOS_OPTIONS options, const IID& iid,
                                           void** result);

// The runtime library's bounded wide formatter: %s takes UTF-16.
int _vsnwprintf(WCHAR* buffer, std::size_t size, const WCHAR* format, std::va_list arguments);
int _wcsnicmp(const WCHAR* a, const WCHAR* b, std::size_t count);
// The size counts characters, the terminator among them.
int wcscpy_s(WCHAR* copy, std::size_t size, const WCHAR* text);

}  // extern "C"

// An overload beside the one of the system's own wide characters; a long has 32 bits on the platform.
LONG wcstol(const WCHAR* text, WCHAR** end, int base);

#endif
