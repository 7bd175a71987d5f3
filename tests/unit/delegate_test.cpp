#include "platform/delegate.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <utility>

#include "platform/interfaces/ui_input.h"
#include "support/simulator_fixture.h"

namespace brindle {
namespace {

using RotationHandler =
    abi::TypedEventHandler<abi::RadialController, abi::RadialControllerRotationChangedEventArgs>;
using ClickHandler =
    abi::TypedEventHandler<abi::RadialController, abi::RadialControllerButtonClickedEventArgs>;

ComPtr<RotationHandler> MakeIdle() {
    return MakeDelegate<RotationHandler>([](auto*, auto*) { return S_OK; });
}

// Returns the query's result; a returned reference is released.
std::pair<HRESULT, void*> QueryResult(RotationHandler& handler, const GUID& iid) {
    int before = 0;
    void* object = &before;
    const HRESULT code = handler.QueryInterface(iid, &object);
    if (object != nullptr && object != &before) {
        handler.Release();
    }
    return {code, object};
}

TEST(Delegates, AnswerForThemselvesTheRootAndTheAgilityMarker) {
    const auto handler = MakeIdle();
    const std::pair<HRESULT, void*> itself{S_OK, handler.Get()};
    EXPECT_EQ(QueryResult(*handler.Get(), RotationHandler::Iid), itself);
    EXPECT_EQ(QueryResult(*handler.Get(), abi::IUnknown::Iid), itself);
    EXPECT_EQ(QueryResult(*handler.Get(), abi::IAgileObject::Iid), itself);
}

TEST(Delegates, AnswerForNothingElse) {
    const auto handler = MakeIdle();
    const std::pair<HRESULT, void*> refused{Code(0x80004002), nullptr};
    EXPECT_EQ(QueryResult(*handler.Get(), abi::IInspectable::Iid), refused);
    EXPECT_EQ(QueryResult(*handler.Get(), ClickHandler::Iid), refused);
    EXPECT_EQ(QueryResult(*handler.Get(), RotationHandler::GenericId), refused);
    EXPECT_EQ(QueryResult(*handler.Get(), abi::IMarshalIid), refused);
    EXPECT_EQ(QueryResult(*handler.Get(), GUID{}), refused);
}

TEST(Delegates, ARefusedQueryGivesNoReference) {
    const auto handler = MakeIdle();
    QueryResult(*handler.Get(), abi::IInspectable::Iid);
    EXPECT_EQ(handler->AddRef(), 2u);
    handler->Release();
}

TEST(Delegates, AQueryWithoutAnOutputPointerIsRefused) {
    const auto handler = MakeIdle();
    EXPECT_EQ(handler->QueryInterface(RotationHandler::Iid, nullptr), Code(0x80004003));
    EXPECT_EQ(handler->AddRef(), 2u);
    handler->Release();
}

TEST(Delegates, AreMadeWithOneReferenceAndCount) {
    const auto handler = MakeIdle();
    EXPECT_EQ(handler->AddRef(), 2u);
    EXPECT_EQ(handler->AddRef(), 3u);
    EXPECT_EQ(handler->Release(), 2u);
    EXPECT_EQ(handler->Release(), 1u);
}

TEST(Delegates, CountBeyondSixteenBits) {
    const auto handler = MakeIdle();
    for (std::uint32_t references = 2; references <= 70'000; ++references) {
        ASSERT_EQ(handler->AddRef(), references);
    }
    for (std::uint32_t references = 69'999; references >= 1; --references) {
        ASSERT_EQ(handler->Release(), references);
    }
}

TEST(Delegates, EveryAnsweredQueryGivesAReference) {
    const auto handler = MakeIdle();
    ComPtr<abi::IAgileObject> marker;
    ASSERT_EQ(Query(handler.Get(), marker), S_OK);
    EXPECT_EQ(handler->AddRef(), 3u);
    handler->Release();
}

TEST(Delegates, TheActionLivesUntilTheLastRelease) {
    const auto captured = std::make_shared<int>(0);
    RotationHandler* handler =
        MakeDelegate<RotationHandler>([captured](auto*, auto*) { return S_OK; }).Detach();
    handler->AddRef();
    EXPECT_EQ(captured.use_count(), 2);
    EXPECT_EQ(handler->Release(), 1u);
    EXPECT_EQ(captured.use_count(), 2);
    EXPECT_EQ(handler->Release(), 0u);
    EXPECT_EQ(captured.use_count(), 1);
}

TEST(Delegates, AnActionMayBeMovableOnly) {
    const auto handler = MakeDelegate<RotationHandler>(
        [owned = std::make_unique<HRESULT>(7)](auto*, auto*) { return *owned; });
    EXPECT_EQ(handler->Invoke(nullptr, nullptr), 7);
}

TEST(Delegates, TheActionGetsTheArgumentsAndItsAnswerIsTheAnswer) {
    int places[2] = {};
    auto* const sender = reinterpret_cast<abi::IRadialController*>(&places[0]);
    auto* const args = reinterpret_cast<abi::IRadialControllerRotationChangedEventArgs*>(&places[1]);
    const auto handler = MakeDelegate<RotationHandler>(
        [&](auto* from, auto* with) { return from == sender && with == args ? Code(0x80070005) : S_OK; });
    EXPECT_EQ(handler->Invoke(sender, args), Code(0x80070005));
}

TEST(Delegates, AnExceptionOfTheActionLeavesInvoke) {
    const auto handler =
        MakeDelegate<RotationHandler>([](auto*, auto*) -> HRESULT { throw std::runtime_error("raised"); });
    EXPECT_THROW(handler->Invoke(nullptr, nullptr), std::runtime_error);
}

}  // namespace
}  // namespace brindle
