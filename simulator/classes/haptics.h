// The dial's haptics.
#pragma once

#include "platform/interfaces/haptics.h"
#include "simulator/classes/object.h"
#include "simulator/dial/dial.h"

namespace dialsim {

Ref<abi::ISimpleHapticsController> MakeHapticsController(const DialState& state);

}  // namespace dialsim
