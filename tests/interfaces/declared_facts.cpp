#include "declared_facts.h"

#include <cstdint>
#include <sstream>
#include <string_view>

#include "platform/functions.h"
#include "platform/interfaces/collections.h"
#include "platform/interfaces/credentials.h"
#include "platform/interfaces/devices.h"
#include "platform/interfaces/haptics.h"
#include "platform/interfaces/metadata.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/storage_streams.h"
#include "platform/interfaces/stream.h"
#include "platform/interfaces/ui_input.h"
#include "platform/interfaces/ui_input_menu.h"
#include "platform/interfaces/uri.h"
#include "simulator/classes/input_stream.h"
#include "simulator/instruments/type_names.h"

namespace brindle::abi {
namespace {

template <class... Values>
std::string Fact(std::string_view kind, std::string_view name, const Values&... values) {
    std::ostringstream fact;
    fact << kind << ' ' << name;
    ((fact << ' ' << values), ...);
    return fact.str();
}

template <class Interface>
std::string Identifier() {
    if constexpr (requires { Interface::GenericId; })
        return TextOf(Interface::GenericId);
    else
        return TextOf(Interface::Iid);
}

template <class Interface>
struct WithOneMore : Interface {
    virtual void AfterTheLast() noexcept = 0;

protected:
    ~WithOneMore() = default;
};

template <class Interface>
std::size_t SlotCount() {
    return SlotOf(&WithOneMore<Interface>::AfterTheLast);
}

template <class Result, class Interface, class... Parameters, bool Noexcept>
std::size_t ParametersOf(Result (Interface::*)(Parameters...) noexcept(Noexcept)) {
    return sizeof...(Parameters);
}

template <class Instance>
std::string InstanceFact() {
    return Fact("instance", dialsim::TypeName<Instance>(), TextOf(Instance::Iid));
}

template <class Class>
std::string ClassFact() {
    if constexpr (RuntimeClass<Class>)
        return Fact("class", Class::Name, dialsim::TypeName<typename Class::Default>());
    else
        return Fact("class", Class::Name, '-');
}

#define INTERFACE_FACTS(type) \
    Fact("identifier", #type, Identifier<type>()), Fact("slots", #type, SlotCount<type>())
#define METHOD_FACT(type, method) \
    Fact("method", #type "::" #method, SlotOf(&type::method), ParametersOf(&type::method))
#define TYPE_FACT(type) Fact("type", #type, sizeof(type), alignof(type))
#define MEMBER_FACT(type, member) \
    Fact("member", #type "." #member, offsetof(type, member), sizeof(type::member))
#define VALUE_FACT(type, value) Fact("value", #type "." #value, static_cast<std::int32_t>(type::value))

// One instantiation represents each parameterised interface.
namespace shapes {

using IAsyncOperation = abi::IAsyncOperation<StorageFile>;
using IAsyncOperationWithProgress = abi::IAsyncOperationWithProgress<IBuffer, std::uint32_t>;
using AsyncOperationCompletedHandler = abi::AsyncOperationCompletedHandler<StorageFile>;
using TypedEventHandler = abi::TypedEventHandler<RadialController, IInspectable>;
using IVector = abi::IVector<RadialControllerMenuItem>;
using IVectorView = abi::IVectorView<RadialControllerMenuItem>;
using IIterable = abi::IIterable<RadialControllerSystemMenuItemKind>;
using IIterator = abi::IIterator<RadialControllerSystemMenuItemKind>;
using IMap = abi::IMap<HSTRING, IInspectable>;

std::vector<std::string> InterfaceFacts() {
    return {
        INTERFACE_FACTS(IUnknown),
        METHOD_FACT(IUnknown, QueryInterface),
        METHOD_FACT(IUnknown, AddRef),
        METHOD_FACT(IUnknown, Release),
        INTERFACE_FACTS(IInspectable),
        METHOD_FACT(IInspectable, GetIids),
        METHOD_FACT(IInspectable, GetRuntimeClassName),
        METHOD_FACT(IInspectable, GetTrustLevel),
        INTERFACE_FACTS(IActivationFactory),
        METHOD_FACT(IActivationFactory, ActivateInstance),
        INTERFACE_FACTS(IAgileObject),
        INTERFACE_FACTS(ISequentialStream),
        METHOD_FACT(ISequentialStream, Read),
        METHOD_FACT(ISequentialStream, Write),
        INTERFACE_FACTS(IStream),
        METHOD_FACT(IStream, Seek),
        METHOD_FACT(IStream, SetSize),
        METHOD_FACT(IStream, CopyTo),
        METHOD_FACT(IStream, Commit),
        METHOD_FACT(IStream, Revert),
        METHOD_FACT(IStream, LockRegion),
        METHOD_FACT(IStream, UnlockRegion),
        METHOD_FACT(IStream, Stat),
        METHOD_FACT(IStream, Clone),
        INTERFACE_FACTS(IRadialControllerInterop),
        METHOD_FACT(IRadialControllerInterop, CreateForWindow),
        INTERFACE_FACTS(IRadialControllerConfigurationInterop),
        METHOD_FACT(IRadialControllerConfigurationInterop, GetForWindow),
        INTERFACE_FACTS(IRadialController),
        METHOD_FACT(IRadialController, get_Menu),
        METHOD_FACT(IRadialController, get_RotationResolutionInDegrees),
        METHOD_FACT(IRadialController, put_RotationResolutionInDegrees),
        METHOD_FACT(IRadialController, get_UseAutomaticHapticFeedback),
        METHOD_FACT(IRadialController, put_UseAutomaticHapticFeedback),
        METHOD_FACT(IRadialController, add_ScreenContactStarted),
        METHOD_FACT(IRadialController, remove_ScreenContactStarted),
        METHOD_FACT(IRadialController, add_ScreenContactEnded),
        METHOD_FACT(IRadialController, remove_ScreenContactEnded),
        METHOD_FACT(IRadialController, add_ScreenContactContinued),
        METHOD_FACT(IRadialController, remove_ScreenContactContinued),
        METHOD_FACT(IRadialController, add_ControlLost),
        METHOD_FACT(IRadialController, remove_ControlLost),
        METHOD_FACT(IRadialController, add_RotationChanged),
        METHOD_FACT(IRadialController, remove_RotationChanged),
        METHOD_FACT(IRadialController, add_ButtonClicked),
        METHOD_FACT(IRadialController, remove_ButtonClicked),
        METHOD_FACT(IRadialController, add_ControlAcquired),
        METHOD_FACT(IRadialController, remove_ControlAcquired),
        INTERFACE_FACTS(IRadialControllerMenu),
        METHOD_FACT(IRadialControllerMenu, get_Items),
        METHOD_FACT(IRadialControllerMenu, get_IsEnabled),
        METHOD_FACT(IRadialControllerMenu, put_IsEnabled),
        METHOD_FACT(IRadialControllerMenu, GetSelectedMenuItem),
        METHOD_FACT(IRadialControllerMenu, SelectMenuItem),
        METHOD_FACT(IRadialControllerMenu, TrySelectPreviouslySelectedMenuItem),
        INTERFACE_FACTS(IRadialControllerMenuItem),
        METHOD_FACT(IRadialControllerMenuItem, get_DisplayText),
        METHOD_FACT(IRadialControllerMenuItem, get_Tag),
        METHOD_FACT(IRadialControllerMenuItem, put_Tag),
        METHOD_FACT(IRadialControllerMenuItem, add_Invoked),
        METHOD_FACT(IRadialControllerMenuItem, remove_Invoked),
        INTERFACE_FACTS(IRadialControllerMenuItemStatics),
        METHOD_FACT(IRadialControllerMenuItemStatics, CreateFromIcon),
        METHOD_FACT(IRadialControllerMenuItemStatics, CreateFromKnownIcon),
        INTERFACE_FACTS(IRadialControllerMenuItemStatics2),
        METHOD_FACT(IRadialControllerMenuItemStatics2, CreateFromFontGlyph),
        METHOD_FACT(IRadialControllerMenuItemStatics2, CreateFromFontGlyphWithUri),
        INTERFACE_FACTS(IRadialControllerScreenContact),
        METHOD_FACT(IRadialControllerScreenContact, get_Bounds),
        METHOD_FACT(IRadialControllerScreenContact, get_Position),
        INTERFACE_FACTS(IRadialControllerScreenContactStartedEventArgs),
        METHOD_FACT(IRadialControllerScreenContactStartedEventArgs, get_Contact),
        INTERFACE_FACTS(IRadialControllerScreenContactContinuedEventArgs),
        METHOD_FACT(IRadialControllerScreenContactContinuedEventArgs, get_Contact),
        INTERFACE_FACTS(IRadialControllerControlAcquiredEventArgs),
        METHOD_FACT(IRadialControllerControlAcquiredEventArgs, get_Contact),
        INTERFACE_FACTS(IRadialControllerRotationChangedEventArgs),
        METHOD_FACT(IRadialControllerRotationChangedEventArgs, get_RotationDeltaInDegrees),
        METHOD_FACT(IRadialControllerRotationChangedEventArgs, get_Contact),
        INTERFACE_FACTS(IRadialControllerRotationChangedEventArgs2),
        METHOD_FACT(IRadialControllerRotationChangedEventArgs2, get_IsButtonPressed),
        METHOD_FACT(IRadialControllerRotationChangedEventArgs2, get_SimpleHapticsController),
        INTERFACE_FACTS(IRadialControllerButtonClickedEventArgs),
        METHOD_FACT(IRadialControllerButtonClickedEventArgs, get_Contact),
        INTERFACE_FACTS(IRadialControllerConfiguration),
        METHOD_FACT(IRadialControllerConfiguration, SetDefaultMenuItems),
        METHOD_FACT(IRadialControllerConfiguration, ResetToDefaultMenuItems),
        METHOD_FACT(IRadialControllerConfiguration, TrySelectDefaultMenuItem),
        INTERFACE_FACTS(ISimpleHapticsController),
        METHOD_FACT(ISimpleHapticsController, get_Id),
        METHOD_FACT(ISimpleHapticsController, get_SupportedFeedback),
        METHOD_FACT(ISimpleHapticsController, get_IsIntensitySupported),
        METHOD_FACT(ISimpleHapticsController, get_IsPlayCountSupported),
        METHOD_FACT(ISimpleHapticsController, get_IsPlayDurationSupported),
        METHOD_FACT(ISimpleHapticsController, get_IsReplayPauseIntervalSupported),
        METHOD_FACT(ISimpleHapticsController, StopFeedback),
        METHOD_FACT(ISimpleHapticsController, SendHapticFeedback),
        METHOD_FACT(ISimpleHapticsController, SendHapticFeedbackWithIntensity),
        METHOD_FACT(ISimpleHapticsController, SendHapticFeedbackForDuration),
        METHOD_FACT(ISimpleHapticsController, SendHapticFeedbackForPlayCount),
        INTERFACE_FACTS(ISimpleHapticsControllerFeedback),
        METHOD_FACT(ISimpleHapticsControllerFeedback, get_Waveform),
        METHOD_FACT(ISimpleHapticsControllerFeedback, get_Duration),
        INTERFACE_FACTS(IDeviceInformationStatics),
        METHOD_FACT(IDeviceInformationStatics, CreateFromIdAsync),
        METHOD_FACT(IDeviceInformationStatics, CreateFromIdAsyncAdditionalProperties),
        METHOD_FACT(IDeviceInformationStatics, FindAllAsync),
        METHOD_FACT(IDeviceInformationStatics, FindAllAsyncDeviceClass),
        METHOD_FACT(IDeviceInformationStatics, FindAllAsyncAqsFilter),
        METHOD_FACT(IDeviceInformationStatics, FindAllAsyncAqsFilterAndAdditionalProperties),
        METHOD_FACT(IDeviceInformationStatics, CreateWatcher),
        METHOD_FACT(IDeviceInformationStatics, CreateWatcherDeviceClass),
        METHOD_FACT(IDeviceInformationStatics, CreateWatcherAqsFilter),
        METHOD_FACT(IDeviceInformationStatics, CreateWatcherAqsFilterAndAdditionalProperties),
        INTERFACE_FACTS(IDeviceInformation),
        METHOD_FACT(IDeviceInformation, get_Id),
        METHOD_FACT(IDeviceInformation, get_Name),
        METHOD_FACT(IDeviceInformation, get_IsEnabled),
        METHOD_FACT(IDeviceInformation, get_IsDefault),
        METHOD_FACT(IDeviceInformation, get_EnclosureLocation),
        METHOD_FACT(IDeviceInformation, get_Properties),
        METHOD_FACT(IDeviceInformation, Update),
        METHOD_FACT(IDeviceInformation, GetThumbnailAsync),
        METHOD_FACT(IDeviceInformation, GetGlyphThumbnailAsync),
        INTERFACE_FACTS(IPropertyValue),
        METHOD_FACT(IPropertyValue, get_Type),
        METHOD_FACT(IPropertyValue, get_IsNumericScalar),
        METHOD_FACT(IPropertyValue, GetUInt8),
        METHOD_FACT(IPropertyValue, GetInt16),
        METHOD_FACT(IPropertyValue, GetUInt16),
        METHOD_FACT(IPropertyValue, GetInt32),
        METHOD_FACT(IPropertyValue, GetUInt32),
        METHOD_FACT(IPropertyValue, GetInt64),
        METHOD_FACT(IPropertyValue, GetUInt64),
        METHOD_FACT(IPropertyValue, GetSingle),
        METHOD_FACT(IPropertyValue, GetDouble),
        METHOD_FACT(IPropertyValue, GetChar16),
        METHOD_FACT(IPropertyValue, GetBoolean),
        METHOD_FACT(IPropertyValue, GetString),
        METHOD_FACT(IPropertyValue, GetGuid),
        METHOD_FACT(IPropertyValue, GetDateTime),
        METHOD_FACT(IPropertyValue, GetTimeSpan),
        METHOD_FACT(IPropertyValue, GetPoint),
        METHOD_FACT(IPropertyValue, GetSize),
        METHOD_FACT(IPropertyValue, GetRect),
        METHOD_FACT(IPropertyValue, GetUInt8Array),
        METHOD_FACT(IPropertyValue, GetInt16Array),
        METHOD_FACT(IPropertyValue, GetUInt16Array),
        METHOD_FACT(IPropertyValue, GetInt32Array),
        METHOD_FACT(IPropertyValue, GetUInt32Array),
        METHOD_FACT(IPropertyValue, GetInt64Array),
        METHOD_FACT(IPropertyValue, GetUInt64Array),
        METHOD_FACT(IPropertyValue, GetSingleArray),
        METHOD_FACT(IPropertyValue, GetDoubleArray),
        METHOD_FACT(IPropertyValue, GetChar16Array),
        METHOD_FACT(IPropertyValue, GetBooleanArray),
        METHOD_FACT(IPropertyValue, GetStringArray),
        METHOD_FACT(IPropertyValue, GetInspectableArray),
        METHOD_FACT(IPropertyValue, GetGuidArray),
        METHOD_FACT(IPropertyValue, GetDateTimeArray),
        METHOD_FACT(IPropertyValue, GetTimeSpanArray),
        METHOD_FACT(IPropertyValue, GetPointArray),
        METHOD_FACT(IPropertyValue, GetSizeArray),
        METHOD_FACT(IPropertyValue, GetRectArray),
        INTERFACE_FACTS(IPropertyValueStatics),
        METHOD_FACT(IPropertyValueStatics, CreateEmpty),
        METHOD_FACT(IPropertyValueStatics, CreateUInt8),
        METHOD_FACT(IPropertyValueStatics, CreateInt16),
        METHOD_FACT(IPropertyValueStatics, CreateUInt16),
        METHOD_FACT(IPropertyValueStatics, CreateInt32),
        METHOD_FACT(IPropertyValueStatics, CreateUInt32),
        METHOD_FACT(IPropertyValueStatics, CreateInt64),
        METHOD_FACT(IPropertyValueStatics, CreateUInt64),
        METHOD_FACT(IPropertyValueStatics, CreateSingle),
        METHOD_FACT(IPropertyValueStatics, CreateDouble),
        METHOD_FACT(IPropertyValueStatics, CreateChar16),
        METHOD_FACT(IPropertyValueStatics, CreateBoolean),
        METHOD_FACT(IPropertyValueStatics, CreateString),
        METHOD_FACT(IPropertyValueStatics, CreateInspectable),
        METHOD_FACT(IPropertyValueStatics, CreateGuid),
        METHOD_FACT(IPropertyValueStatics, CreateDateTime),
        METHOD_FACT(IPropertyValueStatics, CreateTimeSpan),
        METHOD_FACT(IPropertyValueStatics, CreatePoint),
        METHOD_FACT(IPropertyValueStatics, CreateSize),
        METHOD_FACT(IPropertyValueStatics, CreateRect),
        METHOD_FACT(IPropertyValueStatics, CreateUInt8Array),
        METHOD_FACT(IPropertyValueStatics, CreateInt16Array),
        METHOD_FACT(IPropertyValueStatics, CreateUInt16Array),
        METHOD_FACT(IPropertyValueStatics, CreateInt32Array),
        METHOD_FACT(IPropertyValueStatics, CreateUInt32Array),
        METHOD_FACT(IPropertyValueStatics, CreateInt64Array),
        METHOD_FACT(IPropertyValueStatics, CreateUInt64Array),
        METHOD_FACT(IPropertyValueStatics, CreateSingleArray),
        METHOD_FACT(IPropertyValueStatics, CreateDoubleArray),
        METHOD_FACT(IPropertyValueStatics, CreateChar16Array),
        METHOD_FACT(IPropertyValueStatics, CreateBooleanArray),
        METHOD_FACT(IPropertyValueStatics, CreateStringArray),
        METHOD_FACT(IPropertyValueStatics, CreateInspectableArray),
        METHOD_FACT(IPropertyValueStatics, CreateGuidArray),
        METHOD_FACT(IPropertyValueStatics, CreateDateTimeArray),
        METHOD_FACT(IPropertyValueStatics, CreateTimeSpanArray),
        METHOD_FACT(IPropertyValueStatics, CreatePointArray),
        METHOD_FACT(IPropertyValueStatics, CreateSizeArray),
        METHOD_FACT(IPropertyValueStatics, CreateRectArray),
        INTERFACE_FACTS(IUriRuntimeClass),
        METHOD_FACT(IUriRuntimeClass, get_AbsoluteUri),
        METHOD_FACT(IUriRuntimeClass, get_DisplayUri),
        METHOD_FACT(IUriRuntimeClass, get_Domain),
        METHOD_FACT(IUriRuntimeClass, get_Extension),
        METHOD_FACT(IUriRuntimeClass, get_Fragment),
        METHOD_FACT(IUriRuntimeClass, get_Host),
        METHOD_FACT(IUriRuntimeClass, get_Password),
        METHOD_FACT(IUriRuntimeClass, get_Path),
        METHOD_FACT(IUriRuntimeClass, get_Query),
        METHOD_FACT(IUriRuntimeClass, get_QueryParsed),
        METHOD_FACT(IUriRuntimeClass, get_RawUri),
        METHOD_FACT(IUriRuntimeClass, get_SchemeName),
        METHOD_FACT(IUriRuntimeClass, get_UserName),
        METHOD_FACT(IUriRuntimeClass, get_Port),
        METHOD_FACT(IUriRuntimeClass, get_Suspicious),
        METHOD_FACT(IUriRuntimeClass, Equals),
        METHOD_FACT(IUriRuntimeClass, CombineUri),
        INTERFACE_FACTS(IUriRuntimeClassFactory),
        METHOD_FACT(IUriRuntimeClassFactory, CreateUri),
        METHOD_FACT(IUriRuntimeClassFactory, CreateWithRelativeUri),
        INTERFACE_FACTS(IAsyncInfo),
        METHOD_FACT(IAsyncInfo, get_Id),
        METHOD_FACT(IAsyncInfo, get_Status),
        METHOD_FACT(IAsyncInfo, get_ErrorCode),
        METHOD_FACT(IAsyncInfo, Cancel),
        METHOD_FACT(IAsyncInfo, Close),
        INTERFACE_FACTS(IPropertySet),
        INTERFACE_FACTS(IApiInformationStatics),
        METHOD_FACT(IApiInformationStatics, IsTypePresent),
        METHOD_FACT(IApiInformationStatics, IsMethodPresent),
        METHOD_FACT(IApiInformationStatics, IsMethodPresentWithArity),
        METHOD_FACT(IApiInformationStatics, IsEventPresent),
        METHOD_FACT(IApiInformationStatics, IsPropertyPresent),
        METHOD_FACT(IApiInformationStatics, IsReadOnlyPropertyPresent),
        METHOD_FACT(IApiInformationStatics, IsWriteablePropertyPresent),
        METHOD_FACT(IApiInformationStatics, IsEnumNamedValuePresent),
        METHOD_FACT(IApiInformationStatics, IsApiContractPresentByMajor),
        METHOD_FACT(IApiInformationStatics, IsApiContractPresentByMajorAndMinor),
        INTERFACE_FACTS(IApplicationDataStatics),
        METHOD_FACT(IApplicationDataStatics, get_Current),
        INTERFACE_FACTS(IApplicationData),
        METHOD_FACT(IApplicationData, get_Version),
        METHOD_FACT(IApplicationData, SetVersionAsync),
        METHOD_FACT(IApplicationData, ClearAllAsync),
        METHOD_FACT(IApplicationData, ClearAsync),
        METHOD_FACT(IApplicationData, get_LocalSettings),
        METHOD_FACT(IApplicationData, get_RoamingSettings),
        METHOD_FACT(IApplicationData, get_LocalFolder),
        METHOD_FACT(IApplicationData, get_RoamingFolder),
        METHOD_FACT(IApplicationData, get_TemporaryFolder),
        METHOD_FACT(IApplicationData, add_DataChanged),
        METHOD_FACT(IApplicationData, remove_DataChanged),
        METHOD_FACT(IApplicationData, SignalDataChanged),
        METHOD_FACT(IApplicationData, get_RoamingStorageQuota),
        INTERFACE_FACTS(IApplicationDataContainer),
        METHOD_FACT(IApplicationDataContainer, get_Name),
        METHOD_FACT(IApplicationDataContainer, get_Locality),
        METHOD_FACT(IApplicationDataContainer, get_Values),
        METHOD_FACT(IApplicationDataContainer, get_Containers),
        METHOD_FACT(IApplicationDataContainer, CreateContainer),
        METHOD_FACT(IApplicationDataContainer, DeleteContainer),
        INTERFACE_FACTS(IStorageFileStatics),
        METHOD_FACT(IStorageFileStatics, GetFileFromPathAsync),
        METHOD_FACT(IStorageFileStatics, GetFileFromApplicationUriAsync),
        METHOD_FACT(IStorageFileStatics, CreateStreamedFileAsync),
        METHOD_FACT(IStorageFileStatics, ReplaceWithStreamedFileAsync),
        METHOD_FACT(IStorageFileStatics, CreateStreamedFileFromUriAsync),
        METHOD_FACT(IStorageFileStatics, ReplaceWithStreamedFileFromUriAsync),
        INTERFACE_FACTS(IStorageFile),
        INTERFACE_FACTS(IRandomAccessStreamReferenceStatics),
        METHOD_FACT(IRandomAccessStreamReferenceStatics, CreateFromFile),
        METHOD_FACT(IRandomAccessStreamReferenceStatics, CreateFromUri),
        METHOD_FACT(IRandomAccessStreamReferenceStatics, CreateFromStream),
        INTERFACE_FACTS(IRandomAccessStreamReference),
        METHOD_FACT(IRandomAccessStreamReference, OpenReadAsync),
        INTERFACE_FACTS(IRandomAccessStream),
        METHOD_FACT(IRandomAccessStream, get_Size),
        METHOD_FACT(IRandomAccessStream, put_Size),
        METHOD_FACT(IRandomAccessStream, GetInputStreamAt),
        METHOD_FACT(IRandomAccessStream, GetOutputStreamAt),
        METHOD_FACT(IRandomAccessStream, get_Position),
        METHOD_FACT(IRandomAccessStream, Seek),
        METHOD_FACT(IRandomAccessStream, CloneStream),
        METHOD_FACT(IRandomAccessStream, get_CanRead),
        METHOD_FACT(IRandomAccessStream, get_CanWrite),
        INTERFACE_FACTS(IRandomAccessStreamWithContentType),
        INTERFACE_FACTS(IInputStream),
        METHOD_FACT(IInputStream, ReadAsync),
        INTERFACE_FACTS(IBuffer),
        METHOD_FACT(IBuffer, get_Capacity),
        METHOD_FACT(IBuffer, get_Length),
        METHOD_FACT(IBuffer, put_Length),
        INTERFACE_FACTS(IBufferByteAccess),
        METHOD_FACT(IBufferByteAccess, Buffer),
        VALUE_FACT(InputStreamOptions, None),
        INTERFACE_FACTS(IPasswordVault),
        METHOD_FACT(IPasswordVault, Add),
        METHOD_FACT(IPasswordVault, Remove),
        METHOD_FACT(IPasswordVault, Retrieve),
        METHOD_FACT(IPasswordVault, FindAllByResource),
        METHOD_FACT(IPasswordVault, FindAllByUserName),
        METHOD_FACT(IPasswordVault, RetrieveAll),
        INTERFACE_FACTS(IPasswordCredential),
        METHOD_FACT(IPasswordCredential, get_Resource),
        METHOD_FACT(IPasswordCredential, put_Resource),
        METHOD_FACT(IPasswordCredential, get_UserName),
        METHOD_FACT(IPasswordCredential, put_UserName),
        METHOD_FACT(IPasswordCredential, get_Password),
        METHOD_FACT(IPasswordCredential, put_Password),
        METHOD_FACT(IPasswordCredential, RetrievePassword),
        METHOD_FACT(IPasswordCredential, get_Properties),
        INTERFACE_FACTS(ICredentialFactory),
        METHOD_FACT(ICredentialFactory, CreatePasswordCredential),
        INTERFACE_FACTS(IAsyncOperation),
        METHOD_FACT(IAsyncOperation, put_Completed),
        METHOD_FACT(IAsyncOperation, get_Completed),
        METHOD_FACT(IAsyncOperation, GetResults),
        INTERFACE_FACTS(IAsyncOperationWithProgress),
        METHOD_FACT(IAsyncOperationWithProgress, put_Progress),
        METHOD_FACT(IAsyncOperationWithProgress, get_Progress),
        METHOD_FACT(IAsyncOperationWithProgress, put_Completed),
        METHOD_FACT(IAsyncOperationWithProgress, get_Completed),
        METHOD_FACT(IAsyncOperationWithProgress, GetResults),
        INTERFACE_FACTS(AsyncOperationCompletedHandler),
        METHOD_FACT(AsyncOperationCompletedHandler, Invoke),
        INTERFACE_FACTS(TypedEventHandler),
        METHOD_FACT(TypedEventHandler, Invoke),
        INTERFACE_FACTS(IVector),
        METHOD_FACT(IVector, GetAt),
        METHOD_FACT(IVector, get_Size),
        METHOD_FACT(IVector, GetView),
        METHOD_FACT(IVector, IndexOf),
        METHOD_FACT(IVector, SetAt),
        METHOD_FACT(IVector, InsertAt),
        METHOD_FACT(IVector, RemoveAt),
        METHOD_FACT(IVector, Append),
        METHOD_FACT(IVector, RemoveAtEnd),
        METHOD_FACT(IVector, Clear),
        METHOD_FACT(IVector, GetMany),
        METHOD_FACT(IVector, ReplaceAll),
        INTERFACE_FACTS(IVectorView),
        METHOD_FACT(IVectorView, GetAt),
        METHOD_FACT(IVectorView, get_Size),
        METHOD_FACT(IVectorView, IndexOf),
        METHOD_FACT(IVectorView, GetMany),
        INTERFACE_FACTS(IIterable),
        METHOD_FACT(IIterable, First),
        INTERFACE_FACTS(IIterator),
        METHOD_FACT(IIterator, get_Current),
        METHOD_FACT(IIterator, get_HasCurrent),
        METHOD_FACT(IIterator, MoveNext),
        METHOD_FACT(IIterator, GetMany),
        INTERFACE_FACTS(IMap),
        METHOD_FACT(IMap, Lookup),
        METHOD_FACT(IMap, get_Size),
        METHOD_FACT(IMap, HasKey),
        METHOD_FACT(IMap, GetView),
        METHOD_FACT(IMap, Insert),
        METHOD_FACT(IMap, Remove),
        METHOD_FACT(IMap, Clear),
        Fact("identifier", "IMarshal", TextOf(IMarshalIid)),
    };
}

}  // namespace shapes

std::vector<std::string> InstanceFacts() {
    return {
        InstanceFact<TypedEventHandler<RadialController, RadialControllerRotationChangedEventArgs>>(),
        InstanceFact<TypedEventHandler<RadialController, RadialControllerButtonClickedEventArgs>>(),
        InstanceFact<TypedEventHandler<RadialController, RadialControllerScreenContactStartedEventArgs>>(),
        InstanceFact<TypedEventHandler<RadialController, RadialControllerScreenContactContinuedEventArgs>>(),
        InstanceFact<TypedEventHandler<RadialController, RadialControllerControlAcquiredEventArgs>>(),
        InstanceFact<TypedEventHandler<RadialController, IInspectable>>(),
        InstanceFact<TypedEventHandler<RadialControllerMenuItem, IInspectable>>(),
        InstanceFact<IVector<RadialControllerMenuItem>>(),
        InstanceFact<IVectorView<RadialControllerMenuItem>>(),
        InstanceFact<IIterable<RadialControllerMenuItem>>(),
        InstanceFact<IIterable<RadialControllerSystemMenuItemKind>>(),
        InstanceFact<IIterator<RadialControllerSystemMenuItemKind>>(),
        InstanceFact<IVectorView<RadialControllerSystemMenuItemKind>>(),
        InstanceFact<IVectorView<SimpleHapticsControllerFeedback>>(),
        InstanceFact<IVectorView<DeviceInformation>>(),
        InstanceFact<IAsyncOperation<DeviceInformationCollection>>(),
        InstanceFact<AsyncOperationCompletedHandler<DeviceInformationCollection>>(),
        InstanceFact<IAsyncOperation<StorageFile>>(),
        InstanceFact<AsyncOperationCompletedHandler<StorageFile>>(),
        InstanceFact<IMap<HSTRING, IInspectable>>(),
        InstanceFact<IVectorView<PasswordCredential>>(),
    };
}

std::vector<std::string> ClassFacts() {
    return {
        ClassFact<RadialController>(),
        ClassFact<RadialControllerConfiguration>(),
        ClassFact<RadialControllerMenu>(),
        ClassFact<RadialControllerMenuItem>(),
        ClassFact<RadialControllerScreenContact>(),
        ClassFact<RadialControllerRotationChangedEventArgs>(),
        ClassFact<RadialControllerButtonClickedEventArgs>(),
        ClassFact<RadialControllerScreenContactStartedEventArgs>(),
        ClassFact<RadialControllerScreenContactContinuedEventArgs>(),
        ClassFact<RadialControllerControlAcquiredEventArgs>(),
        ClassFact<EdgeGesture>(),
        ClassFact<SimpleHapticsController>(),
        ClassFact<SimpleHapticsControllerFeedback>(),
        ClassFact<DeviceInformation>(),
        ClassFact<DeviceInformationCollection>(),
        ClassFact<ApiInformation>(),
        ClassFact<PropertyValue>(),
        ClassFact<Uri>(),
        ClassFact<ApplicationData>(),
        ClassFact<ApplicationDataContainer>(),
        ClassFact<StorageFile>(),
        ClassFact<RandomAccessStreamReference>(),
        ClassFact<PasswordVault>(),
        ClassFact<PasswordCredential>(),
    };
}

std::vector<std::string> TypeFacts() {
    return {
        TYPE_FACT(boolean),
        TYPE_FACT(BOOL),
        TYPE_FACT(WCHAR),
        TYPE_FACT(ULONG),
        TYPE_FACT(DWORD),
        TYPE_FACT(ULONGLONG),
        TYPE_FACT(HRESULT),
        TYPE_FACT(HSTRING),
        TYPE_FACT(HSTRING_BUFFER),
        TYPE_FACT(HSTRING_HEADER),
        TYPE_FACT(GUID),
        MEMBER_FACT(GUID, Data1),
        MEMBER_FACT(GUID, Data2),
        MEMBER_FACT(GUID, Data3),
        MEMBER_FACT(GUID, Data4),
        TYPE_FACT(EventRegistrationToken),
        MEMBER_FACT(EventRegistrationToken, value),
        TYPE_FACT(TimeSpan),
        MEMBER_FACT(TimeSpan, Duration),
        TYPE_FACT(DateTime),
        MEMBER_FACT(DateTime, UniversalTime),
        TYPE_FACT(Point),
        MEMBER_FACT(Point, X),
        MEMBER_FACT(Point, Y),
        TYPE_FACT(Size),
        MEMBER_FACT(Size, Width),
        MEMBER_FACT(Size, Height),
        TYPE_FACT(Rect),
        MEMBER_FACT(Rect, X),
        MEMBER_FACT(Rect, Y),
        MEMBER_FACT(Rect, Width),
        MEMBER_FACT(Rect, Height),
        TYPE_FACT(DeviceClass),
        TYPE_FACT(ApplicationDataLocality),
        TYPE_FACT(ApplicationDataCreateDisposition),
        TYPE_FACT(TrustLevel),
        VALUE_FACT(TrustLevel, BaseTrust),
        VALUE_FACT(TrustLevel, PartialTrust),
        VALUE_FACT(TrustLevel, FullTrust),
        TYPE_FACT(AsyncStatus),
        VALUE_FACT(AsyncStatus, Started),
        VALUE_FACT(AsyncStatus, Completed),
        VALUE_FACT(AsyncStatus, Canceled),
        VALUE_FACT(AsyncStatus, Error),
        TYPE_FACT(RadialControllerMenuKnownIcon),
        VALUE_FACT(RadialControllerMenuKnownIcon, Scroll),
        VALUE_FACT(RadialControllerMenuKnownIcon, Zoom),
        VALUE_FACT(RadialControllerMenuKnownIcon, UndoRedo),
        VALUE_FACT(RadialControllerMenuKnownIcon, Volume),
        VALUE_FACT(RadialControllerMenuKnownIcon, NextPreviousTrack),
        VALUE_FACT(RadialControllerMenuKnownIcon, Ruler),
        VALUE_FACT(RadialControllerMenuKnownIcon, InkColor),
        VALUE_FACT(RadialControllerMenuKnownIcon, InkThickness),
        VALUE_FACT(RadialControllerMenuKnownIcon, PenType),
        TYPE_FACT(RadialControllerSystemMenuItemKind),
        VALUE_FACT(RadialControllerSystemMenuItemKind, Scroll),
        VALUE_FACT(RadialControllerSystemMenuItemKind, Zoom),
        VALUE_FACT(RadialControllerSystemMenuItemKind, UndoRedo),
        VALUE_FACT(RadialControllerSystemMenuItemKind, Volume),
        VALUE_FACT(RadialControllerSystemMenuItemKind, NextPreviousTrack),
        TYPE_FACT(PropertyType),
        VALUE_FACT(PropertyType, Empty),
        VALUE_FACT(PropertyType, UInt8),
        VALUE_FACT(PropertyType, Int16),
        VALUE_FACT(PropertyType, UInt16),
        VALUE_FACT(PropertyType, Int32),
        VALUE_FACT(PropertyType, UInt32),
        VALUE_FACT(PropertyType, Int64),
        VALUE_FACT(PropertyType, UInt64),
        VALUE_FACT(PropertyType, Single),
        VALUE_FACT(PropertyType, Double),
        VALUE_FACT(PropertyType, Char16),
        VALUE_FACT(PropertyType, Boolean),
        VALUE_FACT(PropertyType, String),
        VALUE_FACT(PropertyType, Inspectable),
        VALUE_FACT(PropertyType, DateTime),
        VALUE_FACT(PropertyType, TimeSpan),
        VALUE_FACT(PropertyType, Guid),
        VALUE_FACT(PropertyType, Point),
        VALUE_FACT(PropertyType, Size),
        VALUE_FACT(PropertyType, Rect),
        VALUE_FACT(PropertyType, OtherType),
        VALUE_FACT(RO_INIT_TYPE, RO_INIT_SINGLETHREADED),
        VALUE_FACT(BSOS_OPTIONS, BSOS_DEFAULT),
    };
}

}  // namespace

std::string TextOf(const GUID& id) {
    const auto in_braces = IdText(id);
    return std::string(std::string_view(in_braces).substr(1, 36));
}

std::vector<std::string> DeclaredFacts() {
    std::vector<std::string> facts;
    for (const auto& some : {shapes::InterfaceFacts(), InstanceFacts(), ClassFacts(), TypeFacts()})
        facts.insert(facts.end(), some.begin(), some.end());
    return facts;
}

}  // namespace brindle::abi
