// The names of the platform operations that the library calls, for fault injection.
#pragma once

#include <cstddef>

#include "simulator/instruments/journal.h"

namespace dialsim {

// The name of the operation at this index, from 0; null after the last.
const char* OperationName(std::size_t index);

// Whether the fault names a listed operation, with or without arguments, and has a kind that it supports.
bool IsApplicable(const Fault& fault);

}  // namespace dialsim
