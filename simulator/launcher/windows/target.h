// The program that dialsim-run starts.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

#include "simulator/launcher/windows/handle.h"

namespace dialsim {

class Target {
public:
    // Starts the program, suspended before its first instruction. Throws Refusal.
    Target(const std::wstring& program, std::wstring command_line);
    // Ends the program unless it has been waited for.
    ~Target();
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;

    // Loads the simulator, which is also loaded in this process, into the program, and hooks the library
    // there: the one that the program imports and every one that it loads later. Throws Refusal.
    void Attach(HMODULE simulator);
    void Resume() const { ResumeThread(thread_.Get()); }
    // Returns whether a window of the program uses the dial, as soon as one does, the program has ended, or
    // the time has passed.
    bool WaitForDial(DWORD milliseconds) const;
    // Returns the program's status when it has ended.
    DWORD WaitForEnd() const;
    bool IsRunning() const;
    // Whether it has loaded the library.
    bool LoadedLibrary() const;

private:
    void RequireX64() const;
    HANDLE Duplicate(const Handle& event) const;
    void* Copy(const void* bytes, std::size_t size) const;
    char* Load(const std::wstring& path) const;
    DWORD Call(void* function, void* argument) const;

    Handle process_;
    Handle thread_;
    Handle library_loaded_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    Handle dial_in_use_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    Handle job_;
};

}  // namespace dialsim
