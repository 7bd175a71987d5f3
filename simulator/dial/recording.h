// Records the actions of the dial as a script.
#pragma once

#include <charconv>
#include <cstdint>
#include <iterator>
#include <string>

namespace dialsim {

// A command with its arguments, in the shortest form that parses to the same numbers.
template <class... Numbers>
std::string Command(std::string text, Numbers... numbers) {
    char digits[32];
    ((text += ' ', text.append(digits, std::to_chars(digits, std::end(digits), numbers).ptr)), ...);
    return text;
}

// Ends a running recording: there is one at a time. The heading is the beginning of the first line, a
// comment. False when the file cannot be written.
bool StartRecording(const std::string& path, const std::string& heading = "What the dial did");
void EndRecording();

// Records a command for the window with this name, "@1"; empty for a command without a window. The time since
// the end of the last command is recorded as a wait.
void RecordCommand(const std::string& command, const std::string& window);
// The handlers of the last command have ended: their time is not recorded.
void EndCommand();

// Records a command, with a window only if that has a controller; its handlers run during the lifetime of the
// object. The time between two of these objects is recorded as a wait, the time of the handlers is not.
class RecordingScope {
public:
    explicit RecordingScope(const std::string& command);
    RecordingScope(std::uint64_t window, const std::string& command);
    RecordingScope(const RecordingScope&) = delete;
    RecordingScope& operator=(const RecordingScope&) = delete;
    ~RecordingScope();
};

}  // namespace dialsim
