#include "menu/kind_sequence.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "support/simulator_fixture.h"

namespace brindle {
namespace {

constexpr auto kScroll = SystemItemKind::Scroll;
constexpr auto kZoom = SystemItemKind::Zoom;
constexpr auto kVolume = SystemItemKind::Volume;

class KindSequenceTest : public testing::Test {
protected:
    ComPtr<abi::IIterator<SystemItemKind>> First() {
        ComPtr<abi::IIterator<SystemItemKind>> iterator;
        EXPECT_EQ(sequence_->First(iterator.Put()), S_OK);
        return iterator;
    }

    ComPtr<KindSequence> sequence_ =
        ComPtr<KindSequence>::Attach(new KindSequence({kScroll, kZoom, kVolume}));
};

TEST_F(KindSequenceTest, StepsThroughTheKindsAndStaysPastTheEnd) {
    const auto iterator = First();
    abi::boolean more = 0;
    SystemItemKind kind{};
    for (const SystemItemKind expected : {kScroll, kZoom, kVolume}) {
        EXPECT_EQ(iterator->get_HasCurrent(&more), S_OK);
        EXPECT_EQ(more, 1);
        EXPECT_EQ(iterator->get_Current(&kind), S_OK);
        EXPECT_EQ(kind, expected);
        EXPECT_EQ(iterator->MoveNext(&more), S_OK);
        EXPECT_EQ(more, expected != kVolume);
    }
    EXPECT_EQ(iterator->get_Current(&kind), Code(0x8000000B));
    EXPECT_EQ(iterator->MoveNext(&more), S_OK);
    EXPECT_EQ(more, 0);
    EXPECT_EQ(iterator->get_HasCurrent(&more), S_OK);
    EXPECT_EQ(more, 0);
}

TEST_F(KindSequenceTest, GetManyGivesWhatIsLeft) {
    const auto iterator = First();
    std::array<SystemItemKind, 2> kinds{};
    std::uint32_t count = 0;
    EXPECT_EQ(iterator->GetMany(2, kinds.data(), &count), S_OK);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(kinds, (std::array{kScroll, kZoom}));
    EXPECT_EQ(iterator->GetMany(2, kinds.data(), &count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(kinds[0], kVolume);
    EXPECT_EQ(iterator->GetMany(2, kinds.data(), &count), S_OK);
    EXPECT_EQ(count, 0u);
}

TEST_F(KindSequenceTest, GetManyMayBeAskedForNoneAndForMoreThanThereAre) {
    const std::vector<SystemItemKind> kinds(70'000, kVolume);
    const auto many = ComPtr<KindSequence>::Attach(new KindSequence(kinds));
    ComPtr<abi::IIterator<SystemItemKind>> iterator;
    ASSERT_EQ(many->First(iterator.Put()), S_OK);
    std::vector<SystemItemKind> got(kinds.size(), kScroll);
    std::uint32_t count = 1;
    EXPECT_EQ(iterator->GetMany(0, got.data(), &count), S_OK);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(iterator->GetMany(UINT32_MAX, got.data(), &count), S_OK);
    EXPECT_EQ(count, 70'000u);
    EXPECT_TRUE(got == kinds);
}

TEST_F(KindSequenceTest, IteratorsAreIndependent) {
    const auto first = First();
    const auto second = First();
    abi::boolean more = 0;
    SystemItemKind kind{};
    EXPECT_EQ(first->MoveNext(&more), S_OK);
    EXPECT_EQ(second->get_Current(&kind), S_OK);
    EXPECT_EQ(kind, kScroll);
}

TEST_F(KindSequenceTest, AnEmptySequenceHasNothing) {
    const auto empty = ComPtr<KindSequence>::Attach(new KindSequence({}));
    ComPtr<abi::IIterator<SystemItemKind>> iterator;
    ASSERT_EQ(empty->First(iterator.Put()), S_OK);
    abi::boolean more = 1;
    EXPECT_EQ(iterator->get_HasCurrent(&more), S_OK);
    EXPECT_EQ(more, 0);
}

TEST_F(KindSequenceTest, ACallAfterCloseFails) {
    const auto iterator = First();
    abi::boolean more = 0;
    EXPECT_EQ(iterator->MoveNext(&more), S_OK);
    EXPECT_EQ(more, 1);
    sequence_->Close();
    SystemItemKind kind{};
    std::uint32_t count = 1;
    EXPECT_EQ(iterator->get_Current(&kind), Code(0x80000013));
    EXPECT_EQ(iterator->get_HasCurrent(&more), Code(0x80000013));
    EXPECT_EQ(more, 0);
    more = 1;
    EXPECT_EQ(iterator->MoveNext(&more), Code(0x80000013));
    EXPECT_EQ(more, 0);
    EXPECT_EQ(iterator->GetMany(1, &kind, &count), Code(0x80000013));
    EXPECT_EQ(count, 0u);
    abi::IIterator<SystemItemKind>* late = iterator.Get();
    EXPECT_EQ(sequence_->First(&late), Code(0x80000013));
    EXPECT_EQ(late, nullptr);
}

TEST_F(KindSequenceTest, AnIteratorOutlivesItsSequence) {
    const auto iterator = First();
    sequence_->Close();
    sequence_.Reset();
    SystemItemKind kind{};
    EXPECT_EQ(iterator->get_Current(&kind), Code(0x80000013));
}

TEST_F(KindSequenceTest, AnswersItsOwnInterfaceAndTheRoots) {
    ComPtr<abi::IIterable<SystemItemKind>> iterable;
    ComPtr<abi::IInspectable> inspectable;
    ComPtr<abi::IAgileObject> agile;
    ComPtr<abi::IIterator<SystemItemKind>> other;
    EXPECT_EQ(Query(sequence_.Get(), iterable), S_OK);
    EXPECT_EQ(Query(sequence_.Get(), inspectable), S_OK);
    EXPECT_EQ(Query(sequence_.Get(), agile), S_OK);
    EXPECT_EQ(Query(sequence_.Get(), other), E_NOINTERFACE);
}

TEST_F(KindSequenceTest, IsOfNoClassAndListsNoInterfaces) {
    std::uint32_t count = 1;
    GUID one{};
    GUID* iids = &one;
    EXPECT_EQ(sequence_->GetIids(&count, &iids), S_OK);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(iids, nullptr);
    auto name = reinterpret_cast<HSTRING>(&one);
    EXPECT_EQ(sequence_->GetRuntimeClassName(&name), S_OK);
    EXPECT_EQ(name, nullptr);
    auto trust = abi::TrustLevel::FullTrust;
    EXPECT_EQ(sequence_->GetTrustLevel(&trust), S_OK);
    EXPECT_EQ(trust, abi::TrustLevel::BaseTrust);
}

}  // namespace
}  // namespace brindle
