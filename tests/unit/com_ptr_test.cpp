#include "platform/com_ptr.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "support/simulator_fixture.h"

namespace brindle {
namespace {

// Counts references, returns a preset code to a query for the agility marker, and reports its last release.
// It is not deleted.
class Counted final : public abi::IAgileObject {
public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { EXPECT_EQ(references, 0); }

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
        const bool answered = abi::SameId(iid, abi::IAgileObject::Iid) && answer >= 0 && !yields_nothing;
        *object = answered ? this : nullptr;
        references += answered;
        return answer;
    }
    std::uint32_t AddRef() noexcept override { return static_cast<std::uint32_t>(++references); }
    std::uint32_t Release() noexcept override {
        if (--references == 0 && on_last_release) {
            on_last_release();
        }
        return static_cast<std::uint32_t>(references);
    }

    // Returns an owner of one reference.
    ComPtr<Counted> Owner() {
        AddRef();
        return ComPtr<Counted>::Attach(this);
    }

    int references = 0;
    HRESULT answer = S_OK;
    bool yields_nothing = false;
    std::function<void()> on_last_release;
};

TEST(OwnedReferences, BeginEmpty) {
    const ComPtr<Counted> pointer;
    EXPECT_FALSE(pointer);
    EXPECT_EQ(pointer.Get(), nullptr);
}

TEST(OwnedReferences, AttachAddsNoneAndTheDestructorReleasesOne) {
    Counted object;
    {
        const auto pointer = object.Owner();
        EXPECT_TRUE(pointer);
        EXPECT_EQ(object.references, 1);
    }
    EXPECT_EQ(object.references, 0);
}

TEST(OwnedReferences, ACopyHasItsOwn) {
    Counted object;
    auto pointer = object.Owner();
    const auto copy = pointer;
    EXPECT_EQ(object.references, 2);
    pointer.Reset();
    EXPECT_EQ(copy.Get(), &object);
    EXPECT_EQ(object.references, 1);
}

TEST(OwnedReferences, ACopyOfNothingIsNothing) {
    const ComPtr<Counted> nothing;
    const auto copy = nothing;
    EXPECT_FALSE(copy);
}

TEST(OwnedReferences, AMoveTransfersIt) {
    Counted object;
    auto pointer = object.Owner();
    const auto moved = std::move(pointer);
    EXPECT_FALSE(pointer);
    EXPECT_EQ(moved.Get(), &object);
    EXPECT_EQ(object.references, 1);
}

TEST(OwnedReferences, AssigningACopyReleasesTheFormer) {
    Counted former;
    Counted latter;
    auto pointer = former.Owner();
    const auto other = latter.Owner();
    pointer = other;
    EXPECT_EQ(former.references, 0);
    EXPECT_EQ(latter.references, 2);
    EXPECT_EQ(pointer.Get(), &latter);
}

TEST(OwnedReferences, AssigningByMoveReleasesTheFormer) {
    Counted former;
    Counted latter;
    auto pointer = former.Owner();
    auto other = latter.Owner();
    pointer = std::move(other);
    EXPECT_EQ(former.references, 0);
    EXPECT_EQ(latter.references, 1);
    EXPECT_FALSE(other);
}

TEST(OwnedReferences, AssigningToItselfKeepsIt) {
    Counted object;
    auto pointer = object.Owner();
    auto& itself = pointer;
    pointer = itself;
    EXPECT_EQ(pointer.Get(), &object);
    pointer = std::move(itself);
    EXPECT_EQ(pointer.Get(), &object);
    EXPECT_EQ(object.references, 1);
}

TEST(OwnedReferences, AReentrantReleaseInAnAssignmentReadsTheNewObject) {
    Counted former;
    Counted latter;
    auto pointer = former.Owner();
    const Counted* seen = nullptr;
    former.on_last_release = [&] { seen = pointer.Get(); };
    pointer = latter.Owner();
    EXPECT_EQ(seen, &latter);
}

TEST(OwnedReferences, ResetReleasesOnce) {
    Counted object;
    auto pointer = object.Owner();
    pointer.Reset();
    pointer.Reset();
    EXPECT_FALSE(pointer);
    EXPECT_EQ(object.references, 0);
}

TEST(OwnedReferences, AReentrantReleaseInResetReadsNull) {
    Counted object;
    auto pointer = object.Owner();
    bool held_at_end = true;
    object.on_last_release = [&] {
        held_at_end = static_cast<bool>(pointer);
        pointer.Reset();
    };
    pointer.Reset();
    EXPECT_FALSE(held_at_end);
    EXPECT_EQ(object.references, 0);
}

TEST(OwnedReferences, DetachingReleasesNothing) {
    Counted object;
    auto pointer = object.Owner();
    EXPECT_EQ(pointer.Detach(), &object);
    EXPECT_FALSE(pointer);
    EXPECT_EQ(object.references, 1);
    object.Release();
}

TEST(OwnedReferences, PutReleasesTheFormerObject) {
    Counted former;
    Counted latter;
    auto pointer = former.Owner();
    Counted** place = pointer.Put();
    EXPECT_EQ(former.references, 0);
    EXPECT_EQ(*place, nullptr);
    latter.AddRef();
    *place = &latter;
    EXPECT_EQ(pointer.Get(), &latter);
}

TEST(Queries, GiveAReferenceOfTheirOwn) {
    Counted object;
    ComPtr<abi::IAgileObject> marker;
    EXPECT_EQ(Query(&object, marker), S_OK);
    EXPECT_EQ(marker.Get(), &object);
    EXPECT_EQ(object.references, 1);
}

TEST(Queries, AFailureIsReturnedWithANullPointer) {
    Counted former;
    Counted object;
    object.answer = Code(0x80010108);
    ComPtr<abi::IAgileObject> marker = ComPtr<abi::IAgileObject>::Attach(former.Owner().Detach());
    EXPECT_EQ(Query(&object, marker), Code(0x80010108));
    EXPECT_FALSE(marker);
    EXPECT_EQ(former.references, 0);
}

TEST(Queries, ASuccessThatYieldsNothingIsAFailure) {
    Counted object;
    object.yields_nothing = true;
    ComPtr<abi::IAgileObject> marker;
    EXPECT_EQ(Query(&object, marker), Code(0x80004002));
    EXPECT_FALSE(marker);
}

TEST(Queries, AnotherSuccessThanZeroStays) {
    Counted object;
    object.answer = S_FALSE;
    ComPtr<abi::IAgileObject> marker;
    EXPECT_EQ(Query(&object, marker), S_FALSE);
    EXPECT_TRUE(marker);
}

}  // namespace
}  // namespace brindle
