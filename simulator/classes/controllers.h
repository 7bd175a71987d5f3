// The controllers that exist, and their windows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulator/classes/object.h"
#include "simulator/classes/one_shot_signal.h"

namespace dialsim {

class Controller;

// A handle that no window has.
inline constexpr std::uint64_t kNoWindow = ~std::uint64_t{0};

// Called by the constructor and the destructor of a controller. The registry owns no references.
void AddController(Controller* controller);
void RemoveController(Controller* controller);

// References to the window's controllers, oldest first. Window 0 means that of the newest controller.
std::vector<Ref<Controller>> ControllersOf(std::uint64_t window);
// Null when the window has no controller.
Ref<Controller> NewestControllerOf(std::uint64_t window);

// Windows are numbered from 1 in the order of their first controllers; 0 for a window without any.
std::size_t WindowNumber(std::uint64_t window);
// The window with this number, or kNoWindow.
std::uint64_t WindowAt(std::size_t number);

// Emitted after the first controller is created, with its window.
OneShotSignal<std::uint64_t>& FirstController();

}  // namespace dialsim
