#include "simulator/classes/devices.h"

#include <optional>
#include <sstream>

#include "platform/interfaces/devices.h"
#include "simulator/classes/async.h"
#include "simulator/classes/factories.h"
#include "simulator/classes/vectors.h"
#include "simulator/system/reset.h"

namespace dialsim {

namespace {

constexpr char kDialClass[] = "{80795c47-03f0-446d-b1f2-e424b30db4da}";
constexpr char kDial[] =
    "\\\\?\\BTHLE#Dev_bc838528f72a#8&1c0ffee&0&bc838528f72a#{80795c47-03f0-446d-b1f2-e424b30db4da}";

const ResetAction reset_devices(ResetPhase::State, [] { TheDevices().Reset(); });

// The conditions of a query.
struct Filter {
    std::string interface_class;  // empty: any
    std::optional<bool> enabled;

    bool Matches(const Devices::Entry& entry) const {
        return entry.is_null || ((interface_class.empty() || entry.interface_class == interface_class) &&
                                 (!enabled || entry.enabled == *enabled));
    }
};

// Splits a conjunction into its terms and removes white space.
std::vector<std::string> TermsOf(const std::string& query) {
    std::vector<std::string> terms(1);
    std::istringstream words(query);
    for (std::string word; words >> word;) {
        if (word == "AND") {
            terms.emplace_back();
        } else {
            terms.back() += word;
        }
    }
    return terms;
}

// Parses a condition on one of the two supported properties, in Advanced Query Syntax.
bool ParseTerm(const std::string& term, Filter& filter) {
    static const std::string of_class = "System.Devices.InterfaceClassGuid:=\"";
    static const std::string of_enabled =
        "System.Devices.InterfaceEnabled:=System.StructuredQueryType.Boolean#";
    if (term.starts_with(of_class) && term.ends_with("}\"")) {
        filter.interface_class = term.substr(of_class.size(), term.size() - of_class.size() - 1);
        return filter.interface_class.find_first_not_of("{}-0123456789abcdefABCDEF") == std::string::npos;
    }
    if (term == of_enabled + "True" || term == of_enabled + "False") {
        filter.enabled = term.ends_with("True");
        return true;
    }
    return false;
}

std::optional<Filter> ParseFilter(const std::string& query) {
    Filter filter;
    for (const std::string& term : TermsOf(query)) {
        if (!ParseTerm(term, filter)) {
            return std::nullopt;
        }
    }
    return filter;
}

class DeviceInformation final : public Object<abi::IDeviceInformation> {
    using Interface = abi::IDeviceInformation;

public:
    explicit DeviceInformation(const Devices::Entry& entry)
        : Object(abi::DeviceInformation::Name), id_(Widen(entry.id)), enabled_(entry.enabled) {}

    HRESULT get_Id(HSTRING* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Id"), "", result,
                           [&] { return NewString(id_, result); });
    }
    HRESULT get_Name(HSTRING* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Name"), "", result,
                           [&] { return NewString(Widen("Simulated device"), result); });
    }
    HRESULT get_IsEnabled(abi::boolean* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_IsEnabled"), "", result, [&] {
            *result = enabled_;
            return S_OK;
        });
    }
    HRESULT get_IsDefault(abi::boolean* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_IsDefault"), "", result, [&] {
            *result = false;
            return S_OK;
        });
    }
    HRESULT get_EnclosureLocation(abi::EnclosureLocation** result) noexcept override {
        return ReturnNotImplemented("get_EnclosureLocation", result);
    }
    HRESULT get_Properties(abi::IMapView<HSTRING, abi::IInspectable>** result) noexcept override {
        return ReturnNotImplemented("get_Properties", result);
    }
    HRESULT Update(abi::DeviceInformationUpdate*) noexcept override {
        return Perform(MethodName<Interface>("Update"), "", [] { return E_NOTIMPL; });
    }
    HRESULT GetThumbnailAsync(abi::IAsyncOperation<abi::DeviceThumbnail>** result) noexcept override {
        return ReturnNotImplemented("GetThumbnailAsync", result);
    }
    HRESULT GetGlyphThumbnailAsync(abi::IAsyncOperation<abi::DeviceThumbnail>** result) noexcept override {
        return ReturnNotImplemented("GetGlyphThumbnailAsync", result);
    }

private:
    template <class Result>
    static HRESULT ReturnNotImplemented(std::string_view method, Result** result) {
        return PerformInto(MethodName<Interface>(method), "", result, [] { return E_NOTIMPL; });
    }

    const WideString id_;
    const bool enabled_;
};

class DeviceInformationStatics final : public Object<abi::IDeviceInformationStatics> {
    using Interface = abi::IDeviceInformationStatics;
    using DeviceOperation = abi::IAsyncOperation<abi::DeviceInformation>;
    using Operation = abi::IAsyncOperation<abi::DeviceInformationCollection>;
    using AdditionalProperties = abi::IIterable<HSTRING>;

public:
    DeviceInformationStatics() : Object(TypeName<Interface>()) {}

