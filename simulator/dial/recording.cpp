#include "simulator/dial/recording.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <mutex>

#include "simulator/classes/controller.h"
#include "simulator/classes/controllers.h"
#include "simulator/system/clock.h"
#include "simulator/system/files.h"
#include "simulator/system/reset.h"
#include "sync.h"

namespace dialsim {

namespace {

Mutex mutex;
std::FILE* file = nullptr;
std::string& current_window = *new std::string;  // the window of the last `window` line
std::uint64_t idle_since_ms = 0;

// Nested commands are not recorded, because playing the outer one repeats them: a click that chooses an item,
// a handler that turns the dial.
thread_local int command_depth = 0;

void WriteLine(const std::string& line) {
    std::fprintf(file, "%s\n", line.c_str());
    std::fflush(file);  // the recording is complete when the program is killed
}

// By the number of the window, because handles differ between runs.
std::string WindowName(std::uint64_t window) { return "@" + std::to_string(WindowNumber(window)); }

// No wait is recorded when the clock was set back.
void WriteWait() {
    const std::uint64_t now = ClockNow();
    const std::uint64_t elapsed = now - std::min(now, idle_since_ms);
    if (elapsed > 0) {
        WriteLine(
            Command("wait", std::min<std::uint64_t>(elapsed, std::numeric_limits<std::uint32_t>::max())));
    }
}

void Close() {
    if (file != nullptr) {
        std::fclose(file);
        file = nullptr;
    }
}

const ResetAction end_recording(ResetPhase::Work, EndRecording);

}  // namespace

bool StartRecording(const std::string& path, const std::string& heading) {
    const std::lock_guard guard(mutex);
    Close();
    file = OpenFile(path, "wb");
    if (file == nullptr) {
        return false;
    }
    WriteLine("# " + heading + ": angles in degrees, times in milliseconds");
    current_window.clear();
    idle_since_ms = ClockNow();
    return true;
}

void EndRecording() {
    const std::lock_guard guard(mutex);
    Close();
}

void RecordCommand(const std::string& command, const std::string& window) {
    const std::lock_guard guard(mutex);
    if (file == nullptr) {
        return;
    }
    WriteWait();
    if (!window.empty() && window != current_window) {
        WriteLine("window " + window);
        current_window = window;
    }
    WriteLine(command);
    idle_since_ms = ClockNow();
}

void EndCommand() {
    const std::lock_guard guard(mutex);
    idle_since_ms = ClockNow();
}

RecordingScope::RecordingScope(const std::string& command) {
    if (command_depth++ == 0) {
        RecordCommand(command, "");
    }
}

// Without a controller no event is raised, and the line would fail in a replay.
RecordingScope::RecordingScope(std::uint64_t window, const std::string& command) {
    if (command_depth++ == 0 && NewestControllerOf(window)) {
        RecordCommand(command, WindowName(window));
    }
}

RecordingScope::~RecordingScope() {
    if (--command_depth == 0) {
        EndCommand();
    }
}

}  // namespace dialsim
