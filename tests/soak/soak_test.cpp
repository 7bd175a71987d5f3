// Soak test: resource usage after the last round equals the usage after the first rounds. Usage: soak_test
// CYCLES ROTATIONS WRITES, each a number of rounds.
#include <brindle.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <numeric>
#include <string>

#ifdef _WIN32
#include <windows.h>
#else
#include <malloc.h>

#include <filesystem>

// Defined where a sanitizer's allocator replaces the system's.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();
#endif

#include "simulator/dialsim.h"
#include "support/constants.h"
#include "support/silent_host.h"
#include "support/simulated_library.h"
#include "support/stores_folder.h"
#include "support/utf16.h"

namespace {

// Resource usage of the process.
struct ResourceUsage {
    std::uint64_t bytes;       // allocated on its heaps
    std::uint64_t handles;     // of the system
    std::uint32_t references;  // to platform objects
    std::uint32_t strings;
};

#ifdef _WIN32

std::uint64_t BytesOn(HANDLE heap) {
    std::uint64_t bytes = 0;
    HeapLock(heap);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry)) {
        bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
    }
    HeapUnlock(heap);
    return bytes;
}

std::uint64_t BytesInUse() {
    HANDLE heaps[64];
    const DWORD count = std::min<DWORD>(GetProcessHeaps(64, heaps), 64);
    return std::accumulate(heaps, heaps + count, std::uint64_t{0},
                           [](std::uint64_t sum, HANDLE heap) { return sum + BytesOn(heap); });
}

// Wine cannot report the number of handles, so each possible handle is queried.
std::uint64_t HandlesInUse() {
    constexpr std::uintptr_t kStep = 4;
    constexpr std::uintptr_t kHighest = 1 << 18;
    std::uint64_t handles = 0;
    for (std::uintptr_t number = kStep; number <= kHighest; number += kStep) {
        DWORD flags = 0;
        handles += GetHandleInformation(reinterpret_cast<HANDLE>(number), &flags) ? 1U : 0U;
    }
    return handles;
}

#else

std::uint64_t BytesInUse() {
    return __sanitizer_get_current_allocated_bytes != nullptr ? __sanitizer_get_current_allocated_bytes()
                                                              : mallinfo2().uordblks;
}

std::uint64_t HandlesInUse() {
    const std::filesystem::directory_iterator open("/proc/self/fd");
    return static_cast<std::uint64_t>(std::distance(begin(open), end(open)));
}

#endif

ResourceUsage MeasureUsage() {
    return {BytesInUse(), HandlesInUse(), dialsim_references(nullptr), dialsim_strings()};
}

bool KeepsNothing(const ResourceUsage& early, const ResourceUsage& late) {
    return late.handles <= early.handles && late.references == early.references &&
           late.strings == early.strings;
}

// A zero measurement counts as a failure: it could show no growth.
bool IsFlat(const ResourceUsage& early, const ResourceUsage& late) {
    constexpr std::uint64_t kSlackBytes = 8192;
    return early.bytes > 0 && early.handles > 0 && late.bytes <= early.bytes + kSlackBytes &&
           KeepsNothing(early, late);
}

void Print(const char* what, std::uint64_t rounds, bool flat, const ResourceUsage& early,
           const ResourceUsage& late) {
    std::printf(
        "%-10s %8llu rounds: %s, bytes %llu then %llu, handles %llu then %llu, references %u then %u\n", what,
        static_cast<unsigned long long>(rounds), flat ? "flat" : "GREW",
        static_cast<unsigned long long>(early.bytes), static_cast<unsigned long long>(late.bytes),
        static_cast<unsigned long long>(early.handles), static_cast<unsigned long long>(late.handles),
        static_cast<unsigned>(early.references), static_cast<unsigned>(late.references));
    std::fflush(stdout);
}

// Clears the simulator's journal, which grows with every call.
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

// Runs a tenth of the rounds first, and at least kFewest, so that one-time allocations are done. A heap
// reserves groups of blocks from time to time, which it reports as allocated: only bytes that grow each
// time are a leak.
bool StaysFlat(const char* what, std::uint64_t rounds, const std::function<void(std::uint64_t)>& round) {
    constexpr std::uint64_t kFewest = 200;
    constexpr int kRepetitions = 3;
    Repeat(std::max(rounds / 10, kFewest), round);
    static_cast<void>(MeasureUsage());  // the measurement allocates once, too
    bool flat = false;
    for (int i = 0; i < kRepetitions && !flat; ++i) {
        const ResourceUsage early = MeasureUsage();
        Repeat(rounds, round);
        const ResourceUsage late = MeasureUsage();
        flat = IsFlat(early, late);
        Print(what, rounds, flat, early, late);
        if (!KeepsNothing(early, late)) {
            break;
        }
    }
    return flat;
}

// Ends with a reset: the simulator holds each asynchronous operation until then.
void RunOnce(SilentHost& host) {
    const MenuItemDescription item{MenuItemKind::KnownIcon, UTF16("Volume"), 1, 1, {}, {}, {}};
    initialize();
    init_dial_listener(&host);
    add_custom_menu(kWindow, &item, 1);
    dialsim_choose(kWindow, 0);
    dialsim_turn(kWindow, 3.0);
    dialsim_click(kWindow);
    is_dial_present(kWindow);
    uninit();
    dialsim_clear_journal();
    dialsim_reset();
    dialsim_async(DIALSIM_AT_ONCE);
}

void Write(std::uint64_t i) {
    const WideText text(100, static_cast<BrindleChar>('a' + i % 26));
    set_string_in_storage(UTF16("long run"), UTF16("text"), text.c_str());
    set_int_in_storage(UTF16("long run"), UTF16("number"), static_cast<std::int32_t>(i));
    brindle_free(get_string_from_storage(UTF16("long run"), UTF16("text")));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: soak_test CYCLES ROTATIONS WRITES\n");
        return EXIT_FAILURE;
    }
    if (!StartSimulatedLibrary()) {
        return EXIT_FAILURE;
    }
    const StoresFolder stores;
    dialsim_async(DIALSIM_AT_ONCE);
    SilentHost host(kWindow);
    constexpr std::uint32_t kBuzz = 1;
    host.haptic_request = &kBuzz;
    bool flat =
        StaysFlat("cycles", std::strtoull(argv[1], nullptr, 10), [&](std::uint64_t) { RunOnce(host); });

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
    const bool received = host.events == turned;
    flat = StaysFlat("writes", std::strtoull(argv[3], nullptr, 10), Write) && flat;
    const std::int32_t last = get_int_from_storage(UTF16("long run"), UTF16("number"));
    std::printf("every rotation received: %s; last number written: %d\n", received ? "yes" : "NO", last);
    uninit();
    return flat && received ? EXIT_SUCCESS : EXIT_FAILURE;
}
