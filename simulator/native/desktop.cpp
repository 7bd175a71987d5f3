#include "simulator/desktop.h"

namespace dialsim {

void AttendTo(std::uint64_t /*window*/) {}

void ShowChanges() {}

bool UseMouse(std::uint64_t /*window*/, MouseAction /*action*/, int /*x*/, int /*y*/) { return false; }

bool WriteScreenshot(std::uint64_t /*window*/, const std::string& /*path*/) { return false; }

}  // namespace dialsim