    HRESULT FindAllAsyncAqsFilter(HSTRING query, Operation** result) noexcept override {
        const std::string text = Narrow(View(query));
        return PerformInto(MethodName<Interface>("FindAllAsyncAqsFilter"), text, result, [&] {
            const std::optional<Filter> filter = ParseFilter(text);
            return filter ? StartEnumeration(*filter).CopyTo(result) : E_INVALIDARG;
        });
    }

    HRESULT CreateFromIdAsync(HSTRING, DeviceOperation** result) noexcept override {
        return ReturnNotImplemented("CreateFromIdAsync", result);
    }
    HRESULT CreateFromIdAsyncAdditionalProperties(HSTRING, AdditionalProperties*,
                                                  DeviceOperation** result) noexcept override {
        return ReturnNotImplemented("CreateFromIdAsyncAdditionalProperties", result);
    }
    HRESULT FindAllAsync(Operation** result) noexcept override {
        return PerformInto(MethodName<Interface>("FindAllAsync"), "", result,
                           [&] { return StartEnumeration({}).CopyTo(result); });
    }
    HRESULT FindAllAsyncDeviceClass(abi::DeviceClass, Operation** result) noexcept override {
        return ReturnNotImplemented("FindAllAsyncDeviceClass", result);
    }
    HRESULT FindAllAsyncAqsFilterAndAdditionalProperties(HSTRING, AdditionalProperties*,
                                                         Operation** result) noexcept override {
        return ReturnNotImplemented("FindAllAsyncAqsFilterAndAdditionalProperties", result);
    }
    HRESULT CreateWatcher(abi::DeviceWatcher** result) noexcept override {
        return ReturnNotImplemented("CreateWatcher", result);
    }
    HRESULT CreateWatcherDeviceClass(abi::DeviceClass, abi::DeviceWatcher** result) noexcept override {
        return ReturnNotImplemented("CreateWatcherDeviceClass", result);
    }
    HRESULT CreateWatcherAqsFilter(HSTRING, abi::DeviceWatcher** result) noexcept override {
        return ReturnNotImplemented("CreateWatcherAqsFilter", result);
    }
    HRESULT CreateWatcherAqsFilterAndAdditionalProperties(HSTRING, AdditionalProperties*,
                                                          abi::DeviceWatcher** result) noexcept override {
        return ReturnNotImplemented("CreateWatcherAqsFilterAndAdditionalProperties", result);
    }

private:
    // The result is determined at the start of the operation, not at its completion.
    static Ref<Operation> StartEnumeration(const Filter& filter) {
        std::vector<Ref<abi::IDeviceInformation>> found;
        for (const Devices::Entry& entry : TheDevices().All()) {
            if (filter.Matches(entry)) {
                found.push_back(entry.is_null
                                    ? Ref<abi::IDeviceInformation>()
                                    : Ref<abi::IDeviceInformation>::Attach(new DeviceInformation(entry)));
            }
        }
        using Collection = VectorView<abi::DeviceInformation>;
        return StartOperation<abi::DeviceInformationCollection>(
            TheDevices().Failure(),
            Ref<abi::IVectorView<abi::DeviceInformation>>::Attach(new Collection(std::move(found))));
    }
    template <class Result>
    static HRESULT ReturnNotImplemented(std::string_view method, Result** result) {
        return PerformInto(MethodName<Interface>(method), "", result, [] { return E_NOTIMPL; });
    }
};

}  // namespace

Devices& TheDevices() {
    // Never destroyed: enumerations may run after main returns.
    static Devices& devices = *new Devices;
    return devices;
}

Devices::Devices() { Reset(); }

void Devices::Add(const char* id, const char* interface_class, bool enabled) {
    const std::lock_guard guard(mutex_);
    entries_.push_back({id == nullptr, id == nullptr ? "" : id,
                        interface_class == nullptr ? kDialClass : interface_class, enabled});
}

void Devices::RemoveAll() {
    const std::lock_guard guard(mutex_);
    entries_.clear();
}

void Devices::Fail(HRESULT code) {
    const std::lock_guard guard(mutex_);
    failure_ = code;
}

void Devices::Reset() {
    RemoveAll();
    Fail(S_OK);
    Add(kDial, kDialClass, true);
}

std::vector<Devices::Entry> Devices::All() {
    const std::lock_guard guard(mutex_);
    return entries_;
}

HRESULT Devices::Failure() {
    const std::lock_guard guard(mutex_);
    return failure_;
}

Ref<abi::IInspectable> MakeDeviceInformationStatics() {
    return Ref<abi::IInspectable>::Attach(new DeviceInformationStatics);
}

}  // namespace dialsim
