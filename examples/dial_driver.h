// Simulates the dial and plays a dial script in the background. The only file of the sample host that uses
// the simulator.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "text.h"

// Natively programs have no resources: the driver adds those of the sample host to this module.
inline constexpr std::uint64_t kSampleModule = 1;

class DialDriver {
public:
    // Simulates the dial for the library, so it comes before initialize. Check Failed afterwards.
    explicit DialDriver(const Text& script_path);

    // Calls `done` at the end of the script, on the thread that played it.
    void Start(std::function<void()> done);

    // Returns when the script has ended and no event is running.
    void Wait();

    // The store that the library reads the setting from. The library does not report it to hosts.
    static std::string StoreOf(const char* key);

    // Whether the constructor or, after Wait, the script failed, and the reason.
    bool Failed() const { return !error_.empty(); }
    const char* Error() const { return error_.c_str(); }

private:
    static void OnEnd(void* context, const char* error);

    std::string script_;
    std::string error_;
    std::function<void()> done_;
};
