// What the control functions and the script runner share: a user's hand on the dial.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/types.h"
#include "simulator/dial/desktop_port.h"

namespace dialsim {

// No controller exists for the window: ERROR_NOT_FOUND.
inline constexpr HRESULT kNoController = static_cast<HRESULT>(0x80070490);

HRESULT Turn(std::uint64_t window, double degrees);
HRESULT Click(std::uint64_t window);
void Hold(bool down);
HRESULT Touch(std::uint64_t window, const brindle::abi::Rect& bounds);
HRESULT Move(std::uint64_t window, const brindle::abi::Rect& bounds);
HRESULT Lift(std::uint64_t window);
HRESULT Choose(std::uint64_t window, std::uint32_t item);
HRESULT Acquire(std::uint64_t window);
HRESULT Lose(std::uint64_t window);
// False where there is no such window.
bool UseMouse(std::uint64_t window, MouseAction button, int x, int y);
// Until everything that the platform does on threads of its own is done.
void Settle();
void SetHaptics(bool present, std::vector<std::uint16_t> waveforms);

}  // namespace dialsim
