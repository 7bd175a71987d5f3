#include "simulator/dial/dial.h"

#include "simulator/classes/haptics.h"
#include "simulator/dial/desktop_port.h"
#include "simulator/system/reset.h"

namespace dialsim {

namespace {

const ResetAction reset_dial(ResetPhase::State, [] {
    TheDial().Update([](DialState& state) { state = {}; });
    TheDesktop().UpdateDisplay();
});

// Subscribes while the simulator is loaded: classes/ may not include dial/.
struct FeedbackDisplay {
    FeedbackDisplay() {
        SetFeedbackListener([] { TheDesktop().ShowFeedback(); });
    }
};
const FeedbackDisplay feedback_display;

}  // namespace

Dial& TheDial() {
    // Never destroyed: a script may turn the dial after main returns.
    static Dial& dial = *new Dial;
    return dial;
}

}  // namespace dialsim
