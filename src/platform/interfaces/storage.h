#pragma once

#include <cstdint>

#include "platform/interfaces/collections.h"
#include "platform/interfaces/storage_streams.h"
#include "platform/interfaces/uri.h"

namespace brindle::abi {

struct IApplicationData;
struct IApplicationDataContainer;

struct ApplicationData {
    using Default = IApplicationData;
    static constexpr char Name[] = "Windows.Storage.ApplicationData";
};

struct ApplicationDataContainer {
    using Default = IApplicationDataContainer;
    static constexpr char Name[] = "Windows.Storage.ApplicationDataContainer";
};

struct StorageFile {
    using Default = IStorageFile;
    static constexpr char Name[] = "Windows.Storage.StorageFile";
};

// Opaque: declared for the signatures of the slots.
enum class ApplicationDataCreateDisposition : std::int32_t;
enum class ApplicationDataLocality : std::int32_t;
struct ApplicationDataSetVersionHandler;
struct IAsyncAction;
struct StorageFolder;
struct StreamedFileDataRequestedHandler;

struct IApplicationDataStatics : IInspectable {
    static constexpr GUID Iid = Id("5612147b-e843-45e3-94d8-06169e3c8e17");
    virtual HRESULT get_Current(IApplicationData** result) noexcept = 0;

protected:
    ~IApplicationDataStatics() = default;
};

struct IApplicationData : IInspectable {
    static constexpr GUID Iid = Id("c3da6fb7-b744-4b45-b0b8-223a0938d0dc");
    virtual HRESULT get_Version(std::uint32_t* result) noexcept = 0;
    virtual HRESULT SetVersionAsync(std::uint32_t desiredVersion, ApplicationDataSetVersionHandler* handler,
                                    IAsyncAction** result) noexcept = 0;
    virtual HRESULT ClearAllAsync(IAsyncAction** result) noexcept = 0;
    virtual HRESULT ClearAsync(ApplicationDataLocality locality, IAsyncAction** result) noexcept = 0;
    virtual HRESULT get_LocalSettings(IApplicationDataContainer** result) noexcept = 0;
    virtual HRESULT get_RoamingSettings(IApplicationDataContainer** result) noexcept = 0;
    virtual HRESULT get_LocalFolder(StorageFolder** result) noexcept = 0;
    virtual HRESULT get_RoamingFolder(StorageFolder** result) noexcept = 0;
    virtual HRESULT get_TemporaryFolder(StorageFolder** result) noexcept = 0;
    virtual HRESULT add_DataChanged(TypedEventHandler<ApplicationData, IInspectable>* handler,
                                    EventRegistrationToken* result) noexcept = 0;
    virtual HRESULT remove_DataChanged(EventRegistrationToken token) noexcept = 0;
    virtual HRESULT SignalDataChanged() noexcept = 0;
    virtual HRESULT get_RoamingStorageQuota(std::uint64_t* result) noexcept = 0;

protected:
    ~IApplicationData() = default;
};

struct IApplicationDataContainer : IInspectable {
    static constexpr GUID Iid = Id("c5aefd1e-f467-40ba-8566-ab640a441e1d");
    virtual HRESULT get_Name(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Locality(ApplicationDataLocality* result) noexcept = 0;
    virtual HRESULT get_Values(IPropertySet** result) noexcept = 0;
    virtual HRESULT get_Containers(IMapView<HSTRING, ApplicationDataContainer>** result) noexcept = 0;
    virtual HRESULT CreateContainer(HSTRING name, ApplicationDataCreateDisposition disposition,
                                    IApplicationDataContainer** result) noexcept = 0;
    virtual HRESULT DeleteContainer(HSTRING name) noexcept = 0;

protected:
    ~IApplicationDataContainer() = default;
};

struct IStorageFileStatics : IInspectable {
    static constexpr GUID Iid = Id("5984c710-daf2-43c8-8bb4-a4d3eacfd03f");
    virtual HRESULT GetFileFromPathAsync(HSTRING path, IAsyncOperation<StorageFile>** result) noexcept = 0;
    virtual HRESULT GetFileFromApplicationUriAsync(IUriRuntimeClass* uri,
                                                   IAsyncOperation<StorageFile>** result) noexcept = 0;
    virtual HRESULT CreateStreamedFileAsync(HSTRING displayNameWithExtension,
                                            StreamedFileDataRequestedHandler* dataRequested,
                                            IRandomAccessStreamReference* thumbnail,
                                            IAsyncOperation<StorageFile>** result) noexcept = 0;
    virtual HRESULT ReplaceWithStreamedFileAsync(IStorageFile* fileToReplace,
                                                 StreamedFileDataRequestedHandler* dataRequested,
                                                 IRandomAccessStreamReference* thumbnail,
                                                 IAsyncOperation<StorageFile>** result) noexcept = 0;
    virtual HRESULT CreateStreamedFileFromUriAsync(HSTRING displayNameWithExtension, IUriRuntimeClass* uri,
                                                   IRandomAccessStreamReference* thumbnail,
                                                   IAsyncOperation<StorageFile>** result) noexcept = 0;
    virtual HRESULT ReplaceWithStreamedFileFromUriAsync(IStorageFile* fileToReplace, IUriRuntimeClass* uri,
                                                        IRandomAccessStreamReference* thumbnail,
                                                        IAsyncOperation<StorageFile>** result) noexcept = 0;

protected:
    ~IStorageFileStatics() = default;
};

// Only passed on, so its methods are not declared.
struct IStorageFile : IInspectable {
    static constexpr GUID Iid = Id("fa3f6186-4214-428c-a64c-14c9ac7315ea");

protected:
    ~IStorageFile() = default;
};

}  // namespace brindle::abi
