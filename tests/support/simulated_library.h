// Starts the simulation of a test program's library.
#pragma once

#include <brindle.h>

#include <cstdio>

#include "simulator/dialsim.h"

// False when the library's calls do not reach the simulator: on Windows the tests would then use the system's
// dial and the user's own vault. A program that gets false must end.
inline bool StartSimulatedLibrary() {
    const bool started = dialsim_start();
    dialsim_clear_journal();
    uninit();  // harmless before initialize
    const bool reached = started && dialsim_calls("RoUninitialize") == 1;
    dialsim_clear_journal();
    if (!reached) {
        std::fprintf(stderr, "the library's calls do not reach the simulator\n");
    }
    return reached;
}
