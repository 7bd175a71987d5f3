// Whether the program runs with the identity of a package.
#pragma once

namespace dialsim {

// At the start as the environment variable DIALSIM_PACKAGED says.
bool IsPackaged();
void SetPackaged(bool packaged);

}  // namespace dialsim
