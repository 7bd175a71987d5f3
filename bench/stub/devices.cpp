// The enumeration of devices: two interfaces, the dial's second.
#include <chrono>
#include <thread>

#include "bench/stub/factories.h"
#include "bench/stub/platform.h"
#include "bench/stub/strings.h"
#include "platform/interfaces/devices.h"

namespace stub {

namespace {

using Operation = abi::IAsyncOperation<abi::DeviceInformationCollection>;
using Handler = abi::AsyncOperationCompletedHandler<abi::DeviceInformationCollection>;

class Device final : public StaticObject<abi::IDeviceInformation> {
public:
    explicit Device(std::u16string_view id) : id_(id) {}

    HRESULT get_Id(HSTRING* result) noexcept override {
        STUB_RECORD_CALL();
        return WindowsCreateString(id_.data(), static_cast<UINT>(id_.size()), result);
    }
    HRESULT get_Name(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_IsEnabled(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT get_IsDefault(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT get_EnclosureLocation(abi::EnclosureLocation**) noexcept override { return E_NOTIMPL; }
    HRESULT get_Properties(abi::IMapView<HSTRING, abi::IInspectable>**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT Update(abi::DeviceInformationUpdate*) noexcept override { return E_NOTIMPL; }
    HRESULT GetThumbnailAsync(abi::IAsyncOperation<abi::DeviceThumbnail>**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT GetGlyphThumbnailAsync(abi::IAsyncOperation<abi::DeviceThumbnail>**) noexcept override {
        return E_NOTIMPL;
    }

private:
    const std::u16string_view id_;
};

class DeviceList final : public StaticObject<abi::IVectorView<abi::DeviceInformation>> {
public:
    HRESULT GetAt(std::uint32_t index, abi::IDeviceInformation** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(index == 0 ? &other_ : &dial_, result);
    }
    HRESULT get_Size(std::uint32_t* result) noexcept override {
        STUB_RECORD_CALL();
        *result = 2;
        return S_OK;
    }
    HRESULT IndexOf(abi::IDeviceInformation*, std::uint32_t*, abi::boolean*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT GetMany(std::uint32_t, std::uint32_t, abi::IDeviceInformation**,
                    std::uint32_t*) noexcept override {
        return E_NOTIMPL;
    }

private:
    Device other_{u"\\\\?\\BTHLE#Dev_0102030405060708#7&1"};
    Device dial_{u"\\\\?\\BTHLE#Dev_bc838528f72a#7&2"};
};

class Enumeration final : public StaticObject<Operation> {
public:
    HRESULT put_Completed(Handler* handler) noexcept override {
        STUB_RECORD_CALL();
        if (time_.count() == 0) {
            return handler->Invoke(this, abi::AsyncStatus::Completed);
        }
        handler->AddRef();
        thread_ = std::thread([this, handler] {
            std::this_thread::sleep_for(time_);
            handler->Invoke(this, abi::AsyncStatus::Completed);
            handler->Release();
        });
        return S_OK;
    }
    HRESULT GetResults(abi::IVectorView<abi::DeviceInformation>** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&devices_, result);
    }
    HRESULT get_Completed(Handler**) noexcept override { return E_NOTIMPL; }

    void SetTime(std::chrono::milliseconds time) { time_ = time; }
    void Wait() {
        if (thread_.joinable()) {
            thread_.join();
        }
    }

private:
    DeviceList devices_;
    std::chrono::milliseconds time_{0};
    std::thread thread_;
};

class Statics final : public StaticObject<abi::IDeviceInformationStatics> {
public:
    HRESULT FindAllAsyncAqsFilter(HSTRING, Operation** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&enumeration_, result);
    }
    HRESULT CreateFromIdAsync(HSTRING, abi::IAsyncOperation<abi::DeviceInformation>**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT CreateFromIdAsyncAdditionalProperties(
        HSTRING, abi::IIterable<HSTRING>*, abi::IAsyncOperation<abi::DeviceInformation>**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT FindAllAsync(Operation**) noexcept override { return E_NOTIMPL; }
    HRESULT FindAllAsyncDeviceClass(abi::DeviceClass, Operation**) noexcept override { return E_NOTIMPL; }
    HRESULT FindAllAsyncAqsFilterAndAdditionalProperties(HSTRING, abi::IIterable<HSTRING>*,
                                                         Operation**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT CreateWatcher(abi::DeviceWatcher**) noexcept override { return E_NOTIMPL; }
    HRESULT CreateWatcherDeviceClass(abi::DeviceClass, abi::DeviceWatcher**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT CreateWatcherAqsFilter(HSTRING, abi::DeviceWatcher**) noexcept override { return E_NOTIMPL; }
    HRESULT CreateWatcherAqsFilterAndAdditionalProperties(HSTRING, abi::IIterable<HSTRING>*,
                                                          abi::DeviceWatcher**) noexcept override {
        return E_NOTIMPL;
    }

    Enumeration& enumeration() { return enumeration_; }

private:
    Enumeration enumeration_;
};

Statics& TheStatics() {
    static Statics statics;
    return statics;
}

}  // namespace

void SetEnumerationTime(std::chrono::milliseconds time) { TheStatics().enumeration().SetTime(time); }

void WaitForEnumeration() { TheStatics().enumeration().Wait(); }

abi::IUnknown& DeviceStatics() { return TheStatics(); }

}  // namespace stub
