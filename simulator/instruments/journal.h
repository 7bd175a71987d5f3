// Every platform call in order, and the faults that apply to them.
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
        Fail,      // the operation does not take place and fails
        FailLate,  // it takes place and then claims to have failed
        YieldNull  // it does not take place and succeeds with nothing
    };

    std::string pattern;  // an operation, or an operation with its arguments
    Kind kind;
    HRESULT code;
    std::uint32_t from;   // the first matching call that it applies to, counted from 1
    std::uint32_t times;  // 0: for ever
    std::uint32_t matching_calls = 0;
};

class Journal {
public:
    struct Entry {
        std::uint64_t number;
        std::optional<Fault> fault;  // what applies to the call
    };

    using CallHook = void (*)(void* context, const char* call);

    // Writes the call down, looks for a fault, and then calls the hook without a lock.
    Entry Begin(std::string_view operation, std::string_view arguments);
    void End(const Entry& entry, HRESULT code);
    // What happens without being called for.
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

// While one of these lives, what the platform does on this thread is the platform's own affair: not
// journaled, and no fault applies.
class JournalPause {
public:
    JournalPause();
    JournalPause(const JournalPause&) = delete;
    JournalPause& operator=(const JournalPause&) = delete;
    ~JournalPause();
    static bool IsActive();
};

// One platform operation: journaled, failed by its fault if there is one, else done by `body`, which answers
// an HRESULT.
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

// The same with a result. A null place for it is refused; a pointer is null unless `body` fills it in; a
// value is left alone by a failure and zero where nothing is yielded.
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
