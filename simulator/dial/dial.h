// The one dial there is: its state, and the controllers that get its events.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/types.h"
#include "simulator/classes/object.h"
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

// A handle that the system gives to no window.
inline constexpr std::uint64_t kNoWindow = ~std::uint64_t{0};

class Dial {
public:
    // Controllers enter when they are made and leave when they end.
    void AddController(Controller* controller);
    void RemoveController(Controller* controller);

    // References to the window's controllers, oldest first; window 0 is that of the controller made last.
    std::vector<Ref<Controller>> ControllersOf(std::uint64_t window);

    // A window's place in the order in which windows got their first controller, from 1; 0 for one that never
    // got any.
    std::size_t WindowNumber(std::uint64_t window);
    // The window at that place, or kNoWindow.
    std::uint64_t WindowAt(std::size_t place);

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
    // With the mutex held: 0 becomes the window of the controller made last, if there is one.
    std::uint64_t Resolve(std::uint64_t window) const;

    Mutex mutex_;
    DialState state_;
    std::vector<Controller*> controllers_;
    std::vector<std::uint64_t> windows_;  // that have had a controller
    std::set<std::string> missing_types_;
    std::string raised_;
    bool own_thread_ = false;
};

Dial& TheDial();

}  // namespace dialsim
