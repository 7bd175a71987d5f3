// The activation factories of the runtime classes, each defined in the file of its class.
#pragma once

#include "simulator/classes/object.h"

namespace dialsim {

Ref<abi::IInspectable> MakeApiInformation();
Ref<abi::IInspectable> MakeApplicationDataStatics();
Ref<abi::IInspectable> MakeCredentialFactory();
Ref<abi::IInspectable> MakeVaultFactory();
Ref<abi::IInspectable> MakeControllerFactory();
Ref<abi::IInspectable> MakeConfigurationFactory();
Ref<abi::IInspectable> MakeMenuItemStatics();
Ref<abi::IInspectable> MakeDeviceInformationStatics();
Ref<abi::IInspectable> MakePropertyValueStatics();
Ref<abi::IInspectable> MakeStreamReferenceStatics();
Ref<abi::IInspectable> MakeStorageFileStatics();
Ref<abi::IInspectable> MakeUriFactory();

}  // namespace dialsim
