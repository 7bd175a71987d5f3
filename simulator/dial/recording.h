// Writes down what the dial does, as a script that does it again.
#pragma once

#include <charconv>
#include <cstdint>
#include <iterator>
#include <string>

namespace dialsim {

// A command with its numbers, as short as they can be written and be read back unchanged.
template <class... Numbers>
std::string Command(std::string text, Numbers... numbers) {
    char digits[32];
    ((text += ' ', text.append(digits, std::to_chars(digits, std::end(digits), numbers).ptr)), ...);
    return text;
}

// One recording at a time: ends the one under way. False where the file cannot be written.
bool StartRecording(const std::string& path);
void EndRecording();

// The command is carried out while one of these lives. What passes between them is recorded as waits; what
// passes meanwhile is the handlers' own time.
class RecordingScope {
public:
    explicit RecordingScope(const std::string& command);
    RecordingScope(std::uint64_t window, const std::string& command);
    RecordingScope(const RecordingScope&) = delete;
    RecordingScope& operator=(const RecordingScope&) = delete;
    ~RecordingScope();
};

}  // namespace dialsim
