// The times, with Google Benchmark: each pair as Library/... and ByHand/...
#include <benchmark/benchmark.h>

#include "bench/works.h"

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

}  // namespace

int main(int argc, char** argv) {
    for (const bench::Pair& pair : bench::Pairs()) {
        Register("Library/" + pair.name, pair.runs, pair.library);
        Register("ByHand/" + pair.name, pair.runs, pair.by_hand);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
