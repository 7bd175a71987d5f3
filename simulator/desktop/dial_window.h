// The window of the dial beside the host's window, for use with mouse wheel, clicks and keys.
#pragma once

#include <windows.h>

#include <cstdint>

namespace dialsim {

// Creates the window on a new thread, which raises the dial's events unless another thread is set, and
// which ends with the process. Returns when the window exists.
void OpenDialWindow(std::uint64_t host);

// The client area of a window in screen coordinates.
RECT ClientScreenRect(HWND window);

// Null without a dial window.
HWND TheDialWindow();

// Returns when dial and ring show the current state.
void RedrawDialWindow();

}  // namespace dialsim
