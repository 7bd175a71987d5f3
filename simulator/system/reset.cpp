#include "simulator/system/reset.h"

#include <initializer_list>

namespace dialsim {

namespace {

// Constant-initialized, before the actions of any file. The list is complete when the simulator is loaded: no
// lock.
constinit const ResetAction* first_action = nullptr;

}  // namespace

ResetAction::ResetAction(ResetPhase phase, void (*action)())
    : phase_(phase), action_(action), next_(first_action) {
    first_action = this;
}

void ResetAll() {
    for (const ResetPhase phase : {ResetPhase::Work, ResetPhase::State, ResetPhase::Instruments}) {
        for (const ResetAction* action = first_action; action != nullptr; action = action->next_) {
            if (action->phase_ == phase) {
                action->action_();
            }
        }
    }
}

}  // namespace dialsim
