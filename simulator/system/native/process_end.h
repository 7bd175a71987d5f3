// The end of this process.
#pragma once

#include <cstdlib>

namespace dialsim {

// At once, from any thread: runs no destructors and flushes nothing.
[[noreturn]] inline void EndProcess(int status) { std::_Exit(status); }

}  // namespace dialsim
