#include "simulator/operations.h"

#include <algorithm>
#include <iterator>

namespace dialsim {

namespace {

constexpr const char* kOperations[] = {
    "RoInitialize",
    "RoUninitialize",
    "RoGetActivationFactory",
    "RoOriginateLanguageException",
    "WindowsCreateStringReference",
    "WindowsDeleteString",
    "WindowsPreallocateStringBuffer",
    "WindowsPromoteStringBuffer",
    "WindowsDeleteStringBuffer",
    "GetTickCount64",
    "MultiByteToWideChar",
    "QueryInterface",
    "IApiInformationStatics::IsTypePresent",
    "IRadialControllerInterop::CreateForWindow",
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
    "IRadialControllerMenu::GetSelectedMenuItem",
    "IRadialControllerMenuItem::get_Tag",
    "IPropertyValue::GetUInt32",
    "ISimpleHapticsController::get_SupportedFeedback",
    "ISimpleHapticsController::SendHapticFeedbackForPlayCount",
    "IVectorView<SimpleHapticsControllerFeedback>::get_Size",
    "IVectorView<SimpleHapticsControllerFeedback>::GetAt",
};

}  // namespace

const char* Operation(std::size_t index) {
    return index < std::size(kOperations) ? kOperations[index] : nullptr;
}

bool CanStrike(const Fault& fault) {
    const std::string operation = fault.pattern.substr(0, fault.pattern.find('('));
    // A promotion that took place and claims to have failed would have its caller give back a string as a
    // buffer.
    const bool consumed = fault.kind == Fault::Kind::FailLate && operation == "WindowsPromoteStringBuffer";
    return !consumed &&
           std::find(std::begin(kOperations), std::end(kOperations), operation) != std::end(kOperations);
}

}  // namespace dialsim
