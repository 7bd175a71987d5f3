// The drawing of the dial, in units of a pixel at 100 %.
#pragma once

#include "simulator/classes/dial_state.h"
#include "simulator/desktop/surface.h"

namespace dialsim {

inline constexpr int kDialWidth = 220;
inline constexpr int kDialHeight = 282;
inline constexpr Point kKnobMiddle{kDialWidth / 2.0, 114};
inline constexpr double kKnobRadius = 88;

// With `feedback` the dial is playing a waveform.
void DrawDial(const Surface& surface, const DialState& state, bool feedback);

}  // namespace dialsim
