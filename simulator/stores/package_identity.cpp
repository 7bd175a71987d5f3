#include "simulator/stores/package_identity.h"

#include <atomic>

#include "simulator/stores/store_files.h"
#include "simulator/system/reset.h"

namespace dialsim {

namespace {

bool IsPackagedInEnvironment() { return Environment("DIALSIM_PACKAGED") == "1"; }

std::atomic<bool> packaged = IsPackagedInEnvironment();

const ResetAction reset_identity(ResetPhase::State, [] { packaged = IsPackagedInEnvironment(); });

}  // namespace

bool IsPackaged() { return packaged; }

void SetPackaged(bool value) { packaged = value; }

}  // namespace dialsim
