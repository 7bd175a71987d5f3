// Which controllers exist, and the windows that they were made for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulator/classes/object.h"
#include "simulator/classes/one_shot_signal.h"

namespace dialsim {

class Controller;

// A handle that the system gives to no window.
inline constexpr std::uint64_t kNoWindow = ~std::uint64_t{0};

// Controllers enter when they are made and leave when they end.
void AddController(Controller* controller);
void RemoveController(Controller* controller);

// References to the window's controllers, oldest first; window 0 is that of the controller made last.
std::vector<Ref<Controller>> ControllersOf(std::uint64_t window);
// Null without one.
Ref<Controller> NewestControllerOf(std::uint64_t window);

// A window's place in the order in which windows got their first controller, from 1; 0 for one that never got
// any.
std::size_t WindowNumber(std::uint64_t window);
// The window at that place, or kNoWindow.
std::uint64_t WindowAt(std::size_t place);

// Emitted with its window when the first controller has been made.
OneShotSignal<std::uint64_t>& FirstController();

}  // namespace dialsim
