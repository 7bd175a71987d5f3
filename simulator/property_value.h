// Boxed values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/interfaces/property_value.h"
#include "simulator/object.h"

namespace dialsim {

Ref<abi::IInspectable> MakePropertyValueStatics();

// A boxed UInt32; empty for everything else.
std::optional<std::uint32_t> NumberIn(abi::IInspectable* value);

Ref<abi::IInspectable> BoxNumber(std::uint32_t number);
Ref<abi::IInspectable> BoxText(const std::string& text);

}  // namespace dialsim
