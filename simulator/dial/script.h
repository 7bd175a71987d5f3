// Plain-text scripts that turn the dial.
#pragma once

#include <string>

namespace dialsim {

// Plays the commands in order. Empty, or why nothing was played: every line is understood before the first is
// carried out.
std::string PlayScript(const std::string& script, bool real_time);

}  // namespace dialsim
