// The workloads of the benchmarks, each with the library and with the baseline.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bench {

// The constructor prepares it and is not measured.
class Workload {
public:
    virtual ~Workload() = default;
    // Does the work once; returns a result that is the same on both sides.
    virtual std::int64_t Run() = 0;
};

struct Comparison {
    std::string name;
    // Runs in one time measurement, set where each run allocates memory that stays; 0: as many as the time
    // allows.
    std::int64_t runs;
    std::function<std::unique_ptr<Workload>()> library;
    std::function<std::unique_ptr<Workload>()> baseline;
    // False for finding a window, which makes no platform calls.
    bool makes_calls = true;
};

std::vector<Comparison> Comparisons();

}  // namespace bench
