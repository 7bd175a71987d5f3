// One sequence, played to the library and to the model.
#pragma once

#include <optional>
#include <string>

#include "actual.h"
#include "expected.h"

namespace model {

// What is gathered over all sequences; natively children add to it.
struct Totals {
    std::uint64_t sequences = 0;
    std::uint64_t operations = 0;
    std::uint64_t events_inside = 0;
    Reach reach;
    CallCounts calls;
    // The operation of the current sequence, for what is said of a crash.
    std::uint32_t at_operation = 0;
};

// The first difference, a few lines; empty when there is none.
std::string Compare(const Sequence& sequence, const Files& files, Totals& totals);

// The calls that the model makes for each operation.
std::vector<std::string> JournalsOf(const Sequence& sequence, const Files& files);

}  // namespace model
