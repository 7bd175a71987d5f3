// Plays sequences one after the other: natively each in a child process of its own, so that a crash is a
// failure like any other.
#pragma once

#include <string>

#include "comparison.h"

namespace model {

// Natively in memory that children share.
Totals& TheTotals();

// What differs; empty where nothing does.
std::string Run(const Sequence& sequence, const Files& files);

// Whether a smaller sequence can be tried after one has failed.
bool CanRunAgain();

// The smallest sequence found that still fails.
Sequence Reduce(Sequence sequence, const Files& files);

}  // namespace model
