#pragma once

#include "platform/interfaces/metadata.h"
#include "simulator/classes/object.h"

namespace dialsim {

Ref<abi::IInspectable> MakeApiInformation();

}  // namespace dialsim
