/* Windows only. The toolchain's own view of interfaces that we declare too, for toolchain_headers_test.cpp.
 * In C, because these headers declare enumerations ahead of their definition, which C++ does not allow. */
#define INITGUID
#include <stddef.h>
#include <windows.foundation.h>
#include <windows.h>
#include <windows.media.speechsynthesis.h>
#include <windows.storage.h>

struct ToolchainNumber {
    const char* Name;
    size_t Value;
};

struct ToolchainIdentifier {
    const char* Name;
    const GUID* Value;
};

#define SLOT(interface_name, mangled, method) \
    { #interface_name "::" #method, offsetof(mangled##Vtbl, method) / sizeof(void*) }
#define STATICS(method) \
    SLOT(IApplicationDataStatics, __x_ABI_CWindows_CStorage_CIApplicationDataStatics, method)
#define DATA(method) SLOT(IApplicationData, __x_ABI_CWindows_CStorage_CIApplicationData, method)
#define CONTAINER(method) \
    SLOT(IApplicationDataContainer, __x_ABI_CWindows_CStorage_CIApplicationDataContainer, method)
#define OPERATION(method) SLOT(IAsyncOperation, __FIAsyncOperation_1_boolean, method)
#define COMPLETED(method) \
    SLOT(AsyncOperationCompletedHandler, __FIAsyncOperationCompletedHandler_1_boolean, method)
#define VIEW(method) SLOT(IVectorView, __FIVectorView_1_HSTRING, method)
#define ITERABLE(method) \
    SLOT(IIterable, __FIIterable_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation, method)
#define ITERATOR(method) \
    SLOT(IIterator, __FIIterator_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation, method)

/* IApplicationData ends early: the toolchain leaves out one of the two methods of its event, so what follows
 * stands one slot too low. */
const struct ToolchainNumber kToolchainSlots[] = {
    STATICS(get_Current),
    DATA(get_Version),
    DATA(SetVersionAsync),
    DATA(ClearAllAsync),
    DATA(ClearAsync),
    DATA(get_LocalSettings),
    DATA(get_RoamingSettings),
    DATA(get_LocalFolder),
    DATA(get_RoamingFolder),
    DATA(get_TemporaryFolder),
    CONTAINER(get_Name),
    CONTAINER(get_Locality),
    CONTAINER(get_Values),
    CONTAINER(get_Containers),
    CONTAINER(CreateContainer),
    CONTAINER(DeleteContainer),
    OPERATION(put_Completed),
    OPERATION(get_Completed),
    OPERATION(GetResults),
    COMPLETED(Invoke),
    VIEW(GetAt),
    VIEW(get_Size),
    VIEW(IndexOf),
    VIEW(GetMany),
    ITERABLE(First),
    ITERATOR(get_Current),
    ITERATOR(get_HasCurrent),
    ITERATOR(MoveNext),
    ITERATOR(GetMany),
    {NULL, 0},
};

#define STORAGE(name) \
    { #name, &IID___x_ABI_CWindows_CStorage_C##name }

/* Without IVectorView<HSTRING>: the value declared here does not follow from the published signature. */
const struct ToolchainIdentifier kToolchainIdentifiers[] = {
    STORAGE(IApplicationDataStatics),
    STORAGE(IApplicationData),
    STORAGE(IApplicationDataContainer),
    {"IVectorView<Marker>", &IID___FIVectorView_1_Windows__CMedia__CIMediaMarker},
    {"IVectorView<Voice>", &IID___FIVectorView_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation},
    {"IIterator<Voice>", &IID___FIIterator_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation},
    {"IIterable<Voice>", &IID___FIIterable_1_Windows__CMedia__CSpeechSynthesis__CVoiceInformation},
    {"IAsyncOperation<Speech>",
     &IID___FIAsyncOperation_1_Windows__CMedia__CSpeechSynthesis__CSpeechSynthesisStream},
    {"AsyncOperationCompletedHandler<Speech>",
     &IID___FIAsyncOperationCompletedHandler_1_Windows__CMedia__CSpeechSynthesis__CSpeechSynthesisStream},
    {NULL, NULL},
};

#define SIZE(name) \
    { "sizeof(" #name ")", sizeof(struct __x_ABI_CWindows_CFoundation_C##name) }
#define MEMBER(name, member) \
    { #name "." #member, offsetof(struct __x_ABI_CWindows_CFoundation_C##name, member) }

const struct ToolchainNumber kToolchainLayouts[] = {
    SIZE(Point),
    SIZE(Size),
    SIZE(Rect),
    SIZE(TimeSpan),
    SIZE(DateTime),
    MEMBER(Point, X),
    MEMBER(Point, Y),
    MEMBER(Size, Width),
    MEMBER(Size, Height),
    MEMBER(Rect, X),
    MEMBER(Rect, Y),
    MEMBER(Rect, Width),
    MEMBER(Rect, Height),
    MEMBER(TimeSpan, Duration),
    MEMBER(DateTime, UniversalTime),
    {"sizeof(PropertyType)", sizeof(enum __x_ABI_CWindows_CFoundation_CPropertyType)},
    {"sizeof(ApplicationDataLocality)", sizeof(enum __x_ABI_CWindows_CStorage_CApplicationDataLocality)},
    {"sizeof(ApplicationDataCreateDisposition)",
     sizeof(enum __x_ABI_CWindows_CStorage_CApplicationDataCreateDisposition)},
    {NULL, 0},
};

#define TYPE(name) \
    { "PropertyType::" #name, PropertyType_##name }

const struct ToolchainNumber kToolchainValues[] = {
    TYPE(Empty),  TYPE(UInt8),       TYPE(Int16),     TYPE(UInt16),    TYPE(Int32),  TYPE(UInt32),
    TYPE(Int64),  TYPE(UInt64),      TYPE(Single),    TYPE(Double),    TYPE(Char16), TYPE(Boolean),
    TYPE(String), TYPE(Inspectable), TYPE(DateTime),  TYPE(TimeSpan),  TYPE(Guid),   TYPE(Point),
    TYPE(Size),   TYPE(Rect),        TYPE(OtherType), TYPE(RectArray), {NULL, 0},
};
