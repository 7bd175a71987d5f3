// Threads that are joined together.
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

    // Also waits for threads that are started during the wait. Concurrent calls wait one after the other.
    void WaitForAll() {
        const std::lock_guard wait_guard(wait_mutex_);
        for (std::vector<Thread> threads = Take(); !threads.empty(); threads = Take()) {
            for (Thread& thread : threads) {
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
