#pragma once

#include "brindle.h"
#include "platform/interfaces/ui_input.h"

namespace brindle {

// Plays the dial's first waveform when the host asked for it. A failure of the platform is raised.
void AnswerWithHaptics(const DialRotationInfo& info, abi::IUnknown* rotation_args);

}  // namespace brindle
