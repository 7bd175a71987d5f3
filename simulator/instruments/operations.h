// The operations of the platform that the library calls, as faults name them.
#pragma once

#include <cstddef>

#include "simulator/instruments/journal.h"

namespace dialsim {

// By index from 0; null past the last.
const char* OperationName(std::size_t index);

// Whether the fault names an operation of the list, with or without arguments, and a kind that it can have.
bool IsApplicable(const Fault& fault);

}  // namespace dialsim
