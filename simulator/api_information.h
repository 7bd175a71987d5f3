#pragma once

#include "platform/interfaces/metadata.h"
#include "simulator/object.h"

namespace dialsim {

Ref<abi::IInspectable> MakeApiInformation();

}  // namespace dialsim
