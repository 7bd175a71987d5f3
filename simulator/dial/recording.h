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

// Ends a running recording: there is one at a time. False when the file cannot be written.
bool StartRecording(const std::string& path);
void EndRecording();

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
