#pragma once

#include "brindle.h"
#include "platform/interfaces/ui_input.h"

namespace brindle {

// Plays the dial's first waveform three times. Throws the platform's failures.
void PlayFirstWaveform(abi::IUnknown* rotation_args);

// Inline: most rotations request nothing.
inline void PlayRequestedHaptics(const DialRotationInfo& info, abi::IUnknown* rotation_args) {
    const std::uint32_t* request = info.hapticRequest;
    if (request != nullptr && (*request == 1 || *request == 2)) {
        PlayFirstWaveform(rotation_args);
    }
}

}  // namespace brindle
