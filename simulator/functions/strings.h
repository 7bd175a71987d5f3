// Creating and reading platform strings.
#pragma once

#include "simulator/system/text.h"

namespace dialsim {

// The caller owns the string; leak tracking counts it.
HRESULT NewString(WideView text, HSTRING* string);

WideView View(HSTRING string);

}  // namespace dialsim
