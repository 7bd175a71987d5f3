// Threads that are started one by one and waited for together.
#pragma once

#include <functional>
#include <mutex>
#include <utility>
#include <vector>

#include "sync.h"

namespace dialsim {

class Threads {
public:
    void Start(std::function<void()> action) {
        const std::lock_guard guard(mutex_);
        running_.push_back(StartThread(std::move(action)));
    }

    // Also for those that are started meanwhile. Who comes second waits for the first to have waited.
    void WaitForAll() {
        const std::lock_guard wait_guard(wait_mutex_);
        for (std::vector<Thread> taken = Take(); !taken.empty(); taken = Take()) {
            for (Thread& thread : taken) {
                Join(thread);
            }
        }
    }

private:
    std::vector<Thread> Take() {
        const std::lock_guard guard(mutex_);
        return std::exchange(running_, {});
    }

    Mutex mutex_;
    Mutex wait_mutex_;
    std::vector<Thread> running_;
};

}  // namespace dialsim
