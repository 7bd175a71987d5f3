// What the environment asks for, for programs that do not name the simulator.
#pragma once

#include <cstdint>

namespace dialsim {

// Plays the script of DIALSIM_SETUP to its end, once.
void OnFirstActivation();

// Begins the recording of DIALSIM_RECORD, opens the dial of DIALSIM_WINDOW, and begins, in the background,
// the script of DIALSIM_SCRIPT: once, for the first window that gets a controller.
void OnFirstController(std::uint64_t window);

}  // namespace dialsim
