// The user's credentials, and the vault that keeps them.
#pragma once

#include "platform/interfaces/credentials.h"
#include "simulator/classes/object.h"

namespace dialsim {

Ref<abi::IInspectable> MakeVaultFactory();
Ref<abi::IInspectable> MakeCredentialFactory();

}  // namespace dialsim
