// A hand for the simulated dial: plays a dial script in the background. The one file of the sample that knows
// of the simulator.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

// Natively programs have no resources: the driver gives the simulator the sample's, under this module.
inline constexpr std::uint64_t kSampleModule = 1;

class DialDriver {
public:
    explicit DialDriver(const char* script_path);

    // `done` is called at the end of the script, from the thread that played it.
    void Start(std::function<void()> done);

    // Until the script has come to its end, so that no event is under way any more.
    void Wait();

    // Where the simulated platform keeps a setting, the first of the places that the library asks; "nowhere".
    // A real host cannot tell: it is told what, not from where.
    static std::string PlaceOf(const char* key);

    // After Wait: whether the script could not be played, and why.
    bool Failed() const { return !error_.empty(); }
    const char* Error() const { return error_.c_str(); }

private:
    static void OnEnd(void* context, const char* error);

    std::string script_;
    std::string error_;
    std::function<void()> done_;
};
