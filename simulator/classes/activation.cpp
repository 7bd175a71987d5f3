#include "simulator/classes/activation.h"

#include "platform/interfaces/credentials.h"
#include "platform/interfaces/devices.h"
#include "platform/interfaces/metadata.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/storage_streams.h"
#include "platform/interfaces/ui_input.h"
#include "platform/interfaces/ui_input_menu.h"
#include "platform/interfaces/uri.h"
#include "simulator/classes/factories.h"
#include "simulator/functions/class_objects.h"

namespace dialsim {

namespace {

struct ActivatableClassEntry {
    const char* name;
    Ref<abi::IInspectable> (*make_factory)();
};

constexpr ActivatableClassEntry kClasses[] = {
    {abi::ApiInformation::Name, MakeApiInformation},
    {abi::ApplicationData::Name, MakeApplicationDataStatics},
    {abi::PasswordCredential::Name, MakeCredentialFactory},
    {abi::PasswordVault::Name, MakeVaultFactory},
    {abi::RadialController::Name, MakeControllerFactory},
    {abi::RadialControllerConfiguration::Name, MakeConfigurationFactory},
    {abi::RadialControllerMenuItem::Name, MakeMenuItemStatics},
    {abi::DeviceInformation::Name, MakeDeviceInformationStatics},
    {abi::PropertyValue::Name, MakePropertyValueStatics},
    {abi::RandomAccessStreamReference::Name, MakeStreamReferenceStatics},
    {abi::StorageFile::Name, MakeStorageFileStatics},
    {abi::Uri::Name, MakeUriFactory},
};

}  // namespace

HRESULT GetClassFactory(HSTRING class_name, const IID& iid, void** factory) {
    FirstActivation().Emit();
    *factory = nullptr;
    const std::string wanted = Narrow(View(class_name));
    for (const ActivatableClassEntry& entry : kClasses) {
        if (wanted == entry.name) {
            return entry.make_factory()->QueryInterface(iid, factory);
        }
    }
    return kClassNotRegistered;
}

OneShotSignal<>& FirstActivation() {
    static OneShotSignal<>& signal = *new OneShotSignal<>;
    return signal;
}

}  // namespace dialsim
