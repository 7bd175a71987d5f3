// Base class of the simulator's COM streams, which are not Windows Runtime objects.
#pragma once

#include <atomic>

#include "platform/interfaces/stream.h"

namespace dialsim {

// Created with one reference.
class ClassicStream : public brindle::abi::IStream {
public:
    HRESULT QueryInterface(const GUID& iid, void** object) noexcept final {
        namespace abi = brindle::abi;
        if (object == nullptr) {
            return E_POINTER;
        }
        const bool supported = abi::SameId(iid, abi::IUnknown::Iid) ||
                               abi::SameId(iid, abi::ISequentialStream::Iid) ||
                               abi::SameId(iid, abi::IStream::Iid);
        *object = supported ? this : nullptr;
        if (!supported) {
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
