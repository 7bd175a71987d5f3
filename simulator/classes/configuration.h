// Which of the system's own entries a window's menu shows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/types.h"

namespace dialsim {

// In their order; all five unless the window was given others.
std::vector<std::int32_t> SystemItems(std::uint64_t window);
std::string SystemItemName(std::int32_t kind);

// Sequences handed over are normally let go of with the call; kept ones can be used once more later. The code
// of that: not negative if anything of the sequence still worked, S_FALSE when none is kept.
void RetainSequences(bool keep);
HRESULT UseRetainedSequence();

}  // namespace dialsim
