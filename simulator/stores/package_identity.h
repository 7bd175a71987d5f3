// Whether the program has package identity.
#pragma once

namespace dialsim {

// Initially the value of the environment variable DIALSIM_PACKAGED.
bool IsPackaged();
void SetPackaged(bool packaged);

}  // namespace dialsim
