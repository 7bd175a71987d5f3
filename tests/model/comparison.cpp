#include "comparison.h"

#include <algorithm>
#include <set>

#include "simulator/dialsim.h"
#include "support/dialsim_text.h"

namespace model {

namespace {

constexpr std::uint64_t kStart = 1'000'000;  // start of the clock, in milliseconds
constexpr std::size_t kShownBefore = 8;
constexpr std::size_t kShownAfter = 4;
constexpr std::size_t kLongestLine = 200;

void CollectWindows(const Sequence& sequence, std::set<std::uint64_t>& windows) {
    for (const Operation& operation : sequence) {
        if (operation.act == Act::Listen) {
            windows.insert(operation.window);
        }
        CollectWindows(operation.reactions, windows);
        for (const Inside& inside : operation.inside) {
            CollectWindows({inside.operation}, windows);
        }
    }
}

std::vector<std::uint64_t> WindowsOf(const Sequence& sequence) {
    std::set<std::uint64_t> windows;
    CollectWindows(sequence, windows);
    return {windows.begin(), windows.end()};
}

bool UsesStores(const Sequence& sequence) {
    return std::any_of(sequence.begin(), sequence.end(), [](const Operation& operation) {
        return (operation.act >= Act::SetText && operation.act <= Act::GetNumber) ||
               operation.act >= Act::Packaged || UsesStores(operation.reactions) ||
               std::any_of(operation.inside.begin(), operation.inside.end(),
                           [](const Inside& inside) { return UsesStores({inside.operation}); });
    });
}

std::string Shown(const std::vector<std::string>& lines, std::size_t at, const char* mark) {
    return at < lines.size() ? mark + lines[at].substr(0, kLongestLine) + "\n" : "";
}

// The lines around the first difference.
std::string DifferenceOf(const std::string& expected, const std::string& actual) {
    const std::vector<std::string> expected_lines = LinesOf(expected);
    const std::vector<std::string> actual_lines = LinesOf(actual);
    std::size_t first = 0;
    while (first < expected_lines.size() && first < actual_lines.size() &&
           expected_lines[first] == actual_lines[first]) {
        ++first;
    }
    std::string text;
    for (std::size_t i = first - std::min(first, kShownBefore); i < first; ++i) {
        text += Shown(expected_lines, i, "    ");
    }
    for (std::size_t i = first; i < first + kShownAfter; ++i) {
        text += Shown(expected_lines, i, "  expected ");
    }
    for (std::size_t i = first; i < first + kShownAfter; ++i) {
        text += Shown(actual_lines, i, "  actual   ");
    }
    return text;
}

}  // namespace

std::string Compare(const Sequence& sequence, const Files& files, Totals& totals) {
    static Process process;
    ++totals.sequences;
    const bool virtual_clock = dialsim_set_clock(kStart);
    const auto windows = WindowsOf(sequence);
    Actual actual(files, totals.calls, windows, UsesStores(sequence), virtual_clock);
    Expected expected(process, files, totals.reach, windows, UsesStores(sequence), virtual_clock);
    expected.Play(SetClock(kStart));
    for (std::size_t i = 0; i <= sequence.size() && !actual.stopped(); ++i) {
        totals.at_operation = static_cast<std::uint32_t>(i);
        const bool ends = i == sequence.size();
        const std::string actual_record = ends ? actual.End() : actual.Play(sequence[i]);
        const std::string expected_record = ends ? expected.End() : expected.Play(sequence[i]);
        if (ends) {
            totals.operations += expected.operations();
            totals.events_inside += expected.events_inside();
        }
        if (actual_record != expected_record) {
            return (ends ? "at the end" : "operation " + std::to_string(i + 1)) + ":\n" +
                   DifferenceOf(expected_record, actual_record);
        }
    }
    return "";
}

std::vector<std::string> JournalsOf(const Sequence& sequence, const Files& files) {
    Process process;
    Reach reach;
    Expected expected(process, files, reach, {}, false, true);
    std::vector<std::string> journals;
    for (const Operation& operation : sequence) {
        expected.Play(operation);
        journals.push_back(expected.last_journal());
    }
    return journals;
}

}  // namespace model
