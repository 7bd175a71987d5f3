// The system items of a window's menu.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/types.h"

namespace dialsim {

// In menu order; all five unless SetDefaultMenuItems has selected others.
std::vector<std::int32_t> SystemItems(std::uint64_t window);
std::string SystemItemName(std::int32_t kind);

// Whether SetDefaultMenuItems keeps a reference to the last sequence after it returns.
void RetainSequences(bool keep);

// Calls all methods of the retained sequence and releases it. Negative when all calls fail, S_FALSE when no
// sequence is retained.
HRESULT UseRetainedSequence();

}  // namespace dialsim
