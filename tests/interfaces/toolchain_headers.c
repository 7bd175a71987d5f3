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
    DATA(DataChanged),
    DATA(SignalDataChanged),
    DATA(RoamingStorageQuota),
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
