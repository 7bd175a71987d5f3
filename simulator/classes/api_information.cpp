#include "simulator/classes/api_information.h"

#include "simulator/dial/dial.h"

namespace dialsim {

namespace {

// Types can be made to be missing; of what is finer than a type, everything is there.
class ApiInformation final : public Object<abi::IApiInformationStatics> {
    using Interface = abi::IApiInformationStatics;
    using boolean = abi::boolean;

public:
    ApiInformation() : Object(TypeName<Interface>()) {}

    HRESULT IsTypePresent(HSTRING type, boolean* result) noexcept override {
        return Answer("IsTypePresent", type, result);
    }
    HRESULT IsMethodPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return Answer("IsMethodPresent", type, result);
    }
    HRESULT IsMethodPresentWithArity(HSTRING type, HSTRING, std::uint32_t,
                                     boolean* result) noexcept override {
        return Answer("IsMethodPresentWithArity", type, result);
    }
    HRESULT IsEventPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return Answer("IsEventPresent", type, result);
    }
    HRESULT IsPropertyPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return Answer("IsPropertyPresent", type, result);
    }
    HRESULT IsReadOnlyPropertyPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return Answer("IsReadOnlyPropertyPresent", type, result);
    }
    HRESULT IsWriteablePropertyPresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return Answer("IsWriteablePropertyPresent", type, result);
    }
    HRESULT IsEnumNamedValuePresent(HSTRING type, HSTRING, boolean* result) noexcept override {
        return Answer("IsEnumNamedValuePresent", type, result);
    }
    HRESULT IsApiContractPresentByMajor(HSTRING contract, std::uint16_t, boolean* result) noexcept override {
        return Answer("IsApiContractPresentByMajor", contract, result);
    }
    HRESULT IsApiContractPresentByMajorAndMinor(HSTRING contract, std::uint16_t, std::uint16_t,
                                                boolean* result) noexcept override {
        return Answer("IsApiContractPresentByMajorAndMinor", contract, result);
    }

private:
    static HRESULT Answer(std::string_view method, HSTRING name, boolean* result) {
        const std::string type = Narrow(View(name));
        return PerformInto(MethodName<Interface>(method), type, result, [&] {
            *result = TheDial().TypePresent(type);
            return S_OK;
        });
    }
};

}  // namespace

Ref<abi::IInspectable> MakeApiInformation() { return Ref<abi::IInspectable>::Attach(new ApiInformation); }

}  // namespace dialsim
