// What dialsim-run gives to the simulator in the program: events, with handles of that process.
#pragma once

#include <windows.h>

namespace dialsim {

struct Attachment {
    HANDLE library_loaded;  // a brindle.dll is simulated
    HANDLE dial_in_use;     // a window has a controller, with which the script begins
};

}  // namespace dialsim
