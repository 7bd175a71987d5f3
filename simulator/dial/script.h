// Plain-text scripts of dial commands.
#pragma once

#include <string>

namespace dialsim {

// Parses all lines, then executes the commands in order. Returns an empty string, or the reason with the
// number of the line: of the first syntax error, then no command is executed, or of a command that failed,
// then those after it are not.
std::string PlayScript(const std::string& script, bool real_time);

}  // namespace dialsim
