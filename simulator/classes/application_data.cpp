// The application's settings, for programs with package identity.
#include "platform/interfaces/storage.h"
#include "simulator/classes/factories.h"
#include "simulator/classes/property_value.h"
#include "simulator/stores/package_identity.h"
#include "simulator/stores/stores.h"

namespace dialsim {

namespace {

constexpr HRESULT kNoPackage = static_cast<HRESULT>(0x80073D54);        // APPMODEL_ERROR_NO_PACKAGE
constexpr HRESULT kUnsupportedType = static_cast<HRESULT>(0x8007065E);  // ERROR_UNSUPPORTED_TYPE

// A composite setting. Its values are not simulated: no caller reads them.
class CompositeValue final : public Object<abi::IPropertySet> {
public:
    CompositeValue() : Object("Windows.Storage.ApplicationDataCompositeValue") {}
};

Ref<abi::IInspectable> ObjectOf(const Setting& setting) {
    return setting ? Box(*setting) : Ref<abi::IInspectable>::Attach(new CompositeValue);
}

HRESULT ToSetting(abi::IInspectable* value, Setting& setting) {
    if (value == nullptr) {
        return E_POINTER;
    }
    setting = Unbox(value);
    const bool kept = setting || OwnObject<CompositeValue>(value) != nullptr;
    return kept ? S_OK : kUnsupportedType;
}

// Has no cache: every call accesses the store.
class SettingsMap final : public Object<abi::IPropertySet, abi::IMap<HSTRING, abi::IInspectable>> {
    using Interface = abi::IMap<HSTRING, abi::IInspectable>;

public:
    explicit SettingsMap(SettingsStore store)
        : Object("Windows.Storage.ApplicationDataContainerSettings"), store_(store) {}

    HRESULT Lookup(HSTRING key, abi::IInspectable** result) noexcept override {
        return PerformInto(MethodName<Interface>("Lookup"), Narrow(View(key)), result, [&] {
            std::optional<Setting> found;
            const HRESULT code = UseSettings(store_, [&](Settings& settings) {
                const auto entry = settings.find(WideString(View(key)));
                if (entry != settings.end()) {
                    found = entry->second;
                }
                return S_OK;
            });
            return found ? ObjectOf(*found).CopyTo(result) : code;
        });
    }
    HRESULT get_Size(std::uint32_t* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Size"), "", result, [&] {
            return UseSettings(store_, [&](Settings& settings) {
                *result = static_cast<std::uint32_t>(settings.size());
                return S_OK;
            });
        });
    }
    HRESULT HasKey(HSTRING key, abi::boolean* result) noexcept override {
        return PerformInto(MethodName<Interface>("HasKey"), Narrow(View(key)), result, [&] {
            return UseSettings(store_, [&](Settings& settings) {
                *result = settings.contains(WideString(View(key)));
                return S_OK;
            });
        });
    }
    HRESULT GetView(abi::IMapView<HSTRING, abi::IInspectable>** result) noexcept override {
        return PerformInto(MethodName<Interface>("GetView"), "", result, [] { return E_NOTIMPL; });
    }
    HRESULT Insert(HSTRING key, abi::IInspectable* value, abi::boolean* result) noexcept override {
        return PerformInto(MethodName<Interface>("Insert"), Narrow(View(key)), result, [&] {
            Setting setting;
            if (const HRESULT code = ToSetting(value, setting); code < 0) {
                return code;
            }
            bool replaced = false;
            const HRESULT code = PutSetting(store_, WideString(View(key)), setting, replaced);
            if (code >= 0) {
                *result = replaced;
            }
            return code;
        });
    }
    HRESULT Remove(HSTRING key) noexcept override {
        return Perform(MethodName<Interface>("Remove"), Narrow(View(key)), [&] {
            return UseSettings(store_, [&](Settings& settings) {
                settings.erase(WideString(View(key)));
                return S_OK;
            });
        });
    }
    HRESULT Clear() noexcept override {
        return Perform(MethodName<Interface>("Clear"), "", [&] {
            return UseSettings(store_, [](Settings& settings) {
                settings.clear();
                return S_OK;
            });
        });
    }

private:
    const SettingsStore store_;
};

// A root container. The simulator has no nested containers.
class Container final : public Object<abi::IApplicationDataContainer> {
    using Interface = abi::IApplicationDataContainer;

public:
    explicit Container(SettingsStore store) : Object(abi::ApplicationDataContainer::Name), store_(store) {}

