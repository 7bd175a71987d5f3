// What the pictures of menu items come from: font files and their URIs, picture files, resources and streams.
// Every path exists and is its own short path; every file and resource can be opened.
#include <cstring>
#include <string>

#include "bench/stub/factories.h"
#include "bench/stub/strings.h"
#include "platform/functions.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/stream.h"
#include "platform/interfaces/uri.h"

namespace stub {

namespace {

constexpr char16_t kText[] = u"file:///C:/Fonts/DIAL.TTF";

class FontUri final : public StaticObject<abi::IUriRuntimeClass> {
public:
    HRESULT get_AbsoluteUri(HSTRING* result) noexcept override {
        STUB_RECORD_CALL();
        return WindowsCreateString(kText, static_cast<UINT>(std::size(kText) - 1), result);
    }

    HRESULT get_DisplayUri(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Domain(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Extension(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Fragment(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Host(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Password(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Path(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Query(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_QueryParsed(abi::WwwFormUrlDecoder**) noexcept override { return E_NOTIMPL; }
    HRESULT get_RawUri(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_SchemeName(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_UserName(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Port(std::int32_t*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Suspicious(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT Equals(abi::IUriRuntimeClass*, abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT CombineUri(HSTRING, abi::IUriRuntimeClass**) noexcept override { return E_NOTIMPL; }
};

class Uris final : public StaticObject<abi::IUriRuntimeClassFactory> {
public:
    HRESULT CreateUri(HSTRING, abi::IUriRuntimeClass** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&uri_, result);
    }
    HRESULT CreateWithRelativeUri(HSTRING, HSTRING, abi::IUriRuntimeClass**) noexcept override {
        return E_NOTIMPL;
    }

private:
    FontUri uri_;
};

class File final : public StaticObject<abi::IStorageFile> {};

// Completes inside put_Completed.
class OpenOperation final : public StaticObject<abi::IAsyncOperation<abi::StorageFile>> {
    using Handler = abi::AsyncOperationCompletedHandler<abi::StorageFile>;

public:
    HRESULT put_Completed(Handler* handler) noexcept override {
        STUB_RECORD_CALL();
        return handler->Invoke(this, abi::AsyncStatus::Completed);
    }
    HRESULT GetResults(abi::IStorageFile** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&file_, result);
    }
    HRESULT get_Completed(Handler**) noexcept override { return E_NOTIMPL; }

private:
    File file_;
};

class Files final : public StaticObject<abi::IStorageFileStatics> {
    using Operation = abi::IAsyncOperation<abi::StorageFile>;

public:
    HRESULT GetFileFromPathAsync(HSTRING, Operation** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&operation_, result);
    }
    HRESULT GetFileFromApplicationUriAsync(abi::IUriRuntimeClass*, Operation**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT CreateStreamedFileAsync(HSTRING, abi::StreamedFileDataRequestedHandler*,
                                    abi::IRandomAccessStreamReference*, Operation**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT ReplaceWithStreamedFileAsync(abi::IStorageFile*, abi::StreamedFileDataRequestedHandler*,
                                         abi::IRandomAccessStreamReference*, Operation**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT CreateStreamedFileFromUriAsync(HSTRING, abi::IUriRuntimeClass*,
                                           abi::IRandomAccessStreamReference*,
                                           Operation**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT ReplaceWithStreamedFileFromUriAsync(abi::IStorageFile*, abi::IUriRuntimeClass*,
                                                abi::IRandomAccessStreamReference*,
                                                Operation**) noexcept override {
        return E_NOTIMPL;
    }

private:
    OpenOperation operation_;
};

class Picture final : public StaticObject<abi::IRandomAccessStreamReference> {
public:
    HRESULT OpenReadAsync(abi::IAsyncOperation<abi::IRandomAccessStreamWithContentType>**) noexcept override {
        return E_NOTIMPL;
    }
};

class References final : public StaticObject<abi::IRandomAccessStreamReferenceStatics> {
    using Reference = abi::IRandomAccessStreamReference;

public:
    HRESULT CreateFromFile(abi::IStorageFile*, Reference** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&picture_, result);
    }
    HRESULT CreateFromStream(abi::IRandomAccessStream*, Reference** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&picture_, result);
    }
    HRESULT CreateFromUri(abi::IUriRuntimeClass*, Reference**) noexcept override { return E_NOTIMPL; }

private:
    Picture picture_;
};

// Only passed on.
class RandomAccessStream final : public StaticObject<abi::IRandomAccessStream> {
public:
    HRESULT get_Size(std::uint64_t*) noexcept override { return E_NOTIMPL; }
    HRESULT put_Size(std::uint64_t) noexcept override { return E_NOTIMPL; }
    HRESULT GetInputStreamAt(std::uint64_t, abi::IInputStream**) noexcept override { return E_NOTIMPL; }
    HRESULT GetOutputStreamAt(std::uint64_t, abi::IOutputStream**) noexcept override { return E_NOTIMPL; }
    HRESULT get_Position(std::uint64_t*) noexcept override { return E_NOTIMPL; }
    HRESULT Seek(std::uint64_t) noexcept override { return E_NOTIMPL; }
    HRESULT CloneStream(abi::IRandomAccessStream**) noexcept override { return E_NOTIMPL; }
    HRESULT get_CanRead(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT get_CanWrite(abi::boolean*) noexcept override { return E_NOTIMPL; }
};

// Accepts every byte and keeps none. A classic stream has no IInspectable, unlike the other objects.
class Stream final : public abi::IStream {
public:
    HRESULT QueryInterface(const GUID&, void**) noexcept override { return E_NOTIMPL; }
    std::uint32_t AddRef() noexcept override {
        STUB_RECORD_CALL();
        return 2;
    }
    std::uint32_t Release() noexcept override {
        STUB_RECORD_CALL();
        return 1;
    }
    HRESULT Write(const void*, std::uint32_t count, std::uint32_t* written) noexcept override {
        STUB_RECORD_CALL();
        *written = count;
        return S_OK;
    }
    HRESULT Seek(std::int64_t, std::uint32_t, std::uint64_t*) noexcept override {
        STUB_RECORD_CALL();
        return S_OK;
    }
    HRESULT Commit(std::uint32_t) noexcept override {
        STUB_RECORD_CALL();
        return S_OK;
    }

    HRESULT Read(void*, std::uint32_t, std::uint32_t*) noexcept override { return E_NOTIMPL; }
    HRESULT SetSize(std::uint64_t) noexcept override { return E_NOTIMPL; }
    HRESULT CopyTo(abi::IStream*, std::uint64_t, std::uint64_t*, std::uint64_t*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT Revert() noexcept override { return E_NOTIMPL; }
    HRESULT LockRegion(std::uint64_t, std::uint64_t, std::uint32_t) noexcept override { return E_NOTIMPL; }
    HRESULT UnlockRegion(std::uint64_t, std::uint64_t, std::uint32_t) noexcept override { return E_NOTIMPL; }
    HRESULT Stat(abi::StreamStatistics*, std::uint32_t) noexcept override { return E_NOTIMPL; }
    HRESULT Clone(abi::IStream**) noexcept override { return E_NOTIMPL; }
};

Stream bytes_stream;
RandomAccessStream random_access_stream;

char picture[16];  // the resource
char block[sizeof(picture)];

}  // namespace

abi::IUnknown& StorageFileStatics() {
    static Files files;
    return files;
}

abi::IUnknown& StreamReferences() {
    static References references;
    return references;
}

abi::IUnknown& UriFactory() {
    static Uris uris;
    return uris;
}

}  // namespace stub

BOOL PathFileExistsW(const WCHAR*) {
    STUB_RECORD_CALL();
    return 1;
}

DWORD GetShortPathNameW(const WCHAR* path, WCHAR* short_path, DWORD characters) {
    STUB_RECORD_CALL();
    const auto length = static_cast<DWORD>(std::char_traits<WCHAR>::length(path));
    if (characters <= length) {
        return length + 1;
    }
    std::memcpy(short_path, path, (length + 1) * sizeof(WCHAR));
    return length;
}

HRSRC FindResourceW(HMODULE, const WCHAR*, const WCHAR*) {
    STUB_RECORD_CALL();
    return reinterpret_cast<HRSRC>(stub::picture);
}
DWORD SizeofResource(HMODULE, HRSRC) {
    STUB_RECORD_CALL();
    return sizeof(stub::picture);
}
HGLOBAL LoadResource(HMODULE, HRSRC) {
    STUB_RECORD_CALL();
    return stub::picture;
}
void* LockResource(HGLOBAL) {
    STUB_RECORD_CALL();
    return stub::picture;
}
BOOL FreeResource(HGLOBAL) {
    STUB_RECORD_CALL();
    return 0;
}

HGLOBAL GlobalAlloc(UINT, std::size_t) {
    STUB_RECORD_CALL();
    return stub::block;
}
void* GlobalLock(HGLOBAL block) {
    STUB_RECORD_CALL();
    return block;
}
BOOL GlobalUnlock(HGLOBAL) {
    STUB_RECORD_CALL();
    return 0;
}
HGLOBAL GlobalFree(HGLOBAL) {
    STUB_RECORD_CALL();
    return nullptr;
}

HRESULT CreateStreamOnHGlobal(HGLOBAL, BOOL, IStream** stream) {
    STUB_RECORD_CALL();
    *stream = reinterpret_cast<IStream*>(&stub::bytes_stream);
    return S_OK;
}
HRESULT CreateRandomAccessStreamOverStream(IStream*, BSOS_OPTIONS, const IID&, void** result) {
    STUB_RECORD_CALL();
    *result = static_cast<stub::abi::IRandomAccessStream*>(&stub::random_access_stream);
    return S_OK;
}
