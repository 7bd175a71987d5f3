#pragma once

#include <cstdint>

#include "platform/interfaces/collections.h"

namespace brindle::abi {

struct IDeviceInformation;

struct DeviceInformation {
    using Default = IDeviceInformation;
    static constexpr char Name[] = "Windows.Devices.Enumeration.DeviceInformation";
};

struct DeviceInformationCollection {
    using Default = IVectorView<DeviceInformation>;
    static constexpr char Name[] = "Windows.Devices.Enumeration.DeviceInformationCollection";
};

// Opaque: declared for the signatures of the slots.
enum class DeviceClass : std::int32_t;
struct DeviceInformationUpdate;
struct DeviceThumbnail;
struct DeviceWatcher;
struct EnclosureLocation;

struct IDeviceInformationStatics : IInspectable {
    static constexpr GUID Iid = Id("c17f100e-3a46-4a78-8013-769dc9b97390");
    virtual HRESULT CreateFromIdAsync(HSTRING deviceId,
                                      IAsyncOperation<DeviceInformation>** result) noexcept = 0;
    virtual HRESULT CreateFromIdAsyncAdditionalProperties(
        HSTRING deviceId, IIterable<HSTRING>* additionalProperties,
        IAsyncOperation<DeviceInformation>** result) noexcept = 0;
    virtual HRESULT FindAllAsync(IAsyncOperation<DeviceInformationCollection>** result) noexcept = 0;
    virtual HRESULT FindAllAsyncDeviceClass(
        DeviceClass deviceClass, IAsyncOperation<DeviceInformationCollection>** result) noexcept = 0;
    virtual HRESULT FindAllAsyncAqsFilter(HSTRING aqsFilter,
                                          IAsyncOperation<DeviceInformationCollection>** result) noexcept = 0;
    virtual HRESULT FindAllAsyncAqsFilterAndAdditionalProperties(
        HSTRING aqsFilter, IIterable<HSTRING>* additionalProperties,
        IAsyncOperation<DeviceInformationCollection>** result) noexcept = 0;
    virtual HRESULT CreateWatcher(DeviceWatcher** result) noexcept = 0;
    virtual HRESULT CreateWatcherDeviceClass(DeviceClass deviceClass, DeviceWatcher** result) noexcept = 0;
    virtual HRESULT CreateWatcherAqsFilter(HSTRING aqsFilter, DeviceWatcher** result) noexcept = 0;
    virtual HRESULT CreateWatcherAqsFilterAndAdditionalProperties(HSTRING aqsFilter,
                                                                  IIterable<HSTRING>* additionalProperties,
                                                                  DeviceWatcher** result) noexcept = 0;

protected:
    ~IDeviceInformationStatics() = default;
};

struct IDeviceInformation : IInspectable {
    static constexpr GUID Iid = Id("aba0fb95-4398-489d-8e44-e6130927011f");
    virtual HRESULT get_Id(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Name(HSTRING* result) noexcept = 0;
    virtual HRESULT get_IsEnabled(boolean* result) noexcept = 0;
    virtual HRESULT get_IsDefault(boolean* result) noexcept = 0;
    virtual HRESULT get_EnclosureLocation(EnclosureLocation** result) noexcept = 0;
    virtual HRESULT get_Properties(IMapView<HSTRING, IInspectable>** result) noexcept = 0;
    virtual HRESULT Update(DeviceInformationUpdate* updateInfo) noexcept = 0;
    virtual HRESULT GetThumbnailAsync(IAsyncOperation<DeviceThumbnail>** result) noexcept = 0;
    virtual HRESULT GetGlyphThumbnailAsync(IAsyncOperation<DeviceThumbnail>** result) noexcept = 0;

protected:
    ~IDeviceInformation() = default;
};

}  // namespace brindle::abi
