#include "simulator/instruments/operations.h"

#include <algorithm>
#include <iterator>

#include "platform/function_table.h"

namespace dialsim {

namespace {

constexpr const char* kOperations[] = {
#define OPERATION(result, name, ...) #name,
    PLATFORM_FUNCTIONS(OPERATION)
#undef OPERATION
        "QueryInterface",
    "IApiInformationStatics::IsTypePresent",
    "IRadialControllerInterop::CreateForWindow",
    "IRadialController::get_Menu",
    "IRadialController::put_UseAutomaticHapticFeedback",
    "IRadialController::add_ScreenContactContinued",
    "IRadialController::add_ScreenContactStarted",
    "IRadialController::add_ScreenContactEnded",
    "IRadialController::add_ControlLost",
    "IRadialController::add_ControlAcquired",
    "IRadialController::add_RotationChanged",
    "IRadialController::add_ButtonClicked",
    "IRadialControllerScreenContactContinuedEventArgs::get_Contact",
    "IRadialControllerScreenContactStartedEventArgs::get_Contact",
    "IRadialControllerControlAcquiredEventArgs::get_Contact",
    "IRadialControllerRotationChangedEventArgs::get_Contact",
    "IRadialControllerRotationChangedEventArgs::get_RotationDeltaInDegrees",
    "IRadialControllerRotationChangedEventArgs2::get_IsButtonPressed",
    "IRadialControllerRotationChangedEventArgs2::get_SimpleHapticsController",
    "IRadialControllerButtonClickedEventArgs::get_Contact",
    "IRadialControllerScreenContact::get_Position",
    "IRadialControllerScreenContact::get_Bounds",
    "IRadialControllerMenu::get_Items",
    "IRadialControllerMenu::GetSelectedMenuItem",
    "IRadialControllerMenu::SelectMenuItem",
    "IVector<RadialControllerMenuItem>::get_Size",
    "IVector<RadialControllerMenuItem>::GetAt",
    "IVector<RadialControllerMenuItem>::Append",
    "IVector<RadialControllerMenuItem>::Clear",
    "IRadialControllerMenuItem::get_DisplayText",
    "IRadialControllerMenuItem::get_Tag",
    "IRadialControllerMenuItem::put_Tag",
    "IRadialControllerMenuItem::add_Invoked",
    "IRadialControllerMenuItemStatics::CreateFromIcon",
    "IRadialControllerMenuItemStatics::CreateFromKnownIcon",
    "IRadialControllerMenuItemStatics2::CreateFromFontGlyph",
    "IRadialControllerMenuItemStatics2::CreateFromFontGlyphWithUri",
    "IRadialControllerConfigurationInterop::GetForWindow",
    "IRadialControllerConfiguration::SetDefaultMenuItems",
    "IPropertyValueStatics::CreateUInt32",
    "IPropertyValueStatics::CreateInt32",
    "IPropertyValueStatics::CreateString",
    "IPropertyValue::GetUInt32",
    "IPropertyValue::GetInt32",
    "IPropertyValue::GetString",
    "IUriRuntimeClassFactory::CreateUri",
    "IUriRuntimeClass::get_AbsoluteUri",
    "IStorageFileStatics::GetFileFromPathAsync",
    "IAsyncOperation<StorageFile>::put_Completed",
    "IAsyncOperation<StorageFile>::GetResults",
    "IDeviceInformationStatics::FindAllAsyncAqsFilter",
    "IAsyncOperation<DeviceInformationCollection>::put_Completed",
    "IAsyncOperation<DeviceInformationCollection>::GetResults",
    "IVectorView<DeviceInformation>::get_Size",
    "IVectorView<DeviceInformation>::GetAt",
    "IDeviceInformation::get_Id",
    "IRandomAccessStreamReferenceStatics::CreateFromFile",
    "IRandomAccessStreamReferenceStatics::CreateFromStream",
    "IStream::Write",
    "IStream::Commit",
    "IStream::Seek",
    "ISimpleHapticsController::get_SupportedFeedback",
    "ISimpleHapticsController::SendHapticFeedbackForPlayCount",
    "IVectorView<SimpleHapticsControllerFeedback>::get_Size",
    "IVectorView<SimpleHapticsControllerFeedback>::GetAt",
    "IApplicationDataStatics::get_Current",
    "IApplicationData::get_RoamingSettings",
    "IApplicationData::get_LocalSettings",
    "IApplicationDataContainer::get_Values",
    "IMap<String, Object>::Lookup",
    "IMap<String, Object>::Remove",
    "IMap<String, Object>::Insert",
    "IActivationFactory::ActivateInstance",
    "IPasswordVault::FindAllByUserName",
    "IPasswordVault::Retrieve",
    "IPasswordVault::Remove",
    "IPasswordVault::Add",
    "IVectorView<PasswordCredential>::get_Size",
    "ICredentialFactory::CreatePasswordCredential",
    "IPasswordCredential::get_Password",
};

constexpr bool LATE = true;
constexpr bool NEVER = false;

bool CanFailLate(const std::string& operation) {
#define CAN_FAIL_LATE(result, name, parameters, arguments, by, journal, fault, late) \
    if (operation == #name) {                                                        \
        return late;                                                                 \
    }
    PLATFORM_FUNCTIONS(CAN_FAIL_LATE)
#undef CAN_FAIL_LATE
    return true;
}

template <std::size_t N>
bool Contains(const char* const (&operations)[N], const std::string& operation) {
    return std::find(std::begin(operations), std::end(operations), operation) != std::end(operations);
}

}  // namespace

const char* OperationName(std::size_t index) {
    return index < std::size(kOperations) ? kOperations[index] : nullptr;
}

bool IsApplicable(const Fault& fault) {
    const std::string operation = fault.pattern.substr(0, fault.pattern.find('('));
    const bool too_late = fault.kind == Fault::Kind::FailLate && !CanFailLate(operation);
    return !too_late && Contains(kOperations, operation);
}

}  // namespace dialsim
