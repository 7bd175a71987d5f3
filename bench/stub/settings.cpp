// Application data: the roaming and the local container, each with a map.
#include <map>
#include <string>

#include "bench/stub/factories.h"
#include "bench/stub/platform.h"
#include "bench/stub/strings.h"
#include "bench/stub/vault.h"
#include "platform/interfaces/storage.h"

namespace stub {

namespace {

class Values final : public StaticObject<abi::IPropertySet, abi::IMap<HSTRING, abi::IInspectable>> {
public:
    ~Values() { Empty(); }

    HRESULT Lookup(HSTRING key, abi::IInspectable** result) noexcept override {
        STUB_RECORD_CALL();
        const auto entry = values_.find(View(key));
        return entry == values_.end() ? kOutOfBounds : ReturnReference(entry->second, result);
    }
    HRESULT Insert(HSTRING key, abi::IInspectable* value, abi::boolean* replaced) noexcept override {
        STUB_RECORD_CALL();
        const auto [entry, added] = values_.try_emplace(std::u16string(View(key)), nullptr);
        StoreReference(entry->second, value);
        *replaced = !added;
        return S_OK;
    }
    HRESULT Remove(HSTRING key) noexcept override {
        STUB_RECORD_CALL();
        const auto entry = values_.find(View(key));
        if (entry == values_.end()) {
            return kOutOfBounds;
        }
        entry->second->Release();
        values_.erase(entry);
        return S_OK;
    }

    HRESULT get_Size(std::uint32_t*) noexcept override { return E_NOTIMPL; }
    HRESULT HasKey(HSTRING, abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT GetView(abi::IMapView<HSTRING, abi::IInspectable>**) noexcept override { return E_NOTIMPL; }
    HRESULT Clear() noexcept override { return E_NOTIMPL; }

    void Empty() {
        for (const auto& [key, value] : values_) {
            value->Release();
        }
        values_.clear();
    }

private:
    std::map<std::u16string, abi::IInspectable*, std::less<>> values_;
};

class Container final : public StaticObject<abi::IApplicationDataContainer> {
public:
    HRESULT get_Values(abi::IPropertySet** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&values_, result);
    }
    HRESULT get_Name(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Locality(abi::ApplicationDataLocality*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Containers(abi::IMapView<HSTRING, abi::ApplicationDataContainer>**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT CreateContainer(HSTRING, abi::ApplicationDataCreateDisposition,
                            abi::IApplicationDataContainer**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT DeleteContainer(HSTRING) noexcept override { return E_NOTIMPL; }

    void Empty() { values_.Empty(); }

private:
    Values values_;
};

class Data final : public StaticObject<abi::IApplicationData> {
public:
    HRESULT get_LocalSettings(abi::IApplicationDataContainer** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&local_, result);
    }
    HRESULT get_RoamingSettings(abi::IApplicationDataContainer** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&roaming_, result);
    }
    HRESULT get_Version(std::uint32_t*) noexcept override { return E_NOTIMPL; }
    HRESULT SetVersionAsync(std::uint32_t, abi::ApplicationDataSetVersionHandler*,
                            abi::IAsyncAction**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT ClearAllAsync(abi::IAsyncAction**) noexcept override { return E_NOTIMPL; }
    HRESULT ClearAsync(abi::ApplicationDataLocality, abi::IAsyncAction**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT get_LocalFolder(abi::StorageFolder**) noexcept override { return E_NOTIMPL; }
    HRESULT get_RoamingFolder(abi::StorageFolder**) noexcept override { return E_NOTIMPL; }
    HRESULT get_TemporaryFolder(abi::StorageFolder**) noexcept override { return E_NOTIMPL; }
    HRESULT add_DataChanged(abi::TypedEventHandler<abi::ApplicationData, abi::IInspectable>*,
                            EventRegistrationToken*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT remove_DataChanged(EventRegistrationToken) noexcept override { return E_NOTIMPL; }
    HRESULT SignalDataChanged() noexcept override { return E_NOTIMPL; }
    HRESULT get_RoamingStorageQuota(std::uint64_t*) noexcept override { return E_NOTIMPL; }

    void Empty() {
        local_.Empty();
        roaming_.Empty();
    }

private:
    Container local_;
    Container roaming_;
};

class Statics final : public StaticObject<abi::IApplicationDataStatics> {
public:
    static constexpr HRESULT kNoPackage = static_cast<HRESULT>(0x80073D54);  // APPMODEL_ERROR_NO_PACKAGE

    HRESULT get_Current(abi::IApplicationData** result) noexcept override {
        STUB_RECORD_CALL();
        return package_identity_ ? ReturnReference(&data_, result) : kNoPackage;
    }

    void Restart(bool package_identity) {
        package_identity_ = package_identity;
        data_.Empty();
    }

private:
    bool package_identity_ = true;
    Data data_;
};

Statics& TheStatics() {
    static Statics statics;
    return statics;
}

}  // namespace

void ClearStores(bool package_identity) {
    TheStatics().Restart(package_identity);
    ClearVault();
}

abi::IUnknown& ApplicationData() { return TheStatics(); }

}  // namespace stub
