// The window of the dial beside the host's window, for use with mouse and keys.
#pragma once

#include <windows.h>

#include <cstdint>

namespace dialsim {

// Creates the window on a new thread, which raises the dial's events unless another thread is set, and
// which ends with the process. Returns when the window exists.
void OpenDialWindow(std::uint64_t host);

// Null without a dial window.
HWND TheDialWindow();

// Returns when dial and ring show the current state.
void RedrawDialWindow();
// The same without a wait.
void RedrawDialWindowSoon();

// Marks the dial for a moment. Does not wait: a thread that plays a waveform may hold locks.
void ShowDialFeedback();

}  // namespace dialsim
