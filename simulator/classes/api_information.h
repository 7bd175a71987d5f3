// Which types there are.
#pragma once

#include <string>

namespace dialsim {

// Every type is present at the start.
void SetTypePresent(const std::string& type, bool present);

}  // namespace dialsim
