// System functions that dialcheck calls directly. Codes are HRESULTs.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "needs.h"

// Initialises the Windows Runtime on this thread, single-threaded. Call StopRuntime unless the code is
// negative.
int32_t StartRuntime();
void StopRuntime();

// Gets a factory's interface; the caller owns the reference.
int32_t GetFactory(const Need& need, void** factory);

std::string SystemVersion();

// Empty unless the system is Wine.
std::string WineVersion();

// The path of dialsim.dll; empty unless it is loaded in this process and simulates the dial. The native build
// is linked to the simulator, which is then the system.
std::string SimulatorPath();

// Whether the console belongs to this program only, as after a double click, and closes with it.
bool HasOwnConsole();
void WaitForKey();

// Empty when the system does not report it.
std::optional<bool> IsElevated();

// The full name of the program's package, or the reason why it has none.
std::string PackageName();

// A top-level window. The native build, which has no windows, uses a number.
class ProbeWindow {
public:
    explicit ProbeWindow(const char* title);
    ProbeWindow(const ProbeWindow&) = delete;
    ProbeWindow& operator=(const ProbeWindow&) = delete;
    ~ProbeWindow();

    // 0 when it could not be created.
    uint64_t Handle() const;

    // Handles messages until the time is over, the window is closed, or `enough` returns true.
    void HandleMessages(std::chrono::milliseconds limit, const std::function<bool()>& enough);

    // Calls `enough` again. From any thread.
    void Wake();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
