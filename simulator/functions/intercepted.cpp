#include "simulator/functions/intercepted.h"

#include <cerrno>
#include <string>
#include <type_traits>

#include "simulator/classes/streams.h"
#include "simulator/functions/real.h"
#include "simulator/functions/strings.h"
#include "simulator/instruments/journal.h"
#include "simulator/instruments/leak_tracker.h"

namespace dialsim::intercepted {

namespace {

// A function whose answer is no code: a fault makes it answer `failed`, or the number that is its code.
template <class Answer, class Body>
Answer PerformFor(std::string_view operation, std::string_view arguments, Answer failed, Body body) {
    Answer answer{};
    const HRESULT code = Perform(operation, arguments, [&] {
        answer = body();
        return S_OK;
    });
    if constexpr (std::is_integral_v<Answer>) {
        if (code > 0) {
            return static_cast<Answer>(code);
        }
    }
    return code < 0 ? failed : answer;
}

std::string TextOrNull(const WCHAR* text) { return text == nullptr ? "null" : Narrow(text); }

// An integer in place of a name is an identifier.
std::string NameOrId(const WCHAR* name) {
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    return number < 0x10000 ? std::to_string(number) : Narrow(name);
}

}  // namespace

HRESULT RoInitialize(RO_INIT_TYPE type) {
    return Perform("RoInitialize", std::to_string(type), [&] { return real::RoInitialize(type); });
}

void RoUninitialize() {
    Perform("RoUninitialize", "", [] {
        real::RoUninitialize();
        return S_OK;
    });
}

HRESULT RoGetActivationFactory(HSTRING class_name, const IID& iid, void** factory) {
    return PerformInto("RoGetActivationFactory", Narrow(View(class_name)), factory, [&] {
        const JournalPause no_journal;
        return real::RoGetActivationFactory(class_name, iid, factory);
    });
}

BOOL RoOriginateLanguageException(HRESULT code, HSTRING message, ::IUnknown* language_exception) {
    BOOL answer = 0;
    Perform("RoOriginateLanguageException", Hex(code) + ", " + Narrow(View(message)), [&] {
        answer = real::RoOriginateLanguageException(code, message, language_exception);
        return S_OK;
    });
    return answer;
}

HRESULT WindowsCreateString(const WCHAR* text, UINT length, HSTRING* string) {
    return PerformInto("WindowsCreateString", text == nullptr ? "null" : Narrow({text, length}), string, [&] {
        const HRESULT code = real::WindowsCreateString(text, length, string);
        TheLeakTracker().TrackString(*string);
        return code;
    });
}

HRESULT WindowsCreateStringReference(const WCHAR* text, UINT length, HSTRING_HEADER* header,
                                     HSTRING* string) {
    const std::string shown = text == nullptr ? "null" : Narrow({text, length});
    return PerformInto("WindowsCreateStringReference", shown, string,
                       [&] { return real::WindowsCreateStringReference(text, length, header, string); });
}

HRESULT WindowsDuplicateString(HSTRING string, HSTRING* copy) {
    return PerformInto("WindowsDuplicateString", Narrow(View(string)), copy, [&] {
        const HRESULT code = real::WindowsDuplicateString(string, copy);
        TheLeakTracker().TrackString(*copy);
        return code;
    });
}

HRESULT WindowsDeleteString(HSTRING string) {
    return Perform("WindowsDeleteString", Narrow(View(string)), [&] {
        TheLeakTracker().UntrackString(string);
        return real::WindowsDeleteString(string);
    });
}

// Cannot fail: a fault makes the text empty.
const WCHAR* WindowsGetStringRawBuffer(HSTRING string, UINT* length) {
    HSTRING shown = nullptr;
    Perform("WindowsGetStringRawBuffer", Narrow(View(string)), [&] {
        shown = string;
        return S_OK;
    });
    return real::WindowsGetStringRawBuffer(shown, length);
}

// Nor can this: a fault makes the length 0.
UINT WindowsGetStringLen(HSTRING string) {
    return PerformFor("WindowsGetStringLen", Narrow(View(string)), UINT{0},
                      [&] { return real::WindowsGetStringLen(string); });
}

HRESULT WindowsPreallocateStringBuffer(UINT length, WCHAR** characters, HSTRING_BUFFER* buffer) {
    return PerformInto("WindowsPreallocateStringBuffer", std::to_string(length), buffer,
                       [&] { return real::WindowsPreallocateStringBuffer(length, characters, buffer); });
}

HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER buffer, HSTRING* string) {
    return PerformInto("WindowsPromoteStringBuffer", "", string, [&] {
        const HRESULT code = real::WindowsPromoteStringBuffer(buffer, string);
        TheLeakTracker().TrackString(*string);
        return code;
    });
}

HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER buffer) {
    return Perform("WindowsDeleteStringBuffer", "", [&] { return real::WindowsDeleteStringBuffer(buffer); });
}

HRESULT CoCreateFreeThreadedMarshaler(::IUnknown* outer, ::IUnknown** marshaler) {
    return PerformInto("CoCreateFreeThreadedMarshaler", "", marshaler,
                       [&] { return real::CoCreateFreeThreadedMarshaler(outer, marshaler); });
}

