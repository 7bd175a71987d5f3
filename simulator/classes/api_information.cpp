#include "simulator/classes/api_information.h"

#include <mutex>
#include <set>

#include "platform/interfaces/metadata.h"
#include "simulator/classes/factories.h"
#include "simulator/system/reset.h"
#include "sync.h"

namespace dialsim {

namespace {

Mutex missing_types_mutex;
std::set<std::string>& missing_types = *new std::set<std::string>;

bool IsTypeMissing(const std::string& type) {
    const std::lock_guard guard(missing_types_mutex);
    return missing_types.contains(type);
}

const ResetAction restore_types(ResetPhase::State, [] {
    const std::lock_guard guard(missing_types_mutex);
    missing_types.clear();
});

// Reports every member of a present type as present.
class ApiInformation final : public Object<abi::IApiInformationStatics> {
    using Interface = abi::IApiInformationStatics;
    using boolean = abi::boolean;

public:
    ApiInformation() : Object(TypeName<Interface>()) {}

    HRESULT IsTypePresent(HSTRING type, boolean* result) noexcept override {
        return ReportPresence("IsTypePresent", type, result);
    }
    HRESULT IsMethodPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return ReportPresence("IsMethodPresent", type, result);
    }
    HRESULT IsMethodPresentWithArity(HSTRING type, HSTRING, std::uint32_t,
                                     boolean* result) noexcept override {
        return ReportPresence("IsMethodPresentWithArity", type, result);
    }
    HRESULT IsEventPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return ReportPresence("IsEventPresent", type, result);
    }
    HRESULT IsPropertyPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return ReportPresence("IsPropertyPresent", type, result);
    }
    HRESULT IsReadOnlyPropertyPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return ReportPresence("IsReadOnlyPropertyPresent", type, result);
    }
    HRESULT IsWriteablePropertyPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return ReportPresence("IsWriteablePropertyPresent", type, result);
    }
    HRESULT IsEnumNamedValuePresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return ReportPresence("IsEnumNamedValuePresent", type, result);
    }
    HRESULT IsApiContractPresentByMajor(HSTRING contract, std::uint16_t, boolean* result) noexcept override {
        return ReportPresence("IsApiContractPresentByMajor", contract, result);
    }
    HRESULT IsApiContractPresentByMajorAndMinor(HSTRING contract, std::uint16_t, std::uint16_t,
                                                boolean* result) noexcept override {
        return ReportPresence("IsApiContractPresentByMajorAndMinor", contract, result);
    }

private:
    static HRESULT ReportPresence(std::string_view method, HSTRING name, boolean* result) {
        const std::string type = Narrow(View(name));
        return PerformInto(MethodName<Interface>(method), type, result, [&] {
            *result = !IsTypeMissing(type);
            return S_OK;
        });
    }
};

}  // namespace

Ref<abi::IInspectable> MakeApiInformation() { return Ref<abi::IInspectable>::Attach(new ApiInformation); }

void SetTypePresent(const std::string& type, bool present) {
    const std::lock_guard guard(missing_types_mutex);
    if (present) {
        missing_types.erase(type);
    } else {
        missing_types.insert(type);
    }
}

}  // namespace dialsim
