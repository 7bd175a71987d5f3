// The flat functions under their published names, for programs that are linked natively.
#include "simulator/functions/intercepted.h"

#define EXPORT(result, name, parameters, arguments, ...) \
    result name parameters { return dialsim::intercepted::name arguments; }
PLATFORM_FUNCTIONS(EXPORT)

bool dialsim::InterceptModule(const char* /*module*/) { return true; }
