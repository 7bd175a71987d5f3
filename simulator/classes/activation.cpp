#include "simulator/classes/activation.h"

#include <span>

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
#include "simulator/functions/only_dial.h"

namespace dialsim {

namespace {

struct ActivatableClassEntry {
    const char* name;
    Ref<abi::IInspectable> (*make_factory)();
};

constexpr ActivatableClassEntry kDialClasses[] = {
    {abi::RadialController::Name, MakeControllerFactory},
    {abi::RadialControllerConfiguration::Name, MakeConfigurationFactory},
    {abi::RadialControllerMenuItem::Name, MakeMenuItemStatics},
};

constexpr ActivatableClassEntry kOtherClasses[] = {
    {abi::ApiInformation::Name, MakeApiInformation},
    {abi::ApplicationData::Name, MakeApplicationDataStatics},
    {abi::PasswordCredential::Name, MakeCredentialFactory},
    {abi::PasswordVault::Name, MakeVaultFactory},
    {abi::DeviceInformation::Name, MakeDeviceInformationStatics},
    {abi::PropertyValue::Name, MakePropertyValueStatics},
    {abi::RandomAccessStreamReference::Name, MakeStreamReferenceStatics},
    {abi::StorageFile::Name, MakeStorageFileStatics},
    {abi::Uri::Name, MakeUriFactory},
};

HRESULT GetFactory(std::span<const ActivatableClassEntry> classes, const std::string& wanted, const IID& iid,
                   void** factory) {
    for (const ActivatableClassEntry& entry : classes) {
        if (wanted == entry.name) {
            return entry.make_factory()->QueryInterface(iid, factory);
        }
    }
    return kClassNotRegistered;
}

}  // namespace

HRESULT GetClassFactory(HSTRING class_name, const IID& iid, void** factory) {
    FirstActivation().Emit();
    *factory = nullptr;
    const std::string wanted = Narrow(View(class_name));
    const HRESULT code = GetFactory(kDialClasses, wanted, iid, factory);
    return code == kClassNotRegistered && !IsOnlyDial() ? GetFactory(kOtherClasses, wanted, iid, factory)
                                                        : code;
}

OneShotSignal<>& FirstActivation() {
    static OneShotSignal<>& signal = *new OneShotSignal<>;
    return signal;
}

}  // namespace dialsim
