// The flat functions as the library calls them: journaled, tracked, and subject to faults.
#pragma once

#include "platform/function_table.h"
#include "platform/functions.h"

namespace dialsim::intercepted {

#define DECLARE_INTERCEPTED(result, name, parameters, ...) result name parameters;
PLATFORM_FUNCTIONS(DECLARE_INTERCEPTED)
#undef DECLARE_INTERCEPTED

}  // namespace dialsim::intercepted
