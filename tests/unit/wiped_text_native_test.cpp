// What the library frees is looked at on its way: the test program is linked with --wrap=free.
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <string_view>

#include "brindle.h"
#include "frame/text.h"
#include "simulated.h"
#include "storage/host_text.h"
#include "tests/support/stores_folder.h"

namespace {

constexpr char16_t kSecret[] = u"17 secret";

int blocks_with_the_secret = 0;

}  // namespace

extern "C" void __real_free(void* block);
extern "C" void __wrap_free(void* block) {
    if (block != nullptr && memmem(block, malloc_usable_size(block), kSecret, sizeof kSecret) != nullptr) {
        ++blocks_with_the_secret;
    }
    __real_free(block);
}

namespace brindle {
namespace {

class WipedTexts : public SimulatedApartment {
protected:
    void SetUp() override {
        SimulatedApartment::SetUp();
        blocks_with_the_secret = 0;
    }
    static HostText Secret() { return CopyForHost(CopyText(kSecret)); }
};

TEST_F(WipedTexts, ATextThatIsNotWipedWouldBeSeen) {
    Secret();
    EXPECT_EQ(blocks_with_the_secret, 1);
}

TEST_F(WipedTexts, AWipedTextIsFreedWithoutItsCharacters) {
    Wipe(Secret());
    EXPECT_EQ(blocks_with_the_secret, 0);
}

TEST_F(WipedTexts, ReadingANumberFromTheVaultLeavesNoCopyOfTheText) {
    const StoresFolder stores;
    ASSERT_TRUE(dialsim_put_credential("host", "key", "17 secret"));
    EXPECT_EQ(get_int_from_storage(u"host", u"key"), 17);
    EXPECT_EQ(blocks_with_the_secret, 0);
}

}  // namespace
}  // namespace brindle
