#include "simulator/classes/streams.h"

#include "platform/interfaces/stream.h"
#include "simulator/classes/factories.h"
#include "simulator/classes/input_stream.h"
#include "simulator/classes/storage_file.h"
#include "simulator/functions/class_objects.h"
#include "simulator/functions/classic_stream.h"
#include "simulator/system/files.h"

namespace dialsim {

namespace {

constexpr std::uint32_t kSeekFromHere = 1;
constexpr std::uint32_t kSeekFromEnd = 2;

class JournaledStream final : public ClassicStream {
    using Interface = abi::IStream;

public:
    explicit JournaledStream(Ref<abi::IStream> stream) : stream_(std::move(stream)) {
        TheLeakTracker().TrackObject(this, "IStream", references_);
    }

    HRESULT Read(void* bytes, std::uint32_t count, std::uint32_t* read) noexcept override {
        return Move("Read", count, read,
                    [&](std::uint32_t* moved) { return stream_->Read(bytes, count, moved); });
    }
    HRESULT Write(const void* bytes, std::uint32_t count, std::uint32_t* written) noexcept override {
        return Move("Write", count, written,
                    [&](std::uint32_t* moved) { return stream_->Write(bytes, count, moved); });
    }
    HRESULT Seek(std::int64_t move, std::uint32_t origin, std::uint64_t* position) noexcept override {
        return Perform(MethodName<Interface>("Seek"), std::to_string(move) + ", " + std::to_string(origin),
                       [&] { return stream_->Seek(move, origin, position); });
    }
    HRESULT SetSize(std::uint64_t size) noexcept override {
        return Perform(MethodName<Interface>("SetSize"), std::to_string(size),
                       [&] { return stream_->SetSize(size); });
    }
    HRESULT CopyTo(IStream* target, std::uint64_t count, std::uint64_t* read,
                   std::uint64_t* written) noexcept override {
        return Perform(MethodName<Interface>("CopyTo"), std::to_string(count),
                       [&] { return stream_->CopyTo(target, count, read, written); });
    }
    HRESULT Commit(std::uint32_t flags) noexcept override {
        return Perform(MethodName<Interface>("Commit"), std::to_string(flags),
                       [&] { return stream_->Commit(flags); });
    }
    HRESULT Revert() noexcept override {
        return Perform(MethodName<Interface>("Revert"), "", [&] { return stream_->Revert(); });
    }
    HRESULT LockRegion(std::uint64_t offset, std::uint64_t count, std::uint32_t type) noexcept override {
        return Perform(MethodName<Interface>("LockRegion"), "",
                       [&] { return stream_->LockRegion(offset, count, type); });
    }
    HRESULT UnlockRegion(std::uint64_t offset, std::uint64_t count, std::uint32_t type) noexcept override {
        return Perform(MethodName<Interface>("UnlockRegion"), "",
                       [&] { return stream_->UnlockRegion(offset, count, type); });
    }
    HRESULT Stat(abi::StreamStatistics* statistics, std::uint32_t flags) noexcept override {
        return Perform(MethodName<Interface>("Stat"), "", [&] { return stream_->Stat(statistics, flags); });
    }
    HRESULT Clone(IStream** result) noexcept override {
        return PerformInto(MethodName<Interface>("Clone"), "", result, [] { return E_NOTIMPL; });
    }

private:
    ~JournaledStream() override { TheLeakTracker().UntrackObject(this); }

    // `moved` may be null. Under a fault that yields null, no bytes are moved.
    template <class Body>
    static HRESULT Move(std::string_view method, std::uint32_t count, std::uint32_t* moved, Body body) {
        std::uint32_t total = 0;
        const HRESULT code =
            Perform(MethodName<Interface>(method), std::to_string(count), [&] { return body(&total); });
        if (moved != nullptr) {
            *moved = total;
        }
        return code;
    }

    const Ref<abi::IStream> stream_;
};

class StreamOverStream final : public Object<abi::IRandomAccessStream> {
    using Interface = abi::IRandomAccessStream;

public:
    explicit StreamOverStream(abi::IStream* stream) : Object(TypeName<Interface>()), stream_(stream) {}

