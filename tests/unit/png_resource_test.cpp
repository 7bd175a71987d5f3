#include "menu/png_resource.h"

#include <gtest/gtest.h>

#include "menu/menu_entry.h"
#include "simulator/dialsim.h"
#include "support/pictures.h"

namespace brindle {
namespace {

HMODULE Module() { return reinterpret_cast<HMODULE>(ModuleWithPng()); }

class PngResource : public testing::Test {
protected:
    void SetUp() override {
        dialsim_reset();
        dialsim_watch(nullptr);
    }
};

TEST_F(PngResource, ComesAsAStreamFromItsStart) {
    GlobalBlock block;
    ComPtr<abi::IStream> stream;
    ASSERT_EQ(LoadPngResourceStream(Module(), kPngResource, &stream, block), S_OK);
    std::vector<std::uint8_t> bytes(SmallPng().size());
    std::uint32_t read = 0;
    EXPECT_GE(stream->Read(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &read), 0);
    EXPECT_EQ(bytes, SmallPng());
}

TEST_F(PngResource, NeedsAnOutputPointerForItsStream) {
    GlobalBlock block;
    EXPECT_EQ(LoadPngResourceStream(Module(), kPngResource, nullptr, block), E_INVALIDARG);
    EXPECT_EQ(dialsim_calls("FindResourceW"), 0u);
}

TEST_F(PngResource, ThatIsNotThereIsAPlainFailure) {
    GlobalBlock block;
    ComPtr<abi::IStream> stream;
    EXPECT_EQ(LoadPngResourceStream(Module(), 9999, &stream, block), E_FAIL);
    EXPECT_FALSE(stream);
    EXPECT_EQ(block.Get(), nullptr);
}

TEST_F(PngResource, WhoseStreamIsWrittenInPartIsOutOfMemoryAndStillReturned) {
    for (const bool failing : {false, true}) {
        if (failing) {
            dialsim_fail("IStream::Write", E_FAIL, 1, 1);
        } else {
            dialsim_yield_null("IStream::Write", 1, 1);
        }
        GlobalBlock block;
        ComPtr<abi::IStream> stream;
        EXPECT_EQ(LoadPngResourceStream(Module(), kPngResource, &stream, block), E_OUTOFMEMORY);
        EXPECT_TRUE(stream);
        EXPECT_NE(block.Get(), nullptr);
        EXPECT_EQ(dialsim_calls("IStream::Commit"), 0u);
    }
    EXPECT_EQ(dialsim_calls("GlobalUnlock"), 2u);
    EXPECT_EQ(dialsim_calls("FreeResource"), 2u);
}

TEST_F(PngResource, WhateverElseFailsIsAPlainFailure) {
    for (const char* operation : {"FindResourceW", "SizeofResource", "LoadResource", "LockResource",
                                  "GlobalAlloc", "GlobalLock", "CreateStreamOnHGlobal"}) {
        SCOPED_TRACE(operation);
        dialsim_fail(operation, E_INVALIDARG, 1, 1);
        GlobalBlock block;
        ComPtr<abi::IStream> stream;
        EXPECT_EQ(LoadPngResourceStream(Module(), kPngResource, &stream, block), E_FAIL);
    }
}

TEST(MenuEntry, WithoutALabelObjectHasAnEmptyLabel) { EXPECT_EQ(LabelOf(MenuEntry{})[0], 0); }

TEST(MenuEntry, StartsEmpty) {
    const MenuEntry entry;
    EXPECT_EQ(entry.item_id, 0u);
    EXPECT_EQ(entry.invoked_token, 0);
    EXPECT_FALSE(entry.haptic_feedback);
}

}  // namespace
}  // namespace brindle
