// The types that the platform reports as present.
#pragma once

#include <string>

namespace dialsim {

// Initially every type is present.
void SetTypePresent(const std::string& type, bool present);

}  // namespace dialsim
