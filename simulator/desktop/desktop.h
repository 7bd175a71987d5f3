// What there is of the simulator on the user's desktop: a dial and an open menu to look at, a mouse, and
// pictures of the screen. Natively there is no desktop, and nothing of this happens.
#pragma once

#include <cstdint>
#include <string>

namespace dialsim {

// A dial beside the window, for a person to turn.
void OpenDial(std::uint64_t window);

// As if the user had closed it.
void CloseWindow(std::uint64_t window);

// Returns when what there is to see shows the dial and its menu as they are now.
void UpdateDisplay();

enum class MouseAction { Down, Move, Up };

// The left button at a place in the window; returns when the window has dealt with it, and false where there
// is no such window.
bool SendMouse(std::uint64_t window, MouseAction action, int x, int y);

// The window, and the dial beside it, as they are on the screen: a PNG. False where that cannot be had or
// written.
bool WriteScreenshot(std::uint64_t window, const std::string& path);

}  // namespace dialsim
