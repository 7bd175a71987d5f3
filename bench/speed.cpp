// Measures times with Google Benchmark: each workload as Library/... and Baseline/..., in direct succession.
// Usage: bench_speed library-first|baseline-first [OPTION OF GOOGLE BENCHMARK...]
#include <benchmark/benchmark.h>

#include <string_view>

#include "bench/workloads.h"

namespace {

void Register(const std::string& name, std::int64_t runs,
              const std::function<std::unique_ptr<bench::Workload>()>& make) {
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

void RegisterBoth(const bench::Comparison& pair, bool baseline_first) {
    for (const bool baseline : {baseline_first, !baseline_first}) {
        Register((baseline ? "Baseline/" : "Library/") + pair.name, pair.runs,
                 baseline ? pair.baseline : pair.library);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view order = argc > 1 ? argv[1] : "";
    if (order != "library-first" && order != "baseline-first") {
        return 2;
    }
    for (const bench::Comparison& pair : bench::Comparisons()) {
        RegisterBoth(pair, order == "baseline-first");
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
