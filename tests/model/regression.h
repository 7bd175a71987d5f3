// Sequences that once failed. They run before any seed.
#pragma once

#include <string>
#include <vector>

#include "sequence.h"

namespace model {

struct Regression {
    std::string behaviour;
    Sequence sequence;
};

std::vector<Regression> Regressions();

}  // namespace model
