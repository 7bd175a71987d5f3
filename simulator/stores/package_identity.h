// Whether the program runs with the identity of a package.
#pragma once

namespace dialsim {

// Initially the value of the environment variable DIALSIM_PACKAGED.
bool IsPackaged();
void SetPackaged(bool packaged);

}  // namespace dialsim
