// One value, as boxes and settings hold it.
#pragma once

#include <cstdint>
#include <variant>

#include "simulator/system/text.h"

namespace dialsim {

// Each type has its own representation.
using Scalar = std::variant<std::uint8_t, std::int16_t, std::uint16_t, std::int32_t, std::uint32_t,
                            std::int64_t, std::uint64_t, bool, WideString>;

}  // namespace dialsim
