// What dialsim-run gives to the simulator in the program: events, whose handles belong to the program's process.
#pragma once

#include <windows.h>

namespace dialsim {

struct Attachment {
    HANDLE library_loaded;    // a brindle.dll is simulated
    HANDLE listener_created;  // a window has a controller: the script begins
};

}  // namespace dialsim
