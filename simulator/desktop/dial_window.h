// The dial, drawn beside the host's window for a person to turn: by the mouse wheel, clicks and keys.
#pragma once

#include <windows.h>

#include <cstdint>

namespace dialsim {

// On a thread of its own, which raises the dial's events unless others are to do so, and which ends with the
// process. Returns when the dial is there.
void OpenDialWindow(std::uint64_t host);

// What a window shows between its borders, on the screen.
RECT ClientScreenRect(HWND window);

// Null while there is none.
HWND TheDialWindow();

// Returns when dial and ring show what is so now.
void RedrawDialWindow();

}  // namespace dialsim
