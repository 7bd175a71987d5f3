// Pictures behind stream references of another implementation, such as the system's: they are read through
// the published interfaces, which complete late, fail at any call, and return buffers of their own.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "platform/implements.h"
#include "simulated_menu.h"
#include "simulator/classes/input_stream.h"

namespace brindle {
namespace {

const std::string kPng(
    "\x89PNG\r\n\x1a\n\0\0\0\x0DIHDR\0\0\0\x10\0\0\0\x10\x08\x06\0\0\0\x1F\xF3\xFF\x61 and the rest", 42);
using ReadOperation = abi::IAsyncOperationWithProgress<abi::IBuffer, std::uint32_t>;

constexpr int kNever = std::numeric_limits<int>::max();

// The implementation's calls, and how they end.
struct Source {
    int calls = 0;
    int failing_call = 0;  // counted from 1; 0: none
    int polls = 3;         // the status queries until an operation completes
    abi::AsyncStatus status = abi::AsyncStatus::Completed;
    bool own_buffer = false;
    int cancellations = 0;
    int objects = 0;

    HRESULT Call() { return ++calls == failing_call ? E_FAIL : S_OK; }
};

// An object with two interfaces; `Second` is queried for.
template <class First, class Second>
class Foreign : public First, public Second {
public:
    explicit Foreign(Source& source) : source_(source) { ++source_.objects; }

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
        const bool second = abi::SameId(iid, Second::Iid);
        if (!second && !abi::SameId(iid, abi::IUnknown::Iid)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        *object = second ? static_cast<void*>(static_cast<Second*>(this)) : static_cast<First*>(this);
        return S_OK;
    }
    std::uint32_t AddRef() noexcept override { return ++references_; }
    std::uint32_t Release() noexcept override {
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }
    HRESULT GetIids(std::uint32_t*, GUID**) noexcept override { return E_NOTIMPL; }
    HRESULT GetRuntimeClassName(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT GetTrustLevel(abi::TrustLevel*) noexcept override { return E_NOTIMPL; }

protected:
    virtual ~Foreign() { --source_.objects; }

    // Stores a new object, unless this call fails.
    template <class Made, class Result>
    HRESULT Make(Result** result) {
        *result = nullptr;
        const HRESULT code = source_.Call();
        if (code >= 0) {
            *result = new Made(source_);
        }
        return code;
    }

    Source& source_;

private:
    std::uint32_t references_ = 1;
};

template <class Interface>
class ForeignOperation : public Foreign<Interface, abi::IAsyncInfo> {
public:
    using Foreign<Interface, abi::IAsyncInfo>::Foreign;

    HRESULT get_Id(std::uint32_t*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Status(abi::AsyncStatus* result) noexcept override {
        *result = queries_++ < this->source_.polls ? abi::AsyncStatus::Started : this->source_.status;
        return this->source_.Call();
    }
    HRESULT get_ErrorCode(HRESULT*) noexcept override { return E_NOTIMPL; }
    HRESULT Cancel() noexcept override {
        ++this->source_.cancellations;
        return S_OK;
    }
    HRESULT Close() noexcept override { return S_OK; }

private:
    int queries_ = 0;
};

class ForeignBuffer final : public Foreign<abi::IBuffer, abi::IBufferByteAccess> {
public:
    using Foreign::Foreign;

    HRESULT get_Capacity(std::uint32_t*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Length(std::uint32_t* result) noexcept override {
        *result = static_cast<std::uint32_t>(kPng.size());
        return source_.Call();
    }
    HRESULT put_Length(std::uint32_t) noexcept override { return E_NOTIMPL; }
    HRESULT Buffer(std::uint8_t** bytes) noexcept override {
        *bytes = bytes_;
        return source_.Call();
    }

private:
    std::uint8_t* const bytes_ = reinterpret_cast<std::uint8_t*>(const_cast<char*>(kPng.data()));
};

class ForeignReading final : public ForeignOperation<ReadOperation> {
public:
    using ForeignOperation::ForeignOperation;

