// The flat platform functions that the library calls and the simulator can intercept, listed once.
//
//   result      the return type
//   name        as published
//   parameters  with their names
//   arguments   the names of the parameters
//   by          what an intercepted call calls:
//                 real      the original function
//                 tracked   a wrapper of the simulator's that also tracks outstanding references
//                           (intercepted.cpp)
//   journal     the arguments that the journal prints
//   fault       what an intercepted call returns under a fault:
//                 CODE      the fault's code; nothing for a function without a result
//                 OUT(p)    the fault's code; *p is null or zero
//                 VALUE(v)  v under a failure code, a positive code as the number itself; also under a late
//                           fault
//                 ELSE(v)   v; a late fault changes nothing
//   late        whether a late fault can be set: the call takes place and then reports a failure. NEVER for
//               functions that return what they allocate, and for a promotion, which consumes its argument
//
// The order is that of dialsim_operation. RaiseException, _vsnwprintf and DisableThreadLibraryCalls are also
// called; functions.h declares them, and they are not intercepted. An OVERLOAD has the name of a function of
// the native C library and cannot have C linkage there.
#pragma once

// clang-format off
#define PLATFORM_FUNCTIONS_AND_OVERLOADS(FUNCTION, OVERLOAD)                                                                                  \
/*        result      name                                parameters                                                                          \
                                                          arguments                                                                           \
                                                          by, journal, fault, late                                                          */\
/* The Windows Runtime: initialize, uninit, GetFactory, ErrorToCode */                                                                        \
FUNCTION( HRESULT,    RoInitialize,                       (RO_INIT_TYPE type),                                                                \
                                                          (type),                                                                             \
                                                          real, (type), CODE, LATE)                                                           \
FUNCTION( void,       RoUninitialize,                     (),                                                                                 \
                                                          (),                                                                                 \
                                                          real, (), CODE, LATE)                                                               \
FUNCTION( HRESULT,    RoGetActivationFactory,             (HSTRING class_name, const IID& iid, void** factory),                               \
                                                          (class_name, iid, factory),                                                         \
                                                          tracked, (class_name), OUT(factory), LATE)                                          \
FUNCTION( BOOL,       RoOriginateLanguageException,       (HRESULT code, HSTRING message, ::IUnknown* language_exception),                    \
                                                          (code, message, language_exception),                                                \
                                                          real, (Hex(code), message), ELSE(0), LATE)                                          \
/* Platform strings: String, StringReference, ToPlatformString */                                                                             \
FUNCTION( HRESULT,    WindowsCreateString,                (const WCHAR* text, UINT length, HSTRING* string),                                  \
                                                          (text, length, string),                                                             \
                                                          tracked, (Shown(text, length)), OUT(string), LATE)                                  \
FUNCTION( HRESULT,    WindowsCreateStringReference,       (const WCHAR* text, UINT length, HSTRING_HEADER* header, HSTRING* string),          \
                                                          (text, length, header, string),                                                     \
                                                          real, (Shown(text, length)), OUT(string), LATE)                                     \
FUNCTION( HRESULT,    WindowsDuplicateString,             (HSTRING string, HSTRING* copy),                                                    \
                                                          (string, copy),                                                                     \
                                                          tracked, (string), OUT(copy), LATE)                                                 \
FUNCTION( HRESULT,    WindowsDeleteString,                (HSTRING string),                                                                   \
                                                          (string),                                                                           \
                                                          tracked, (string), CODE, LATE)                                                      \
FUNCTION( const WCHAR*, WindowsGetStringRawBuffer,        (HSTRING string, UINT* length),                                                     \
                                                          (string, length),                                                                   \
                                                          real, (string), ELSE(real::WindowsGetStringRawBuffer(nullptr, length)), LATE)       \
FUNCTION( UINT,       WindowsGetStringLen,                (HSTRING string),                                                                   \
                                                          (string),                                                                           \
                                                          real, (string), VALUE(UINT{0}), LATE)                                               \
FUNCTION( HRESULT,    WindowsPreallocateStringBuffer,     (UINT length, WCHAR** characters, HSTRING_BUFFER* buffer),                          \
                                                          (length, characters, buffer),                                                       \
                                                          real, (length), OUT(buffer), LATE)                                                  \
FUNCTION( HRESULT,    WindowsPromoteStringBuffer,         (HSTRING_BUFFER buffer, HSTRING* string),                                           \
                                                          (buffer, string),                                                                   \
                                                          tracked, (), OUT(string), NEVER)                                                    \
FUNCTION( HRESULT,    WindowsDeleteStringBuffer,          (HSTRING_BUFFER buffer),                                                            \
                                                          (buffer),                                                                           \
                                                          real, (), CODE, LATE)                                                               \
FUNCTION( HRESULT,    CoCreateFreeThreadedMarshaler,      (::IUnknown* outer, ::IUnknown** marshaler),                                        \
                                                          (outer, marshaler),                                                                 \
                                                          real, (), OUT(marshaler), LATE)                                                     \
