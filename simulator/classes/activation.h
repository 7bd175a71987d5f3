// The runtime classes that the simulator implements.
#pragma once

#include "simulator/classes/one_shot_signal.h"

namespace dialsim {

// Emitted before the first factory is returned.
OneShotSignal<>& FirstActivation();

}  // namespace dialsim
