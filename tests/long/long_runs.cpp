// A long life leaves nothing behind: what the process holds after the first rounds is what it holds at the
// end. Usage: long_runs CYCLES ROTATIONS WRITES, each a number of rounds.
#include <brindle.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#ifdef _WIN32
#include <windows.h>
// after windows.h
#include <psapi.h>
#else
#include <malloc.h>

#include <filesystem>
#endif

#include "simulator/dialsim.h"
#include "support/stores_folder.h"
#include "support/wide.h"

namespace {

constexpr std::uint64_t kWindow = 7;

class SilentHost final : public IDialHost {
public:
    void OnRotation(void*, const DialRotationInfo* info) override {
        ++events;
        info->hapticRequest = &kBuzz;
    }
    std::uint64_t GetWindowHandle() override { return kWindow; }
    void OnButtonClicked(void*, const DialContactRect*) override { ++events; }

    std::uint64_t events = 0;

private:
    static constexpr std::uint32_t kBuzz = 1;
};

// What the process holds.
struct Holdings {
    std::uint64_t bytes;       // of its heap; on Windows of its private memory
    std::uint64_t handles;     // of the system's
    std::uint32_t references;  // to objects of the platform's
    std::uint32_t strings;
};

Holdings HoldNow() {
    Holdings now{};
#ifdef _WIN32
    PROCESS_MEMORY_COUNTERS_EX memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory),
                         sizeof memory);
    now.bytes = memory.PrivateUsage;
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    now.handles = handles;
#else
    now.bytes = mallinfo2().uordblks;
    for ([[maybe_unused]] const auto& open : std::filesystem::directory_iterator("/proc/self/fd")) {
        ++now.handles;
    }
#endif
    now.references = dialsim_references(nullptr);
    now.strings = dialsim_strings();
    return now;
}

#ifdef _WIN32
constexpr std::uint64_t kSlackBytes = 1 << 20;  // the system's own measure moves in big steps
#else
constexpr std::uint64_t kSlackBytes = 8192;
#endif

bool IsFlat(const Holdings& early, const Holdings& late) {
    return late.bytes <= early.bytes + kSlackBytes && late.handles <= early.handles &&
           late.references == early.references && late.strings == early.strings;
}

// The journal is the simulator's own and would grow with every call.
void Repeat(std::uint64_t rounds, const std::function<void(std::uint64_t)>& round) {
    constexpr std::uint64_t kRoundsOfJournal = 16;
    for (std::uint64_t i = 0; i < rounds; ++i) {
        round(i);
        if (i % kRoundsOfJournal == 0) {
            dialsim_clear_journal();
        }
    }
    dialsim_clear_journal();
}

// A tenth of the rounds first, and not too few, so that what is only made once has been made.
bool StaysFlat(const char* what, std::uint64_t rounds, const std::function<void(std::uint64_t)>& round) {
    constexpr std::uint64_t kFewest = 200;
    Repeat(std::max(rounds / 10, kFewest), round);
    const Holdings early = HoldNow();
    Repeat(rounds, round);
    const Holdings late = HoldNow();
    const bool flat = IsFlat(early, late);
    std::printf(
        "%-10s %8llu rounds: %s, bytes %llu then %llu, handles %llu then %llu, references %u then %u\n", what,
        static_cast<unsigned long long>(rounds), flat ? "flat" : "GREW",
        static_cast<unsigned long long>(early.bytes), static_cast<unsigned long long>(late.bytes),
        static_cast<unsigned long long>(early.handles), static_cast<unsigned long long>(late.handles),
        static_cast<unsigned>(early.references), static_cast<unsigned>(late.references));
    std::fflush(stdout);
    return flat;
}

// Ends with a reset: the simulator remembers each asynchronous operation until then.
void LiveOnce(SilentHost& host) {
    const MenuItemDescription item{MenuItemKind::KnownIcon, UTF16("Volume"), 1, 1, {}, {}, {}};
    initialize();
    init_dial_listener(&host);
    add_custom_menu(kWindow, &item, 1);
    dialsim_choose(kWindow, 0);
    dialsim_turn(kWindow, 3.0);
    dialsim_click(kWindow);
    is_dial_present(kWindow);
    uninit();
    dialsim_reset();
    dialsim_async(DIALSIM_AT_ONCE);
}

void Write(std::uint64_t i) {
    const std::basic_string<BrindleChar> text(100, static_cast<BrindleChar>('a' + i % 26));
    set_string_in_storage(UTF16("long run"), UTF16("text"), text.c_str());
    set_int_in_storage(UTF16("long run"), UTF16("number"), static_cast<std::int32_t>(i));
    std::free(get_string_from_storage(UTF16("long run"), UTF16("text")));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4 || !dialsim_watch("brindle.dll")) {
        std::fprintf(stderr, "usage: long_runs CYCLES ROTATIONS WRITES\n");
        return EXIT_FAILURE;
    }
    const StoresFolder stores;
    dialsim_async(DIALSIM_AT_ONCE);
    SilentHost host;
    bool flat =
        StaysFlat("cycles", std::strtoull(argv[1], nullptr, 10), [&](std::uint64_t) { LiveOnce(host); });

    dialsim_set_packaged(true);
    initialize();
    init_dial_listener(&host);
    host.events = 0;
    std::uint64_t turned = 0;
    flat = StaysFlat("rotations", std::strtoull(argv[2], nullptr, 10),
                     [&](std::uint64_t i) {
                         dialsim_turn(kWindow, i % 2 == 0 ? 1.0 : -1.0);
                         ++turned;
                     }) &&
           flat;
    const bool heard = host.events == turned;
    flat = StaysFlat("writes", std::strtoull(argv[3], nullptr, 10), Write) && flat;
    const std::int32_t last = get_int_from_storage(UTF16("long run"), UTF16("number"));
    std::printf("every rotation heard: %s; last number written: %d\n", heard ? "yes" : "NO", last);
    uninit();
    return flat && heard ? EXIT_SUCCESS : EXIT_FAILURE;
}
