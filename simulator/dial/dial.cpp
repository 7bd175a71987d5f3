#include "simulator/dial/dial.h"

#include "simulator/system/reset.h"

namespace dialsim {

namespace {

const ResetAction reset_dial(ResetPhase::State,
                             [] { TheDial().Update([](DialState& state) { state = {}; }); });

}  // namespace

Dial& TheDial() {
    // Never destroyed: a script may turn the dial after main returns.
    static Dial& dial = *new Dial;
    return dial;
}

}  // namespace dialsim
