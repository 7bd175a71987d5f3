// The dial as events find it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/types.h"

namespace dialsim {

struct DialState {
    double angle = 0;  // how far it has been turned, in degrees
    bool button_down = false;
    std::optional<brindle::abi::Rect> contact;
    bool has_haptics = true;
    std::vector<std::uint16_t> waveforms = {4099};  // a click
};

}  // namespace dialsim
