// Defines the flat functions by their published names, for natively linked programs.
#include "simulator/functions/intercepted.h"

#define EXPORT(result, name, parameters, arguments, ...) \
    result name parameters { return dialsim::intercepted::name arguments; }
PLATFORM_FUNCTIONS(EXPORT)

bool dialsim::InterceptModule(const char* /*module*/) { return true; }
bool dialsim::InterceptLibraries() { return true; }
