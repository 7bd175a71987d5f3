// Boxed values.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/interfaces/property_value.h"
#include "simulator/classes/object.h"
#include "simulator/stores/scalar.h"

namespace dialsim {

Ref<abi::IInspectable> Box(const Scalar& scalar);

// The number in a UInt32 value of any implementation; empty for other types and other objects.
std::optional<std::uint32_t> UnboxUInt32(abi::IInspectable& object);

// Empty for null, for other implementations, and for types that Scalar does not have.
std::optional<Scalar> Unbox(abi::IInspectable* object);

}  // namespace dialsim
