/* Windows only. The toolchain's declarations of interfaces that this project declares, for
 * toolchain_headers_test.cpp, as facts in the format of tests/interfaces/interfaces.txt. In C, because these
 * headers declare enumerations before their definition, which C++ does not allow. */
#define INITGUID
#include <activation.h>
#include <asyncinfo.h>
#include <inspectable.h>
#include <objidl.h>
#include <stddef.h>
#include <windows.foundation.h>
#include <windows.h>
#if __MINGW64_VERSION_MAJOR >= 12
#include <robuffer.h>
#include <windows.devices.enumeration.h>
#include <windows.devices.haptics.h>
#include <windows.foundation.metadata.h>
#endif
#include <windows.media.speechsynthesis.h>
#include <windows.storage.h>
#include <windows.storage.streams.h>

struct ToolchainNumber {
    const char* Name;
    size_t Value;
};

struct ToolchainIdentifier {
    const char* Name;
    const GUID* Value;
};

#define SLOT(type, mangled, method) \
    { "method " #type "::" #method, offsetof(mangled##Vtbl, method) / sizeof(void*) }
#define SLOTS(type, mangled) \
    { "slots " #type, sizeof(mangled##Vtbl) / sizeof(void*) }

#define UNKNOWN(method) SLOT(IUnknown, IUnknown, method)
#define INSPECTABLE(method) SLOT(IInspectable, IInspectable, method)
#define ASYNC(method) SLOT(IAsyncInfo, IAsyncInfo, method)
#define SEQUENTIAL(method) SLOT(ISequentialStream, ISequentialStream, method)
#define STREAM(method) SLOT(IStream, IStream, method)
#define STATICS(method) \
    SLOT(IApplicationDataStatics, __x_ABI_CWindows_CStorage_CIApplicationDataStatics, method)
#define DATA(method) SLOT(IApplicationData, __x_ABI_CWindows_CStorage_CIApplicationData, method)
#define CONTAINER(method) \
    SLOT(IApplicationDataContainer, __x_ABI_CWindows_CStorage_CIApplicationDataContainer, method)
#define BUFFER(method) SLOT(IBuffer, __x_ABI_CWindows_CStorage_CStreams_CIBuffer, method)
#define OPERATION(method) SLOT(IAsyncOperation, __FIAsyncOperation_1_boolean, method)
#define COMPLETED(method) \
    SLOT(AsyncOperationCompletedHandler, __FIAsyncOperationCompletedHandler_1_boolean, method)
#define VIEW(method) SLOT(IVectorView, __FIVectorView_1_HSTRING, method)
#define ITERABLE(method) \
    SLOT(IIterable, __FIIterable_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation, method)
#define ITERATOR(method) \
    SLOT(IIterator, __FIIterator_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation, method)
#if __MINGW64_VERSION_MAJOR >= 12
#define HAPTICS(method) \
    SLOT(ISimpleHapticsController, __x_ABI_CWindows_CDevices_CHaptics_CISimpleHapticsController, method)
#define FEEDBACK(method)                   \
    SLOT(ISimpleHapticsControllerFeedback, \
         __x_ABI_CWindows_CDevices_CHaptics_CISimpleHapticsControllerFeedback, method)
#define FINDER(method) \
    SLOT(IDeviceInformationStatics, __x_ABI_CWindows_CDevices_CEnumeration_CIDeviceInformationStatics, method)
#define DEVICE(method) \
    SLOT(IDeviceInformation, __x_ABI_CWindows_CDevices_CEnumeration_CIDeviceInformation, method)
#define URI(method) SLOT(IUriRuntimeClass, __x_ABI_CWindows_CFoundation_CIUriRuntimeClass, method)
#define URIS(method) \
    SLOT(IUriRuntimeClassFactory, __x_ABI_CWindows_CFoundation_CIUriRuntimeClassFactory, method)
#define API(method) \
    SLOT(IApiInformationStatics, __x_ABI_CWindows_CFoundation_CMetadata_CIApiInformationStatics, method)
#define RANDOM(method) \
    SLOT(IRandomAccessStream, __x_ABI_CWindows_CStorage_CStreams_CIRandomAccessStream, method)
#endif

#define TYPE(type, mangled) \
    { "type " #type, sizeof(mangled) }
#define STRUCTURE(type) TYPE(type, struct __x_ABI_CWindows_CFoundation_C##type)
#define MEMBER(type, member) \
    { "member " #type "." #member, offsetof(struct __x_ABI_CWindows_CFoundation_C##type, member) }
#define VALUE(type, value) \
    { "value " #type "." #value, value }
#define PROPERTY(value) \
    { "value PropertyType." #value, PropertyType_##value }

const struct ToolchainNumber kToolchainNumbers[] = {
    SLOTS(IUnknown, IUnknown),
    UNKNOWN(QueryInterface),
    UNKNOWN(AddRef),
    UNKNOWN(Release),
    SLOTS(IInspectable, IInspectable),
    INSPECTABLE(GetIids),
    INSPECTABLE(GetRuntimeClassName),
    INSPECTABLE(GetTrustLevel),
    SLOTS(IActivationFactory, IActivationFactory),
    SLOT(IActivationFactory, IActivationFactory, ActivateInstance),
    SLOTS(IAgileObject, IAgileObject),
    SLOTS(IAsyncInfo, IAsyncInfo),
    ASYNC(get_Id),
    ASYNC(get_Status),
    ASYNC(get_ErrorCode),
    ASYNC(Cancel),
    ASYNC(Close),
    SLOTS(ISequentialStream, ISequentialStream),
    SEQUENTIAL(Read),
    SEQUENTIAL(Write),
    SLOTS(IStream, IStream),
    STREAM(Seek),
    STREAM(SetSize),
    STREAM(CopyTo),
    STREAM(Commit),
    STREAM(Revert),
    STREAM(LockRegion),
    STREAM(UnlockRegion),
    STREAM(Stat),
    STREAM(Clone),
    SLOTS(IApplicationDataStatics, __x_ABI_CWindows_CStorage_CIApplicationDataStatics),
    STATICS(get_Current),
    SLOTS(IApplicationData, __x_ABI_CWindows_CStorage_CIApplicationData),
    DATA(get_Version),
    DATA(SetVersionAsync),
    DATA(ClearAllAsync),
    DATA(ClearAsync),
    DATA(get_LocalSettings),
    DATA(get_RoamingSettings),
    DATA(get_LocalFolder),
    DATA(get_RoamingFolder),
    DATA(get_TemporaryFolder),
#if __MINGW64_VERSION_MAJOR < 12
    DATA(DataChanged),
    DATA(SignalDataChanged),
    DATA(RoamingStorageQuota),
#else
    DATA(add_DataChanged),
    DATA(remove_DataChanged),
    DATA(SignalDataChanged),
    DATA(get_RoamingStorageQuota),
#endif
    SLOTS(IApplicationDataContainer, __x_ABI_CWindows_CStorage_CIApplicationDataContainer),
    CONTAINER(get_Name),
    CONTAINER(get_Locality),
    CONTAINER(get_Values),
    CONTAINER(get_Containers),
    CONTAINER(CreateContainer),
    CONTAINER(DeleteContainer),
    SLOTS(IBuffer, __x_ABI_CWindows_CStorage_CStreams_CIBuffer),
    BUFFER(get_Capacity),
    BUFFER(get_Length),
    BUFFER(put_Length),
    SLOTS(IAsyncOperation, __FIAsyncOperation_1_boolean),
    OPERATION(put_Completed),
    OPERATION(get_Completed),
    OPERATION(GetResults),
    SLOTS(AsyncOperationCompletedHandler, __FIAsyncOperationCompletedHandler_1_boolean),
    COMPLETED(Invoke),
    SLOTS(IVectorView, __FIVectorView_1_HSTRING),
    VIEW(GetAt),
    VIEW(get_Size),
    VIEW(IndexOf),
    VIEW(GetMany),
    SLOTS(IIterable, __FIIterable_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation),
    ITERABLE(First),
    SLOTS(IIterator, __FIIterator_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation),
    ITERATOR(get_Current),
    ITERATOR(get_HasCurrent),
    ITERATOR(MoveNext),
    ITERATOR(GetMany),
#if __MINGW64_VERSION_MAJOR >= 12
    SLOTS(ISimpleHapticsController, __x_ABI_CWindows_CDevices_CHaptics_CISimpleHapticsController),
    HAPTICS(get_Id),
    HAPTICS(get_SupportedFeedback),
    HAPTICS(get_IsIntensitySupported),
    HAPTICS(get_IsPlayCountSupported),
    HAPTICS(get_IsPlayDurationSupported),
    HAPTICS(get_IsReplayPauseIntervalSupported),
    HAPTICS(StopFeedback),
    HAPTICS(SendHapticFeedback),
    HAPTICS(SendHapticFeedbackWithIntensity),
    HAPTICS(SendHapticFeedbackForDuration),
    HAPTICS(SendHapticFeedbackForPlayCount),
    SLOTS(ISimpleHapticsControllerFeedback,
          __x_ABI_CWindows_CDevices_CHaptics_CISimpleHapticsControllerFeedback),
    FEEDBACK(get_Waveform),
    FEEDBACK(get_Duration),
    SLOTS(IDeviceInformationStatics, __x_ABI_CWindows_CDevices_CEnumeration_CIDeviceInformationStatics),
    FINDER(CreateFromIdAsync),
    FINDER(CreateFromIdAsyncAdditionalProperties),
    FINDER(FindAllAsync),
    FINDER(FindAllAsyncDeviceClass),
    FINDER(FindAllAsyncAqsFilter),
    FINDER(FindAllAsyncAqsFilterAndAdditionalProperties),
    FINDER(CreateWatcher),
    FINDER(CreateWatcherDeviceClass),
    FINDER(CreateWatcherAqsFilter),
    FINDER(CreateWatcherAqsFilterAndAdditionalProperties),
    SLOTS(IDeviceInformation, __x_ABI_CWindows_CDevices_CEnumeration_CIDeviceInformation),
    DEVICE(get_Id),
    DEVICE(get_Name),
    DEVICE(get_IsEnabled),
    DEVICE(get_IsDefault),
    DEVICE(get_EnclosureLocation),
    DEVICE(get_Properties),
    DEVICE(Update),
    DEVICE(GetThumbnailAsync),
    DEVICE(GetGlyphThumbnailAsync),
    SLOTS(IUriRuntimeClass, __x_ABI_CWindows_CFoundation_CIUriRuntimeClass),
    URI(get_AbsoluteUri),
    URI(get_DisplayUri),
    URI(get_Domain),
    URI(get_Extension),
    URI(get_Fragment),
    URI(get_Host),
    URI(get_Password),
    URI(get_Path),
    URI(get_Query),
    URI(get_QueryParsed),
    URI(get_RawUri),
    URI(get_SchemeName),
    URI(get_UserName),
    URI(get_Port),
    URI(get_Suspicious),
    URI(Equals),
    URI(CombineUri),
    SLOTS(IUriRuntimeClassFactory, __x_ABI_CWindows_CFoundation_CIUriRuntimeClassFactory),
    URIS(CreateUri),
    URIS(CreateWithRelativeUri),
    SLOTS(IPropertySet, __x_ABI_CWindows_CFoundation_CCollections_CIPropertySet),
    SLOTS(IApiInformationStatics, __x_ABI_CWindows_CFoundation_CMetadata_CIApiInformationStatics),
    API(IsTypePresent),
    API(IsMethodPresent),
    API(IsMethodPresentWithArity),
    API(IsEventPresent),
    API(IsPropertyPresent),
    API(IsReadOnlyPropertyPresent),
    API(IsWriteablePropertyPresent),
    API(IsEnumNamedValuePresent),
    API(IsApiContractPresentByMajor),
    API(IsApiContractPresentByMajorAndMinor),
    SLOTS(IRandomAccessStream, __x_ABI_CWindows_CStorage_CStreams_CIRandomAccessStream),
    RANDOM(get_Size),
    RANDOM(put_Size),
    RANDOM(GetInputStreamAt),
    RANDOM(GetOutputStreamAt),
    RANDOM(get_Position),
    RANDOM(Seek),
    RANDOM(CloneStream),
    RANDOM(get_CanRead),
    RANDOM(get_CanWrite),
    SLOTS(IBufferByteAccess, __x_Windows_CStorage_CStreams_CIBufferByteAccess),
    SLOT(IBufferByteAccess, __x_Windows_CStorage_CStreams_CIBufferByteAccess, Buffer),
    SLOTS(IRandomAccessStreamWithContentType,
          __x_ABI_CWindows_CStorage_CStreams_CIRandomAccessStreamWithContentType),
#endif
    TYPE(boolean, boolean),
    TYPE(TrustLevel, TrustLevel),
    TYPE(AsyncStatus, AsyncStatus),
    TYPE(PropertyType, enum __x_ABI_CWindows_CFoundation_CPropertyType),
    TYPE(ApplicationDataLocality, enum __x_ABI_CWindows_CStorage_CApplicationDataLocality),
    TYPE(ApplicationDataCreateDisposition, enum __x_ABI_CWindows_CStorage_CApplicationDataCreateDisposition),
    STRUCTURE(Point),
    MEMBER(Point, X),
    MEMBER(Point, Y),
    STRUCTURE(Size),
    MEMBER(Size, Width),
    MEMBER(Size, Height),
    STRUCTURE(Rect),
    MEMBER(Rect, X),
    MEMBER(Rect, Y),
    MEMBER(Rect, Width),
    MEMBER(Rect, Height),
    STRUCTURE(TimeSpan),
    MEMBER(TimeSpan, Duration),
    STRUCTURE(DateTime),
    MEMBER(DateTime, UniversalTime),
    VALUE(TrustLevel, BaseTrust),
    VALUE(TrustLevel, PartialTrust),
    VALUE(TrustLevel, FullTrust),
    VALUE(AsyncStatus, Started),
    VALUE(AsyncStatus, Completed),
    VALUE(AsyncStatus, Canceled),
    VALUE(AsyncStatus, Error),
    PROPERTY(Empty),
    PROPERTY(UInt8),
    PROPERTY(Int16),
    PROPERTY(UInt16),
    PROPERTY(Int32),
    PROPERTY(UInt32),
    PROPERTY(Int64),
    PROPERTY(UInt64),
    PROPERTY(Single),
    PROPERTY(Double),
    PROPERTY(Char16),
    PROPERTY(Boolean),
    PROPERTY(String),
    PROPERTY(Inspectable),
    PROPERTY(DateTime),
    PROPERTY(TimeSpan),
    PROPERTY(Guid),
    PROPERTY(Point),
    PROPERTY(Size),
    PROPERTY(Rect),
    PROPERTY(OtherType),
    {NULL, 0},
};

#define BASE(type) \
    { #type, &IID_##type }
#define STORAGE(type) \
    { #type, &IID___x_ABI_CWindows_CStorage_C##type }
#define STREAMS(type) \
    { #type, &IID___x_ABI_CWindows_CStorage_CStreams_C##type }
#define HAPTIC(type) \
    { #type, &IID___x_ABI_CWindows_CDevices_CHaptics_C##type }
#define ENUMERATION(type) \
    { #type, &IID___x_ABI_CWindows_CDevices_CEnumeration_C##type }
#define FOUNDATION(type) \
    { #type, &IID___x_ABI_CWindows_CFoundation_C##type }
#define COLLECTIONS(type) \
    { #type, &IID___x_ABI_CWindows_CFoundation_CCollections_C##type }
#define INTEROP(type) \
    { #type, &IID___x_Windows_CStorage_CStreams_C##type }
#define METADATA(type) \
    { #type, &IID___x_ABI_CWindows_CFoundation_CMetadata_C##type }

const struct ToolchainIdentifier kToolchainIdentifiers[] = {
    BASE(IUnknown),
    BASE(IInspectable),
    BASE(IActivationFactory),
    BASE(IAgileObject),
    BASE(IMarshal),
    BASE(ISequentialStream),
    BASE(IStream),
    BASE(IAsyncInfo),
    STORAGE(IApplicationDataStatics),
    STORAGE(IApplicationData),
    STORAGE(IApplicationDataContainer),
    STREAMS(IBuffer),
#if __MINGW64_VERSION_MAJOR >= 12
    HAPTIC(ISimpleHapticsController),
    HAPTIC(ISimpleHapticsControllerFeedback),
    ENUMERATION(IDeviceInformationStatics),
    ENUMERATION(IDeviceInformation),
    FOUNDATION(IUriRuntimeClass),
    FOUNDATION(IUriRuntimeClassFactory),
    COLLECTIONS(IPropertySet),
    METADATA(IApiInformationStatics),
    STORAGE(IStorageFile),
    STREAMS(IRandomAccessStream),
    STREAMS(IRandomAccessStreamWithContentType),
    INTEROP(IBufferByteAccess),
#endif
    {NULL, NULL},
};

const struct ToolchainIdentifier kToolchainInstances[] = {
    {"IVectorView<HSTRING>", &IID___FIVectorView_1_HSTRING},
    {"IVectorView<Marker>", &IID___FIVectorView_1_Windows__CMedia__CIMediaMarker},
    {"IVectorView<Voice>", &IID___FIVectorView_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation},
    {"IIterator<Voice>", &IID___FIIterator_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation},
    {"IIterable<Voice>", &IID___FIIterable_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation},
    {"IAsyncOperation<boolean>", &IID___FIAsyncOperation_1_boolean},
    {"AsyncOperationCompletedHandler<boolean>", &IID___FIAsyncOperationCompletedHandler_1_boolean},
    {"IAsyncOperation<Speech>",
     &IID___FIAsyncOperation_1_Windows__CMedia__CSpeechSynthesis__CSpeechSynthesisStream},
    {"AsyncOperationCompletedHandler<Speech>",
     &IID___FIAsyncOperationCompletedHandler_1_Windows__CMedia__CSpeechSynthesis__CSpeechSynthesisStream},
    {NULL, NULL},
};
