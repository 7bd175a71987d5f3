// Whether only the dial is simulated, and the rest of the platform is the system's.
#pragma once

#include "platform/functions.h"

namespace dialsim {

bool IsOnlyDial();

// False natively, where there is no system beneath the simulator.
bool SetOnlyDial(bool only_dial);

// CreateRandomAccessStreamOverStream of the system.
HRESULT CreateSystemStreamOverStream(::IStream* stream, BSOS_OPTIONS options, const IID& iid, void** result);

}  // namespace dialsim
