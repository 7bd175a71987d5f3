// What the control functions and the script runner share: a user's hand on the dial.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/types.h"
#include "simulator/desktop/desktop.h"
#include "simulator/dial/dial.h"

namespace dialsim {

// On the thread that is set for what the platform raises; returns when it is done.
template <class Body>
void RunOnEventThread(Body body) {
    if (TheDial().OwnThread()) {
        Thread own = StartThread(body);
        Join(own);
    } else {
        body();
    }
}

HRESULT Turn(std::uint64_t window, double degrees);
HRESULT Click(std::uint64_t window);
void Hold(bool down);
HRESULT Touch(std::uint64_t window, const abi::Rect& bounds);
HRESULT Move(std::uint64_t window, const abi::Rect& bounds);
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