    HRESULT get_Size(std::uint64_t* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Size"), "", result, [&] {
            const JournalPause no_journal;
            std::uint64_t here = 0;
            if (const HRESULT code = stream_->Seek(0, kSeekFromHere, &here); code < 0) {
                return code;
            }
            if (const HRESULT code = stream_->Seek(0, kSeekFromEnd, result); code < 0) {
                return code;
            }
            return stream_->Seek(static_cast<std::int64_t>(here), abi::kSeekFromStart, nullptr);
        });
    }
    HRESULT put_Size(std::uint64_t value) noexcept override {
        return Perform(MethodName<Interface>("put_Size"), std::to_string(value), [&] {
            const JournalPause no_journal;
            return stream_->SetSize(value);
        });
    }
    HRESULT GetInputStreamAt(std::uint64_t, abi::IInputStream** result) noexcept override {
        return PerformInto(MethodName<Interface>("GetInputStreamAt"), "", result, [] { return E_NOTIMPL; });
    }
    HRESULT GetOutputStreamAt(std::uint64_t, abi::IOutputStream** result) noexcept override {
        return PerformInto(MethodName<Interface>("GetOutputStreamAt"), "", result, [] { return E_NOTIMPL; });
    }
    HRESULT get_Position(std::uint64_t* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Position"), "", result, [&] {
            const JournalPause no_journal;
            return stream_->Seek(0, kSeekFromHere, result);
        });
    }
    HRESULT Seek(std::uint64_t position) noexcept override {
        return Perform(MethodName<Interface>("Seek"), std::to_string(position), [&] {
            const JournalPause no_journal;
            return stream_->Seek(static_cast<std::int64_t>(position), abi::kSeekFromStart, nullptr);
        });
    }
    HRESULT CloneStream(abi::IRandomAccessStream** result) noexcept override {
        return PerformInto(MethodName<Interface>("CloneStream"), "", result, [] { return E_NOTIMPL; });
    }
    HRESULT get_CanRead(abi::boolean* result) noexcept override { return Can("get_CanRead", result); }
    HRESULT get_CanWrite(abi::boolean* result) noexcept override { return Can("get_CanWrite", result); }

    // Reads from the beginning and leaves the position after the prefix.
    std::string ReadPrefix(std::size_t count) {
        const JournalPause no_journal;
        std::string bytes(count, '\0');
        std::uint32_t read = 0;
        const bool done = stream_->Seek(0, abi::kSeekFromStart, nullptr) >= 0 &&
                          stream_->Read(bytes.data(), static_cast<std::uint32_t>(count), &read) >= 0;
        bytes.resize(done ? read : 0);
        return bytes;
    }

private:
    static HRESULT Can(std::string_view method, abi::boolean* result) {
        return PerformInto(MethodName<Interface>(method), "", result, [&] {
            *result = 1;
            return S_OK;
        });
    }

    const Ref<abi::IStream> stream_;
};

// Refers to a file or a stream.
class StreamReference final : public Object<abi::IRandomAccessStreamReference> {
    using Interface = abi::IRandomAccessStreamReference;

public:
    StreamReference(WideString path, Ref<abi::IRandomAccessStream> stream)
        : Object(abi::RandomAccessStreamReference::Name),
          path_(std::move(path)),
          stream_(std::move(stream)) {}

    HRESULT OpenReadAsync(
        abi::IAsyncOperation<abi::IRandomAccessStreamWithContentType>** result) noexcept override {
        return PerformInto(MethodName<Interface>("OpenReadAsync"), "", result, [] { return E_NOTIMPL; });
    }

    std::string ReadPrefix(std::size_t count) const {
        if (!stream_) {
            return dialsim::ReadPrefix(path_, count);
        }
        auto* stream = OwnObject<StreamOverStream>(stream_.get());
        return stream == nullptr ? std::string() : stream->ReadPrefix(count);
    }
    bool to_file() const { return !stream_; }

private:
    const WideString path_;
    const Ref<abi::IRandomAccessStream> stream_;
};

class StreamReferenceStatics final : public Object<abi::IRandomAccessStreamReferenceStatics> {
    using Interface = abi::IRandomAccessStreamReferenceStatics;
    using Reference = abi::IRandomAccessStreamReference;

public:
    StreamReferenceStatics() : Object(TypeName<Interface>()) {}

    HRESULT CreateFromFile(abi::IStorageFile* file, Reference** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateFromFile"), Narrow(PathOf(file)), result, [&] {
            return file == nullptr
                       ? E_INVALIDARG
                       : Make<StreamReference>(PathOf(file), Ref<abi::IRandomAccessStream>()).CopyTo(result);
        });
    }
    HRESULT CreateFromUri(abi::IUriRuntimeClass*, Reference** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateFromUri"), "", result, [] { return E_NOTIMPL; });
    }
    HRESULT CreateFromStream(abi::IRandomAccessStream* stream, Reference** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateFromStream"), "", result, [&] {
            return stream == nullptr ? E_INVALIDARG
                                     : Make<StreamReference>(WideString(), Ref(stream)).CopyTo(result);
        });
    }
};

}  // namespace

::IStream* JournalStream(::IStream* stream) {
    auto inner = Ref<abi::IStream>::Attach(reinterpret_cast<abi::IStream*>(stream));
    return reinterpret_cast<::IStream*>(static_cast<abi::IStream*>(new JournaledStream(std::move(inner))));
}

HRESULT CreateStreamOverStream(::IStream* stream, const IID& iid, void** result) {
    const JournalPause no_journal;
    return stream == nullptr
               ? E_INVALIDARG
               : Make<StreamOverStream>(reinterpret_cast<abi::IStream*>(stream))->QueryInterface(iid, result);
}

Ref<abi::IInspectable> MakeStreamReferenceStatics() {
    return Ref<abi::IInspectable>::Attach(new StreamReferenceStatics);
}

std::string ReadPrefix(abi::IRandomAccessStreamReference* reference, std::size_t count) {
    const auto* ours = OwnObject<StreamReference>(reference);
    return ours == nullptr ? ReadThroughInterfaces(*reference, count) : ours->ReadPrefix(count);
}

std::string KindOfReference(abi::IRandomAccessStreamReference* reference) {
    const auto* ours = OwnObject<StreamReference>(reference);
    return ours == nullptr ? "picture" : ours->to_file() ? "file" : "image";
}

}  // namespace dialsim
