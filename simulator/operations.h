// The operations of the platform that the library calls, as faults name them.
#pragma once

#include <string_view>

namespace dialsim {

// By index from 0; null past the last.
const char* Operation(std::size_t index);

// Whether `pattern` is an operation of the list, with or without arguments.
bool IsOperation(std::string_view pattern);

}  // namespace dialsim
