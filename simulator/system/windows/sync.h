// Mutexes and threads of the system: with the toolchain's default thread model its standard library has none.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>

namespace dialsim {

class Mutex {
public:
    void lock() { AcquireSRWLockExclusive(&lock_); }
    void unlock() { ReleaseSRWLockExclusive(&lock_); }

private:
    SRWLOCK lock_ = SRWLOCK_INIT;
};

using Thread = HANDLE;

inline Thread StartThread(std::function<void()> action) {
    const auto run = [](void* context) -> DWORD {
        const std::unique_ptr<std::function<void()>> owned(static_cast<std::function<void()>*>(context));
        (*owned)();
        return 0;
    };
    return CreateThread(nullptr, 0, run, new std::function<void()>(std::move(action)), 0, nullptr);
}

inline void Join(Thread thread) {
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

inline void Detach(Thread thread) { CloseHandle(thread); }

inline void Pause(std::uint32_t milliseconds) { Sleep(milliseconds); }

inline std::uint64_t CurrentThread() { return GetCurrentThreadId(); }

}  // namespace dialsim
