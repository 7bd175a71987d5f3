// The dial's state at the time of an event.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/types.h"

namespace dialsim {

struct DialState {
    double angle = 0;  // the sum of all rotations, in degrees
    bool button_down = false;
    std::optional<brindle::abi::Rect> contact;
    bool has_haptics = true;
    std::vector<std::uint16_t> waveforms = {4099};  // a click
};

}  // namespace dialsim
