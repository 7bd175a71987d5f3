// Runs one side of one workload a number of times, for counting instructions.
// Usage: bench_repeat WORKLOAD library|baseline NUMBER
#include <algorithm>
#include <cstdlib>

#include "bench/workloads.h"

int main(int argc, char** argv) {
    if (argc != 4) {
        return 2;
    }
    const auto pairs = bench::Comparisons();
    const auto pair = std::find_if(pairs.begin(), pairs.end(), [&](const bench::Comparison& candidate) {
        return candidate.name == argv[1];
    });
    if (pair == pairs.end()) {
        return 2;
    }
    const std::string side = argv[2];
    const auto work = side == "library" ? pair->library() : pair->baseline();
    for (long i = std::atol(argv[3]); i > 0; --i) {
        work->Run();
    }
    return 0;
}
