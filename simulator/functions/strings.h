// Platform strings, from the platform's side.
#pragma once

#include "simulator/system/text.h"

namespace dialsim {

// A new string for the caller to own; counted by leak tracking.
HRESULT NewString(WideView text, HSTRING* string);

WideView View(HSTRING string);

}  // namespace dialsim
