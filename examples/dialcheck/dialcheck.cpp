// Diagnoses a dial that does nothing on a user's computer. Prints a line for each check: the versions of the
// system and of the library, the classes that the library needs, elevation, package identity and the stores
// that follow from it, presence of the dial, and arrival of a turn. The last line says what to do.
//
//   dialcheck [--wait SECONDS | --session SECONDS]
//
// Its own calls of the platform always go to the system, also when the simulator answers those of the
// library.
#include <brindle.h>

#include <atomic>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <optional>
#include <set>
#include <string>

#include "library.h"
#include "needs.h"
#include "system.h"
#include "verdict.h"

namespace {

constexpr char kUsage[] =
    "usage: dialcheck [--wait SECONDS | --session SECONDS]\n"
    "\n"
    "Checks whether the dial works for a program on this computer. Turn the dial when asked to. The program\n"
    "waits 10 seconds for a turn unless another time is given. A session goes on after the first turn, "
    "until\n"
    "the button is pressed.\n"
    "\n"
    "exit status  0  nothing is missing and a turn arrived\n"
    "             1  something is missing\n"
    "             2  nothing is missing, but no turn arrived\n"
    "             3  usage error\n";

// What is awaited at the end.
struct Wait {
    std::chrono::seconds time{10};
    bool for_press = false;  // otherwise for a turn
};

// Flushed at once: the output is complete even when the process ends unexpectedly.
void Report(const std::string& what, const std::string& answer) {
    std::printf("%s: %s\n", what.c_str(), answer.c_str());
    std::fflush(stdout);
}

std::string WithCode(const char* what, int32_t code) {
    char number[16];
    std::snprintf(number, sizeof number, " (%08x)", static_cast<unsigned>(code));
    return what + std::string(number);
}

std::string FoundOrNot(int32_t code) { return code < 0 ? WithCode("not found", code) : "found"; }

// While the simulator answers the library, a finding about the system says so.
std::string OfSystem(const std::string& what, const Findings& found) {
    return found.simulated ? what + " in Windows itself" : what;
}

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

// Returns the names of the classes that lack an interface.
std::set<std::string> CheckClasses(Findings& found) {
    std::set<std::string> missing;
    for (const Need& need : kNeeds) {
        const int32_t code = Find(need);
        Report(OfSystem(std::string(need.class_name) + ", " + need.interface_name, found), FoundOrNot(code));
        if (code < 0) {
            missing.insert(need.class_name);
        }
    }
    found.classes = missing.empty();
    return missing;
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

const char* Stores(bool application_data, bool vault) {
    if (application_data) {
        return vault ? "texts in the roaming settings, the vault and the local settings, numbers in the "
                       "roaming and the local settings"
                     : "texts and numbers in the roaming and the local settings";
    }
    return vault ? "texts in the vault only, numbers nowhere" : "texts and numbers nowhere";
}

void CheckSettings(const std::set<std::string>& missing, const Findings& found) {
    Report("package", PackageName());
    const int32_t code = FindApplicationData();
    Report(OfSystem("application data", found), FoundOrNot(code));
    const bool vault = !missing.contains(kPasswordVault) && !missing.contains(kPasswordCredential);
    Report("settings", found.simulated ? "in the simulator's stores"
                                       : Stores(code >= 0 && !missing.contains(kPropertyValue), vault));
}

void CheckElevation(Findings& found) {
    const std::optional<bool> elevated = IsElevated();
    found.elevated = elevated.value_or(false);
    const bool real_dial = !found.simulated && !found.wine;
    Report("elevated", !elevated         ? "unknown"
                       : !found.elevated ? "no"
                       : real_dial       ? "yes, Windows then sends no turns"
                                         : "yes");
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
        pressed_ = true;
        window_.Wake();
    }

    bool Turned() const { return turned_; }
    bool Pressed() const { return pressed_; }

private:
    ProbeWindow& window_;
    std::atomic<bool> turned_ = false;
    std::atomic<bool> pressed_ = false;
};

// Events that run on another thread have ended after this time.
constexpr std::chrono::milliseconds kRestOfAMovement(300);

void CheckTurn(ProbeWindow& window, const ProbeHost& host, const Wait& wait) {
    const std::string task =
        wait.for_press ? "turn the dial a few times, then press it" : "turn the dial now";
    Report("turn", task + "; waiting for " + std::to_string(wait.time.count()) + " seconds");
    window.HandleMessages(wait.time, [&] { return wait.for_press ? host.Pressed() : host.Turned(); });
    if (!host.Turned()) {
        Report("turn", "none arrived");
    }
    window.HandleMessages(kRestOfAMovement, [] { return false; });
}

void CheckWindow(const Library& library, const Wait& wait, Findings& found) {
    ProbeWindow window("Turn the dial now");
    Report("window", window.Handle() != 0 ? "created" : "cannot be created");
    ProbeHost host(window);
    found.listening = window.Handle() != 0 && library.listen(&host);
    Report("listener", found.listening ? "registered" : "refused");
    if (found.listening) {
        found.dial = library.find_dial(window.Handle());
        Report("dial", found.dial ? "present" : "not present");
        CheckTurn(window, host, wait);
        found.turned = host.Turned();
    }
    library.stop();  // before the window and the host go
}

// `initialize` has one result for an apartment of the other kind and a missing Windows Runtime.
const char* Describe(Start start, int32_t runtime) {
    return start == kReady             ? "ready"
           : start == kTooOld          ? "this Windows is too old"
           : runtime == kMultithreaded ? "cannot start, because this thread is in a multithreaded apartment"
                                       : "the Windows Runtime is not available";
}

void CheckStart(const Library& library, const Wait& wait, Findings& found) {
    found.start = static_cast<Start>(library.start());
    Report("start of the library", Describe(found.start, found.runtime));
    if (found.start == kReady) {
        CheckWindow(library, wait, found);
    } else if (found.start == kTooOld) {
        library.stop();
    }
}

void CheckVersions(const LoadedLibrary& library, Findings& found) {
    Report("dialcheck", "version " BRINDLE_VERSION_TEXT);
    Report("Windows", SystemVersion());
    const std::string wine = WineVersion();
    found.wine = !wine.empty();
    if (found.wine) {
        Report("Wine", wine + ": a dial cannot be found here; the simulator can replace it");
    }
    found.library = library.functions.has_value();
    Report("library", library.description);
    const std::string simulator = SimulatorPath();
    found.simulated = !simulator.empty();
    if (found.simulated) {
        Report("simulator", "dialsim.dll " + simulator + " answers in the place of Windows for the library");
    }
}

void CheckRuntime(Findings& found) {
    found.runtime = StartRuntime();
    Report("Windows Runtime", found.runtime >= 0 ? "started"
                              : found.runtime == kMultithreaded
                                  ? WithCode("started by another module as multithreaded", found.runtime)
                                  : WithCode("cannot be started", found.runtime));
}

Findings Check(const Wait& wait) {
    Findings found;
    const LoadedLibrary library = LoadDialLibrary();
    CheckVersions(library, found);
    CheckRuntime(found);
    CheckSettings(CheckClasses(found), found);
    CheckElevation(found);
    if (library.functions) {
        CheckStart(*library.functions, wait, found);
    }
    if (found.runtime >= 0) {
        StopRuntime();
    }
    return found;
}

std::optional<Wait> WaitIn(int argc, char** argv) {
    if (argc == 1) {
        return Wait{};
    }
    const bool session = argc == 3 && std::strcmp(argv[1], "--session") == 0;
    if (argc != 3 || (!session && std::strcmp(argv[1], "--wait") != 0)) {
        return {};
    }
    std::uint16_t seconds = 0;
    const char* const end = argv[2] + std::strlen(argv[2]);
    const auto [rest, error] = std::from_chars(argv[2], end, seconds);
    return error == std::errc() && rest == end ? std::optional(Wait{std::chrono::seconds(seconds), session})
                                               : std::nullopt;
}

Status Run(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
        std::fputs(kUsage, stdout);
        return kWorks;
    }
    const auto wait = WaitIn(argc, argv);
    if (!wait) {
        std::fputs(kUsage, stderr);
        return kUsageError;
    }
    const Verdict verdict = VerdictOf(Check(*wait));
    Report("verdict", verdict.text);
    return verdict.status;
}

}  // namespace

int main(int argc, char** argv) {
    const Status status = Run(argc, argv);
    if (HasOwnConsole()) {
        WaitForKey();
    }
    return status;
}
