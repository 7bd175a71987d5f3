// Plain-text scripts of dial commands.
#pragma once

#include <string>

namespace dialsim {

// Parses all lines, then executes the commands in order. Returns an empty string, or the first syntax error:
// then no command is executed.
std::string PlayScript(const std::string& script, bool real_time);

}  // namespace dialsim
