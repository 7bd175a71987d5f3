// The dial. All windows share one.
#pragma once

#include <mutex>

#include "simulator/classes/dial_state.h"
#include "sync.h"

namespace dialsim {

class Dial {
public:
    DialState State() {
        const std::lock_guard guard(mutex_);
        return state_;
    }
    template <class Change>
    void Update(Change change) {
        const std::lock_guard guard(mutex_);
        change(state_);
    }

private:
    Mutex mutex_;
    DialState state_;
};

Dial& TheDial();

}  // namespace dialsim
