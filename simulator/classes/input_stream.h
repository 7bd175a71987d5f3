// Reading streams of other implementations, such as the system's. The library calls none of these interfaces.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/interfaces/storage_streams.h"

namespace brindle::abi {

struct IRandomAccessStreamWithContentType : IInspectable {
    static constexpr GUID Iid = Id("cc254827-4b3d-438f-9232-10c76bc7e038");

protected:
    ~IRandomAccessStreamWithContentType() = default;
};

struct IBuffer : IInspectable {
    static constexpr GUID Iid = Id("905a0fe0-bc53-11df-8c49-001e4fc686da");
    virtual HRESULT get_Capacity(std::uint32_t* result) noexcept = 0;
    virtual HRESULT get_Length(std::uint32_t* result) noexcept = 0;
    virtual HRESULT put_Length(std::uint32_t value) noexcept = 0;

protected:
    ~IBuffer() = default;
};

// The bytes of a buffer; every buffer has this classic interface.
struct IBufferByteAccess : IUnknown {
    static constexpr GUID Iid = Id("905a0fef-bc53-11df-8c49-001e4fc686da");
    virtual HRESULT Buffer(std::uint8_t** bytes) noexcept = 0;

protected:
    ~IBufferByteAccess() = default;
};

template <>
struct Signature<std::uint32_t> {
    static constexpr auto Text = FixedText("u4");
};

// The handlers' types are left out: an operation is polled.
template <class Result, class Progress>
struct IAsyncOperationWithProgress : IInspectable {
    static constexpr GUID GenericId = Id("b5d036d7-e297-498f-ba60-0289e76e23dd");
    static constexpr GUID Iid = ParameterisedId(Signature<IAsyncOperationWithProgress>::Text);
    virtual HRESULT put_Progress(IUnknown* handler) noexcept = 0;
    virtual HRESULT get_Progress(IUnknown** result) noexcept = 0;
    virtual HRESULT put_Completed(IUnknown* handler) noexcept = 0;
    virtual HRESULT get_Completed(IUnknown** result) noexcept = 0;
    virtual HRESULT GetResults(Abi<Result>* result) noexcept = 0;

protected:
    ~IAsyncOperationWithProgress() = default;
};
static_assert(SameId(IAsyncOperationWithProgress<IBuffer, std::uint32_t>::Iid,
                     Id("d26b2819-897f-5c7d-84d6-56d796561431")));

enum class InputStreamOptions : std::uint32_t { None = 0 };

struct IInputStream : IInspectable {
    static constexpr GUID Iid = Id("905a0fe2-bc53-11df-8c49-001e4fc686da");
    virtual HRESULT ReadAsync(IBuffer* buffer, std::uint32_t count, InputStreamOptions options,
                              IAsyncOperationWithProgress<IBuffer, std::uint32_t>** result) noexcept = 0;

protected:
    ~IInputStream() = default;
};

}  // namespace brindle::abi

namespace dialsim {

// At most `count` bytes from the beginning; empty when it cannot be read within five seconds. A
// single-threaded apartment gets its incoming calls meanwhile.
std::string ReadThroughInterfaces(brindle::abi::IRandomAccessStreamReference& reference, std::size_t count);

}  // namespace dialsim
