// Large pictures, and pictures of modules with arbitrary handles, which only the simulator's resource table
// can provide.
#include "menu/png_resource.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/edges.h"
#include "support/menu_items.h"
#include "support/pictures.h"
#include "support/recording_host.h"
#include "support/simulator_fixture.h"

namespace brindle {
namespace {

class LargePicture : public SimulatorApartmentTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        for (std::uint32_t i = 0; i < GetParam(); ++i) {
            bytes_.push_back(static_cast<std::uint8_t>(i * 167 + i / 251));  // no period of a power of two
        }
        dialsim_add_resource(kModule, kPngResource, "PNG", bytes_.data(), GetParam());
    }
    static HRESULT Load(ComPtr<abi::IStream>& stream, GlobalBlock& block) {
        return LoadPngResourceStream(reinterpret_cast<HMODULE>(1), kPngResource, &stream, block);
    }

    std::vector<std::uint8_t> bytes_;
};

TEST_P(LargePicture, IsReadCompletely) {
    GlobalBlock block;
    ComPtr<abi::IStream> stream;
    ASSERT_EQ(Load(stream, block), S_OK);
    std::vector<std::uint8_t> read_bytes(bytes_.size() + 1);
    std::uint32_t read = 0;
    EXPECT_GE(stream->Read(read_bytes.data(), GetParam() + 1, &read), 0);
    EXPECT_EQ(read, GetParam());
    read_bytes.resize(read);
    EXPECT_TRUE(read_bytes == bytes_);
    EXPECT_EQ(dialsim_calls(("GlobalAlloc(2, " + std::to_string(GetParam()) + ")").c_str()), 1u);
    EXPECT_EQ(dialsim_calls(("IStream::Write(" + std::to_string(GetParam()) + ")").c_str()), 1u);
}

TEST_P(LargePicture, IsInItsBlockBeforeTheStreamIsWritten) {
    dialsim_fail("IStream::Write", E_FAIL, 1, 1);
    GlobalBlock block;
    ComPtr<abi::IStream> stream;
    ASSERT_EQ(Load(stream, block), E_OUTOFMEMORY);
    EXPECT_EQ(std::memcmp(GlobalLock(block.Get()), bytes_.data(), bytes_.size()), 0);
    GlobalUnlock(block.Get());
}

INSTANTIATE_TEST_SUITE_P(OfBytes, LargePicture,
                         testing::Values(1, 4096, 4097, 65'535, 65'536, 65'537, 3'000'001));

using SimilarHandles = SimilarPair<std::uint64_t>;

// Two modules, of which only the first has the picture.
class SimilarModules : public SimulatorApartmentTest, public testing::WithParamInterface<SimilarHandles> {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        dialsim_add_resource(GetParam().first, kPngResource, "PNG", SmallPng().data(),
                             static_cast<std::uint32_t>(SmallPng().size()));
        ASSERT_TRUE(init_dial_listener(&host_));
    }
    void TearDown() override {
        uninit();
        ASSERT_EQ(RoInitialize(RO_INIT_SINGLETHREADED), S_OK);  // matches the fixture's RoUninitialize
        SimulatorApartmentTest::TearDown();
    }

    RecordingHost host_{kWindow};
};

TEST_P(SimilarModules, HaveResourcesOfTheirOwn) {
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(1, GetParam().first, kPngResource)}));
    EXPECT_EQ(dialsim_objects("Windows.UI.Input.RadialControllerMenuItem"), 1u);
    testing::internal::CaptureStdout();
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(1, GetParam().second, kPngResource)}));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "AddMenuItemFromResourcePNG failed with 80004005 at line 203\n");
}

INSTANTIATE_TEST_SUITE_P(DifferIn, SimilarModules,
                         testing::Values(SimilarHandles{"BitZero", 0x7FF612340000, 0x7FF612340001},
                                         SimilarHandles{"BitThirtyOne", 0x7FF692340000, 0x7FF612340000},
                                         SimilarHandles{"TheUpperHalf", 0x7FF612340000, 0x12340000},
                                         SimilarHandles{"TheTopBit", 0x8000000012340000, 0x12340000},
                                         SimilarHandles{"TheTopBitOfAll", UINT64_MAX, UINT64_MAX >> 1}),
                         kNameOfPair);

}  // namespace
}  // namespace brindle
