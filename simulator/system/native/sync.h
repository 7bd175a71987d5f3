// Mutexes and threads of the standard library.
#pragma once

#include <chrono>
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

// In real time, unlike the clock of the simulator.
inline void Pause(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

inline std::uint64_t CurrentThread() { return std::hash<std::thread::id>()(std::this_thread::get_id()); }

}  // namespace dialsim
