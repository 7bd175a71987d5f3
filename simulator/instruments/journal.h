// The journal of platform calls, and fault injection.
#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/types.h"
#include "sync.h"

namespace dialsim {

struct Fault {
    enum class Kind {
        Fail,      // fails without being executed
        FailLate,  // is executed and returns a failure
        YieldNull  // is not executed and succeeds with a null result
    };

    std::string pattern;  // an operation, with or without arguments
    Kind kind;
    HRESULT code;
    std::uint32_t from;   // the first matching call it applies to, counted from 1
    std::uint32_t times;  // 0: unlimited
    std::uint32_t matching_calls = 0;
};

class Journal {
public:
    struct Entry {
        std::uint64_t number;
        std::optional<Fault> fault;  // the fault that applies to the call
    };

    using CallHook = void (*)(void* context, const char* call);

    // Records the call, finds its fault, and calls the hook without a lock.
    Entry Begin(std::string_view operation, std::string_view arguments);
    void End(const Entry& entry, HRESULT code);
    // Records an event that is not a call of the library.
    void Note(std::string_view event, std::string_view arguments);

    void Add(Fault fault);
    void SetCallHook(CallHook hook, void* context);
    std::uint32_t Count(std::string_view pattern);
    std::string Text();
    void Clear();
    void Reset();

private:
    struct Line {
        std::string call;  // "operation(arguments)"
        std::size_t operation_size;
        HRESULT code;

        bool Matches(std::string_view pattern) const;
    };

    Entry Write(Line line);

    Mutex mutex_;
    std::deque<Line> lines_;
    std::uint64_t first_number_ = 0;
    std::vector<Fault> faults_;
    CallHook hook_ = nullptr;
    void* hook_context_ = nullptr;
};

Journal& TheJournal();

// Pauses journal and fault injection on this thread during the lifetime of the object.
class JournalPause {
public:
    JournalPause();
    JournalPause(const JournalPause&) = delete;
    JournalPause& operator=(const JournalPause&) = delete;
    ~JournalPause();
    static bool IsActive();
};

// Performs a platform operation with journal and fault injection. `body` executes it and returns an HRESULT.
template <class Body>
HRESULT Perform(std::string_view operation, std::string_view arguments, Body body) {
    if (JournalPause::IsActive()) {
        return body();
    }
    const Journal::Entry entry = TheJournal().Begin(operation, arguments);
    HRESULT code = entry.fault ? entry.fault->code : S_OK;
    if (!entry.fault) {
        code = body();
    } else if (entry.fault->kind == Fault::Kind::FailLate) {
        body();
    }
    TheJournal().End(entry, code);
    return code;
}

// Performs an operation that stores a result. Fails with E_POINTER when `result` is null. A pointer is null
// unless `body` stores one; any other value is unchanged after a failure and zero after YieldNull.
template <class Result, class Body>
HRESULT PerformInto(std::string_view operation, std::string_view arguments, Result* result, Body body) {
    if (result == nullptr) {
        return Perform(operation, arguments, [] { return E_POINTER; });
    }
    bool done = false;
    if constexpr (std::is_pointer_v<Result>) {
        *result = nullptr;
    }
    const HRESULT code = Perform(operation, arguments, [&] {
        done = true;
        return body();
    });
    if (!done && code >= 0) {
        *result = {};
    }
    return code;
}

}  // namespace dialsim
