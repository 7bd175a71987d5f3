// The platform's interface for marshaling objects between apartments.
#pragma once

#include <cstdint>

#include "platform/interfaces/stream.h"

namespace dialsim {

struct IMarshal : brindle::abi::IUnknown {
    static constexpr GUID Iid = brindle::abi::IMarshalIid;
    virtual HRESULT GetUnmarshalClass(const IID& iid, void* object, DWORD context, void* reserved,
                                      DWORD flags, GUID* unmarshaler) noexcept = 0;
    virtual HRESULT GetMarshalSizeMax(const IID& iid, void* object, DWORD context, void* reserved,
                                      DWORD flags, DWORD* size) noexcept = 0;
    virtual HRESULT MarshalInterface(brindle::abi::IStream* stream, const IID& iid, void* object,
                                     DWORD context, void* reserved, DWORD flags) noexcept = 0;
    virtual HRESULT UnmarshalInterface(brindle::abi::IStream* stream, const IID& iid,
                                       void** object) noexcept = 0;
    virtual HRESULT ReleaseMarshalData(brindle::abi::IStream* stream) noexcept = 0;
    virtual HRESULT DisconnectObject(DWORD reserved) noexcept = 0;

protected:
    ~IMarshal() = default;
};

inline constexpr DWORD kInProcess = 3;  // MSHCTX_INPROC

// The class identifier of the free-threaded marshaler.
inline constexpr GUID kFreeThreadedMarshaler = brindle::abi::Id("0000033a-0000-0000-c000-000000000046");

}  // namespace dialsim
