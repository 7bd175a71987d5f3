#pragma once

namespace brindle {

// Adds a rotation to the process-wide history and gives the factor for it, 1.0 or more: the faster the dial
// has turned of late, the larger. All windows' dials feed one history, and nothing resets it. No lock: the
// platform is relied on not to raise rotations concurrently; only the first call's start is guarded.
double NextAcceleration(double delta_degrees);

}  // namespace brindle
