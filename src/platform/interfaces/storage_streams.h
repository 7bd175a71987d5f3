#pragma once

#include <cstdint>

#include "platform/interfaces/foundation.h"
#include "platform/interfaces/uri.h"

namespace brindle::abi {

struct IRandomAccessStreamReference;
struct IStorageFile;

struct RandomAccessStreamReference {
    using Default = IRandomAccessStreamReference;
    static constexpr char Name[] = "Windows.Storage.Streams.RandomAccessStreamReference";
};

// Opaque: declared for the signatures of the slots.
struct IInputStream;
struct IOutputStream;
struct IRandomAccessStreamWithContentType;

struct IRandomAccessStream : IInspectable {
    static constexpr GUID Iid = Id("905a0fe1-bc53-11df-8c49-001e4fc686da");
    virtual HRESULT get_Size(std::uint64_t* result) noexcept = 0;
    virtual HRESULT put_Size(std::uint64_t value) noexcept = 0;
    virtual HRESULT GetInputStreamAt(std::uint64_t position, IInputStream** result) noexcept = 0;
    virtual HRESULT GetOutputStreamAt(std::uint64_t position, IOutputStream** result) noexcept = 0;
    virtual HRESULT get_Position(std::uint64_t* result) noexcept = 0;
    virtual HRESULT Seek(std::uint64_t position) noexcept = 0;
    virtual HRESULT CloneStream(IRandomAccessStream** result) noexcept = 0;
    virtual HRESULT get_CanRead(boolean* result) noexcept = 0;
    virtual HRESULT get_CanWrite(boolean* result) noexcept = 0;

protected:
    ~IRandomAccessStream() = default;
};

struct IRandomAccessStreamReferenceStatics : IInspectable {
    static constexpr GUID Iid = Id("857309dc-3fbf-4e7d-986f-ef3b1a07a964");
    virtual HRESULT CreateFromFile(IStorageFile* file, IRandomAccessStreamReference** result) noexcept = 0;
    virtual HRESULT CreateFromUri(IUriRuntimeClass* uri, IRandomAccessStreamReference** result) noexcept = 0;
    virtual HRESULT CreateFromStream(IRandomAccessStream* stream,
                                     IRandomAccessStreamReference** result) noexcept = 0;

protected:
    ~IRandomAccessStreamReferenceStatics() = default;
};

struct IRandomAccessStreamReference : IInspectable {
    static constexpr GUID Iid = Id("33ee3134-1dd6-4e3a-8067-d1c162e8642b");
    virtual HRESULT OpenReadAsync(IAsyncOperation<IRandomAccessStreamWithContentType>** result) noexcept = 0;

protected:
    ~IRandomAccessStreamReference() = default;
};

}  // namespace brindle::abi
