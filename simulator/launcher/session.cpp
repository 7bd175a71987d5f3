#include "simulator/launcher/session.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "simulator/desktop/desktop.h"
#include "simulator/dial/recording.h"
#include "simulator/dial/script.h"
#include "simulator/dialsim.h"
#include "simulator/stores/store_files.h"
#include "simulator/system/files.h"
#include "sync.h"

namespace dialsim {

namespace {

constexpr int kMisunderstood = 2;  // the program's status when its script makes no sense

// False when nothing was played.
bool Play(const std::string& path, bool real_time) {
    const auto script = ReadFile(path);
    const std::string reason = script ? PlayScript(*script, real_time) : "it cannot be read";
    if (!reason.empty()) {
        std::fprintf(stderr, "dial script %s: %s\n", path.c_str(), reason.c_str());
    }
    return reason.empty();
}

// The host does not know of the simulator: nobody else puts it in the place of what Wine lacks.
void WatchTheHost() {
    dialsim_watch(nullptr);
    dialsim_watch("brindle.dll");
}

bool SetUp() {
    const std::string setup = Environment("DIALSIM_SETUP");
    if (!setup.empty()) {
        WatchTheHost();
        Play(setup, false);
    }
    return true;
}

// A program that was started for its script ends with it.
void PlayToTheEnd(const std::string& path, std::uint64_t window) {
    const bool played = Play(path, true);
    if (Environment("DIALSIM_CLOSE") != "1") {
        return;
    }
    if (!played) {
        std::_Exit(kMisunderstood);
    }
    CloseWindow(window);
}

void StartRecordingIfAsked() {
    const std::string recording = Environment("DIALSIM_RECORD");
    if (!recording.empty() && !StartRecording(recording)) {
        std::fprintf(stderr, "dial recording %s: it cannot be written\n", recording.c_str());
    }
}

// Nobody waits for the script: the program may end before it does.
bool StartSession(std::uint64_t window) {
    StartRecordingIfAsked();
    const bool has_dial = Environment("DIALSIM_WINDOW") == "1";
    const std::string script = Environment("DIALSIM_SCRIPT");
    if (has_dial || !script.empty()) {
        WatchTheHost();
    }
    if (has_dial) {
        OpenDial(window);
    }
    if (!script.empty()) {
        Thread own = StartThread([=] { PlayToTheEnd(script, window); });
        Detach(own);
    }
    return true;
}

}  // namespace

void BeforeTheFirstClass() { [[maybe_unused]] static const bool done = SetUp(); }

void AtTheFirstController(std::uint64_t window) {
    [[maybe_unused]] static const bool done = StartSession(window);
}

}  // namespace dialsim
