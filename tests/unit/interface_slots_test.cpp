// The binary contract, row by row. The tables are a transcription of what the platform publishes, made
// without looking at our declarations; keep it so when adding to them.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <string>

#include "platform/interfaces/collections.h"
#include "platform/interfaces/credentials.h"
#include "platform/interfaces/devices.h"
#include "platform/interfaces/haptics.h"
#include "platform/interfaces/metadata.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/storage_streams.h"
#include "platform/interfaces/ui_input.h"
#include "platform/interfaces/ui_input_menu.h"
#include "platform/interfaces/uri.h"

namespace brindle::abi {
namespace {

// Both toolchains write a pointer to a virtual member as 1 plus the byte offset of its slot.
template <class Method>
std::size_t SlotOf(Method method) {
    return (std::bit_cast<std::array<std::size_t, 2>>(method)[0] - 1) / sizeof(void*);
}

template <class Result, class Interface, class... Parameters, bool Quiet>
constexpr std::size_t ParametersOf(Result (Interface::*)(Parameters...) noexcept(Quiet)) {
    return sizeof...(Parameters);
}

template <class Interface>
struct WithOneMore : Interface {
    virtual void AfterTheLast() noexcept = 0;

protected:
    ~WithOneMore() = default;
};

struct MethodRow {
    std::size_t Slot;
    std::string Interface;
    std::string Method;
    std::size_t Parameters;
    std::size_t DeclaredSlot;
    std::size_t DeclaredParameters;
    std::size_t DeclaredSlots;
};

struct IdentifierRow {
    std::string Interface;
    GUID Declared;
    std::string Text;
};

// One instantiation stands for each parameterised interface.
using Handler = TypedEventHandler<RadialController, IInspectable>;
using Completed = AsyncOperationCompletedHandler<StorageFile>;
using Operation = IAsyncOperation<StorageFile>;
using Vector = IVector<RadialControllerMenuItem>;
using View = IVectorView<RadialControllerMenuItem>;
using Iterable = IIterable<RadialControllerSystemMenuItemKind>;
using Iterator = IIterator<RadialControllerSystemMenuItemKind>;
using Map = IMap<HSTRING, IInspectable>;

#define SLOT(slot, interface_name, method, parameters)                                                \
    MethodRow {                                                                                       \
        slot, #interface_name, #method, parameters, SlotOf(&interface_name::method),                  \
            ParametersOf(&interface_name::method), SlotOf(&WithOneMore<interface_name>::AfterTheLast) \
    }

#define IDENTIFIER(interface_name, text) \
    IdentifierRow { #interface_name, interface_name::Iid, text }

const MethodRow kMethods[] = {
    SLOT(0, IUnknown, QueryInterface, 2),
    SLOT(1, IUnknown, AddRef, 0),
    SLOT(2, IUnknown, Release, 0),
    SLOT(3, IInspectable, GetIids, 2),
    SLOT(4, IInspectable, GetRuntimeClassName, 1),
    SLOT(5, IInspectable, GetTrustLevel, 1),
    SLOT(6, IActivationFactory, ActivateInstance, 1),
    SLOT(2, IAgileObject, Release, 0),
    SLOT(6, IRadialControllerInterop, CreateForWindow, 3),
    SLOT(6, IRadialControllerConfigurationInterop, GetForWindow, 3),
    SLOT(6, IRadialController, get_Menu, 1),
    SLOT(7, IRadialController, get_RotationResolutionInDegrees, 1),
    SLOT(8, IRadialController, put_RotationResolutionInDegrees, 1),
    SLOT(9, IRadialController, get_UseAutomaticHapticFeedback, 1),
    SLOT(10, IRadialController, put_UseAutomaticHapticFeedback, 1),
    SLOT(11, IRadialController, add_ScreenContactStarted, 2),
    SLOT(12, IRadialController, remove_ScreenContactStarted, 1),
    SLOT(13, IRadialController, add_ScreenContactEnded, 2),
    SLOT(14, IRadialController, remove_ScreenContactEnded, 1),
    SLOT(15, IRadialController, add_ScreenContactContinued, 2),
    SLOT(16, IRadialController, remove_ScreenContactContinued, 1),
    SLOT(17, IRadialController, add_ControlLost, 2),
    SLOT(18, IRadialController, remove_ControlLost, 1),
    SLOT(19, IRadialController, add_RotationChanged, 2),
    SLOT(20, IRadialController, remove_RotationChanged, 1),
    SLOT(21, IRadialController, add_ButtonClicked, 2),
    SLOT(22, IRadialController, remove_ButtonClicked, 1),
    SLOT(23, IRadialController, add_ControlAcquired, 2),
    SLOT(24, IRadialController, remove_ControlAcquired, 1),
    SLOT(6, IRadialControllerMenu, get_Items, 1),
    SLOT(7, IRadialControllerMenu, get_IsEnabled, 1),
    SLOT(8, IRadialControllerMenu, put_IsEnabled, 1),
    SLOT(9, IRadialControllerMenu, GetSelectedMenuItem, 1),
    SLOT(10, IRadialControllerMenu, SelectMenuItem, 1),
    SLOT(11, IRadialControllerMenu, TrySelectPreviouslySelectedMenuItem, 1),
    SLOT(6, IRadialControllerMenuItem, get_DisplayText, 1),
    SLOT(7, IRadialControllerMenuItem, get_Tag, 1),
    SLOT(8, IRadialControllerMenuItem, put_Tag, 1),
    SLOT(9, IRadialControllerMenuItem, add_Invoked, 2),
    SLOT(10, IRadialControllerMenuItem, remove_Invoked, 1),
    SLOT(6, IRadialControllerMenuItemStatics, CreateFromIcon, 3),
    SLOT(7, IRadialControllerMenuItemStatics, CreateFromKnownIcon, 3),
    SLOT(6, IRadialControllerMenuItemStatics2, CreateFromFontGlyph, 4),
    SLOT(7, IRadialControllerMenuItemStatics2, CreateFromFontGlyphWithUri, 5),
    SLOT(6, IRadialControllerScreenContact, get_Bounds, 1),
    SLOT(7, IRadialControllerScreenContact, get_Position, 1),
    SLOT(6, IRadialControllerScreenContactStartedEventArgs, get_Contact, 1),
    SLOT(6, IRadialControllerScreenContactContinuedEventArgs, get_Contact, 1),
    SLOT(6, IRadialControllerControlAcquiredEventArgs, get_Contact, 1),
    SLOT(6, IRadialControllerRotationChangedEventArgs, get_RotationDeltaInDegrees, 1),
    SLOT(7, IRadialControllerRotationChangedEventArgs, get_Contact, 1),
    SLOT(6, IRadialControllerRotationChangedEventArgs2, get_IsButtonPressed, 1),
    SLOT(7, IRadialControllerRotationChangedEventArgs2, get_SimpleHapticsController, 1),
    SLOT(6, IRadialControllerButtonClickedEventArgs, get_Contact, 1),
    SLOT(6, IRadialControllerConfiguration, SetDefaultMenuItems, 1),
    SLOT(7, IRadialControllerConfiguration, ResetToDefaultMenuItems, 0),
    SLOT(8, IRadialControllerConfiguration, TrySelectDefaultMenuItem, 2),
    SLOT(6, ISimpleHapticsController, get_Id, 1),
    SLOT(7, ISimpleHapticsController, get_SupportedFeedback, 1),
    SLOT(8, ISimpleHapticsController, get_IsIntensitySupported, 1),
    SLOT(9, ISimpleHapticsController, get_IsPlayCountSupported, 1),
    SLOT(10, ISimpleHapticsController, get_IsPlayDurationSupported, 1),
    SLOT(11, ISimpleHapticsController, get_IsReplayPauseIntervalSupported, 1),
    SLOT(12, ISimpleHapticsController, StopFeedback, 0),
    SLOT(13, ISimpleHapticsController, SendHapticFeedback, 1),
    SLOT(14, ISimpleHapticsController, SendHapticFeedbackWithIntensity, 2),
    SLOT(15, ISimpleHapticsController, SendHapticFeedbackForDuration, 3),
    SLOT(16, ISimpleHapticsController, SendHapticFeedbackForPlayCount, 4),
    SLOT(6, ISimpleHapticsControllerFeedback, get_Waveform, 1),
    SLOT(7, ISimpleHapticsControllerFeedback, get_Duration, 1),
    SLOT(6, IDeviceInformationStatics, CreateFromIdAsync, 2),
    SLOT(7, IDeviceInformationStatics, CreateFromIdAsyncAdditionalProperties, 3),
    SLOT(8, IDeviceInformationStatics, FindAllAsync, 1),
    SLOT(9, IDeviceInformationStatics, FindAllAsyncDeviceClass, 2),
    SLOT(10, IDeviceInformationStatics, FindAllAsyncAqsFilter, 2),
    SLOT(11, IDeviceInformationStatics, FindAllAsyncAqsFilterAndAdditionalProperties, 3),
    SLOT(12, IDeviceInformationStatics, CreateWatcher, 1),
    SLOT(13, IDeviceInformationStatics, CreateWatcherDeviceClass, 2),
    SLOT(14, IDeviceInformationStatics, CreateWatcherAqsFilter, 2),
    SLOT(15, IDeviceInformationStatics, CreateWatcherAqsFilterAndAdditionalProperties, 3),
    SLOT(6, IDeviceInformation, get_Id, 1),
    SLOT(7, IDeviceInformation, get_Name, 1),
    SLOT(8, IDeviceInformation, get_IsEnabled, 1),
    SLOT(9, IDeviceInformation, get_IsDefault, 1),
    SLOT(10, IDeviceInformation, get_EnclosureLocation, 1),
    SLOT(11, IDeviceInformation, get_Properties, 1),
    SLOT(12, IDeviceInformation, Update, 1),
    SLOT(13, IDeviceInformation, GetThumbnailAsync, 1),
    SLOT(14, IDeviceInformation, GetGlyphThumbnailAsync, 1),
    SLOT(6, IPropertyValue, get_Type, 1),
    SLOT(7, IPropertyValue, get_IsNumericScalar, 1),
    SLOT(8, IPropertyValue, GetUInt8, 1),
    SLOT(9, IPropertyValue, GetInt16, 1),
    SLOT(10, IPropertyValue, GetUInt16, 1),
    SLOT(11, IPropertyValue, GetInt32, 1),
    SLOT(12, IPropertyValue, GetUInt32, 1),
    SLOT(13, IPropertyValue, GetInt64, 1),
    SLOT(14, IPropertyValue, GetUInt64, 1),
    SLOT(15, IPropertyValue, GetSingle, 1),
    SLOT(16, IPropertyValue, GetDouble, 1),
    SLOT(17, IPropertyValue, GetChar16, 1),
    SLOT(18, IPropertyValue, GetBoolean, 1),
    SLOT(19, IPropertyValue, GetString, 1),
    SLOT(20, IPropertyValue, GetGuid, 1),
    SLOT(21, IPropertyValue, GetDateTime, 1),
    SLOT(22, IPropertyValue, GetTimeSpan, 1),
    SLOT(23, IPropertyValue, GetPoint, 1),
    SLOT(24, IPropertyValue, GetSize, 1),
    SLOT(25, IPropertyValue, GetRect, 1),
    SLOT(26, IPropertyValue, GetUInt8Array, 2),
    SLOT(27, IPropertyValue, GetInt16Array, 2),
    SLOT(28, IPropertyValue, GetUInt16Array, 2),
    SLOT(29, IPropertyValue, GetInt32Array, 2),
    SLOT(30, IPropertyValue, GetUInt32Array, 2),
    SLOT(31, IPropertyValue, GetInt64Array, 2),
    SLOT(32, IPropertyValue, GetUInt64Array, 2),
    SLOT(33, IPropertyValue, GetSingleArray, 2),
    SLOT(34, IPropertyValue, GetDoubleArray, 2),
    SLOT(35, IPropertyValue, GetChar16Array, 2),
    SLOT(36, IPropertyValue, GetBooleanArray, 2),
    SLOT(37, IPropertyValue, GetStringArray, 2),
    SLOT(38, IPropertyValue, GetInspectableArray, 2),
    SLOT(39, IPropertyValue, GetGuidArray, 2),
    SLOT(40, IPropertyValue, GetDateTimeArray, 2),
    SLOT(41, IPropertyValue, GetTimeSpanArray, 2),
    SLOT(42, IPropertyValue, GetPointArray, 2),
    SLOT(43, IPropertyValue, GetSizeArray, 2),
    SLOT(44, IPropertyValue, GetRectArray, 2),
    SLOT(6, IPropertyValueStatics, CreateEmpty, 1),
    SLOT(7, IPropertyValueStatics, CreateUInt8, 2),
    SLOT(8, IPropertyValueStatics, CreateInt16, 2),
    SLOT(9, IPropertyValueStatics, CreateUInt16, 2),
    SLOT(10, IPropertyValueStatics, CreateInt32, 2),
    SLOT(11, IPropertyValueStatics, CreateUInt32, 2),
    SLOT(12, IPropertyValueStatics, CreateInt64, 2),
    SLOT(13, IPropertyValueStatics, CreateUInt64, 2),
    SLOT(14, IPropertyValueStatics, CreateSingle, 2),
    SLOT(15, IPropertyValueStatics, CreateDouble, 2),
    SLOT(16, IPropertyValueStatics, CreateChar16, 2),
    SLOT(17, IPropertyValueStatics, CreateBoolean, 2),
    SLOT(18, IPropertyValueStatics, CreateString, 2),
    SLOT(19, IPropertyValueStatics, CreateInspectable, 2),
    SLOT(20, IPropertyValueStatics, CreateGuid, 2),
    SLOT(21, IPropertyValueStatics, CreateDateTime, 2),
    SLOT(22, IPropertyValueStatics, CreateTimeSpan, 2),
    SLOT(23, IPropertyValueStatics, CreatePoint, 2),
    SLOT(24, IPropertyValueStatics, CreateSize, 2),
    SLOT(25, IPropertyValueStatics, CreateRect, 2),
    SLOT(26, IPropertyValueStatics, CreateUInt8Array, 3),
    SLOT(27, IPropertyValueStatics, CreateInt16Array, 3),
    SLOT(28, IPropertyValueStatics, CreateUInt16Array, 3),
    SLOT(29, IPropertyValueStatics, CreateInt32Array, 3),
    SLOT(30, IPropertyValueStatics, CreateUInt32Array, 3),
    SLOT(31, IPropertyValueStatics, CreateInt64Array, 3),
    SLOT(32, IPropertyValueStatics, CreateUInt64Array, 3),
    SLOT(33, IPropertyValueStatics, CreateSingleArray, 3),
    SLOT(34, IPropertyValueStatics, CreateDoubleArray, 3),
    SLOT(35, IPropertyValueStatics, CreateChar16Array, 3),
    SLOT(36, IPropertyValueStatics, CreateBooleanArray, 3),
    SLOT(37, IPropertyValueStatics, CreateStringArray, 3),
    SLOT(38, IPropertyValueStatics, CreateInspectableArray, 3),
    SLOT(39, IPropertyValueStatics, CreateGuidArray, 3),
    SLOT(40, IPropertyValueStatics, CreateDateTimeArray, 3),
    SLOT(41, IPropertyValueStatics, CreateTimeSpanArray, 3),
    SLOT(42, IPropertyValueStatics, CreatePointArray, 3),
    SLOT(43, IPropertyValueStatics, CreateSizeArray, 3),
    SLOT(44, IPropertyValueStatics, CreateRectArray, 3),
    SLOT(6, IUriRuntimeClass, get_AbsoluteUri, 1),
    SLOT(7, IUriRuntimeClass, get_DisplayUri, 1),
    SLOT(8, IUriRuntimeClass, get_Domain, 1),
    SLOT(9, IUriRuntimeClass, get_Extension, 1),
    SLOT(10, IUriRuntimeClass, get_Fragment, 1),
    SLOT(11, IUriRuntimeClass, get_Host, 1),
    SLOT(12, IUriRuntimeClass, get_Password, 1),
    SLOT(13, IUriRuntimeClass, get_Path, 1),
    SLOT(14, IUriRuntimeClass, get_Query, 1),
    SLOT(15, IUriRuntimeClass, get_QueryParsed, 1),
    SLOT(16, IUriRuntimeClass, get_RawUri, 1),
    SLOT(17, IUriRuntimeClass, get_SchemeName, 1),
    SLOT(18, IUriRuntimeClass, get_UserName, 1),
    SLOT(19, IUriRuntimeClass, get_Port, 1),
    SLOT(20, IUriRuntimeClass, get_Suspicious, 1),
    SLOT(21, IUriRuntimeClass, Equals, 2),
    SLOT(22, IUriRuntimeClass, CombineUri, 2),
    SLOT(6, IUriRuntimeClassFactory, CreateUri, 2),
    SLOT(7, IUriRuntimeClassFactory, CreateWithRelativeUri, 3),
    SLOT(6, IAsyncInfo, get_Id, 1),
    SLOT(7, IAsyncInfo, get_Status, 1),
    SLOT(8, IAsyncInfo, get_ErrorCode, 1),
    SLOT(9, IAsyncInfo, Cancel, 0),
    SLOT(10, IAsyncInfo, Close, 0),
    SLOT(5, IPropertySet, GetTrustLevel, 1),
    SLOT(6, IApiInformationStatics, IsTypePresent, 2),
    SLOT(7, IApiInformationStatics, IsMethodPresent, 3),
    SLOT(8, IApiInformationStatics, IsMethodPresentWithArity, 4),
    SLOT(9, IApiInformationStatics, IsEventPresent, 3),
    SLOT(10, IApiInformationStatics, IsPropertyPresent, 3),
    SLOT(11, IApiInformationStatics, IsReadOnlyPropertyPresent, 3),
    SLOT(12, IApiInformationStatics, IsWriteablePropertyPresent, 3),
    SLOT(13, IApiInformationStatics, IsEnumNamedValuePresent, 3),
    SLOT(14, IApiInformationStatics, IsApiContractPresentByMajor, 3),
    SLOT(15, IApiInformationStatics, IsApiContractPresentByMajorAndMinor, 4),
    SLOT(6, IApplicationDataStatics, get_Current, 1),
    SLOT(6, IApplicationData, get_Version, 1),
    SLOT(7, IApplicationData, SetVersionAsync, 3),
    SLOT(8, IApplicationData, ClearAllAsync, 1),
    SLOT(9, IApplicationData, ClearAsync, 2),
    SLOT(10, IApplicationData, get_LocalSettings, 1),
    SLOT(11, IApplicationData, get_RoamingSettings, 1),
    SLOT(12, IApplicationData, get_LocalFolder, 1),
    SLOT(13, IApplicationData, get_RoamingFolder, 1),
    SLOT(14, IApplicationData, get_TemporaryFolder, 1),
    SLOT(15, IApplicationData, add_DataChanged, 2),
    SLOT(16, IApplicationData, remove_DataChanged, 1),
    SLOT(17, IApplicationData, SignalDataChanged, 0),
    SLOT(18, IApplicationData, get_RoamingStorageQuota, 1),
    SLOT(6, IApplicationDataContainer, get_Name, 1),
    SLOT(7, IApplicationDataContainer, get_Locality, 1),
    SLOT(8, IApplicationDataContainer, get_Values, 1),
    SLOT(9, IApplicationDataContainer, get_Containers, 1),
    SLOT(10, IApplicationDataContainer, CreateContainer, 3),
    SLOT(11, IApplicationDataContainer, DeleteContainer, 1),
    SLOT(6, IStorageFileStatics, GetFileFromPathAsync, 2),
    SLOT(7, IStorageFileStatics, GetFileFromApplicationUriAsync, 2),
    SLOT(8, IStorageFileStatics, CreateStreamedFileAsync, 4),
    SLOT(9, IStorageFileStatics, ReplaceWithStreamedFileAsync, 4),
    SLOT(10, IStorageFileStatics, CreateStreamedFileFromUriAsync, 4),
    SLOT(11, IStorageFileStatics, ReplaceWithStreamedFileFromUriAsync, 4),
    SLOT(5, IStorageFile, GetTrustLevel, 1),
    SLOT(6, IRandomAccessStreamReferenceStatics, CreateFromFile, 2),
    SLOT(7, IRandomAccessStreamReferenceStatics, CreateFromUri, 2),
    SLOT(8, IRandomAccessStreamReferenceStatics, CreateFromStream, 2),
    SLOT(6, IRandomAccessStreamReference, OpenReadAsync, 1),
    SLOT(6, IRandomAccessStream, get_Size, 1),
    SLOT(7, IRandomAccessStream, put_Size, 1),
    SLOT(8, IRandomAccessStream, GetInputStreamAt, 2),
    SLOT(9, IRandomAccessStream, GetOutputStreamAt, 2),
    SLOT(10, IRandomAccessStream, get_Position, 1),
    SLOT(11, IRandomAccessStream, Seek, 1),
    SLOT(12, IRandomAccessStream, CloneStream, 1),
    SLOT(13, IRandomAccessStream, get_CanRead, 1),
    SLOT(14, IRandomAccessStream, get_CanWrite, 1),
    SLOT(6, IPasswordVault, Add, 1),
    SLOT(7, IPasswordVault, Remove, 1),
    SLOT(8, IPasswordVault, Retrieve, 3),
    SLOT(9, IPasswordVault, FindAllByResource, 2),
    SLOT(10, IPasswordVault, FindAllByUserName, 2),
    SLOT(11, IPasswordVault, RetrieveAll, 1),
    SLOT(6, IPasswordCredential, get_Resource, 1),
    SLOT(7, IPasswordCredential, put_Resource, 1),
    SLOT(8, IPasswordCredential, get_UserName, 1),
    SLOT(9, IPasswordCredential, put_UserName, 1),
    SLOT(10, IPasswordCredential, get_Password, 1),
    SLOT(11, IPasswordCredential, put_Password, 1),
    SLOT(12, IPasswordCredential, RetrievePassword, 0),
    SLOT(13, IPasswordCredential, get_Properties, 1),
    SLOT(6, ICredentialFactory, CreatePasswordCredential, 4),
    SLOT(6, Operation, put_Completed, 1),
    SLOT(7, Operation, get_Completed, 1),
    SLOT(8, Operation, GetResults, 1),
    SLOT(3, Completed, Invoke, 2),
    SLOT(3, Handler, Invoke, 2),
    SLOT(6, Vector, GetAt, 2),
    SLOT(7, Vector, get_Size, 1),
    SLOT(8, Vector, GetView, 1),
    SLOT(9, Vector, IndexOf, 3),
    SLOT(10, Vector, SetAt, 2),
    SLOT(11, Vector, InsertAt, 2),
    SLOT(12, Vector, RemoveAt, 1),
    SLOT(13, Vector, Append, 1),
    SLOT(14, Vector, RemoveAtEnd, 0),
    SLOT(15, Vector, Clear, 0),
    SLOT(16, Vector, GetMany, 4),
    SLOT(17, Vector, ReplaceAll, 2),
    SLOT(6, View, GetAt, 2),
    SLOT(7, View, get_Size, 1),
    SLOT(8, View, IndexOf, 3),
    SLOT(9, View, GetMany, 4),
    SLOT(6, Iterable, First, 1),
    SLOT(6, Iterator, get_Current, 1),
    SLOT(7, Iterator, get_HasCurrent, 1),
    SLOT(8, Iterator, MoveNext, 1),
    SLOT(9, Iterator, GetMany, 3),
    SLOT(6, Map, Lookup, 2),
    SLOT(7, Map, get_Size, 1),
    SLOT(8, Map, HasKey, 2),
    SLOT(9, Map, GetView, 1),
    SLOT(10, Map, Insert, 3),
    SLOT(11, Map, Remove, 1),
    SLOT(12, Map, Clear, 0),
};

const IdentifierRow kIdentifiers[] = {
    IDENTIFIER(IInspectable, "af86e2e0-b12d-4c6a-9c5a-d7aa65101e90"),
    IDENTIFIER(IUnknown, "00000000-0000-0000-c000-000000000046"),
    IDENTIFIER(IActivationFactory, "00000035-0000-0000-c000-000000000046"),
    IDENTIFIER(IAgileObject, "94ea2b94-e9cc-49e0-c0ff-ee64ca8f5b90"),
    IDENTIFIER(IRadialControllerInterop, "1b0535c9-57ad-45c1-9d79-ad5c34360513"),
    IDENTIFIER(IRadialControllerConfigurationInterop, "787cdaac-3186-476d-87e4-b9374a7b9970"),
    IDENTIFIER(IRadialController, "3055d1c8-df51-43d4-b23b-0e1037467a09"),
    IDENTIFIER(IRadialControllerMenu, "8506b35d-f640-4412-aba0-bad077e5ea8a"),
    IDENTIFIER(IRadialControllerMenuItem, "c80fc98d-ad0b-4c9c-8f2f-136a2373a6ba"),
    IDENTIFIER(IRadialControllerMenuItemStatics, "249e0887-d842-4524-9df8-e0d647edc887"),
    IDENTIFIER(IRadialControllerMenuItemStatics2, "0cbb70be-7e3e-48bd-be04-2c7fcaa9c1ff"),
    IDENTIFIER(IRadialControllerScreenContact, "206aa434-e651-11e5-bf62-2c27d7404e85"),
    IDENTIFIER(IRadialControllerScreenContactStartedEventArgs, "206aa436-e651-11e5-bf62-2c27d7404e85"),
    IDENTIFIER(IRadialControllerScreenContactContinuedEventArgs, "206aa437-e651-11e5-bf62-2c27d7404e85"),
    IDENTIFIER(IRadialControllerControlAcquiredEventArgs, "206aa439-e651-11e5-bf62-2c27d7404e85"),
    IDENTIFIER(IRadialControllerRotationChangedEventArgs, "206aa435-e651-11e5-bf62-2c27d7404e85"),
    IDENTIFIER(IRadialControllerRotationChangedEventArgs2, "3d577eec-4cee-11e6-b535-001bdc06ab3b"),
    IDENTIFIER(IRadialControllerButtonClickedEventArgs, "206aa438-e651-11e5-bf62-2c27d7404e85"),
    IDENTIFIER(IRadialControllerConfiguration, "a6b79ecb-6a52-4430-910c-56370a9d6b42"),
    IDENTIFIER(ISimpleHapticsController, "3d577ef9-4cee-11e6-b535-001bdc06ab3b"),
    IDENTIFIER(ISimpleHapticsControllerFeedback, "3d577ef8-4cee-11e6-b535-001bdc06ab3b"),
    IDENTIFIER(IDeviceInformationStatics, "c17f100e-3a46-4a78-8013-769dc9b97390"),
    IDENTIFIER(IDeviceInformation, "aba0fb95-4398-489d-8e44-e6130927011f"),
    IDENTIFIER(IPropertyValue, "4bd682dd-7554-40e9-9a9b-82654ede7e62"),
    IDENTIFIER(IPropertyValueStatics, "629bdbc8-d932-4ff4-96b9-8d96c5c1e858"),
    IDENTIFIER(IUriRuntimeClass, "9e365e57-48b2-4160-956f-c7385120bbfc"),
    IDENTIFIER(IUriRuntimeClassFactory, "44a9796f-723e-4fdf-a218-033e75b0c084"),
    IDENTIFIER(IAsyncInfo, "00000036-0000-0000-c000-000000000046"),
    IDENTIFIER(IPropertySet, "8a43ed9f-f4e6-4421-acf9-1dab2986820c"),
    IDENTIFIER(IApiInformationStatics, "997439fe-f681-4a11-b416-c13a47e8ba36"),
    IDENTIFIER(IApplicationDataStatics, "5612147b-e843-45e3-94d8-06169e3c8e17"),
    IDENTIFIER(IApplicationData, "c3da6fb7-b744-4b45-b0b8-223a0938d0dc"),
    IDENTIFIER(IApplicationDataContainer, "c5aefd1e-f467-40ba-8566-ab640a441e1d"),
    IDENTIFIER(IStorageFileStatics, "5984c710-daf2-43c8-8bb4-a4d3eacfd03f"),
    IDENTIFIER(IStorageFile, "fa3f6186-4214-428c-a64c-14c9ac7315ea"),
    IDENTIFIER(IRandomAccessStreamReferenceStatics, "857309dc-3fbf-4e7d-986f-ef3b1a07a964"),
    IDENTIFIER(IRandomAccessStreamReference, "33ee3134-1dd6-4e3a-8067-d1c162e8642b"),
    IDENTIFIER(IRandomAccessStream, "905a0fe1-bc53-11df-8c49-001e4fc686da"),
    IDENTIFIER(IPasswordVault, "61fd2c0b-c8d4-48c1-a54f-bc5a64205af2"),
    IDENTIFIER(IPasswordCredential, "6ab18989-c720-41a7-a6c1-feadb36329a0"),
    IDENTIFIER(ICredentialFactory, "54ef13a1-bf26-47b5-97dd-de779b7cad58"),
    {"IMarshal", IMarshalIid, "00000003-0000-0000-c000-000000000046"},
};

const IdentifierRow kGenericIdentifiers[] = {
    {"Operation", Operation::GenericId, "9fc2b0bb-e446-44e2-aa61-9cab8f636af2"},
    {"Completed", Completed::GenericId, "fcdcf02c-e5d8-4478-915a-4d90b74b83a5"},
    {"Handler", Handler::GenericId, "9de1c534-6ae1-11e0-84e1-18a905bcc53f"},
    {"Vector", Vector::GenericId, "913337e9-11a1-4345-a3a2-4e7f956e222d"},
    {"View", View::GenericId, "bbe1fa4c-b0e3-4583-baef-1f1b2e483e56"},
    {"Iterable", Iterable::GenericId, "faa585ea-6214-4217-afda-7f46de5869b3"},
    {"Iterator", Iterator::GenericId, "6a79e863-4300-459a-9966-cbb660963ee1"},
    {"Map", Map::GenericId, "3c2925fe-8519-45c1-aa79-197b6718c1c1"},
};

std::string TextOf(const GUID& id) {
    char text[37];
    std::snprintf(text, sizeof(text), "%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x",
                  static_cast<unsigned>(id.Data1), id.Data2, id.Data3, id.Data4[0], id.Data4[1], id.Data4[2],
                  id.Data4[3], id.Data4[4], id.Data4[5], id.Data4[6], id.Data4[7]);
    return text;
}

TEST(InterfaceSlots, EveryMethodStandsInItsPublishedSlot) {
    for (const auto& row : kMethods)
        EXPECT_EQ(row.DeclaredSlot, row.Slot) << row.Interface << "::" << row.Method;
}

TEST(InterfaceSlots, EveryMethodTakesThePublishedNumberOfParameters) {
    for (const auto& row : kMethods)
        EXPECT_EQ(row.DeclaredParameters, row.Parameters) << row.Interface << "::" << row.Method;
}

TEST(InterfaceSlots, NoInterfaceHasASlotBeyondItsLastPublishedMethod) {
    std::map<std::string, std::size_t> lastSlots;
    for (const auto& row : kMethods)
        lastSlots[row.Interface] = std::max(lastSlots[row.Interface], row.Slot);
    for (const auto& row : kMethods)
        EXPECT_EQ(row.DeclaredSlots, lastSlots[row.Interface] + 1) << row.Interface;
}

TEST(InterfaceIdentifiers, EveryInterfaceCarriesItsPublishedIdentifier) {
    for (const auto& row : kIdentifiers)
        EXPECT_EQ(TextOf(row.Declared), row.Text) << row.Interface;
}

TEST(InterfaceIdentifiers, EveryParameterisedInterfaceCarriesItsPublishedGenericIdentifier) {
    for (const auto& row : kGenericIdentifiers)
        EXPECT_EQ(TextOf(row.Declared), row.Text) << row.Interface;
}

TEST(InterfaceIdentifiers, NoTwoInterfacesShareAnIdentifier) {
    std::map<std::string, std::string> owners;
    for (const auto& row : kIdentifiers) {
        const auto [owner, isNew] = owners.emplace(TextOf(row.Declared), row.Interface);
        EXPECT_TRUE(isNew) << row.Interface << " and " << owner->second;
    }
}

}  // namespace
}  // namespace brindle::abi
