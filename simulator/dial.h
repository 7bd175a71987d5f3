// The one dial there is: what the user's hand has done to it, and the controllers that hear of it.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/types.h"
#include "simulator/object.h"
#include "sync.h"

namespace dialsim {

class Controller;

struct DialState {
    double angle = 0;  // how far it has been turned, in degrees
    bool button_down = false;
    std::optional<abi::Rect> contact;
    bool has_haptics = true;
    std::vector<std::uint16_t> waveforms = {4099};  // a click
};

class Dial {
public:
    // Controllers enter when they are made and leave when they end.
    void Enter(Controller* controller);
    void Leave(Controller* controller);

    // References to the window's controllers, oldest first; window 0 is that of the controller made last.
    std::vector<Ref<Controller>> ControllersOf(std::uint64_t window);

    DialState State();
    template <class Change>
    void Update(Change change) {
        const std::lock_guard guard(mutex_);
        change(state_);
    }

    bool OwnThread();
    void SetOwnThread(bool own_thread);
    void SetRaised(std::string what);
    std::string Raised();

    bool TypePresent(const std::string& type);
    void SetTypePresent(const std::string& type, bool present);

    void Reset();

private:
    Mutex mutex_;
    DialState state_;
    std::vector<Controller*> controllers_;
    std::set<std::string> missing_types_;
    std::string raised_;
    bool own_thread_ = false;
};

Dial& TheDial();

}  // namespace dialsim
