// Boxed values.
#pragma once

#include <optional>

#include "platform/interfaces/property_value.h"
#include "simulator/classes/object.h"
#include "simulator/stores/scalar.h"

namespace dialsim {

Ref<abi::IInspectable> Box(const Scalar& scalar);

// Empty for null, for other implementations, and for types that Scalar does not have.
std::optional<Scalar> Unbox(abi::IInspectable* object);

}  // namespace dialsim
