// A signal that is emitted once in a process.
#pragma once

#include <functional>
#include <mutex>
#include <utility>
#include <vector>

#include "sync.h"

namespace dialsim {

template <class... Arguments>
class OneShotSignal {
public:
    void Subscribe(std::function<void(Arguments...)> subscriber) {
        const std::lock_guard guard(mutex_);
        subscribers_.push_back(std::move(subscriber));
    }

    // The first call runs the subscribers; concurrent calls wait until it has ended.
    void Emit(Arguments... arguments) {
        const std::lock_guard guard(mutex_);
        for (const auto& subscriber : std::exchange(subscribers_, {})) {
            subscriber(arguments...);
        }
    }

private:
    Mutex mutex_;
    std::vector<std::function<void(Arguments...)>> subscribers_;
};

}  // namespace dialsim
