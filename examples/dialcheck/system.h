// What the probe asks of the system itself, past the library. Codes are HRESULTs: negative for a failure.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "needs.h"

// The Windows Runtime on this thread, single-threaded; to be stopped unless the code is negative.
int32_t StartRuntime();
void StopRuntime();

// A factory's interface; the reference is the caller's.
int32_t GetFactory(const Need& need, void** factory);

// Nothing where the system does not say.
std::optional<bool> IsElevated();

// The full name of the package that the program belongs to, or a word about why there is none.
std::string PackageName();

// A plain top-level window. In the native build, which has no windows, a number.
class ProbeWindow {
public:
    explicit ProbeWindow(const char* title);
    ProbeWindow(const ProbeWindow&) = delete;
    ProbeWindow& operator=(const ProbeWindow&) = delete;
    ~ProbeWindow();

    // 0 when it could not be made.
    uint64_t Handle() const;

    // Handles messages until the time is over, the window has been closed, or `enough` holds.
    void HandleMessages(std::chrono::milliseconds limit, const std::function<bool()>& enough);

    // Has `enough` asked again. From any thread.
    void Wake();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
