// The expected behaviour as tables. Each row is a platform call or a nested table, with the effect of its
// failure on the enclosing table. A run evaluates a table under one fault and yields the expected calls,
// output and results.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "behaviour.h"

namespace sweep {

inline constexpr std::int32_t kSkipped = 1;  // S_FALSE

inline std::string Hex(std::int32_t code) {
    char text[16];
    std::snprintf(text, sizeof text, "%x", static_cast<unsigned>(code));
    return text;
}

inline std::string OperationOf(const std::string& call) { return call.substr(0, call.find('(')); }

// The empty string is valid: a null handle is no fault.
inline bool MakesText(const std::string& call) {
    return call.starts_with("WindowsCreateString") || call.starts_with("WindowsDuplicateString");
}

// --- state after a run

// An item of the dial's menu.
struct Item {
    std::optional<std::uint32_t> tag;
    int subscriptions = 0;
};

struct ExpectedState {
    // Facts that rows set and require.
    bool icon_factory = false;
    bool menu_item = false;
    bool tag_value = false;
    bool picture = false;
    bool stream = false;
    bool waveform = false;
    bool selected = false;
    bool contact = false;
    bool handler = false;
    bool tag_read = false;
    bool bounds_read = false;
    bool degrees_read = false;
    bool button_read = false;
    bool scanned = false;
    bool found = false;
    bool never = false;  // set by no row

    std::vector<Item> items;                 // all created items
    std::vector<std::size_t> menu;           // items in the menu, with repetitions
    std::map<std::uint32_t, bool> recorded;  // identifiers and their haptic settings; the first one counts
    int contacts_kept = 0;
    std::vector<std::int32_t> system_items = {0, 1, 2, 3, 4};

    std::string log;  // results and host calls, a line each
};

// --- rows

// Effect of a row's failure.
enum class Rule {
    Guarded,   // retried, the second code printed, retried: the table ends with the third code
    Logged,    // retried, the second code printed with a name: the table continues
    Reported,  // printed: the table ends with its code
    Ends,      // the table ends with its code
    Final,     // the same, and also for a success other than S_FALSE
    Thrown,    // thrown out of all tables
    Absent,    // as if the result were null; the code of a failure with a result is ignored
    Lacking,   // the same, but the table ends with its code
    Ignored    // no effect
};

// Effect of a success with a null result.
enum class Null { GoesOn, Fails, Ends };

// How a table's code is returned to its caller; it then ends no other table.
enum class Answer { None, Bool, Code, Completion };

struct Row {
    std::string call;        // empty: a table
    std::vector<Row> table;  // of a call: its nested calls
    Rule rule = Rule::Ends;
    std::string step;
    int line = 0;
    Null null = Null::GoesOn;
    std::int32_t null_code = 0;
    bool ExpectedState::*gives = nullptr;
    bool ExpectedState::*needs = nullptr;
    std::int32_t without = 0;
    std::optional<std::int32_t> fails_as;
    std::int32_t ends_as = 0;
    Answer answer = Answer::None;
    std::function<void(ExpectedState&)> effect;

