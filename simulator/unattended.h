// What the environment asks for, for programs that do not name the simulator.
#pragma once

namespace dialsim {

// Plays the script of DIALSIM_SETUP to its end, once.
void BeforeTheFirstClass();

// Begins the recording of DIALSIM_RECORD and, in the background, the script of DIALSIM_SCRIPT, once.
void AtTheFirstController();

}  // namespace dialsim
