// The static factories that RoGetActivationFactory returns.
#pragma once

#include "bench/stub/object.h"

namespace stub {

abi::IUnknown& ApiInformation();        // functions.cpp
abi::IUnknown& ControllerInterop();     // controller.cpp
abi::IUnknown& MenuItemStatics();       // menu.cpp
abi::IUnknown& PropertyValueStatics();  // property_value.cpp
abi::IUnknown& ApplicationData();       // settings.cpp
abi::IUnknown& PasswordVaultFactory();  // vault.cpp
abi::IUnknown& CredentialFactory();     // vault.cpp
abi::IUnknown& DeviceStatics();         // devices.cpp
abi::IUnknown& StorageFileStatics();    // pictures.cpp
abi::IUnknown& StreamReferences();      // pictures.cpp
abi::IUnknown& UriFactory();            // pictures.cpp

}  // namespace stub
