// The dial's haptics.
#pragma once

#include "platform/interfaces/haptics.h"
#include "simulator/dial.h"
#include "simulator/object.h"

namespace dialsim {

Ref<abi::ISimpleHapticsController> MakeHapticsController(const DialState& state);

}  // namespace dialsim