ULONGLONG GetTickCount64() {
    ULONGLONG now = 0;
    Perform("GetTickCount64", "", [&] {
        now = real::GetTickCount64();
        return S_OK;
    });
    return now;
}

void Sleep(DWORD milliseconds) {
    Perform("Sleep", std::to_string(milliseconds), [&] {
        real::Sleep(milliseconds);
        return S_OK;
    });
}

int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count) {
    int answer = 0;
    Perform("MultiByteToWideChar", std::to_string(code_page), [&] {
        answer = real::MultiByteToWideChar(code_page, flags, bytes, byte_count, wide, wide_count);
        return S_OK;
    });
    return answer;
}

int _wcsnicmp(const WCHAR* a, const WCHAR* b, std::size_t count) {
    return PerformFor("_wcsnicmp", Narrow(a) + ", " + Narrow(b) + ", " + std::to_string(count), 1,
                      [&] { return real::_wcsnicmp(a, b, count); });
}

// The runtime library ends a process whose buffer is too small; only a fault can bring that about here.
int wcscpy_s(WCHAR* copy, std::size_t size, const WCHAR* text) {
    return PerformFor("wcscpy_s", std::to_string(size), ERANGE, [&] {
        return WideView(text).size() < size ? real::wcscpy_s(copy, size, text) : ERANGE;
    });
}

LONG wcstol(const WCHAR* text, WCHAR** end, int base) {
    return PerformFor("wcstol", Narrow(text) + ", " + std::to_string(base), LONG{0},
                      [&] { return real::wcstol(text, end, base); });
}

BOOL PathFileExistsW(const WCHAR* path) {
    return PerformFor("PathFileExistsW", TextOrNull(path), BOOL{0},
                      [&] { return real::PathFileExistsW(path); });
}

DWORD GetShortPathNameW(const WCHAR* path, WCHAR* short_path, DWORD characters) {
    return PerformFor("GetShortPathNameW", TextOrNull(path) + ", " + std::to_string(characters), DWORD{0},
                      [&] { return real::GetShortPathNameW(path, short_path, characters); });
}

HRSRC FindResourceW(HMODULE module, const WCHAR* name, const WCHAR* type) {
    return PerformFor("FindResourceW", NameOrId(name) + ", " + NameOrId(type), HRSRC{},
                      [&] { return real::FindResourceW(module, name, type); });
}

DWORD SizeofResource(HMODULE module, HRSRC resource) {
    return PerformFor("SizeofResource", "", DWORD{0}, [&] { return real::SizeofResource(module, resource); });
}

HGLOBAL LoadResource(HMODULE module, HRSRC resource) {
    return PerformFor("LoadResource", "", HGLOBAL{}, [&] { return real::LoadResource(module, resource); });
}

void* LockResource(HGLOBAL resource) {
    return PerformFor("LockResource", "", static_cast<void*>(nullptr),
                      [&] { return real::LockResource(resource); });
}

// Answers 0 when it succeeds.
BOOL FreeResource(HGLOBAL resource) {
    return PerformFor("FreeResource", "", BOOL{1}, [&] { return real::FreeResource(resource); });
}

HGLOBAL GlobalAlloc(UINT flags, std::size_t size) {
    return PerformFor("GlobalAlloc", std::to_string(flags) + ", " + std::to_string(size), HGLOBAL{}, [&] {
        const HGLOBAL block = real::GlobalAlloc(flags, size);
        TheLeakTracker().TrackBlock(block);
        return block;
    });
}

void* GlobalLock(HGLOBAL block) {
    return PerformFor("GlobalLock", "", static_cast<void*>(nullptr), [&] { return real::GlobalLock(block); });
}

BOOL GlobalUnlock(HGLOBAL block) {
    return PerformFor("GlobalUnlock", "", BOOL{0}, [&] { return real::GlobalUnlock(block); });
}

// Answers the block when it could not be freed.
HGLOBAL GlobalFree(HGLOBAL block) {
    return PerformFor("GlobalFree", "", block, [&] {
        TheLeakTracker().UntrackBlock(block);
        return real::GlobalFree(block);
    });
}

HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL delete_on_release, ::IStream** stream) {
    return PerformInto("CreateStreamOnHGlobal", std::to_string(delete_on_release), stream, [&] {
        const HRESULT code = real::CreateStreamOnHGlobal(block, delete_on_release, stream);
        if (code >= 0) {
            *stream = JournalStream(*stream);
            if (delete_on_release != 0) {
                TheLeakTracker().UntrackBlock(block);
            }
        }
        return code;
    });
}

// The simulator's own in both builds: Wine has none.
HRESULT CreateRandomAccessStreamOverStream(::IStream* stream, BSOS_OPTIONS options, const IID& iid,
                                           void** result) {
    return PerformInto("CreateRandomAccessStreamOverStream", std::to_string(options), result, [&] {
        const JournalPause no_journal;
        return stream == nullptr ? E_INVALIDARG : MakeStreamOverStream(stream)->QueryInterface(iid, result);
    });
}

}  // namespace dialsim::intercepted