    HRESULT put_Progress(abi::IUnknown*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Progress(abi::IUnknown**) noexcept override { return E_NOTIMPL; }
    HRESULT put_Completed(abi::IUnknown*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Completed(abi::IUnknown**) noexcept override { return E_NOTIMPL; }
    HRESULT GetResults(abi::IBuffer** result) noexcept override {
        if (source_.own_buffer) {
            return Make<ForeignBuffer>(result);
        }
        *result = nullptr;
        const HRESULT code = source_.Call();
        if (code >= 0) {
            *result = ComPtr(given).Detach();
        }
        return code;
    }

    ComPtr<abi::IBuffer> given;
};

class ForeignInput final : public Foreign<abi::IInputStream, abi::IAgileObject> {
public:
    using Foreign::Foreign;

    HRESULT ReadAsync(abi::IBuffer* buffer, std::uint32_t count, abi::InputStreamOptions,
                      ReadOperation** result) noexcept override {
        ForeignReading* reading = nullptr;
        const HRESULT code = Make<ForeignReading>(&reading);
        *result = reading;
        if (code >= 0) {
            Fill(*buffer, count);
            buffer->AddRef();
            reading->given = ComPtr<abi::IBuffer>::Attach(buffer);
        }
        return code;
    }

private:
    void Fill(abi::IBuffer& buffer, std::uint32_t count) const {
        std::uint32_t capacity = 0;
        EXPECT_EQ(buffer.get_Capacity(&capacity), S_OK);
        EXPECT_EQ(count, capacity);
        if (source_.own_buffer) {
            return;
        }
        ComPtr<abi::IBufferByteAccess> access;
        ASSERT_EQ(Query(&buffer, access), S_OK);
        std::uint8_t* bytes = nullptr;
        EXPECT_EQ(access->Buffer(&bytes), S_OK);
        kPng.copy(reinterpret_cast<char*>(bytes), capacity);
        EXPECT_EQ(buffer.put_Length(capacity + 1), E_INVALIDARG);
        EXPECT_EQ(buffer.put_Length(static_cast<std::uint32_t>(kPng.size())), S_OK);
    }
};

class ForeignStream final
    : public Foreign<abi::IRandomAccessStreamWithContentType, abi::IRandomAccessStream> {
public:
    using Foreign::Foreign;

    HRESULT get_Size(std::uint64_t*) noexcept override { return E_NOTIMPL; }
    HRESULT put_Size(std::uint64_t) noexcept override { return E_NOTIMPL; }
    HRESULT GetInputStreamAt(std::uint64_t position, abi::IInputStream** result) noexcept override {
        EXPECT_EQ(position, 0u);
        return Make<ForeignInput>(result);
    }
    HRESULT GetOutputStreamAt(std::uint64_t, abi::IOutputStream**) noexcept override { return E_NOTIMPL; }
    HRESULT get_Position(std::uint64_t*) noexcept override { return E_NOTIMPL; }
    HRESULT Seek(std::uint64_t) noexcept override { return E_NOTIMPL; }
    HRESULT CloneStream(abi::IRandomAccessStream**) noexcept override { return E_NOTIMPL; }
    HRESULT get_CanRead(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT get_CanWrite(abi::boolean*) noexcept override { return E_NOTIMPL; }
};

using Opening = abi::IAsyncOperation<abi::IRandomAccessStreamWithContentType>;
using OpenedHandler = abi::AsyncOperationCompletedHandler<abi::IRandomAccessStreamWithContentType>;

class ForeignOpening final : public ForeignOperation<Opening> {
public:
    using ForeignOperation::ForeignOperation;

    HRESULT put_Completed(OpenedHandler*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Completed(OpenedHandler**) noexcept override { return E_NOTIMPL; }
    HRESULT GetResults(abi::IRandomAccessStreamWithContentType** result) noexcept override {
        return Make<ForeignStream>(result);
    }
};

class ForeignReference final : public Foreign<abi::IRandomAccessStreamReference, abi::IAgileObject> {
public:
    using Foreign::Foreign;

    HRESULT OpenReadAsync(Opening** result) noexcept override { return Make<ForeignOpening>(result); }
};

class ForeignPictures : public SimulatedMenu {
protected:
    // The picture of an item with an icon of the source.
    std::string Shown(Source& source) {
        const auto icon = ComPtr<abi::IRandomAccessStreamReference>::Attach(new ForeignReference(source));
        ComPtr<abi::IRadialControllerMenuItem> item;
        EXPECT_EQ(ItemStatics()->CreateFromIcon(ToPlatformString("Icon").Get(), icon.Get(), item.Put()),
                  S_OK);
        EXPECT_EQ(items_->Append(item.Get()), S_OK);
        const std::string line = FirstLine(MenuText(kWindow));
        EXPECT_EQ(items_->Clear(), S_OK);
        return line.substr(11, line.find(", tag") - 11);
    }
};

TEST_F(ForeignPictures, AreReadWhenTheirOperationsComplete) {
    Source source;
    EXPECT_EQ(Shown(source), "PNG picture 16x16");
    EXPECT_EQ(source.objects, 0);
}

TEST_F(ForeignPictures, MayReturnAnotherBufferThanTheyWereGiven) {
    Source source;
    source.own_buffer = true;
    EXPECT_EQ(Shown(source), "PNG picture 16x16");
    EXPECT_EQ(source.objects, 0);
}

TEST_F(ForeignPictures, AreBrokenWhenAnyCallFails) {
    Source successful;
    successful.own_buffer = true;
    Shown(successful);
    ASSERT_GT(successful.calls, 10);
    for (int call = 1; call <= successful.calls; ++call) {
        Source source;
        source.own_buffer = true;
        source.failing_call = call;
        EXPECT_EQ(Shown(source), "broken picture") << "call " << call;
        EXPECT_EQ(source.objects, 0) << "call " << call;
    }
}

TEST_F(ForeignPictures, AreBrokenWhenAnOperationEndsWithoutSuccess) {
    for (const auto status : {abi::AsyncStatus::Error, abi::AsyncStatus::Canceled}) {
        Source source;
        source.status = status;
        EXPECT_EQ(Shown(source), "broken picture");
        EXPECT_EQ(source.cancellations, 0);
        EXPECT_EQ(source.objects, 0);
    }
}

TEST_F(ForeignPictures, AreCancelledAtTheDeadline) {
    Source source;
    source.polls = kNever;
    EXPECT_EQ(Shown(source), "broken picture");
    EXPECT_EQ(source.cancellations, 1);
    EXPECT_EQ(source.objects, 0);
}

}  // namespace
}  // namespace brindle
