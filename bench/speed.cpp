// The times, with Google Benchmark: each pair as Library/... and ByHand/..., one right after the other.
// Usage: bench_speed library-first|by-hand-first [OPTION OF GOOGLE BENCHMARK...]
#include <benchmark/benchmark.h>

#include <string_view>

#include "bench/workloads.h"

namespace {

void Register(const std::string& name, std::int64_t runs,
              const std::function<std::unique_ptr<bench::Work>()>& make) {
    auto* registered = benchmark::RegisterBenchmark(name.c_str(), [make](benchmark::State& state) {
        const auto work = make();
        for (auto _ : state) {
            benchmark::DoNotOptimize(work->Run());
        }
    });
    if (runs > 0) {
        registered->Iterations(runs);
    }
}

void RegisterBoth(const bench::Pair& pair, bool by_hand_first) {
    for (const bool by_hand : {by_hand_first, !by_hand_first}) {
        Register((by_hand ? "ByHand/" : "Library/") + pair.name, pair.runs,
                 by_hand ? pair.by_hand : pair.library);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view order = argc > 1 ? argv[1] : "";
    if (order != "library-first" && order != "by-hand-first") {
        return 2;
    }
    for (const bench::Pair& pair : bench::Pairs()) {
        RegisterBoth(pair, order == "by-hand-first");
    }
    int options = argc - 1;
    benchmark::Initialize(&options, argv + 1);
    if (benchmark::ReportUnrecognizedArguments(options, argv + 1)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
