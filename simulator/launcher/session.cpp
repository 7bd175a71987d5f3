// What the environment asks for, for programs that do not name the simulator.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "simulator/classes/activation.h"
#include "simulator/classes/controllers.h"
#include "simulator/dial/desktop_port.h"
#include "simulator/dial/recording.h"
#include "simulator/dial/script.h"
#include "simulator/functions/intercepted.h"
#include "simulator/stores/store_files.h"
#include "simulator/system/files.h"
#include "sync.h"

namespace dialsim {

namespace {

constexpr int kUsageError = 2;  // the program's status when its script makes no sense

// False when nothing was played.
bool PlayFile(const std::string& path, bool real_time) {
    const auto script = ReadFile(path);
    const std::string reason = script ? PlayScript(*script, real_time) : "cannot be read";
    if (!reason.empty()) {
        std::fprintf(stderr, "dial script %s: %s\n", path.c_str(), reason.c_str());
    }
    return reason.empty();
}

// The host does not know of the simulator: nobody else puts it in the place of what Wine lacks.
void InterceptHost() {
    InterceptModule(nullptr);
    InterceptModule("brindle.dll");
}

// DIALSIM_SETUP, to its end.
void RunSetupScript() {
    const std::string setup = Environment("DIALSIM_SETUP");
    if (!setup.empty()) {
        InterceptHost();
        PlayFile(setup, false);
    }
}

// A program that was started for its script ends with it.
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

// DIALSIM_RECORD, _WINDOW and _SCRIPT, for the first window that gets a controller. Nobody waits for the
// script: the program may end before it does.
void StartSession(std::uint64_t window) {
    StartRequestedRecording();
    const bool has_dial = Environment("DIALSIM_WINDOW") == "1";
    const std::string script = Environment("DIALSIM_SCRIPT");
    if (has_dial || !script.empty()) {
        InterceptHost();
    }
    if (has_dial) {
        TheDesktop().OpenDial(window);
    }
    if (!script.empty()) {
        Thread own = StartThread([=] { PlayAndClose(script, window); });
        Detach(own);
    }
}

// Each begins when the platform's classes say so, which know nothing of it.
struct Session {
    Session() {
        FirstActivation().Subscribe(RunSetupScript);
        FirstController().Subscribe(StartSession);
    }
};
const Session session;

}  // namespace

}  // namespace dialsim
