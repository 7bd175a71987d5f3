// Windows only. Compares the declared interfaces with the toolchain's own declarations, where it has them.
// Those that its headers declare for C only come from toolchain_headers.c.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "declared_facts.h"
#include "platform/interfaces/collections.h"
#include "platform/interfaces/foundation.h"

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

extern const ToolchainNumber kToolchainNumbers[];
extern const ToolchainIdentifier kToolchainIdentifiers[];
extern const ToolchainIdentifier kToolchainInstances[];

}  // extern "C"

namespace brindle::abi {
namespace {

// Unused classes whose instantiations the toolchain identifies.
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

#if __MINGW64_VERSION_MAJOR < 12
// These headers have one method for the event's two, so that later slots are one lower, and a property
// without its prefix.
const std::set<std::string> kWrongInTheToolchain = {
    "slots IApplicationData 18",
    "method IApplicationData::DataChanged 15",
    "method IApplicationData::SignalDataChanged 16",
    "method IApplicationData::RoamingStorageQuota 17",
};
const std::set<std::string> kMissingInTheToolchain = {
    "method IApplicationData::add_DataChanged",
    "method IApplicationData::remove_DataChanged",
    "method IApplicationData::get_RoamingStorageQuota",
};
// Its value does not follow from the published signature.
const std::set<std::string> kWrongInstancesInTheToolchain = {"IVectorView<HSTRING>"};
#else
const std::set<std::string> kWrongInTheToolchain;
const std::set<std::string> kMissingInTheToolchain;
const std::set<std::string> kWrongInstancesInTheToolchain;
#endif

// The toolchain's facts may be shorter: for instance, it has no parameter counts.
bool IsDeclared(const std::string& fact) {
    static const auto declared = DeclaredFacts();
    return std::any_of(declared.begin(), declared.end(),
                       [&](const std::string& ours) { return ours == fact || ours.starts_with(fact + ' '); });
}

TEST(ToolchainHeaders, SharedSlotsLayoutsAndValuesAreTheSame) {
    for (const auto* theirs = kToolchainNumbers; theirs->Name != nullptr; ++theirs) {
        const std::string fact = std::string(theirs->Name) + ' ' + std::to_string(theirs->Value);
        EXPECT_NE(IsDeclared(fact), kWrongInTheToolchain.contains(fact)) << fact;
    }
}

TEST(ToolchainHeaders, SharedInterfacesAreComparedCompletely) {
    std::set<std::string> compared;
    for (const auto* theirs = kToolchainNumbers; theirs->Name != nullptr; ++theirs)
        compared.insert(theirs->Name);
    for (const auto& ours : DeclaredFacts()) {
        const std::string name = ours.substr(0, ours.find(' ', ours.find(' ') + 1));
        if (!name.starts_with("method "))
            continue;
        const std::string slots = "slots " + name.substr(7, name.find("::") - 7);
        EXPECT_EQ(compared.contains(name), compared.contains(slots) && !kMissingInTheToolchain.contains(name))
            << name;
    }
}

TEST(ToolchainHeaders, SharedInterfacesHaveTheSameIdentifier) {
    for (const auto* theirs = kToolchainIdentifiers; theirs->Name != nullptr; ++theirs) {
        const std::string fact = std::string("identifier ") + theirs->Name + ' ' + TextOf(*theirs->Value);
        EXPECT_TRUE(IsDeclared(fact)) << fact;
    }
}

template <template <class> class Generic>
GUID OfBoolean() {
    return ParameterisedId(FixedText("pinterface(") + IdText(Generic<Speech>::GenericId) + ";b1)");
}

TEST(ToolchainHeaders, InstantiationsHaveTheSameIdentifier) {
#define OURS(...) \
    { #__VA_ARGS__, __VA_ARGS__::Iid }
    const std::map<std::string, GUID> ours = {
        OURS(IVectorView<HSTRING>),
        OURS(IVectorView<Marker>),
        OURS(IVectorView<Voice>),
        OURS(IIterator<Voice>),
        OURS(IIterable<Voice>),
        {"IAsyncOperation<boolean>", OfBoolean<IAsyncOperation>()},
        {"AsyncOperationCompletedHandler<boolean>", OfBoolean<AsyncOperationCompletedHandler>()},
        OURS(IAsyncOperation<Speech>),
        OURS(AsyncOperationCompletedHandler<Speech>),
    };
#undef OURS
    std::size_t rows = 0;
    for (const auto* theirs = kToolchainInstances; theirs->Name != nullptr; ++theirs, ++rows) {
        const auto found = ours.find(theirs->Name);
        ASSERT_NE(found, ours.end()) << theirs->Name;
        EXPECT_NE(SameId(found->second, *theirs->Value), kWrongInstancesInTheToolchain.contains(theirs->Name))
            << theirs->Name;
    }
    EXPECT_EQ(rows, ours.size());
}

// The toolchain declares handlers as a C++ template only.
TEST(ToolchainHeaders, HandlersAreInvokedThroughTheSameSlot) {
    using OurHandler = TypedEventHandler<IInspectable, IInspectable>;
    using TheirHandler = ABI::Windows::Foundation::ITypedEventHandler<::IInspectable*, ::IInspectable*>;
    EXPECT_EQ(SlotOf(&OurHandler::Invoke), SlotOf(&TheirHandler::Invoke));
}

}  // namespace
}  // namespace brindle::abi
