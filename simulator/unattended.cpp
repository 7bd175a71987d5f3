#include "simulator/unattended.h"

#include <cstdio>
#include <string>

#include "simulator/dialsim.h"
#include "simulator/files.h"
#include "simulator/recording.h"
#include "simulator/script.h"
#include "simulator/store_files.h"
#include "sync.h"

namespace dialsim {

namespace {

void Play(const std::string& path, bool real_time) {
    const auto script = ReadFile(path);
    const std::string reason = script ? PlayScript(*script, real_time) : "it cannot be read";
    if (!reason.empty()) {
        std::fprintf(stderr, "dial script %s: %s\n", path.c_str(), reason.c_str());
    }
}

bool SetUp() {
    const std::string setup = Environment("DIALSIM_SETUP");
    if (!setup.empty()) {
        dialsim_watch(nullptr);
        dialsim_watch("brindle.dll");
        Play(setup, false);
    }
    return true;
}

// Nobody waits for the script: the program may end before it does.
bool StartSession() {
    const std::string recording = Environment("DIALSIM_RECORD");
    if (!recording.empty() && !StartRecording(recording)) {
        std::fprintf(stderr, "dial recording %s: it cannot be written\n", recording.c_str());
    }
    const std::string script = Environment("DIALSIM_SCRIPT");
    if (!script.empty()) {
        Thread own = StartThread([script] { Play(script, true); });
        Detach(own);
    }
    return true;
}

}  // namespace

void BeforeTheFirstClass() { [[maybe_unused]] static const bool done = SetUp(); }

void AtTheFirstController() { [[maybe_unused]] static const bool done = StartSession(); }

}  // namespace dialsim
