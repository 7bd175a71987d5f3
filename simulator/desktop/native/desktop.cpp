#include "simulator/desktop/desktop.h"

namespace dialsim {

void OpenDial(std::uint64_t /*window*/) {}

void CloseWindow(std::uint64_t /*window*/) {}

void UpdateDisplay() {}

bool SendMouse(std::uint64_t /*window*/, MouseAction /*action*/, int /*x*/, int /*y*/) { return false; }

bool WriteScreenshot(std::uint64_t /*window*/, const std::string& /*path*/) { return false; }

}  // namespace dialsim
