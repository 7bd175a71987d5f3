// Restores the initial state of the simulator: each file registers an action for its state.
#pragma once

namespace dialsim {

// The phases run in this order. Work ends running operations, which may use the state; State resets it;
// Instruments are last, because they record the releases of the other phases. Actions of one phase run in any
// order.
enum class ResetPhase { Work, State, Instruments };

// Define objects at namespace scope:
//     const ResetAction reset_devices(ResetPhase::State, [] { TheDevices().Reset(); });
class ResetAction {
public:
    ResetAction(ResetPhase phase, void (*action)());
    ResetAction(const ResetAction&) = delete;
    ResetAction& operator=(const ResetAction&) = delete;

private:
    friend void ResetAll();

    const ResetPhase phase_;
    void (*const action_)();
    const ResetAction* const next_;
};

void ResetAll();

}  // namespace dialsim
