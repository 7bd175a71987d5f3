// Checks, over the recording platform, that both sides of every workload make the same platform calls in the
// same order with the same result: a condition for comparing their costs.
#include <cstdio>

#include "bench/stub/platform.h"
#include "bench/workloads.h"

namespace {

using Calls = std::vector<std::string>;

struct Done {
    Calls calls;
    std::int64_t result;
};

// Compares the third run: the first two fill caches and settings.
Done CallsOf(bench::Workload& work) {
    work.Run();
    work.Run();
    stub::TakeCalls();
    const std::int64_t result = work.Run();
    return {stub::TakeCalls(), result};
}

void PrintDifference(const Calls& library, const Calls& baseline) {
    std::size_t i = 0;
    while (i < library.size() && i < baseline.size() && library[i] == baseline[i]) {
        ++i;
    }
    const auto at = [i](const Calls& calls) { return i < calls.size() ? calls[i].c_str() : "(the end)"; };
    std::printf("  call %zu\n  library   %s\n  baseline  %s\n", i, at(library), at(baseline));
}

bool Compare(const bench::Comparison& pair) {
    const Done library = CallsOf(*pair.library());
    const Done baseline = CallsOf(*pair.baseline());
    const bool same = library.calls == baseline.calls && library.result == baseline.result;
    const bool empty = library.calls.empty() == pair.makes_calls;
    std::printf("%-40s %zu calls, %s\n", pair.name.c_str(), library.calls.size(),
                same && !empty ? "the same" : "NOT THE SAME");
    if (!same) {
        PrintDifference(library.calls, baseline.calls);
        std::printf("  results  %lld and %lld\n", static_cast<long long>(library.result),
                    static_cast<long long>(baseline.result));
    }
    return same && !empty;
}

}  // namespace

int main() {
    bool all_same = true;
    for (const bench::Comparison& pair : bench::Comparisons()) {
        all_same &= Compare(pair);
    }
    return all_same ? 0 : 1;
}
