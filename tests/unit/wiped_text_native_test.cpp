// Blocks that the library frees are inspected: the test program is linked with --wrap=free.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "brindle.h"
#include "platform/text.h"
#include "storage/host_text.h"
#include "support/simulator_fixture.h"
#include "support/stores_folder.h"

namespace {

constexpr char16_t kSecret[] = u"17 secret";

int blocks_with_the_secret = 0;

const void* observed = nullptr;
std::size_t observed_bytes = 0;
bool observed_was_clear = false;

bool IsClear(const void* block, std::size_t size) {
    const auto* bytes = static_cast<const char*>(block);
    return std::all_of(bytes, bytes + size, [](char byte) { return byte == 0; });
}

}  // namespace

extern "C" void __real_free(void* block);
extern "C" void __wrap_free(void* block) {
    if (block != nullptr && memmem(block, malloc_usable_size(block), kSecret, sizeof kSecret) != nullptr) {
        ++blocks_with_the_secret;
    }
    if (block != nullptr && block == observed) {
        observed_was_clear = IsClear(block, observed_bytes);
    }
    __real_free(block);
}

namespace brindle {
namespace {

class WipedTexts : public SimulatorApartmentTest {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        blocks_with_the_secret = 0;
        observed = nullptr;
        observed_was_clear = false;
    }
    static HostText Secret() { return CopyForHost(CopyText(kSecret)); }
};

TEST_F(WipedTexts, ATextThatIsNotWipedIsDetected) {
    Secret();
    EXPECT_EQ(blocks_with_the_secret, 1);
}

TEST_F(WipedTexts, AWipedTextIsFreedWithoutItsCharacters) {
    HostText secret = Secret();
    observed = secret.get();
    observed_bytes = sizeof kSecret;
    Wipe(std::move(secret));
    EXPECT_TRUE(observed_was_clear);
    EXPECT_EQ(blocks_with_the_secret, 0);
}

TEST_F(WipedTexts, ALongTextIsWipedToItsEnd) {
    const WideText characters(70'000, 0x8001);
    HostText text = CopyForHost(CopyText(characters.c_str()));
    observed = text.get();
    observed_bytes = characters.size() * sizeof(WCHAR);
    EXPECT_FALSE(IsClear(observed, observed_bytes));
    Wipe(std::move(text));
    EXPECT_TRUE(observed_was_clear);
}

TEST_F(WipedTexts, ReadingANumberFromTheVaultLeavesNoCopyOfTheText) {
    const StoresFolder stores;
    ASSERT_TRUE(dialsim_put_credential("host", "key", "17 secret"));
    EXPECT_EQ(get_int_from_storage(u"host", u"key"), 17);
    EXPECT_EQ(blocks_with_the_secret, 0);
}

}  // namespace
}  // namespace brindle
