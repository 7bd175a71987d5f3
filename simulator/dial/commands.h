// Simulated actions of the user, for the control functions and scripts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/types.h"
#include "simulator/classes/event_raising.h"
#include "simulator/dial/desktop_port.h"

namespace dialsim {

// ERROR_NOT_FOUND: the window has no controller.
inline constexpr HRESULT kNoController = static_cast<HRESULT>(0x80070490);

EventResult Turn(std::uint64_t window, double degrees);
EventResult Click(std::uint64_t window);
void Hold(bool down);
EventResult Touch(std::uint64_t window, const brindle::abi::Rect& bounds);
EventResult Move(std::uint64_t window, const brindle::abi::Rect& bounds);
EventResult Lift(std::uint64_t window);
EventResult Choose(std::uint64_t window, std::uint32_t item);
EventResult Acquire(std::uint64_t window);
EventResult Lose(std::uint64_t window);
// False when there is no such window.
bool UseMouse(std::uint64_t window, MouseAction button, int x, int y);
// Returns when all actions on the simulator's threads have ended.
void Settle();
void SetHaptics(bool present, std::vector<std::uint16_t> waveforms);

}  // namespace dialsim
