// The intercepted flat functions, with journal, leak tracking and fault injection.
#pragma once

#include "platform/function_table.h"
#include "platform/functions.h"

namespace dialsim {

// On Windows hooks the imports of a loaded module (null: the program); false when it is not loaded. Natively
// the library is linked to the intercepted functions: true.
bool InterceptModule(const char* module);

// The same for every module that is the library, loaded now or later.
bool InterceptLibraries();

namespace intercepted {

#define DECLARE_INTERCEPTED(result, name, parameters, ...) result name parameters;
PLATFORM_FUNCTIONS(DECLARE_INTERCEPTED)
#undef DECLARE_INTERCEPTED

}  // namespace intercepted

}  // namespace dialsim
