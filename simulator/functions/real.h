// The original functions: natively the simulator's implementations, on Windows the system's.
#pragma once

#include "platform/function_table.h"
#include "platform/functions.h"

namespace dialsim::real {

#ifdef _WIN32
#define DECLARE_REAL(result, name, ...) using ::name;
#else
#define DECLARE_REAL(result, name, parameters, ...) result name parameters;
#endif
PLATFORM_FUNCTIONS(DECLARE_REAL)
#undef DECLARE_REAL

}  // namespace dialsim::real

namespace dialsim {

// CO_E_NOTINITIALIZED on a thread that is in no apartment: it cannot activate a class.
HRESULT CheckApartment();

// Waits for about a millisecond of real time. A single-threaded apartment gets its incoming calls meanwhile.
void WaitInApartment();

}  // namespace dialsim
