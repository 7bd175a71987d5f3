// The runtime classes that the simulator has.
#pragma once

#include <cstddef>

#include "simulator/classes/one_shot_signal.h"

namespace dialsim {

// Their names, by index from 0; null past the last.
const char* ActivatableClass(std::size_t index);

// Emitted before the first class is handed out.
OneShotSignal<>& FirstActivation();

}  // namespace dialsim