    Row NullFails() && {
        null = Null::Fails;
        return std::move(*this);
    }
    // The table ends with the code.
    Row NullEnds(std::int32_t code) && {
        null = Null::Ends;
        null_code = code;
        return std::move(*this);
    }
    Row Gives(bool ExpectedState::*fact) && {
        gives = fact;
        return std::move(*this);
    }
    // Without the fact the platform refuses a call with the code, and a table makes no call.
    Row Needs(bool ExpectedState::*fact, std::int32_t code) && {
        needs = fact;
        without = code;
        return std::move(*this);
    }
    Row Contains(Row inner) && {
        table.push_back(std::move(inner));
        return std::move(*this);
    }
    Row FailsAs(std::int32_t code) && {
        fails_as = code;
        return std::move(*this);
    }
    Row EndsAs(std::int32_t code) && {
        ends_as = code;
        return std::move(*this);
    }
    Row Answers(Answer how) && {
        answer = how;
        return std::move(*this);
    }
    // The effect of a success.
    Row Does(std::function<void(ExpectedState&)> what) && {
        effect = std::move(what);
        return std::move(*this);
    }
};

using Rows = std::vector<Row>;

inline Row Call(std::string call) {
    Row row;
    row.call = std::move(call);
    return row;
}

inline Row Table(Rows rows) {
    Row row;
    row.table = std::move(rows);
    return row;
}

// An effect without a platform call.
inline Row Then(std::function<void(ExpectedState&)> what) { return Table({}).Does(std::move(what)); }

inline Row Ruled(Rule rule, Row row, int line = 0, const char* step = "") {
    row.rule = rule;
    row.line = line;
    row.step = step;
    return row;
}

inline Row Guarded(int line, Row row) { return Ruled(Rule::Guarded, std::move(row), line); }
inline Row Logged(const char* step, int line, Row row) {
    return Ruled(Rule::Logged, std::move(row), line, step);
}
inline Row Reported(const char* step, int line, Row row) {
    return Ruled(Rule::Reported, std::move(row), line, step);
}
inline Row Final(Row row) { return Ruled(Rule::Final, std::move(row)); }
inline Row Thrown(Row row) { return Ruled(Rule::Thrown, std::move(row)); }
inline Row Absent(Row row) { return Ruled(Rule::Absent, std::move(row)); }
inline Row Lacking(Row row) { return Ruled(Rule::Lacking, std::move(row)); }
inline Row Ignored(Row row) { return Ruled(Rule::Ignored, std::move(row)); }

// A platform string over a text of the host or the library.
inline Row Text() { return Call("WindowsCreateStringReference"); }

// A factory needs the string of its class name.
inline Row FactoryOrNull(const std::string& runtime_class, bool ExpectedState::*fact) {
    return Table({Call("WindowsCreateStringReference(" + runtime_class + ")"),
                  Call("RoGetActivationFactory(" + runtime_class + ")").Gives(fact)});
}
inline Row Factory(const std::string& runtime_class) {
    return Table({Call("WindowsCreateStringReference(" + runtime_class + ")"),
                  Call("RoGetActivationFactory(" + runtime_class + ")").NullFails()});
}

// Required: a success without the interface is a failure.
inline Row View(const std::string& name) { return Call("QueryInterface(" + name + ")").NullFails(); }

// --- faults

enum class FaultKind { FailsOnce, FailsTwice, KeepsFailing, FailsLate, YieldsNull };
inline constexpr FaultKind kFaultKinds[] = {FaultKind::FailsOnce, FaultKind::FailsTwice,
                                            FaultKind::KeepsFailing, FaultKind::FailsLate,
                                            FaultKind::YieldsNull};
inline constexpr const char* kFaultKindNames[] = {"fails once", "fails twice", "keeps failing",
                                                  "works and claims to have failed", "yields null"};

// Each attempt fails with a different code.
inline constexpr std::int32_t kCodes[] = {kClassNotRegistered, kAccessDenied, kDisconnected};

struct Fault {
    std::string call;      // an operation, with arguments where needed to identify it
    std::uint32_t number;  // the first failing call, from 1
    FaultKind way;

    bool Matches(const std::string& other) const { return call == other || call == OperationOf(other); }
    // False where the call cannot fail in this way.
    bool Set() const {
        switch (way) {
            case FaultKind::FailsLate:
                return AnswersCode() && dialsim_fail_late(call.c_str(), kCodes[0], number, 1);
            case FaultKind::YieldsNull:
                return YieldsSomething() && dialsim_yield_null(call.c_str(), number, 1);
            default:
                return Fail(0, 1) && (way == FaultKind::FailsOnce || Fail(1, 1)) &&
                       (way != FaultKind::KeepsFailing || Fail(2, 0));
        }
    }
    // The code for the call of this number; 0 for a null.
    std::optional<std::int32_t> InjectedCode(std::uint32_t which) const {
        const std::uint32_t attempt = which - number;
        const std::uint32_t attempts = way == FaultKind::KeepsFailing ? UINT32_MAX
                                       : way == FaultKind::FailsTwice ? 2
                                                                      : 1;
        if (which < number || attempt >= attempts) {
            return std::nullopt;
        }
        return way == FaultKind::YieldsNull ? 0 : kCodes[std::min(attempt, 2u)];
    }

private:
    bool Fail(std::uint32_t attempt, std::uint32_t times) const {
        return dialsim_fail(call.c_str(), kCodes[attempt], number + attempt, times);
    }
    bool AnswersCode() const { return call != "PathFileExistsW" && call != "GetShortPathNameW"; }
    bool YieldsSomething() const { return !MakesText(call) && call != "RoInitialize"; }
};

// --- a run

class TableRun {
public:
    TableRun(std::optional<Fault> fault, ExpectedState start)
        : state(std::move(start)), fault_(std::move(fault)) {}

