// What brings the simulator back to the start: each part registers its own action, beside its state.
#pragma once

namespace dialsim {

// Work ends what is under way and may still use the state; State forgets; the Instruments come last, for they
// have to see what the others release. Actions of one phase do not depend on each other's order.
enum class ResetPhase { Work, State, Instruments };

// An object of namespace scope:
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
