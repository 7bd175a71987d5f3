// Runs a workload a number of times, of the library and then of the baseline, for counting instructions:
// those of each call of MeasuredRuns and its callees. Usage: bench_repeat WORKLOAD WARM_UP_RUNS MEASURED_RUNS
//        bench_repeat --list
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "bench/workloads.h"

namespace {

void Repeat(bench::Workload& work, long runs) {
    for (; runs > 0; --runs) {
        work.Run();
    }
}

}  // namespace

// The name that callgrind is told.
extern "C" [[gnu::noinline]] void MeasuredRuns(bench::Workload& work, long runs) { Repeat(work, runs); }

int main(int argc, char** argv) {
    const auto pairs = bench::Comparisons();
    if (argc == 2 && std::string_view(argv[1]) == "--list") {
        for (const bench::Comparison& pair : pairs) {
            std::puts(pair.name.c_str());
        }
        return 0;
    }
    if (argc != 4) {
        return 2;
    }
    const auto pair = std::find_if(pairs.begin(), pairs.end(), [&](const bench::Comparison& candidate) {
        return candidate.name == argv[1];
    });
    if (pair == pairs.end()) {
        return 2;
    }
    for (const auto& side : {pair->library, pair->baseline}) {
        const auto work = side();
        Repeat(*work, std::atol(argv[2]));
        MeasuredRuns(*work, std::atol(argv[3]));
    }
    return 0;
}
