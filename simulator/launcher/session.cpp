// Sessions from environment variables, for programs that do not use the simulator directly.
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <string>

#include "process_end.h"
#include "simulator/classes/activation.h"
#include "simulator/classes/controllers.h"
#include "simulator/dial/desktop_port.h"
#include "simulator/dial/recording.h"
#include "simulator/dial/script.h"
#include "simulator/launcher/statuses.h"
#include "simulator/stores/store_files.h"
#include "simulator/system/files.h"
#include "sync.h"

namespace dialsim {

namespace {

constexpr std::uint32_t kMsPerSecond = 1000;
constexpr std::uint32_t kFlushMs = 1000;
constexpr std::uint32_t kOwnEndMs = 1000;  // for a program without a window that ends by itself
constexpr std::uint16_t kCloseSeconds = 10;

// False when the script cannot be read or a line of it fails.
bool PlayFile(const std::string& path, bool real_time) {
    const auto script = ReadFile(path);
    const std::string error = script ? PlayScript(*script, real_time) : "cannot be read";
    if (!error.empty()) {
        std::fprintf(stderr, "dial script %s: %s\n", path.c_str(), error.c_str());
    }
    return error.empty();
}

// Ends the program with the output that it has buffered. The program may hold a stream for ever, in a read
// from the console or a write to a full pipe, so flushing has a time limit.
[[noreturn]] void EndProgram(int status) {
    Thread limit = StartThread([=] {
        Pause(kFlushMs);
        EndProcess(status);
    });
    Detach(limit);
    std::fflush(stdout);  // first: the C library may wait for standard input when it flushes all streams
    std::fflush(nullptr);
    EndProcess(status);
}

// Plays DIALSIM_SETUP and returns when it has ended.
void RunSetupScript() {
    const std::string setup = Environment("DIALSIM_SETUP");
    if (!setup.empty() && !PlayFile(setup, false)) {
        EndProgram(kScriptFailed);
    }
}

std::uint32_t CloseSeconds() {
    const std::string text = Environment("DIALSIM_CLOSE_SECONDS");
    std::uint16_t seconds = kCloseSeconds;
    std::from_chars(text.data(), text.data() + text.size(), seconds);
    return seconds;
}

// A program that ends by itself meanwhile ends with its own status.
[[noreturn]] void CloseProgram(std::uint64_t window) {
    TheDesktop().CloseWindow(window);
    const std::uint32_t seconds = CloseSeconds();
    Pause(seconds * kMsPerSecond);
    std::fprintf(stderr, "dialsim: the program did not close in %u s; it was ended\n", seconds);
    EndProgram(kNotClosed);
}

[[noreturn]] void EndProgramWithoutWindow() {
    Pause(kOwnEndMs);
    std::fprintf(stderr, "dialsim: the program has no window to close; it was ended after its script\n");
    EndProgram(0);
}

// With DIALSIM_CLOSE=1 the program ends after its script. A window that it closes itself counts as one.
void PlayAndClose(const std::string& path, std::uint64_t window, bool has_window) {
    const bool played = PlayFile(path, true);
    if (Environment("DIALSIM_CLOSE") != "1") {
        return;
    }
    if (!played) {
        EndProgram(kScriptFailed);
    }
    if (!has_window) {
        EndProgramWithoutWindow();
    }
    CloseProgram(window);
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
        const bool has_window = TheDesktop().HasWindow(window);
        Thread thread = StartThread([=] { PlayAndClose(script, window, has_window); });
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
const Session process_session;

}  // namespace

}  // namespace dialsim
