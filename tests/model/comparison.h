// Plays one sequence to the library and to the model, and compares the records.
#pragma once

#include <optional>
#include <string>

#include "actual.h"
#include "expected.h"

namespace model {

// Totals of all sequences; natively child processes add to them.
struct Totals {
    std::uint64_t sequences = 0;
    std::uint64_t operations = 0;
    std::uint64_t events_inside = 0;
    Reach reach;
    CallCounts calls;
    // The current operation of the sequence, for the report of a crash.
    std::uint32_t at_operation = 0;
};

// Returns the first difference with a few lines around it; empty when there is none.
std::string Compare(const Sequence& sequence, const Files& files, Totals& totals);

// Returns the calls that the model makes for each operation.
std::vector<std::string> JournalsOf(const Sequence& sequence, const Files& files);

}  // namespace model
