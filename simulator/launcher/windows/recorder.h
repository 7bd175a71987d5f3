// Records the real dial in the process of a program.
#pragma once

#include <string>

namespace dialsim {

// Records what every library does with the platform's dial from now on, instead of simulating it. The file is
// written from the creation of the first controller on. Call it before InterceptLibraries.
void RecordRealDial(const std::string& file);

}  // namespace dialsim
