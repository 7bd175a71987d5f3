// The pieces of work that are measured, each done by the library and by hand.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bench {

// Made ready by its constructor, which nobody measures.
class Workload {
public:
    virtual ~Workload() = default;
    // Once; the result, the same on both sides.
    virtual std::int64_t Run() = 0;
};

struct Comparison {
    std::string name;
    // How often in one measurement; 0: as often as the time allows. Set where every run leaves something
    // behind.
    std::int64_t runs;
    std::function<std::unique_ptr<Workload>()> library;
    std::function<std::unique_ptr<Workload>()> baseline;
    // Whether both make the same calls; looking a window up makes none.
    bool makes_calls = true;
};

std::vector<Comparison> Comparisons();

}  // namespace bench
