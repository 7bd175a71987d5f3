#include "simulator/dial/recording.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <mutex>

#include "simulator/classes/controllers.h"
#include "simulator/system/clock.h"
#include "simulator/system/files.h"
#include "simulator/system/reset.h"
#include "sync.h"

namespace dialsim {

namespace {

constexpr char kHeading[] = "# What the dial did: angles in degrees, times in milliseconds";

Mutex mutex;
std::FILE* file = nullptr;
std::string& current_window = *new std::string;  // the window that the script has named last
std::uint64_t idle_since_ms = 0;

// Commands within a command come again with it: a click that chooses, a handler that moves the dial.
thread_local int command_depth = 0;

void WriteLine(const std::string& line) {
    std::fprintf(file, "%s\n", line.c_str());
    std::fflush(file);  // a killed program's recording is whole
}

// Its place in the order of their first controllers: handles differ from run to run.
std::string WindowName(std::uint64_t window) {
    const std::size_t place = WindowNumber(window);
    std::string name = place == 0 ? "" : "@";
    name += std::to_string(place == 0 ? window : place);
    return name;
}

// A clock that was set back gives no wait.
void WriteWait() {
    const std::uint64_t now = ClockNow();
    const std::uint64_t passed = now - std::min(now, idle_since_ms);
    if (passed > 0) {
        WriteLine(
            Command("wait", std::min<std::uint64_t>(passed, std::numeric_limits<std::uint32_t>::max())));
    }
}

// `window` is empty for a command that is for none.
void Write(const std::string& command, const std::string& window) {
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

void Close() {
    if (file != nullptr) {
        std::fclose(file);
        file = nullptr;
    }
}

const ResetAction end_recording(ResetPhase::Work, EndRecording);

}  // namespace

bool StartRecording(const std::string& path) {
    const std::lock_guard guard(mutex);
    Close();
    file = OpenFile(path, "wb");
    if (file == nullptr) {
        return false;
    }
    WriteLine(kHeading);
    current_window.clear();
    idle_since_ms = ClockNow();
    return true;
}

void EndRecording() {
    const std::lock_guard guard(mutex);
    Close();
}

RecordingScope::RecordingScope(const std::string& command) {
    if (command_depth++ == 0) {
        Write(command, "");
    }
}

RecordingScope::RecordingScope(std::uint64_t window, const std::string& command) {
    if (command_depth++ == 0) {
        Write(command, WindowName(window));
    }
}

RecordingScope::~RecordingScope() {
    if (--command_depth == 0) {
        const std::lock_guard guard(mutex);
        idle_since_ms = ClockNow();
    }
}

}  // namespace dialsim
