// How the simulator's classic streams live. They are no objects of the Windows Runtime.
#pragma once

#include <atomic>

#include "platform/interfaces/stream.h"

namespace dialsim {

// Counted, and made with one reference.
class ClassicStream : public brindle::abi::IStream {
public:
    HRESULT QueryInterface(const GUID& iid, void** object) noexcept final {
        namespace abi = brindle::abi;
        if (object == nullptr) {
            return E_POINTER;
        }
        const bool answered = abi::SameId(iid, abi::IUnknown::Iid) ||
                              abi::SameId(iid, abi::ISequentialStream::Iid) ||
                              abi::SameId(iid, abi::IStream::Iid);
        *object = answered ? this : nullptr;
        if (!answered) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    std::uint32_t AddRef() noexcept final { return ++references_; }
    std::uint32_t Release() noexcept final {
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    virtual ~ClassicStream() = default;

    std::atomic<std::uint32_t> references_{1};
};

}  // namespace dialsim
