// brindle.dll, which dialcheck loads at run time to report when it is missing.
#pragma once

#include <brindle.h>

#include <optional>
#include <string>

// The functions that dialcheck calls.
struct Library {
    decltype(&initialize) start;
    decltype(&uninit) stop;
    decltype(&init_dial_listener) listen;
    decltype(&is_dial_present) find_dial;
};

struct LoadedLibrary {
    std::optional<Library> functions;
    std::string description;  // path and version, or why it is not loaded
};

// From the folder of the program, and no other. The native build is linked to the library.
LoadedLibrary LoadDialLibrary();
