// Makes a sequence from a seed: values from the whole range of their types with the edges favoured, faults
// and events where the model says that the sequence has platform calls.
#pragma once

#include "files.h"
#include "random.h"
#include "sequence.h"

namespace model {

Sequence Generate(std::uint64_t seed, const Files& files);

}  // namespace model
