// Base class of the simulator's COM streams, which are not Windows Runtime objects.
#pragma once

#include "platform/interfaces/stream.h"
#include "simulator/functions/counted.h"

namespace dialsim {

class ClassicStream : public Counted<brindle::abi::IStream> {
public:
    HRESULT QueryInterface(const GUID& iid, void** object) noexcept final {
        namespace abi = brindle::abi;
        if (object == nullptr) {
            return E_POINTER;
        }
        return ReturnThis(abi::SameId(iid, abi::IUnknown::Iid) ||
                              abi::SameId(iid, abi::ISequentialStream::Iid) ||
                              abi::SameId(iid, abi::IStream::Iid),
                          object);
    }
};

}  // namespace dialsim
