// Windows only. The toolchain declares some of the same interfaces from another source than ours; where both
// speak, they have to agree. What its headers only manage to say in C comes from toolchain_headers.c.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "platform/interfaces/collections.h"
#include "platform/interfaces/foundation.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"

#include <activation.h>
#include <asyncinfo.h>
#include <eventtoken.h>
#include <hstring.h>
#include <inspectable.h>
#include <objidl.h>
#include <unknwn.h>
#include <windows.foundation.collections.h>

extern "C" {

struct ToolchainNumber {
    const char* Name;
    std::size_t Value;
};

struct ToolchainIdentifier {
    const char* Name;
    const GUID* Value;
};

extern const ToolchainNumber kToolchainSlots[];
extern const ToolchainIdentifier kToolchainIdentifiers[];
extern const ToolchainNumber kToolchainLayouts[];
extern const ToolchainNumber kToolchainValues[];

}  // extern "C"

namespace brindle::abi {
namespace {

// Classes we do not use, but whose instantiations the toolchain identifies.
struct Marker : IInspectable {
    static constexpr GUID Iid = Id("1803def8-dca5-4b6f-9c20-e3d3c0643625");

protected:
    ~Marker() = default;
};

struct IVoice : IInspectable {
    static constexpr GUID Iid = Id("b127d6a4-1291-4604-aa9c-83134083352c");

protected:
    ~IVoice() = default;
};

struct Voice {
    using Default = IVoice;
    static constexpr char Name[] = "Windows.Media.SpeechSynthesis.VoiceInformation";
};

struct ISpeech : IInspectable {
    static constexpr GUID Iid = Id("83e46e93-244c-4622-ba0b-6229c4d0d65d");

protected:
    ~ISpeech() = default;
};

struct Speech {
    using Default = ISpeech;
    static constexpr char Name[] = "Windows.Media.SpeechSynthesis.SpeechSynthesisStream";
};

// Both toolchains write a pointer to a virtual member as 1 plus the byte offset of its slot.
template <class Method>
std::size_t SlotOf(Method method) {
    return (std::bit_cast<std::array<std::size_t, 2>>(method)[0] - 1) / sizeof(void*);
}

using TheirHandler = ABI::Windows::Foundation::ITypedEventHandler<::IInspectable*, ::IInspectable*>;
using OurHandler = TypedEventHandler<IInspectable, IInspectable>;

// The rows have to be the same ones, in any order.
void ExpectSameNumbers(const ToolchainNumber* theirs, const std::map<std::string, std::size_t>& ours) {
    std::size_t rows = 0;
    for (; theirs->Name != nullptr; ++theirs, ++rows) {
        const auto found = ours.find(theirs->Name);
        ASSERT_NE(found, ours.end()) << theirs->Name;
        EXPECT_EQ(found->second, theirs->Value) << theirs->Name;
    }
    EXPECT_EQ(rows, ours.size());
}

TEST(ToolchainHeaders, SharedBaseInterfacesHaveTheSameIdentifier) {
#define EXPECT_SAME_ID(ours, theirs) EXPECT_TRUE(SameId(ours, __uuidof(theirs))) << #theirs
    EXPECT_SAME_ID(IUnknown::Iid, ::IUnknown);
    EXPECT_SAME_ID(IInspectable::Iid, ::IInspectable);
    EXPECT_SAME_ID(IActivationFactory::Iid, ::IActivationFactory);
    EXPECT_SAME_ID(IAgileObject::Iid, ::IAgileObject);
    EXPECT_SAME_ID(IMarshalIid, ::IMarshal);
    EXPECT_SAME_ID(IAsyncInfo::Iid, ::IAsyncInfo);
#undef EXPECT_SAME_ID
}

TEST(ToolchainHeaders, SharedClassAndParameterisedInterfacesHaveTheSameIdentifier) {
#define OURS(...) \
    { #__VA_ARGS__, __VA_ARGS__::Iid }
    const std::map<std::string, GUID> ours = {
        OURS(IApplicationDataStatics),
        OURS(IApplicationData),
        OURS(IApplicationDataContainer),
        OURS(IVectorView<Marker>),
        OURS(IVectorView<Voice>),
        OURS(IIterator<Voice>),
        OURS(IIterable<Voice>),
        OURS(IAsyncOperation<Speech>),
        OURS(AsyncOperationCompletedHandler<Speech>),
    };
#undef OURS
    std::size_t rows = 0;
    for (const auto* theirs = kToolchainIdentifiers; theirs->Name != nullptr; ++theirs, ++rows) {
        const auto found = ours.find(theirs->Name);
        ASSERT_NE(found, ours.end()) << theirs->Name;
        EXPECT_TRUE(SameId(found->second, *theirs->Value)) << theirs->Name;
    }
    EXPECT_EQ(rows, ours.size());
}

TEST(ToolchainHeaders, SharedBaseMethodsStandInTheSameSlot) {
#define EXPECT_SAME_SLOT(ours, theirs, method) \
    EXPECT_EQ(SlotOf(&ours::method), SlotOf(&theirs::method)) << #theirs "::" #method
    // The toolchain overloads this one with a template.
    using TheirQuery = HRESULT (::IUnknown::*)(REFIID, void**);
    EXPECT_EQ(SlotOf(&IUnknown::QueryInterface),
              SlotOf(static_cast<TheirQuery>(&::IUnknown::QueryInterface)));
    EXPECT_SAME_SLOT(IUnknown, ::IUnknown, AddRef);
    EXPECT_SAME_SLOT(IUnknown, ::IUnknown, Release);
    EXPECT_SAME_SLOT(IInspectable, ::IInspectable, GetIids);
    EXPECT_SAME_SLOT(IInspectable, ::IInspectable, GetRuntimeClassName);
    EXPECT_SAME_SLOT(IInspectable, ::IInspectable, GetTrustLevel);
    EXPECT_SAME_SLOT(IActivationFactory, ::IActivationFactory, ActivateInstance);
    EXPECT_SAME_SLOT(IAsyncInfo, ::IAsyncInfo, get_Id);
    EXPECT_SAME_SLOT(IAsyncInfo, ::IAsyncInfo, get_Status);
    EXPECT_SAME_SLOT(IAsyncInfo, ::IAsyncInfo, get_ErrorCode);
    EXPECT_SAME_SLOT(IAsyncInfo, ::IAsyncInfo, Cancel);
    EXPECT_SAME_SLOT(IAsyncInfo, ::IAsyncInfo, Close);
    EXPECT_SAME_SLOT(OurHandler, TheirHandler, Invoke);
#undef EXPECT_SAME_SLOT
}

TEST(ToolchainHeaders, SharedClassAndParameterisedMethodsStandInTheSameSlot) {
    using Operation = IAsyncOperation<Speech>;
    using Completed = AsyncOperationCompletedHandler<Speech>;
#define OURS(name, type, method) {#name "::" #method, SlotOf(&type::method)}
#define DATA(method) OURS(IApplicationData, IApplicationData, method)
#define CONTAINER(method) OURS(IApplicationDataContainer, IApplicationDataContainer, method)
    ExpectSameNumbers(kToolchainSlots,
                      {
                          OURS(IApplicationDataStatics, IApplicationDataStatics, get_Current),
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
                          OURS(IAsyncOperation, Operation, put_Completed),
                          OURS(IAsyncOperation, Operation, get_Completed),
                          OURS(IAsyncOperation, Operation, GetResults),
                          OURS(AsyncOperationCompletedHandler, Completed, Invoke),
                          OURS(IVectorView, IVectorView<HSTRING>, GetAt),
                          OURS(IVectorView, IVectorView<HSTRING>, get_Size),
                          OURS(IVectorView, IVectorView<HSTRING>, IndexOf),
                          OURS(IVectorView, IVectorView<HSTRING>, GetMany),
                          OURS(IIterable, IIterable<Voice>, First),
                          OURS(IIterator, IIterator<Voice>, get_Current),
                          OURS(IIterator, IIterator<Voice>, get_HasCurrent),
                          OURS(IIterator, IIterator<Voice>, MoveNext),
                          OURS(IIterator, IIterator<Voice>, GetMany),
                      });
#undef CONTAINER
#undef DATA
#undef OURS
}

TEST(ToolchainHeaders, SharedTypesHaveTheSameLayout) {
#define SIZE(type) {"sizeof(" #type ")", sizeof(type)}
#define MEMBER(type, member) \
    { #type "." #member, offsetof(type, member) }
    ExpectSameNumbers(kToolchainLayouts, {
                                             SIZE(Point),
                                             SIZE(Size),
                                             SIZE(Rect),
                                             SIZE(TimeSpan),
                                             SIZE(DateTime),
                                             SIZE(PropertyType),
                                             SIZE(ApplicationDataLocality),
                                             SIZE(ApplicationDataCreateDisposition),
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
                                         });
#undef MEMBER
#undef SIZE
    EXPECT_EQ(sizeof(boolean), sizeof(::boolean));
    EXPECT_EQ(sizeof(TrustLevel), sizeof(::TrustLevel));
    EXPECT_EQ(sizeof(AsyncStatus), sizeof(::AsyncStatus));
    EXPECT_EQ(sizeof(std::uint32_t), sizeof(ULONG));
}

// The native build declares these itself; the values here are the ones it uses.
TEST(ToolchainHeaders, TypesTheNativeBuildReplacesHaveTheSizesItUses) {
    EXPECT_EQ(sizeof(HSTRING_HEADER), 24u);
    EXPECT_EQ(alignof(HSTRING_HEADER), 8u);
    EXPECT_EQ(sizeof(EventRegistrationToken), 8u);
    EXPECT_EQ(offsetof(EventRegistrationToken, value), 0u);
    EXPECT_EQ(sizeof(EventRegistrationToken::value), 8u);
    EXPECT_EQ(sizeof(HSTRING), 8u);
    EXPECT_EQ(sizeof(HSTRING_BUFFER), 8u);
    EXPECT_EQ(sizeof(GUID), 16u);
    EXPECT_EQ(alignof(GUID), 4u);
    EXPECT_EQ(sizeof(ULONG), 4u);
    EXPECT_EQ(sizeof(DWORD), 4u);
    EXPECT_EQ(sizeof(ULONGLONG), 8u);
    EXPECT_EQ(sizeof(BOOL), 4u);
    EXPECT_EQ(sizeof(WCHAR), 2u);
}

TEST(ToolchainHeaders, SharedEnumerationsHaveTheSameValues) {
#define EXPECT_SAME_VALUE(ours, theirs) \
    EXPECT_EQ(static_cast<std::int32_t>(ours), static_cast<std::int32_t>(theirs)) << #ours
    EXPECT_SAME_VALUE(TrustLevel::BaseTrust, ::BaseTrust);
    EXPECT_SAME_VALUE(TrustLevel::PartialTrust, ::PartialTrust);
    EXPECT_SAME_VALUE(TrustLevel::FullTrust, ::FullTrust);
    EXPECT_SAME_VALUE(AsyncStatus::Started, ::Started);
    EXPECT_SAME_VALUE(AsyncStatus::Completed, ::Completed);
    EXPECT_SAME_VALUE(AsyncStatus::Canceled, ::Canceled);
    EXPECT_SAME_VALUE(AsyncStatus::Error, ::Error);
#undef EXPECT_SAME_VALUE

    constexpr auto arrays = 1024u;
#define OURS(name) {"PropertyType::" #name, static_cast<std::size_t>(PropertyType::name)}
    ExpectSameNumbers(kToolchainValues,
                      {
                          OURS(Empty),
                          OURS(UInt8),
                          OURS(Int16),
                          OURS(UInt16),
                          OURS(Int32),
                          OURS(UInt32),
                          OURS(Int64),
                          OURS(UInt64),
                          OURS(Single),
                          OURS(Double),
                          OURS(Char16),
                          OURS(Boolean),
                          OURS(String),
                          OURS(Inspectable),
                          OURS(DateTime),
                          OURS(TimeSpan),
                          OURS(Guid),
                          OURS(Point),
                          OURS(Size),
                          OURS(Rect),
                          OURS(OtherType),
                          {"PropertyType::RectArray", static_cast<std::size_t>(PropertyType::Rect) + arrays},
                      });
#undef OURS
}

}  // namespace
}  // namespace brindle::abi
