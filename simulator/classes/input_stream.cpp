#include "simulator/classes/input_stream.h"

#include <atomic>
#include <chrono>

#include "simulator/classes/object.h"
#include "simulator/functions/real.h"

namespace dialsim {

namespace {

using ReadOperation = abi::IAsyncOperationWithProgress<abi::IBuffer, std::uint32_t>;

constexpr std::chrono::seconds kDeadline{5};

// Not an Object: the system's threads use it, and may release it late. Their calls are neither journaled nor
// tracked.
class ReadBuffer final : public abi::IBuffer, public abi::IBufferByteAccess {
public:
    explicit ReadBuffer(std::size_t capacity) : bytes_(capacity, '\0') {}

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (abi::SameId(iid, abi::IBufferByteAccess::Iid)) {
            *object = static_cast<abi::IBufferByteAccess*>(this);
        } else if (abi::SameId(iid, abi::IBuffer::Iid) || abi::SameId(iid, abi::IUnknown::Iid) ||
                   abi::SameId(iid, abi::IInspectable::Iid) || abi::SameId(iid, abi::IAgileObject::Iid)) {
            *object = static_cast<abi::IBuffer*>(this);
        }
        return *object == nullptr ? E_NOINTERFACE : (AddRef(), S_OK);
    }
    std::uint32_t AddRef() noexcept override { return ++references_; }
    std::uint32_t Release() noexcept override {
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    HRESULT GetIids(std::uint32_t* count, GUID** iids) noexcept override {
        *count = 0;
        *iids = nullptr;
        return S_OK;
    }
    HRESULT GetRuntimeClassName(HSTRING* name) noexcept override {
        *name = nullptr;
        return S_OK;
    }
    HRESULT GetTrustLevel(abi::TrustLevel* level) noexcept override {
        *level = abi::TrustLevel::BaseTrust;
        return S_OK;
    }

    HRESULT get_Capacity(std::uint32_t* result) noexcept override {
        *result = static_cast<std::uint32_t>(bytes_.size());
        return S_OK;
    }
    HRESULT get_Length(std::uint32_t* result) noexcept override {
        *result = length_;
        return S_OK;
    }
    HRESULT put_Length(std::uint32_t value) noexcept override {
        if (value > bytes_.size()) {
            return E_INVALIDARG;
        }
        length_ = value;
        return S_OK;
    }
    HRESULT Buffer(std::uint8_t** bytes) noexcept override {
        *bytes = reinterpret_cast<std::uint8_t*>(bytes_.data());
        return S_OK;
    }

private:
    ~ReadBuffer() = default;

    std::atomic<std::uint32_t> references_{1};
    std::atomic<std::uint32_t> length_{0};
    std::string bytes_;
};

// What a call stores; null after a failure.
template <class T, class Call>
Ref<T> ResultOf(Call call) {
    T* result = nullptr;
    call(&result);
    return Ref<T>::Attach(result);
}

// Whether the operation completes with a success before the deadline.
bool Completes(abi::IInspectable* operation) {
    const auto info = operation == nullptr ? Ref<abi::IAsyncInfo>() : QueryFor<abi::IAsyncInfo>(operation);
    const auto deadline = std::chrono::steady_clock::now() + kDeadline;
    auto status = abi::AsyncStatus::Started;
    while (info && info->get_Status(&status) >= 0) {
        if (status != abi::AsyncStatus::Started) {
            return status == abi::AsyncStatus::Completed;
        }
        if (std::chrono::steady_clock::now() > deadline) {
            info->Cancel();
            return false;
        }
        WaitInApartment();
    }
    return false;
}

Ref<abi::IInputStream> Open(abi::IRandomAccessStreamReference& reference) {
    using Opened = abi::IRandomAccessStreamWithContentType;
    const auto opening =
        ResultOf<abi::IAsyncOperation<Opened>>([&](auto** result) { reference.OpenReadAsync(result); });
    if (!Completes(opening.get())) {
        return {};
    }
    const auto opened = ResultOf<Opened>([&](auto** result) { opening->GetResults(result); });
    const auto stream =
        opened ? QueryFor<abi::IRandomAccessStream>(opened.get()) : Ref<abi::IRandomAccessStream>();
    return stream ? ResultOf<abi::IInputStream>([&](auto** result) { stream->GetInputStreamAt(0, result); })
                  : Ref<abi::IInputStream>();
}

std::string BytesOf(abi::IBuffer& buffer) {
    const auto access = QueryFor<abi::IBufferByteAccess>(&buffer);
    std::uint8_t* bytes = nullptr;
    std::uint32_t length = 0;
    if (!access || access->Buffer(&bytes) < 0 || buffer.get_Length(&length) < 0) {
        return {};
    }
    return {reinterpret_cast<const char*>(bytes), length};
}

}  // namespace

std::string ReadThroughInterfaces(abi::IRandomAccessStreamReference& reference, std::size_t count) {
    const Ref<abi::IInputStream> stream = Open(reference);
    if (!stream) {
        return {};
    }
    const auto buffer = Make<ReadBuffer>(count);
    const auto reading = ResultOf<ReadOperation>([&](auto** result) {
        stream->ReadAsync(buffer.get(), static_cast<std::uint32_t>(count), abi::InputStreamOptions::None,
                          result);
    });
    if (!Completes(reading.get())) {
        return {};
    }
    // The stream may return another buffer than it was given.
    const auto read = ResultOf<abi::IBuffer>([&](auto** result) { reading->GetResults(result); });
    return read ? BytesOf(*read.get()) : std::string();
}

}  // namespace dialsim
