// The dial's haptics.
#pragma once

#include "platform/interfaces/haptics.h"
#include "simulator/classes/dial_state.h"
#include "simulator/classes/object.h"

namespace dialsim {

Ref<abi::ISimpleHapticsController> MakeHapticsController(const DialState& state);

}  // namespace dialsim