/* Time */                                                                                                                                    \
FUNCTION( ULONGLONG,  GetTickCount64,                     (),                                                                                 \
                                                          (),                                                                                 \
                                                          real, (), ELSE(0), LATE)                                                            \
FUNCTION( void,       Sleep,                              (DWORD milliseconds),                                                               \
                                                          (milliseconds),                                                                     \
                                                          tracked, (milliseconds), CODE, LATE)                                                \
/* Text */                                                                                                                                    \
FUNCTION( int,        MultiByteToWideChar,                (UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,       \
                                                           int wide_count),                                                                   \
                                                          (code_page, flags, bytes, byte_count, wide, wide_count),                            \
                                                          real, (code_page), ELSE(0), LATE)                                                   \
FUNCTION( int,        _wcsnicmp,                          (const WCHAR* a, const WCHAR* b, std::size_t count),                                \
                                                          (a, b, count),                                                                      \
                                                          real, (Narrow(a), Narrow(b), count), VALUE(1), LATE)                                \
FUNCTION( int,        wcscpy_s,                           (WCHAR* copy, std::size_t size, const WCHAR* text),                                 \
                                                          (copy, size, text),                                                                 \
                                                          tracked, (size), VALUE(ERANGE), LATE)                                               \
OVERLOAD( LONG,       wcstol,                             (const WCHAR* text, WCHAR** end, int base),                                         \
                                                          (text, end, base),                                                                  \
                                                          real, (Narrow(text), base), VALUE(LONG{0}), LATE)                                   \
/* Paths */                                                                                                                                   \
FUNCTION( BOOL,       PathFileExistsW,                    (const WCHAR* path),                                                                \
                                                          (path),                                                                             \
                                                          real, (Shown(path)), VALUE(BOOL{0}), LATE)                                          \
FUNCTION( DWORD,      GetShortPathNameW,                  (const WCHAR* path, WCHAR* short_path, DWORD characters),                           \
                                                          (path, short_path, characters),                                                     \
                                                          real, (Shown(path), characters), VALUE(DWORD{0}), LATE)                             \
/* Resources: LoadPngResourceStream */                                                                                                        \
FUNCTION( HRSRC,      FindResourceW,                      (HMODULE module, const WCHAR* name, const WCHAR* type),                             \
                                                          (module, name, type),                                                               \
                                                          real, (NameOrId(name), NameOrId(type)), VALUE(HRSRC{}), NEVER)                      \
FUNCTION( DWORD,      SizeofResource,                     (HMODULE module, HRSRC resource),                                                   \
                                                          (module, resource),                                                                 \
                                                          real, (), VALUE(DWORD{0}), NEVER)                                                   \
FUNCTION( HGLOBAL,    LoadResource,                       (HMODULE module, HRSRC resource),                                                   \
                                                          (module, resource),                                                                 \
                                                          real, (), VALUE(HGLOBAL{}), NEVER)                                                  \
FUNCTION( void*,      LockResource,                       (HGLOBAL resource),                                                                 \
                                                          (resource),                                                                         \
                                                          real, (), VALUE(static_cast<void*>(nullptr)), NEVER)                                \
FUNCTION( BOOL,       FreeResource,                       (HGLOBAL resource),                                                                 \
                                                          (resource),                                                                         \
                                                          real, (), VALUE(BOOL{1}), LATE)                                                     \
/* Global memory, and streams over it */                                                                                                      \
FUNCTION( HGLOBAL,    GlobalAlloc,                        (UINT flags, std::size_t size),                                                     \
                                                          (flags, size),                                                                      \
                                                          tracked, (flags, size), VALUE(HGLOBAL{}), NEVER)                                    \
FUNCTION( void*,      GlobalLock,                         (HGLOBAL block),                                                                    \
                                                          (block),                                                                            \
                                                          real, (), VALUE(static_cast<void*>(nullptr)), NEVER)                                \
FUNCTION( BOOL,       GlobalUnlock,                       (HGLOBAL block),                                                                    \
                                                          (block),                                                                            \
                                                          real, (), VALUE(BOOL{0}), LATE)                                                     \
FUNCTION( HGLOBAL,    GlobalFree,                         (HGLOBAL block),                                                                    \
                                                          (block),                                                                            \
                                                          tracked, (), VALUE(block), NEVER)                                                   \
FUNCTION( HRESULT,    CreateStreamOnHGlobal,              (HGLOBAL block, BOOL delete_on_release, ::IStream** stream),                        \
                                                          (block, delete_on_release, stream),                                                 \
                                                          tracked, (delete_on_release), OUT(stream), LATE)                                    \
FUNCTION( HRESULT,    CreateRandomAccessStreamOverStream, (::IStream* stream, BSOS_OPTIONS options, const IID& iid, void** result),           \
                                                          (stream, options, iid, result),                                                     \
                                                          tracked, (options), OUT(result), LATE)
// clang-format on

#define PLATFORM_FUNCTIONS(FUNCTION) PLATFORM_FUNCTIONS_AND_OVERLOADS(FUNCTION, FUNCTION)
