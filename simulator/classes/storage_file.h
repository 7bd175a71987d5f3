// Files, opened asynchronously.
#pragma once

#include "platform/interfaces/storage.h"
#include "simulator/classes/object.h"

namespace dialsim {

// Empty for null and for other implementations of the interface.
WideString PathOf(abi::IStorageFile* file);

}  // namespace dialsim
