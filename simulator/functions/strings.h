// Creating and reading platform strings.
#pragma once

#include <string>

#include "simulator/system/text.h"

namespace dialsim {

// The caller owns the string; leak tracking counts it.
HRESULT NewString(WideView text, HSTRING* string);

WideView View(HSTRING string);

// Deletes the string, of the simulator or of the system, and returns its text.
std::string TakeText(HSTRING string);

}  // namespace dialsim
