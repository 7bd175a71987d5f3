// Sessions from environment variables, for programs that do not use the simulator directly.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "simulator/classes/activation.h"
#include "simulator/classes/controllers.h"
#include "simulator/dial/desktop_port.h"
#include "simulator/dial/recording.h"
#include "simulator/dial/script.h"
#include "simulator/stores/store_files.h"
#include "simulator/system/files.h"
#include "sync.h"

namespace dialsim {

namespace {

constexpr int kUsageError = 2;  // the program's exit status when its script is invalid

// False when the script cannot be read or is invalid.
bool PlayFile(const std::string& path, bool real_time) {
    const auto script = ReadFile(path);
    const std::string error = script ? PlayScript(*script, real_time) : "cannot be read";
    if (!error.empty()) {
        std::fprintf(stderr, "dial script %s: %s\n", path.c_str(), error.c_str());
    }
    return error.empty();
}

// Plays DIALSIM_SETUP and returns when it has ended.
void RunSetupScript() {
    const std::string setup = Environment("DIALSIM_SETUP");
    if (!setup.empty()) {
        PlayFile(setup, false);
    }
}

// With DIALSIM_CLOSE=1 the program ends after its script.
void PlayAndClose(const std::string& path, std::uint64_t window) {
    const bool played = PlayFile(path, true);
    if (Environment("DIALSIM_CLOSE") != "1") {
        return;
    }
    if (!played) {
        std::_Exit(kUsageError);
    }
    TheDesktop().CloseWindow(window);
}

void StartRequestedRecording() {
    const std::string recording = Environment("DIALSIM_RECORD");
    if (!recording.empty() && !StartRecording(recording)) {
        std::fprintf(stderr, "dial recording %s: cannot be written\n", recording.c_str());
    }
}

// Applies DIALSIM_RECORD, _WINDOW and _SCRIPT to the first window with a controller. The script is not
// awaited: the program may end before it.
void StartSession(std::uint64_t window) {
    StartRequestedRecording();
    const std::string script = Environment("DIALSIM_SCRIPT");
    if (Environment("DIALSIM_WINDOW") == "1") {
        TheDesktop().OpenDial(window);
    }
    if (!script.empty()) {
        Thread thread = StartThread([=] { PlayAndClose(script, window); });
        Detach(thread);
    }
}

// Subscribes to signals: classes/ may not include launcher/.
struct Session {
    Session() {
        FirstActivation().Subscribe(RunSetupScript);
        FirstController().Subscribe(StartSession);
    }
};
const Session session;

}  // namespace

}  // namespace dialsim
