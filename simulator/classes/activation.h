// The runtime classes that the simulator implements.
#pragma once

#include <cstddef>

#include "simulator/classes/one_shot_signal.h"

namespace dialsim {

// The name of the class at this index, from 0; null after the last.
const char* ActivatableClass(std::size_t index);

// Emitted before the first factory is returned.
OneShotSignal<>& FirstActivation();

}  // namespace dialsim
