// The flat functions as the library calls them: journaled, tracked, and subject to faults.
#include "simulator/functions/intercepted.h"

#include <cerrno>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/function_table.h"
#include "simulator/functions/class_objects.h"
#include "simulator/functions/real.h"
#include "simulator/functions/strings.h"
#include "simulator/instruments/journal.h"
#include "simulator/instruments/leak_tracker.h"
#include "simulator/system/clock.h"

namespace dialsim {

namespace {

// --- what the journal prints of an argument

std::string Shown(const WCHAR* text) { return text == nullptr ? "null" : Narrow(text); }
std::string Shown(const WCHAR* text, UINT length) {
    return text == nullptr ? "null" : Narrow({text, length});
}

// An integer in place of a name is an identifier.
std::string NameOrId(const WCHAR* name) {
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    return number < 0x10000 ? std::to_string(number) : Narrow(name);
}

std::string Part(const std::string& text) { return text; }
std::string Part(HSTRING string) { return Narrow(View(string)); }
template <class Number>
requires std::is_integral_v<Number> || std::is_enum_v<Number> std::string Part(Number number) {
    return std::to_string(number);
}

// Separated by commas, empty ones too.
template <class... Parts>
std::string JournalText(const Parts&... parts) {
    std::string text;
    [[maybe_unused]] const char* separator = "";
    (text.append(std::exchange(separator, ", ")).append(Part(parts)), ...);
    return text;
}

// --- what the caller gets under a fault: the forms of the table's column "fault"

struct Code {
    template <class Body>
    auto Run(const char* operation, const std::string& arguments, Body body) const {
        if constexpr (std::is_void_v<decltype(body())>) {
            Perform(operation, arguments, [&] { return body(), S_OK; });
        } else {
            return Perform(operation, arguments, body);
        }
    }
};

template <class T>
struct Out {
    explicit Out(T* result) : place(result) {}
    T* const place;

    template <class Body>
    HRESULT Run(const char* operation, const std::string& arguments, Body body) const {
        return PerformInto(operation, arguments, place, body);
    }
};

template <class T>
struct Value {
    explicit Value(T value) : failed(value) {}
    const T failed;

    template <class Body>
    T Run(const char* operation, const std::string& arguments, Body body) const {
        T result{};
        const HRESULT code = Perform(operation, arguments, [&] { return result = body(), S_OK; });
        if constexpr (std::is_integral_v<T>) {
            if (code > 0) {
                return static_cast<T>(code);
            }
        }
        return code < 0 ? failed : result;
    }
};

template <class Otherwise>
struct Else {
    explicit Else(Otherwise value) : otherwise(value) {}
    const Otherwise otherwise;

    template <class Body>
    auto Run(const char* operation, const std::string& arguments, Body body) const {
        using Result = decltype(body());
        std::optional<Result> result;
        Perform(operation, arguments, [&] { return result = body(), S_OK; });
        return result ? *result : static_cast<Result>(otherwise());
    }
};

// --- the calls that hand something out, take it back, or are the simulator's own

namespace tracked {

HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory) {
    const JournalPause no_journal;
    return real::RoGetActivationFactory(class_name, iid, factory);
}
HRESULT WindowsCreateString(const WCHAR* text, UINT length, HSTRING* string) {
    const HRESULT code = real::WindowsCreateString(text, length, string);
    TheLeakTracker().TrackString(*string);
    return code;
}
HRESULT WindowsDuplicateString(HSTRING string, HSTRING* copy) {
    const HRESULT code = real::WindowsDuplicateString(string, copy);
    TheLeakTracker().TrackString(*copy);
    return code;
}
HRESULT WindowsDeleteString(HSTRING string) {
    TheLeakTracker().UntrackString(string);
    return real::WindowsDeleteString(string);
}
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string) {
    const HRESULT code = real::WindowsPromoteStringBuffer(buffer, string);
    TheLeakTracker().TrackString(*string);
    return code;
}
// Natively the clock moves; on Windows the sleep may be skipped.
void Sleep(DWORD milliseconds) { PlatformSleep(milliseconds); }
// The runtime library ends a process whose buffer is too small; only a fault can cause that here.
int wcscpy_s(WCHAR* copy, std::size_t size, const WCHAR* text) {
    return WideView(text).size() < size ? real::wcscpy_s(copy, size, text) : ERANGE;
}
HGLOBAL GlobalAlloc(UINT flags, std::size_t size) {
    const HGLOBAL block = real::GlobalAlloc(flags, size);
    TheLeakTracker().TrackBlock(block);
    return block;
}
HGLOBAL GlobalFree(HGLOBAL block) {
    TheLeakTracker().UntrackBlock(block);
    return real::GlobalFree(block);
}
HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL delete_on_release, ::IStream** stream) {
    const HRESULT code = real::CreateStreamOnHGlobal(block, delete_on_release, stream);
    if (code >= 0) {
        *stream = JournalStream(*stream);
        if (delete_on_release != 0) {
            TheLeakTracker().UntrackBlock(block);
        }
    }
    return code;
}
// In both builds: Wine has none.
HRESULT CreateRandomAccessStreamOverStream(::IStream* stream, BSOS_OPTIONS, const IID& iid, void** result) {
    return CreateStreamOverStream(stream, iid, result);
}

}  // namespace tracked

}  // namespace

namespace intercepted {

#define FAULT_CODE \
    Code {}
#define FAULT_OUT(place) \
    Out { place }
#define FAULT_VALUE(value) \
    Value { value }
#define FAULT_ELSE(value)     \
    Else {                    \
        [&] { return value; } \
    }
#define INTERCEPT(result, name, parameters, arguments, by, journal, fault, late)                  \
    result name parameters {                                                                      \
        return FAULT_##fault.Run(#name, JournalText journal, [&] { return by::name arguments; }); \
    }
PLATFORM_FUNCTIONS(INTERCEPT)

}  // namespace intercepted

}  // namespace dialsim
