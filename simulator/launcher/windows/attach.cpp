// The part of dialsim-run inside the program, and the check of the library's version.
#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "brindle.h"
#include "simulator/classes/activation.h"
#include "simulator/classes/controllers.h"
#include "simulator/functions/intercepted.h"
#include "simulator/functions/windows/libraries.h"
#include "simulator/launcher/statuses.h"
#include "simulator/launcher/windows/attachment.h"
#include "simulator/launcher/windows/module_path.h"
#include "simulator/launcher/windows/recorder.h"
#include "simulator/launcher/windows/version.h"
#include "simulator/stores/store_files.h"
#include "simulator/system/text.h"

namespace dialsim {

namespace {

constexpr Version kOwnVersion = {BRINDLE_VERSION_MAJOR, BRINDLE_VERSION_MINOR, BRINDLE_VERSION_PATCH};

// Ends the program: another version of the library may call what this simulator lacks.
void CheckVersion(HMODULE library) {
    const Version version = VersionOf(library);
    if (!version.Matches(kOwnVersion)) {
        std::fprintf(stderr, "dialsim: %s has version %s, and this simulator is for %s\n",
                     Narrow(PathOf(library)).c_str(), version.Text().c_str(), kOwnVersion.Text().c_str());
        std::_Exit(kWrongLibrary);
    }
}

void CheckLibraryVersions() {
    for (const LoadedModule& module : LoadedModules()) {
        if (IsLibrary(module.get())) {
            CheckVersion(module.get());
        }
    }
}

struct VersionCheck {
    VersionCheck() { FirstActivation().Subscribe(CheckLibraryVersions); }
};
const VersionCheck version_check;

}  // namespace

}  // namespace dialsim

// Runs on a thread that dialsim-run creates in the program, before the program's own first instruction. The
// argument is valid during the call. DIALSIM_REAL is the file of a recording of the real dial, which then is
// not simulated.
extern "C" DWORD WINAPI DialsimAttach(void* argument) {
    const auto events = *static_cast<const dialsim::Attachment*>(argument);
    dialsim::SetEventForLibraries(events.library_loaded);
    dialsim::FirstController().Subscribe([=](std::uint64_t /*window*/) { SetEvent(events.dial_in_use); });
    if (const std::string recording = dialsim::Environment("DIALSIM_REAL"); !recording.empty()) {
        dialsim::RecordRealDial(recording);
    }
    return dialsim::InterceptLibraries() ? 0 : 1;
}
