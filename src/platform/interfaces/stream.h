// The classic COM stream, older than the Windows Runtime: derived from IUnknown alone.
#pragma once

#include <cstdint>

#include "platform/interfaces/foundation.h"

namespace brindle::abi {

struct ISequentialStream : IUnknown {
    static constexpr GUID Iid = Id("0c733a30-2a1c-11ce-ade5-00aa0044773d");
    virtual HRESULT Read(void* bytes, std::uint32_t count, std::uint32_t* read) noexcept = 0;
    virtual HRESULT Write(const void* bytes, std::uint32_t count, std::uint32_t* written) noexcept = 0;

protected:
    ~ISequentialStream() = default;
};

struct StreamStatistics;  // STATSTG; unused

struct IStream : ISequentialStream {
    static constexpr GUID Iid = Id("0000000c-0000-0000-c000-000000000046");
    virtual HRESULT Seek(std::int64_t move, std::uint32_t origin, std::uint64_t* position) noexcept = 0;
    virtual HRESULT SetSize(std::uint64_t size) noexcept = 0;
    virtual HRESULT CopyTo(IStream* target, std::uint64_t count, std::uint64_t* read,
                           std::uint64_t* written) noexcept = 0;
    virtual HRESULT Commit(std::uint32_t flags) noexcept = 0;
    virtual HRESULT Revert() noexcept = 0;
    virtual HRESULT LockRegion(std::uint64_t offset, std::uint64_t count, std::uint32_t type) noexcept = 0;
    virtual HRESULT UnlockRegion(std::uint64_t offset, std::uint64_t count, std::uint32_t type) noexcept = 0;
    virtual HRESULT Stat(StreamStatistics* statistics, std::uint32_t flags) noexcept = 0;
    virtual HRESULT Clone(IStream** result) noexcept = 0;

protected:
    ~IStream() = default;
};

inline constexpr std::uint32_t kCommitDefault = 0;
inline constexpr std::uint32_t kSeekFromStart = 0;

}  // namespace brindle::abi
