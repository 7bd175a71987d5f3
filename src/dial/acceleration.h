#pragma once

namespace brindle {

// Adds a rotation to the process-wide sum and returns the acceleration factor, 1.0 or more. One sum serves
// all windows, as there is one dial (Acceleration.TwoWindowsFeedOneHistory), and nothing resets it
// (Acceleration.StoppingTheLibraryDoesNotResetTheHistory). Runs on the thread of the event. No lock: the
// platform must not raise rotations concurrently; only starting the clock is thread-safe.
double NextAcceleration(double delta_degrees);

}  // namespace brindle
