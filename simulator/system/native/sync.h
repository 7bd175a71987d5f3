// Mutexes and threads of the standard library.
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>

namespace dialsim {

using Mutex = std::mutex;
using Thread = std::thread;

inline Thread StartThread(std::function<void()> action) { return std::thread(std::move(action)); }

inline void Join(Thread& thread) { thread.join(); }

inline void Detach(Thread& thread) { thread.detach(); }

inline std::uint64_t CurrentThread() { return std::hash<std::thread::id>()(std::this_thread::get_id()); }

}  // namespace dialsim
