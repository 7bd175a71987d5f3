// Locks and threads: the standard library's.
#pragma once

#include <functional>
#include <mutex>
#include <thread>

namespace dialsim {

using Mutex = std::mutex;

inline void RunOnOwnThread(std::function<void()> action) { std::thread(std::move(action)).join(); }

inline void RunInBackground(std::function<void()> action) { std::thread(std::move(action)).detach(); }

}  // namespace dialsim
