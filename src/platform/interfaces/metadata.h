#pragma once

#include <cstdint>

#include "platform/interfaces/foundation.h"

namespace brindle::abi {

struct ApiInformation {
    static constexpr char Name[] = "Windows.Foundation.Metadata.ApiInformation";
};

// Never created: a platform that has this class is recent enough.
struct EdgeGesture {
    static constexpr char Name[] = "Windows.UI.Input.EdgeGesture";
};

struct IApiInformationStatics : IInspectable {
    static constexpr GUID Iid = Id("997439fe-f681-4a11-b416-c13a47e8ba36");
    virtual HRESULT IsTypePresent(HSTRING typeName, boolean* result) noexcept = 0;
    virtual HRESULT IsMethodPresent(HSTRING typeName, HSTRING methodName, boolean* result) noexcept = 0;
    virtual HRESULT IsMethodPresentWithArity(HSTRING typeName, HSTRING methodName,
                                             std::uint32_t inputParameterCount, boolean* result) noexcept = 0;
    virtual HRESULT IsEventPresent(HSTRING typeName, HSTRING eventName, boolean* result) noexcept = 0;
    virtual HRESULT IsPropertyPresent(HSTRING typeName, HSTRING propertyName, boolean* result) noexcept = 0;
    virtual HRESULT IsReadOnlyPropertyPresent(HSTRING typeName, HSTRING propertyName,
                                              boolean* result) noexcept = 0;
    virtual HRESULT IsWriteablePropertyPresent(HSTRING typeName, HSTRING propertyName,
                                               boolean* result) noexcept = 0;
    virtual HRESULT IsEnumNamedValuePresent(HSTRING enumTypeName, HSTRING valueName,
                                            boolean* result) noexcept = 0;
    virtual HRESULT IsApiContractPresentByMajor(HSTRING contractName, std::uint16_t majorVersion,
                                                boolean* result) noexcept = 0;
    virtual HRESULT IsApiContractPresentByMajorAndMinor(HSTRING contractName, std::uint16_t majorVersion,
                                                        std::uint16_t minorVersion,
                                                        boolean* result) noexcept = 0;

protected:
    ~IApiInformationStatics() = default;
};

}  // namespace brindle::abi
