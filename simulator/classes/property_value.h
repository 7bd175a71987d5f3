// Boxed values.
#pragma once

#include <cstdint>
#include <optional>
#include <variant>

#include "platform/interfaces/property_value.h"
#include "simulator/classes/object.h"

namespace dialsim {

Ref<abi::IInspectable> MakePropertyValueStatics();

// One value; each type has a representation of its own.
using Scalar = std::variant<std::uint8_t, std::int16_t, std::uint16_t, std::int32_t, std::uint32_t,
                            std::int64_t, std::uint64_t, bool, WideString>;

Ref<abi::IInspectable> Box(const Scalar& scalar);

// Empty for null, for objects of others, and for values of other types.
std::optional<Scalar> Unbox(abi::IInspectable* object);

}  // namespace dialsim
