// From the name of a runtime class to its activation factory.
#pragma once

#include <cstddef>

#include "platform/types.h"
#include "simulator/classes/one_shot_signal.h"

namespace dialsim {

// REGDB_E_CLASSNOTREG for a class that the simulator does not have.
HRESULT GetClassFactory(HSTRING class_name, const IID& iid, void** factory);

// The classes it has, by index from 0; null past the last.
const char* ActivatableClass(std::size_t index);

// Emitted before the first class is handed out.
OneShotSignal<>& FirstActivation();

}  // namespace dialsim
