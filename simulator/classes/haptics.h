// The dial's haptics.
#pragma once

#include "platform/interfaces/haptics.h"
#include "simulator/classes/dial_state.h"
#include "simulator/classes/object.h"

namespace dialsim {

// Called after each request to play a waveform that succeeds, on the thread of the request. Set during
// loading of the simulator.
using FeedbackListener = void (*)();
void SetFeedbackListener(FeedbackListener listener);

Ref<abi::ISimpleHapticsController> MakeHapticsController(const DialState& state);

}  // namespace dialsim
