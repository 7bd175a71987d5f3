// The platform's types under their published names. On Windows its headers declare them; natively they are
// declared here with the same sizes, so that the other files need no #ifdef.
#pragma once

#include <cstdint>

#ifdef _WIN32

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <eventtoken.h>
#include <hstring.h>
#include <windows.h>

#else

using HRESULT = std::int32_t;
using BOOL = int;
using UINT = unsigned int;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using ULONGLONG = std::uint64_t;
using WCHAR = char16_t;
using HWND = struct HWND__*;
using HSTRING = struct HSTRING__*;
using HSTRING_BUFFER = struct HSTRING_BUFFER__*;

struct HSTRING_HEADER {
    alignas(8) char Reserved[24];
};

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};
using IID = GUID;

struct EventRegistrationToken {
    std::int64_t value;
};

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000E);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);

#endif

static_assert(sizeof(HRESULT) == 4 && sizeof(BOOL) == 4 && sizeof(WCHAR) == 2);
static_assert(sizeof(HSTRING) == 8 && sizeof(HSTRING_HEADER) == 24 && alignof(HSTRING_HEADER) == 8);
static_assert(sizeof(GUID) == 16 && sizeof(EventRegistrationToken) == 8);

namespace brindle::abi {

using boolean = std::uint8_t;

struct Point {
    float X;
    float Y;
};

struct Size {
    float Width;
    float Height;
};

struct Rect {
    float X;
    float Y;
    float Width;
    float Height;
};

// A duration in units of 100 ns.
struct TimeSpan {
    std::int64_t Duration;
};

struct DateTime {
    std::int64_t UniversalTime;
};

enum class TrustLevel : std::int32_t { BaseTrust = 0, PartialTrust = 1, FullTrust = 2 };
enum class AsyncStatus : std::int32_t { Started = 0, Completed = 1, Canceled = 2, Error = 3 };

static_assert(sizeof(Point) == 8 && sizeof(Rect) == 16 && sizeof(TimeSpan) == 8);

}  // namespace brindle::abi
