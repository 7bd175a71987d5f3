#include "simulator/classes/storage_file.h"

#include "simulator/classes/async.h"
#include "simulator/classes/factories.h"
#include "simulator/system/files.h"

namespace dialsim {

namespace {

constexpr HRESULT kFileNotFound = static_cast<HRESULT>(0x80070002);

class StorageFile final : public Object<abi::IStorageFile> {
public:
    explicit StorageFile(WideString path) : Object(abi::StorageFile::Name), path_(std::move(path)) {}

    const WideString& path() const { return path_; }

private:
    const WideString path_;
};

class StorageFileStatics final : public Object<abi::IStorageFileStatics> {
    using Interface = abi::IStorageFileStatics;
    using Operation = abi::IAsyncOperation<abi::StorageFile>;

public:
    StorageFileStatics() : Object(TypeName<Interface>()) {}

    HRESULT GetFileFromPathAsync(HSTRING path, Operation** result) noexcept override {
        return PerformInto(MethodName<Interface>("GetFileFromPathAsync"), Narrow(View(path)), result,
                           [&] { return StartOpening(WideString(View(path))).CopyTo(result); });
    }
    HRESULT GetFileFromApplicationUriAsync(abi::IUriRuntimeClass*, Operation** result) noexcept override {
        return ReturnNotImplemented("GetFileFromApplicationUriAsync", result);
    }
    HRESULT CreateStreamedFileAsync(HSTRING, abi::StreamedFileDataRequestedHandler*,
                                    abi::IRandomAccessStreamReference*,
                                    Operation** result) noexcept override {
        return ReturnNotImplemented("CreateStreamedFileAsync", result);
    }
    HRESULT ReplaceWithStreamedFileAsync(abi::IStorageFile*, abi::StreamedFileDataRequestedHandler*,
                                         abi::IRandomAccessStreamReference*,
                                         Operation** result) noexcept override {
        return ReturnNotImplemented("ReplaceWithStreamedFileAsync", result);
    }
    HRESULT CreateStreamedFileFromUriAsync(HSTRING, abi::IUriRuntimeClass*,
                                           abi::IRandomAccessStreamReference*,
                                           Operation** result) noexcept override {
        return ReturnNotImplemented("CreateStreamedFileFromUriAsync", result);
    }
    HRESULT ReplaceWithStreamedFileFromUriAsync(abi::IStorageFile*, abi::IUriRuntimeClass*,
                                                abi::IRandomAccessStreamReference*,
                                                Operation** result) noexcept override {
        return ReturnNotImplemented("ReplaceWithStreamedFileFromUriAsync", result);
    }

private:
    // The result is determined at the start of the operation, not at its completion.
    static Ref<Operation> StartOpening(const WideString& path) {
        if (!IsAbsolutePath(path)) {
            return StartOperation<abi::StorageFile>(E_INVALIDARG, {});
        }
        if (!IsFile(path)) {
            return StartOperation<abi::StorageFile>(kFileNotFound, {});
        }
        return StartOperation<abi::StorageFile>(S_OK, Ref<abi::IStorageFile>::Attach(new StorageFile(path)));
    }
    static HRESULT ReturnNotImplemented(std::string_view method, Operation** result) {
        return PerformInto(MethodName<Interface>(method), "", result, [] { return E_NOTIMPL; });
    }
};

}  // namespace

Ref<abi::IInspectable> MakeStorageFileStatics() {
    return Ref<abi::IInspectable>::Attach(new StorageFileStatics);
}

WideString PathOf(abi::IStorageFile* file) {
    const auto* ours = OwnObject<StorageFile>(file);
    return ours == nullptr ? WideString() : ours->path();
}

}  // namespace dialsim
