// The flat functions as the library calls them: journaled, tracked, and subject to faults.
#pragma once

#include "platform/function_table.h"
#include "platform/functions.h"

namespace dialsim {

// On Windows puts these in the place of the functions that a loaded module imports (null: the program's);
// false when it is not loaded. Natively the library is linked to them: true.
bool InterceptModule(const char* module);

namespace intercepted {

#define DECLARE_INTERCEPTED(result, name, parameters, ...) result name parameters;
PLATFORM_FUNCTIONS(DECLARE_INTERCEPTED)
#undef DECLARE_INTERCEPTED

}  // namespace intercepted

}  // namespace dialsim
