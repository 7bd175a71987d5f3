// Diagnoses a dial that does nothing on a user's computer. Prints a line for each check: the classes that the
// library needs, elevation, package identity and the stores that follow from it, presence of the dial, and
// arrival of a turn. The last line says what to do.
//
//   dialcheck [--wait SECONDS]
//
// The exit status is 0 when all checks succeed and a turn arrives, 1 when something is missing, 2 when only
// the turn is missing, 3 for a usage error.
#include <brindle.h>

#include <atomic>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

#include "needs.h"
#include "system.h"

namespace {

enum Status { kWorks = 0, kMissing = 1, kNoTurn = 2, kUsageError = 3 };

constexpr char kUsage[] =
    "usage: dialcheck [--wait SECONDS]\n"
    "\n"
    "Checks whether the dial works for a program on this computer. Turn the dial when asked to. The program\n"
    "waits 10 seconds for a turn unless another time is given.\n"
    "\n"
    "exit status  0  nothing is missing and a turn arrived\n"
    "             1  something is missing\n"
    "             2  nothing is missing, but no turn arrived\n"
    "             3  usage error\n";

struct Findings {
    bool platform = false;
    bool listening = false;
    bool dial = false;
    bool elevated = false;
    bool turned = false;
};

// Flushed at once: the output is complete even when the process ends unexpectedly.
void Report(const std::string& what, const std::string& answer) {
    std::printf("%s: %s\n", what.c_str(), answer.c_str());
    std::fflush(stdout);
}

std::string NotFound(int32_t code) {
    char text[32];
    std::snprintf(text, sizeof text, "not found (%08x)", static_cast<unsigned>(code));
    return text;
}

std::string FoundOrNot(int32_t code) { return code < 0 ? NotFound(code) : "found"; }

// A platform object begins with a pointer to its function table.
struct Object {
    void* const* functions;
};

constexpr std::size_t kRelease = 2;
constexpr std::size_t kGetCurrent = 6;  // of IApplicationDataStatics

template <class... Arguments>
int32_t Call(Object* object, std::size_t slot, Arguments... arguments) {
    using Function = int32_t (*)(Object*, Arguments...);
    return reinterpret_cast<Function>(object->functions[slot])(object, arguments...);
}

int32_t Find(const Need& need) {
    Object* factory = nullptr;
    const int32_t code = GetFactory(need, reinterpret_cast<void**>(&factory));
    if (code >= 0) {
        Call(factory, kRelease);
    }
    return code;
}

bool CheckClasses() {
    bool all = true;
    for (const Need& need : kNeeds) {
        const int32_t code = Find(need);
        Report(std::string(need.class_name) + ", " + need.interface_name, FoundOrNot(code));
        all = all && code >= 0;
    }
    return all;
}

// Only a program with package identity has application data.
int32_t FindApplicationData() {
    Object* factory = nullptr;
    int32_t code = GetFactory(kApplicationData, reinterpret_cast<void**>(&factory));
    if (code >= 0) {
        Object* data = nullptr;
        code = Call(factory, kGetCurrent, &data);
        if (code >= 0) {
            Call(data, kRelease);
        }
        Call(factory, kRelease);
    }
    return code;
}

void CheckSettings() {
    Report("package", PackageName());
    const int32_t code = FindApplicationData();
    Report("application data", FoundOrNot(code));
    Report("settings", code < 0
                           ? "texts in the vault only, numbers nowhere"
                           : "texts in the roaming settings, the vault and the local settings, numbers in "
                             "the roaming and the local settings");
}

bool CheckElevation() {
    const std::optional<bool> elevated = IsElevated();
    Report("elevated", !elevated ? "unknown" : *elevated ? "yes, Windows then sends no turns" : "no");
    return elevated.value_or(false);
}

// Prints each event.
class ProbeHost final : public IDialHost {
public:
    explicit ProbeHost(ProbeWindow& window) : window_(window) {}

    uint64_t GetWindowHandle() override { return window_.Handle(); }

