// The intercepted flat functions, with journal, leak tracking and fault injection.
#include "simulator/functions/intercepted.h"

#include <cerrno>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/function_table.h"
#include "simulator/functions/class_objects.h"
#include "simulator/functions/only_dial.h"
#include "simulator/functions/real.h"
#include "simulator/functions/strings.h"
#include "simulator/instruments/journal.h"
#include "simulator/instruments/leak_tracker.h"
#include "simulator/system/clock.h"

namespace dialsim {

namespace {

// --- journal arguments

std::string Shown(const WCHAR* text) { return text == nullptr ? "null" : Narrow(text); }
std::string Shown(const WCHAR* text, UINT length) {
    return text == nullptr ? "null" : Narrow({text, length});
}

// A value below 0x10000 is an integer identifier instead of a name.
std::string NameOrId(const WCHAR* name) {
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    return number < 0x10000 ? std::to_string(number) : Narrow(name);
}

std::string ArgumentText(const std::string& text) { return text; }
std::string ArgumentText(HSTRING string) { return Narrow(View(string)); }
template <class Number>
requires std::is_integral_v<Number> || std::is_enum_v<Number> std::string ArgumentText(Number number) {
    return std::to_string(number);
}

// The arguments separated by commas; empty ones are kept.
template <class... Arguments>
std::string JournalText(const Arguments&... arguments) {
    std::string text;
    [[maybe_unused]] const char* separator = "";
    (text.append(std::exchange(separator, ", ")).append(ArgumentText(arguments)), ...);
    return text;
}

// --- results under a fault: the values of the column "fault" of the function table

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
    explicit Out(T* pointer) : result(pointer) {}
    T* const result;

    template <class Body>
    HRESULT Run(const char* operation, const std::string& arguments, Body body) const {
        return PerformInto(operation, arguments, result, body);
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

template <class Fallback>
struct Else {
    explicit Else(Fallback value) : fallback(value) {}
    const Fallback fallback;

    template <class Body>
    auto Run(const char* operation, const std::string& arguments, Body body) const {
        using Result = decltype(body());
        std::optional<Result> result;
        Perform(operation, arguments, [&] { return result = body(), S_OK; });
        return result ? *result : static_cast<Result>(fallback());
    }
};

// --- functions with leak tracking, and functions that the simulator replaces in both builds

namespace tracked {

// The simulator's classes in this process, and the system's for all others.
HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory) {
    const JournalPause no_journal;
    if (const HRESULT code = CheckApartment(); code < 0) {
        *factory = nullptr;
        return code;
    }
    const HRESULT code = GetClassFactory(class_name, iid, factory);
    return code == kClassNotRegistered ? real::RoGetActivationFactory(class_name, iid, factory) : code;
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
// Natively advances the simulated clock; on Windows the sleep may be skipped.
void Sleep(DWORD milliseconds) { PlatformSleep(milliseconds); }
// The runtime library ends the process when the buffer is too small, which only a fault causes here.
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
        if (!IsOnlyDial()) {
            *stream = JournalStream(*stream);
        }
        if (delete_on_release != 0) {
            TheLeakTracker().UntrackBlock(block);
        }
    }
    return code;
}
// Simulated in both builds: Wine lacks this function.
HRESULT CreateRandomAccessStreamOverStream(::IStream* stream, BSOS_OPTIONS options, const IID& iid,
                                           void** result) {
    return IsOnlyDial() ? CreateSystemStreamOverStream(stream, options, iid, result)
                        : CreateStreamOverStream(stream, iid, result);
}

}  // namespace tracked

}  // namespace

namespace intercepted {

#define FAULT_CODE \
    Code {}
#define FAULT_OUT(result) \
    Out { result }
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
