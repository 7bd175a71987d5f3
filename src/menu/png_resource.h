// Loads a PNG resource of a module into a stream.
#pragma once

#include "platform/com_ptr.h"
#include "platform/functions.h"
#include "platform/interfaces/stream.h"

namespace brindle {

// A movable block of the global heap.
class GlobalBlock {
public:
    GlobalBlock() = default;
    GlobalBlock(const GlobalBlock&) = delete;
    GlobalBlock& operator=(const GlobalBlock&) = delete;
    ~GlobalBlock() { Reset(); }

    HGLOBAL Get() const noexcept { return block_; }
    void Reset(HGLOBAL block = nullptr) noexcept {
        if (block_ != nullptr) {
            GlobalFree(block_);
        }
        block_ = block;
    }

private:
    HGLOBAL block_ = nullptr;
};

// Copies the "PNG" resource with this identifier into `block` and creates a stream over it, which does not
// own the block. After a failure `block` and `stream` hold what has been created so far.
HRESULT LoadPngResourceStream(HMODULE module, std::uint16_t resource, ComPtr<abi::IStream>* stream,
                              GlobalBlock& block);

}  // namespace brindle
