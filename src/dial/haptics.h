#pragma once

#include "brindle.h"
#include "platform/interfaces/ui_input.h"

namespace brindle {

// Plays the dial's first waveform. A failure of the platform is raised.
void PlayFirstWaveform(abi::IUnknown* rotation_args);

// Most turns ask for nothing.
inline void PlayRequestedHaptics(const DialRotationInfo& info, abi::IUnknown* rotation_args) {
    const std::uint32_t* request = info.hapticRequest;
    if (request != nullptr && (*request == 1 || *request == 2)) {
        PlayFirstWaveform(rotation_args);
    }
}

}  // namespace brindle
