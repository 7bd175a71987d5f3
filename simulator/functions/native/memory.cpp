// Global memory blocks and streams over them.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "simulator/functions/classic_stream.h"
#include "simulator/functions/real.h"

namespace dialsim {

namespace {

namespace abi = brindle::abi;

constexpr HRESULT kInvalidFunction = static_cast<HRESULT>(0x80030001);  // STG_E_INVALIDFUNCTION
constexpr HRESULT kDiskFull = static_cast<HRESULT>(0x80030070);         // STG_E_MEDIUMFULL

// A movable block: its handle is not the address of its bytes.
struct Block {
    void* bytes;
    std::size_t size;
};

Block* At(HGLOBAL handle) { return static_cast<Block*>(handle); }

// Has a fixed size. After the block is freed, the stream may only be released.
class BlockStream final : public ClassicStream {
public:
    BlockStream(HGLOBAL block, bool owned) : block_(block), owned_(owned) {}

    HRESULT Read(void* bytes, std::uint32_t count, std::uint32_t* read) noexcept override {
        const std::size_t moved = Available(count);
        std::memcpy(bytes, Current(), moved);
        position_ += moved;
        StoreCount(read, moved);
        return S_OK;
    }
    HRESULT Write(const void* bytes, std::uint32_t count, std::uint32_t* written) noexcept override {
        const std::size_t moved = Available(count);
        std::memcpy(Current(), bytes, moved);
        position_ += moved;
        StoreCount(written, moved);
        return moved == count ? S_OK : kDiskFull;
    }
    HRESULT Seek(std::int64_t move, std::uint32_t origin, std::uint64_t* position) noexcept override {
        const std::uint64_t bases[] = {0, position_, At(block_)->size};
        if (origin >= std::size(bases)) {
            return kInvalidFunction;
        }
        const std::int64_t target = static_cast<std::int64_t>(bases[origin]) + move;
        if (target < 0) {
            return kInvalidFunction;
        }
        position_ = static_cast<std::uint64_t>(target);
        if (position != nullptr) {
            *position = position_;
        }
        return S_OK;
    }
    HRESULT SetSize(std::uint64_t) noexcept override { return E_NOTIMPL; }
    HRESULT CopyTo(IStream*, std::uint64_t, std::uint64_t*, std::uint64_t*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT Commit(std::uint32_t) noexcept override { return S_OK; }
    HRESULT Revert() noexcept override { return S_OK; }
    HRESULT LockRegion(std::uint64_t, std::uint64_t, std::uint32_t) noexcept override {
        return kInvalidFunction;
    }
    HRESULT UnlockRegion(std::uint64_t, std::uint64_t, std::uint32_t) noexcept override {
        return kInvalidFunction;
    }
    HRESULT Stat(abi::StreamStatistics*, std::uint32_t) noexcept override { return E_NOTIMPL; }
    HRESULT Clone(IStream** result) noexcept override {
        *result = nullptr;
        return E_NOTIMPL;
    }

private:
    ~BlockStream() override {
        if (owned_) {
            real::GlobalFree(block_);
        }
    }

    std::size_t Available(std::uint32_t count) const {
        const std::size_t size = At(block_)->size;
        return position_ >= size ? 0 : std::min<std::size_t>(count, size - position_);
    }
    char* Current() const { return static_cast<char*>(At(block_)->bytes) + position_; }
    static void StoreCount(std::uint32_t* count, std::size_t moved) {
        if (count != nullptr) {
            *count = static_cast<std::uint32_t>(moved);
        }
    }

    const HGLOBAL block_;
    const bool owned_;
    std::uint64_t position_ = 0;
};

}  // namespace

namespace real {

HGLOBAL GlobalAlloc(UINT flags, std::size_t size) {
    if (flags != GMEM_MOVEABLE) {
        return nullptr;
    }
    void* bytes = std::malloc(std::max<std::size_t>(size, 1));
    return bytes == nullptr ? nullptr : new Block{bytes, size};
}

void* GlobalLock(HGLOBAL block) { return block == nullptr ? nullptr : At(block)->bytes; }

// 0: the lock count is zero.
BOOL GlobalUnlock(HGLOBAL) { return 0; }

HGLOBAL GlobalFree(HGLOBAL block) {
    if (block != nullptr) {
        std::free(At(block)->bytes);
        delete At(block);
    }
    return nullptr;
}

HRESULT CreateStreamOnHGlobal(HGLOBAL block, BOOL delete_on_release, ::IStream** stream) {
    if (block == nullptr) {
        return E_INVALIDARG;
    }
    *stream = reinterpret_cast<::IStream*>(
        static_cast<abi::IStream*>(new BlockStream(block, delete_on_release != 0)));
    return S_OK;
}

}  // namespace real

}  // namespace dialsim