    void OnRotation(void* /*sender*/, const DialRotationInfo* turn) override {
        char degrees[48];
        std::snprintf(degrees, sizeof degrees, "arrived, %+.1f degrees", turn->deltaDegrees);
        Report("turn", degrees);
        turned_ = true;
        window_.Wake();
    }
    void OnButtonClicked(void* /*sender*/, const DialContactRect* /*rect*/) override {
        Report("click", "arrived");
    }

    bool Turned() const { return turned_; }

private:
    ProbeWindow& window_;
    std::atomic<bool> turned_ = false;
};

// Events that run on another thread have ended after this time.
constexpr std::chrono::milliseconds kRestOfAMovement(300);

void CheckTurn(ProbeWindow& window, const ProbeHost& host, std::chrono::seconds wait) {
    Report("turn", "turn the dial now; waiting for " + std::to_string(wait.count()) + " seconds");
    window.HandleMessages(wait, [&] { return host.Turned(); });
    if (!host.Turned()) {
        Report("turn", "none arrived");
    }
    window.HandleMessages(kRestOfAMovement, [] { return false; });
}

void CheckWindow(std::chrono::seconds wait, Findings& found) {
    ProbeWindow window("Turn the dial now");
    Report("window", window.Handle() != 0 ? "created" : "cannot be created");
    ProbeHost host(window);
    found.listening = window.Handle() != 0 && init_dial_listener(&host);
    Report("listener", found.listening ? "registered" : "refused");
    if (found.listening) {
        found.dial = is_dial_present(window.Handle());
        Report("dial", found.dial ? "present" : "not present");
        CheckTurn(window, host, wait);
        found.turned = host.Turned();
    }
    uninit();  // before the window and the host go
}

void CheckLibrary(std::chrono::seconds wait, Findings& found) {
    const int32_t started = initialize();
    Report("library", started == 0   ? "ready"
                      : started == 1 ? "the Windows Runtime is not available"
                                     : "this Windows is too old");
    found.platform = found.platform && started == 0;
    if (started == 0) {
        CheckWindow(wait, found);
    } else if (started == 2) {
        uninit();
    }
}

Findings Check(std::chrono::seconds wait) {
    Findings found;
    const int32_t runtime = StartRuntime();
    Report("Windows Runtime", FoundOrNot(runtime));
    found.platform = CheckClasses();
    CheckSettings();
    found.elevated = CheckElevation();
    CheckLibrary(wait, found);
    if (runtime >= 0) {
        StopRuntime();
    }
    return found;
}

Status ReportVerdict(const Findings& found) {
    if (!found.platform) {
        Report("verdict", "Windows lacks a required class, see above; install Windows updates");
        return kMissing;
    }
    if (!found.listening) {
        Report("verdict", "the dial listener cannot be created; send this output to your support");
        return kMissing;
    }
    if (!found.dial) {
        Report("verdict", found.turned ? "a dial turns, but it is not the supported one"
                                       : "the dial is not paired; pair it in the Bluetooth settings");
        return kMissing;
    }
    if (!found.turned) {
        Report("verdict",
               found.elevated
                   ? "no turn arrived; run the program without administrator rights"
                   : "no turn arrived; wake the dial, check its batteries, keep the window in front");
        return kNoTurn;
    }
    Report("verdict", "the dial works");
    return kWorks;
}

std::optional<std::chrono::seconds> WaitIn(int argc, char** argv) {
    if (argc == 1) {
        return std::chrono::seconds(10);
    }
    if (argc != 3 || std::strcmp(argv[1], "--wait") != 0) {
        return {};
    }
    std::uint16_t seconds = 0;
    const char* const end = argv[2] + std::strlen(argv[2]);
    const auto [rest, error] = std::from_chars(argv[2], end, seconds);
    return error == std::errc() && rest == end ? std::optional(std::chrono::seconds(seconds)) : std::nullopt;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
        std::fputs(kUsage, stdout);
        return kWorks;
    }
    const auto wait = WaitIn(argc, argv);
    if (!wait) {
        std::fputs(kUsage, stderr);
        return kUsageError;
    }
    return ReportVerdict(Check(*wait));
}
