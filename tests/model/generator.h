// Generates a sequence from a seed: values of the full range of their types, edge values preferred, with
// faults and events where the model makes platform calls.
#pragma once

#include "files.h"
#include "random.h"
#include "sequence.h"

namespace model {

Sequence Generate(std::uint64_t seed, const Files& files);

}  // namespace model
