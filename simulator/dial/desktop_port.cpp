#include "simulator/dial/desktop_port.h"

namespace dialsim {

namespace {

class NoDesktop final : public DesktopPort {};

constinit NoDesktop none;
constinit DesktopPort* installed = &none;

}  // namespace

DesktopPort& TheDesktop() { return *installed; }

void InstallDesktop(DesktopPort& desktop) { installed = &desktop; }

}  // namespace dialsim
