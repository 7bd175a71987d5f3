// Fault injection into every platform call of a scenario, with every kind of fault. Each run is compared with
// its table, and leaks nothing but intended references.
#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "sweep_summary.h"
#include "sweep_tables.h"

namespace sweep {

// One call in the journal; with arguments where the tables have them.
struct RecordedCall {
    explicit RecordedCall(const std::string& line) {
        const std::size_t end = line.rfind(')') + 1;
        const std::string text_of_call = line.substr(0, end);
        const bool keeps_arguments = text_of_call.starts_with("RoGetActivationFactory") ||
                                     text_of_call.starts_with("QueryInterface") ||
                                     text_of_call.starts_with("WindowsCreateStringReference(Windows.");
        call = keeps_arguments ? text_of_call : OperationOf(text_of_call);
        const std::string code = line.substr(end);
        const bool failed = code.size() == std::string(" = 80004005").size();
        text = call + (failed ? code : "") + "\n";
    }

    std::string call;
    std::string text;  // with the code of its failure
};

// Releases, comparisons, waits and callbacks are no rows of a table.
inline bool IsRow(const std::string& line) {
    constexpr const char* kPrefixes[] = {"WindowsDelete",
                                         "WindowsGet",
                                         "_wcsnicmp",
                                         "GetTickCount64",
                                         "Sleep",
                                         "GlobalUnlock",
                                         "GlobalFree",
                                         "FreeResource",
                                         "end of",
                                         "system items",
                                         "AsyncOperationCompletedHandler"};
    return std::none_of(std::begin(kPrefixes), std::end(kPrefixes),
                        [&](const char* prefix) { return line.starts_with(prefix); });
}

inline std::vector<RecordedCall> RecordedCalls() {
    std::vector<RecordedCall> calls;
    for (const std::string& line : LinesOf(Journal())) {
        if (IsRow(line)) {
            calls.emplace_back(line);
        }
    }
    return calls;
}

// One run of the library, and its table.
struct Scenario {
    std::string name;
    Row table;
    std::function<void()> act;
    std::function<void()> prepare = [] {};
    ExpectedState start = {};
    std::function<void(const ExpectedState&)> check = [](const ExpectedState&) {};
    // initialize ends the process where its class names cannot be created: tested separately.
    bool string_failure_is_fatal = false;
};

class Sweep : public UninitializedTest {
protected:
    Sweep() {
        host.on_window_query = [this] { log += "asked for the window\n"; };
        host.on_rotation = [this](const DialRotationInfo& turn) { LogTurn(turn); };
        host.on_click = [this](const DialContactRect& rect) { LogClick(rect); };
    }
    void TearDown() override {
        ReportSweep(operations_.size(), calls_, std::size(kFaultKinds), runs_);
        UninitializedTest::TearDown();
    }

    void InjectEachFault(const Scenario& scenario) {
        SCOPED_TRACE(scenario.name);
        std::vector<Fault> faults;
        for (const RecordedCall& made : RunOnce(scenario, std::nullopt)) {
            faults.push_back({made.call, 1, FaultKind::FailsOnce});
            for (std::size_t earlier = 0; earlier + 1 < faults.size(); ++earlier) {
                faults.back().number += faults.back().Matches(faults[earlier].call);
            }
        }
        for (Fault& fault : faults) {
            if (scenario.string_failure_is_fatal && MakesText(fault.call)) {
                continue;
            }
            ++calls_;
            operations_.insert(OperationOf(fault.call));
            for (const FaultKind way : kFaultKinds) {
                fault.way = way;
                RunOnce(scenario, fault);
            }
        }
    }

    // For `act`: logs the library's result.
    void LogResult(bool answer) { log += answer ? "true\n" : "false\n"; }
    void LogCode(std::int32_t code) {
        log += code == DIALSIM_RAISED ? "raised " + Raised() + "\n" : "answered " + Hex(code) + "\n";
    }

    std::string log;
    RecordingHost host{kWindow};

private:
    // The host's callbacks.
    void LogTurn(const DialRotationInfo& turn) {
        char text[96];
        std::snprintf(text, sizeof text, "turned by %g, %s, tag %u, contact ", turn.deltaDegrees,
                      turn.buttonPressed ? "pressed" : "not pressed", turn.selectedItemTag);
        log += text + RectText(turn.contact);
    }
    void LogClick(const DialContactRect& rect) { log += "clicked, contact " + RectText(rect); }
    static std::string RectText(const DialContactRect& rect) {
        char text[64];
        std::snprintf(text, sizeof text, "%d %d %d %d\n", rect.left, rect.top, rect.right, rect.bottom);
        return text;
    }

    // Returns the calls of the run.
    std::vector<RecordedCall> RunOnce(const Scenario& scenario, const std::optional<Fault>& fault) {
        SCOPED_TRACE(fault ? fault->call + ", call " + std::to_string(fault->number) + ", " +
                                 kFaultKindNames[static_cast<int>(fault->way)]
                           : "nothing fails");
        if (HasFailure()) {
            return {};  // one failing run is enough
        }
        dialsim_reset();
        scenario.prepare();
        dialsim_clear_journal();
        log.clear();
        if (fault && !fault->Set()) {
            uninit();
            return {};
        }
        runs_ += fault.has_value();
        scenario.act();

        const std::string printed = Printed();
        const std::vector<RecordedCall> made = RecordedCalls();

        TableRun run(fault, scenario.start);
        run.Play(scenario.table);
        EXPECT_EQ(Joined(made), run.calls);
        EXPECT_EQ(printed, run.printed);
        EXPECT_EQ(log, run.state.log);
        scenario.check(run.state);
        uninit();
        EXPECT_EQ(LeakReport(), KeptOnPurpose(run.state));
        dialsim_reset();
        return made;
    }

    static std::string Joined(const std::vector<RecordedCall>& calls) {
        std::string text;
        for (const RecordedCall& made : calls) {
            text += made.text;
        }
        return text;
    }

    // Contacts of clicks.
    static std::string KeptOnPurpose(const ExpectedState& state) {
        return state.contacts_kept == 0 ? ""
                                        : std::string(kContacts) + ": 1 objects, " +
                                              std::to_string(state.contacts_kept) + " references\n";
    }

    std::set<std::string> operations_;
    std::size_t calls_ = 0;
    std::size_t runs_ = 0;
};

}  // namespace sweep
