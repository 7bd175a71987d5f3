// Compile-time checks of the identifiers and layouts that the headers of this folder declare.
#include <type_traits>

#include "platform/interfaces/collections.h"
#include "platform/interfaces/credentials.h"
#include "platform/interfaces/devices.h"
#include "platform/interfaces/haptics.h"
#include "platform/interfaces/metadata.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/ui_input.h"

namespace brindle::abi {
namespace {

static_assert(SameId(TypedEventHandler<RadialController, RadialControllerRotationChangedEventArgs>::Iid,
                     Id("8fe73ac9-8a36-5152-815d-03310ee8bf85")));
static_assert(SameId(TypedEventHandler<RadialController, RadialControllerButtonClickedEventArgs>::Iid,
                     Id("d09d9fcc-edb8-56c0-856d-70e477a9ddf3")));
static_assert(SameId(TypedEventHandler<RadialController, RadialControllerScreenContactStartedEventArgs>::Iid,
                     Id("1f2d584e-3ad8-5049-b451-3a44a102fa82")));
static_assert(
    SameId(TypedEventHandler<RadialController, RadialControllerScreenContactContinuedEventArgs>::Iid,
           Id("30579e67-fb4f-5d38-83b4-9cb610090def")));
static_assert(SameId(TypedEventHandler<RadialController, RadialControllerControlAcquiredEventArgs>::Iid,
                     Id("4ec5f3fd-b217-5452-a2bd-9725ce9f6675")));
static_assert(SameId(TypedEventHandler<RadialController, IInspectable>::Iid,
                     Id("5e0f93b1-c2f2-5351-82aa-6cf5f4c2d068")));
static_assert(SameId(TypedEventHandler<RadialControllerMenuItem, IInspectable>::Iid,
                     Id("5c90d6fb-e4f8-5be2-8544-9de33f82c41a")));
static_assert(SameId(IVector<RadialControllerMenuItem>::Iid, Id("bfde94e7-70f8-5cc0-98e2-8c0f8ce524ab")));
static_assert(SameId(IVectorView<RadialControllerMenuItem>::Iid, Id("b91a7342-3fcb-512b-aef1-fda4712e5817")));
static_assert(SameId(IIterable<RadialControllerMenuItem>::Iid, Id("1aa752b3-dc11-5bce-b2b9-cd1bf8f235be")));
static_assert(SameId(IIterable<RadialControllerSystemMenuItemKind>::Iid,
                     Id("4516010f-fd98-5e1d-bf3f-aeaf79f1f3da")));
static_assert(SameId(IIterator<RadialControllerSystemMenuItemKind>::Iid,
                     Id("3fbc1858-a43e-54dc-b0e2-8b098bddacf6")));
static_assert(SameId(IVectorView<RadialControllerSystemMenuItemKind>::Iid,
                     Id("dd29cfe2-a92f-5266-be5f-5d4407fd8580")));
static_assert(SameId(IVectorView<SimpleHapticsControllerFeedback>::Iid,
                     Id("51f54b04-bb9d-5c7b-8f5f-67f8caf4b003")));
static_assert(SameId(IVectorView<DeviceInformation>::Iid, Id("e170688f-3495-5bf6-aab5-9cac17e0f10f")));
static_assert(SameId(IAsyncOperation<DeviceInformationCollection>::Iid,
                     Id("45180254-082e-5274-b2e7-ac0517f44d07")));
static_assert(SameId(AsyncOperationCompletedHandler<DeviceInformationCollection>::Iid,
                     Id("4a458732-527e-5c73-9a68-a73da370f782")));
static_assert(SameId(IAsyncOperation<StorageFile>::Iid, Id("5e52f8ce-aced-5a42-95b4-f674dd84885e")));
static_assert(SameId(AsyncOperationCompletedHandler<StorageFile>::Iid,
                     Id("e521c894-2c26-5946-9e61-2b5e188d01ed")));
static_assert(SameId(IMap<HSTRING, IInspectable>::Iid, Id("1b0d3570-0877-5ec2-8a2c-3b9539506aca")));
static_assert(SameId(IVectorView<PasswordCredential>::Iid, Id("4e6185ad-a6df-5428-aff5-17e45f3f476f")));

template <class Interface>
constexpr bool IsOneVtablePointer = sizeof(Interface) == sizeof(void*) && std::is_abstract_v<Interface> &&
                                    !std::has_virtual_destructor_v<Interface>;

static_assert(IsOneVtablePointer<IUnknown> && IsOneVtablePointer<IInspectable>);
static_assert(IsOneVtablePointer<IActivationFactory> && IsOneVtablePointer<IAgileObject>);
static_assert(IsOneVtablePointer<IRadialController> && IsOneVtablePointer<IRadialControllerMenu>);
static_assert(IsOneVtablePointer<TypedEventHandler<RadialController, IInspectable>>);
static_assert(IsOneVtablePointer<IMap<HSTRING, IInspectable>>);

// Layouts that are passed by value or written through a pointer.
static_assert(sizeof(RadialControllerMenuKnownIcon) == 4 && sizeof(RadialControllerSystemMenuItemKind) == 4);
static_assert(sizeof(AsyncStatus) == 4 && sizeof(TrustLevel) == 4 && sizeof(PropertyType) == 4);
static_assert(sizeof(DeviceClass) == 4 && sizeof(ApplicationDataLocality) == 4);
static_assert(sizeof(boolean) == 1 && sizeof(DateTime) == 8 && sizeof(Size) == 8);
static_assert(static_cast<int>(RadialControllerMenuKnownIcon::PenType) == 8);
static_assert(static_cast<int>(RadialControllerSystemMenuItemKind::NextPreviousTrack) == 4);

static_assert(std::is_same_v<Abi<RadialController>, IRadialController*>);
static_assert(std::is_same_v<Abi<DeviceInformationCollection>, IVectorView<DeviceInformation>*>);
static_assert(std::is_same_v<Abi<IInspectable>, IInspectable*>);
static_assert(std::is_same_v<Abi<HSTRING>, HSTRING>);
static_assert(std::is_same_v<Abi<RadialControllerSystemMenuItemKind>, RadialControllerSystemMenuItemKind>);

}  // namespace
}  // namespace brindle::abi
