// Locks and threads: the standard library's.
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>

namespace dialsim {

using Mutex = std::mutex;

inline void RunOnOwnThread(std::function<void()> action) { std::thread(std::move(action)).join(); }

inline void RunInBackground(std::function<void()> action) { std::thread(std::move(action)).detach(); }

inline std::uint64_t CurrentThread() { return std::hash<std::thread::id>()(std::this_thread::get_id()); }

}  // namespace dialsim
