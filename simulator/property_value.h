// Boxed values.
#pragma once

#include "platform/interfaces/property_value.h"
#include "simulator/object.h"

namespace dialsim {

Ref<abi::IInspectable> MakePropertyValueStatics();

// A boxed value as text, "UInt32 7", for those who show it; "null" without one.
std::string Describe(abi::IInspectable* value);

}  // namespace dialsim
