// A text of more than 2^32 units: 8 GiB of address space mapped to one small block of memory.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>

#include "platform/errors.h"
#include "platform/text.h"
#include "support/sanitized.h"

namespace brindle {
namespace {

TEST(LongText, Beyond32BitLengthIsThrownAsAnOverflow) {
    if (kSanitized) {
        GTEST_SKIP() << "counting to 2^32 unoptimised takes too long";
    }
    constexpr std::size_t kPiece = std::size_t{1} << 26;
    constexpr std::size_t kPieces = (std::size_t{1} << 33) / kPiece;
    const int memory = memfd_create("text", 0);
    ASSERT_EQ(ftruncate(memory, kPiece), 0);
    // One additional page of zeros terminates the text.
    auto* const text = static_cast<char*>(mmap(nullptr, kPieces * kPiece + 4096, PROT_READ | PROT_WRITE,
                                               MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    ASSERT_NE(text, MAP_FAILED);
    for (std::size_t i = 0; i < kPieces; ++i) {
        ASSERT_NE(mmap(text + i * kPiece, kPiece, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, memory, 0),
                  MAP_FAILED);
    }
    std::memset(text, 'x', kPiece);
    try {
        CopyText(reinterpret_cast<const WCHAR*>(text));
        ADD_FAILURE();
    } catch (const hresult_error& error) {
        EXPECT_EQ(error.code(), static_cast<HRESULT>(0x80070216));
    }
    munmap(text, kPieces * kPiece + 4096);
    close(memory);
}

}  // namespace
}  // namespace brindle
