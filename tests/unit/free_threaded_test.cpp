#include "platform/free_threaded.h"

#include <gtest/gtest.h>

#include "platform/interfaces/devices.h"
#include "support/simulator_fixture.h"
#ifndef _WIN32
#include "simulator/functions/marshal.h"
#endif

namespace brindle {
namespace {

#ifdef _WIN32
using Marshal = ::IMarshal;
using Stream = ::IStream;
#else
using Marshal = dialsim::IMarshal;
using Stream = abi::IStream;
#endif

using Handler = abi::AsyncOperationCompletedHandler<abi::DeviceInformationCollection>;

constexpr char kCreateMarshaler[] = "CoCreateFreeThreadedMarshaler";
constexpr DWORD kInProcess = 3;

class FreeThreaded : public SimulatorApartmentTest {
protected:
    // Returns a reference that the test releases; null after a refusal, whatever the pointer was before.
    Marshal* QueryMarshal(HRESULT expected) {
        void* marshal = this;
        EXPECT_EQ(handler_->QueryInterface(abi::IMarshalIid, &marshal), expected);
        return static_cast<Marshal*>(marshal);
    }
    std::uint32_t References() {
        handler_->AddRef();
        return handler_->Release();
    }
    void TearDown() override {
        handler_.Reset();
        SimulatorApartmentTest::TearDown();
    }

    ComPtr<Handler> handler_ = MakeFreeThreadedDelegate<Handler>([](auto*, auto) { return S_FALSE; });
};

TEST_F(FreeThreaded, IsADelegateAndAgile) {
    ComPtr<abi::IAgileObject> marker;
    EXPECT_EQ(Query(handler_.Get(), marker), S_OK);
    EXPECT_EQ(handler_->Invoke(nullptr, abi::AsyncStatus::Completed), S_FALSE);
    ComPtr<abi::IInspectable> no_interface;
    EXPECT_EQ(Query(handler_.Get(), no_interface), E_NOINTERFACE);
    EXPECT_EQ(dialsim_calls(kCreateMarshaler), 0u);
}

TEST_F(FreeThreaded, ItsMarshallingIsThePlatformsAndCountsOnIt) {
    Marshal* const marshal = QueryMarshal(S_OK);
    ASSERT_NE(marshal, nullptr);
    EXPECT_EQ(References(), 2u);
    void* root = nullptr;
    EXPECT_EQ(marshal->QueryInterface(abi::IUnknown::Iid, &root), S_OK);
    EXPECT_EQ(root, handler_.Get());
    handler_->Release();
    GUID unmarshaler{};
    EXPECT_EQ(marshal->GetUnmarshalClass(Handler::Iid, handler_.Get(), kInProcess, nullptr, 0, &unmarshaler),
              S_OK);
    EXPECT_TRUE(abi::SameId(unmarshaler, abi::Id("0000033a-0000-0000-c000-000000000046")));
    EXPECT_EQ(marshal->Release(), 1u);
}

TEST_F(FreeThreaded, AQueryWithoutAnOutputPointerIsRefused) {
    EXPECT_EQ(handler_->QueryInterface(abi::IMarshalIid, nullptr), E_POINTER);
    EXPECT_EQ(dialsim_calls(kCreateMarshaler), 0u);
}

TEST_F(FreeThreaded, OneMarshalerServesEveryQuestion) {
    for (int i = 0; i < 3; ++i) {
        QueryMarshal(S_OK)->Release();
    }
    EXPECT_EQ(dialsim_calls(kCreateMarshaler), 1u);
}

TEST_F(FreeThreaded, WhereThePlatformHasNoMarshalerTheQuestionFailsAndMayBeAskedAgain) {
    dialsim_fail(kCreateMarshaler, Code(0x80070005), 1, 1);
    EXPECT_EQ(QueryMarshal(Code(0x80070005)), nullptr);
    dialsim_yield_null(kCreateMarshaler, 1, 1);
    EXPECT_EQ(QueryMarshal(E_NOINTERFACE), nullptr);
    EXPECT_EQ(References(), 1u);
    QueryMarshal(S_OK)->Release();
}

TEST_F(FreeThreaded, ArrivesAsItself) {
    Marshal* const marshal = QueryMarshal(S_OK);
    ::IStream* created = nullptr;
    ASSERT_EQ(CreateStreamOnHGlobal(GlobalAlloc(GMEM_MOVEABLE, 256), 1, &created), S_OK);
    auto* const stream = reinterpret_cast<Stream*>(created);
    EXPECT_EQ(marshal->MarshalInterface(stream, Handler::Iid, handler_.Get(), kInProcess, nullptr, 0), S_OK);
#ifdef _WIN32
    EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
#else
    EXPECT_EQ(stream->Seek(0, abi::kSeekFromStart, nullptr), S_OK);
#endif
    void* arrived = nullptr;
    EXPECT_EQ(marshal->UnmarshalInterface(stream, Handler::Iid, &arrived), S_OK);
    EXPECT_EQ(arrived, handler_.Get());
    static_cast<Handler*>(arrived)->Release();
    stream->Release();
    marshal->Release();
    EXPECT_EQ(References(), 1u);
}

}  // namespace
}  // namespace brindle
