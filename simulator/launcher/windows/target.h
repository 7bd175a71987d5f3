// The program that dialsim-run starts.
#pragma once

#include <windows.h>

#include <string>

#include "simulator/launcher/windows/handle.h"

namespace dialsim {

class Target {
public:
    // Starts the program, suspended before its first instruction. Throws Refusal.
    explicit Target(std::wstring command_line);
    // Ends the program unless it has been waited for.
    ~Target();
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;

    // Loads the simulator, which is also loaded in this process, into the program, and hooks the library
    // there: the one that the program imports and every one that it loads later. Throws Refusal.
    void Attach(HMODULE simulator);
    // Lets the program run and returns its status when it has ended.
    DWORD Run();
    // Whether it has loaded the library.
    bool LoadedLibrary() const;

private:
    void RequireX64() const;
    HANDLE DuplicateEvent() const;
    char* Load(const std::wstring& path) const;
    DWORD Call(void* function, void* argument) const;

    Handle process_;
    Handle thread_;
    Handle library_event_;
    Handle job_;
};

}  // namespace dialsim