    void Play(const Row& row) { Perform(row); }

    ExpectedState state;
    std::string calls;
    std::string printed;

private:
    struct Outcome {
        std::int32_t code = 0;
        bool ends = false;  // the enclosing table
    };
    struct Error {
        std::int32_t code;
    };

    Outcome Perform(const Row& row) {
        const Outcome first = Evaluate(row);
        if (first.ends || first.code >= 0) {
            return {first.code, first.ends || (row.rule == Rule::Final && first.code != kSkipped)};
        }
        switch (row.rule) {
            case Rule::Guarded:
                Print(row, Evaluate(row).code);
                return {Evaluate(row).code, true};
            case Rule::Logged:
                Print(row, Evaluate(row).code);
                return {};
            case Rule::Reported:
                Print(row, first.code);
                return {first.code, true};
            case Rule::Thrown:
                throw Error{first.code};
            case Rule::Ignored:
                return {};
            default:
                return {first.code, true};
        }
    }

    Outcome Evaluate(const Row& row) { return row.call.empty() ? Outcome{CodeOf(row), false} : Make(row); }

    Outcome Make(const Row& row) {
        std::optional<std::int32_t> code = NextFault(row.call);
        const bool takes_place = !code || fault_->way == FaultKind::FailsLate;
        const bool refused = takes_place && row.needs != nullptr && !(state.*row.needs);
        if (refused && !code) {
            code = row.without;
        }
        calls += row.call + (code.value_or(0) == 0 ? "" : " = " + Hex(*code)) + "\n";
        if (takes_place && !refused) {
            PlayTable(row);
        }
        const Outcome outcome = OutcomeOf(row, code.value_or(0), takes_place);
        if (row.gives != nullptr) {
            state.*row.gives = takes_place && (outcome.code >= 0 || row.rule == Rule::Ignored);
        }
        return outcome;
    }

    static Outcome OutcomeOf(const Row& row, std::int32_t code, bool takes_place) {
        if (takes_place) {
            const bool code_counts = row.rule != Rule::Absent && row.rule != Rule::Lacking;
            return {code_counts ? code : 0, false};
        }
        if (code == 0 || row.rule == Rule::Absent) {
            return {row.null == Null::Fails ? kNoInterface : row.null_code, row.null == Null::Ends};
        }
        return {code, false};
    }

    std::int32_t CodeOf(const Row& table) {
        if (table.answer == Answer::None) {
            return PlayTable(table);
        }
        try {
            Report(table.answer, PlayTable(table));
        } catch (const Error& error) {
            if (table.answer == Answer::Completion) {
                Report(table.answer, error.code);
            } else {
                state.log += "raised platform error " + Hex(error.code) + "\n";
            }
        }
        return 0;  // already reported
    }

    std::int32_t PlayTable(const Row& table) {
        if (table.needs != nullptr && !(state.*table.needs)) {
            return table.without;
        }
        std::int32_t code = table.ends_as;
        for (const Row& row : table.table) {
            if (const Outcome outcome = Perform(row); outcome.ends) {
                code = outcome.code;
                break;
            }
        }
        if (code >= 0 && table.effect) {
            table.effect(state);
        }
        return code < 0 && table.fails_as ? *table.fails_as : code;
    }

    void Report(Answer answer, std::int32_t code) {
        switch (answer) {
            case Answer::None:
                break;
            case Answer::Bool:
                state.log += code < 0 ? "false\n" : "true\n";
                break;
            case Answer::Code:
                state.log += "answered " + Hex(code) + "\n";
                break;
            case Answer::Completion:
                state.log += "completed with " + Hex(code) + "\n";
                break;
        }
    }

    void Print(const Row& row, std::int32_t code) {
        printed += (row.step.empty() ? "" : row.step + " ") + "failed with " + Hex(code) + " at line " +
                   std::to_string(row.line) + "\n";
    }

    std::optional<std::int32_t> NextFault(const std::string& call) {
        return fault_ && fault_->Matches(call) ? fault_->InjectedCode(++matches_) : std::nullopt;
    }

    const std::optional<Fault> fault_;
    std::uint32_t matches_ = 0;
};

}  // namespace sweep
