// Plays sequences one after the other: natively each in a child process, so that a crash is an ordinary
// failure.
#pragma once

#include <string>

#include "comparison.h"

namespace model {

// Natively in memory that child processes share.
Totals& TheTotals();

// Returns the difference; empty when there is none.
std::string Run(const Sequence& sequence, const Files& files);

// Whether a failing sequence can be run again for its reduction.
bool CanRunAgain();

// Returns the smallest failing sequence found.
Sequence Reduce(Sequence sequence, const Files& files);

}  // namespace model