    // A root container has no name.
    HRESULT get_Name(HSTRING* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Name"), "", result, [] { return S_OK; });
    }
    HRESULT get_Locality(abi::ApplicationDataLocality* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Locality"), "", result, [&] {
            *result = static_cast<abi::ApplicationDataLocality>(store_);
            return S_OK;
        });
    }
    HRESULT get_Values(abi::IPropertySet** result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Values"), "", result,
                           [&] { return Make<SettingsMap>(store_).CopyTo(result); });
    }
    HRESULT get_Containers(abi::IMapView<HSTRING, abi::ApplicationDataContainer>** result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Containers"), "", result, [] { return E_NOTIMPL; });
    }
    HRESULT CreateContainer(HSTRING name, abi::ApplicationDataCreateDisposition,
                            abi::IApplicationDataContainer** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateContainer"), Narrow(View(name)), result,
                           [] { return E_NOTIMPL; });
    }
    HRESULT DeleteContainer(HSTRING name) noexcept override {
        return Perform(MethodName<Interface>("DeleteContainer"), Narrow(View(name)),
                       [] { return E_NOTIMPL; });
    }

private:
    const SettingsStore store_;
};

class ApplicationData final : public Object<abi::IApplicationData> {
    using Interface = abi::IApplicationData;

public:
    ApplicationData() : Object(abi::ApplicationData::Name) {}

    HRESULT get_LocalSettings(abi::IApplicationDataContainer** result) noexcept override {
        return PerformInto(MethodName<Interface>("get_LocalSettings"), "", result,
                           [&] { return Make<Container>(SettingsStore::Local).CopyTo(result); });
    }
    HRESULT get_RoamingSettings(abi::IApplicationDataContainer** result) noexcept override {
        return PerformInto(MethodName<Interface>("get_RoamingSettings"), "", result,
                           [&] { return Make<Container>(SettingsStore::Roaming).CopyTo(result); });
    }

    HRESULT get_Version(std::uint32_t* result) noexcept override {
        return ReturnNotImplemented("get_Version", result);
    }
    HRESULT SetVersionAsync(std::uint32_t, abi::ApplicationDataSetVersionHandler*,
                            abi::IAsyncAction** result) noexcept override {
        return ReturnNotImplemented("SetVersionAsync", result);
    }
    HRESULT ClearAllAsync(abi::IAsyncAction** result) noexcept override {
        return ReturnNotImplemented("ClearAllAsync", result);
    }
    HRESULT ClearAsync(abi::ApplicationDataLocality, abi::IAsyncAction** result) noexcept override {
        return ReturnNotImplemented("ClearAsync", result);
    }
    HRESULT get_LocalFolder(abi::StorageFolder** result) noexcept override {
        return ReturnNotImplemented("get_LocalFolder", result);
    }
    HRESULT get_RoamingFolder(abi::StorageFolder** result) noexcept override {
        return ReturnNotImplemented("get_RoamingFolder", result);
    }
    HRESULT get_TemporaryFolder(abi::StorageFolder** result) noexcept override {
        return ReturnNotImplemented("get_TemporaryFolder", result);
    }
    HRESULT add_DataChanged(abi::TypedEventHandler<abi::ApplicationData, abi::IInspectable>*,
                            EventRegistrationToken* result) noexcept override {
        return ReturnNotImplemented("add_DataChanged", result);
    }
    HRESULT remove_DataChanged(EventRegistrationToken) noexcept override {
        return Perform(MethodName<Interface>("remove_DataChanged"), "", [] { return E_NOTIMPL; });
    }
    HRESULT SignalDataChanged() noexcept override {
        return Perform(MethodName<Interface>("SignalDataChanged"), "", [] { return E_NOTIMPL; });
    }
    HRESULT get_RoamingStorageQuota(std::uint64_t* result) noexcept override {
        return ReturnNotImplemented("get_RoamingStorageQuota", result);
    }

private:
    template <class Result>
    static HRESULT ReturnNotImplemented(std::string_view method, Result* result) {
        return PerformInto(MethodName<Interface>(method), "", result, [] { return E_NOTIMPL; });
    }
};

class ApplicationDataStatics final : public Object<abi::IApplicationDataStatics> {
    using Interface = abi::IApplicationDataStatics;

public:
    ApplicationDataStatics() : Object(TypeName<Interface>()) {}

    HRESULT get_Current(abi::IApplicationData** result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Current"), "", result, [&] {
            return IsPackaged() ? Make<ApplicationData>().CopyTo(result) : kNoPackage;
        });
    }
};

}  // namespace

Ref<abi::IInspectable> MakeApplicationDataStatics() {
    return Ref<abi::IInspectable>::Attach(new ApplicationDataStatics);
}

}  // namespace dialsim
