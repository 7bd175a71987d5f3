// The end of this process.
#pragma once

#include <windows.h>

#include <cstdlib>

namespace dialsim {

// At once, from any thread: runs no destructors and flushes nothing. ExitProcess would wait for a thread that
// is loading a module.
[[noreturn]] inline void EndProcess(int status) {
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    std::abort();  // not reached: a process may always end itself
}

}  // namespace dialsim
