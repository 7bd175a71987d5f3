// The application's own settings, for programs with the identity of a package.
#pragma once

#include "platform/interfaces/storage.h"
#include "simulator/classes/object.h"

namespace dialsim {

Ref<abi::IInspectable> MakeApplicationDataStatics();

}  // namespace dialsim
