// Which types there are.
#pragma once

#include <string>

#include "platform/interfaces/metadata.h"
#include "simulator/classes/object.h"

namespace dialsim {

Ref<abi::IInspectable> MakeApiInformation();

// Every type is present at the start.
void SetTypePresent(const std::string& type, bool present);

}  // namespace dialsim
