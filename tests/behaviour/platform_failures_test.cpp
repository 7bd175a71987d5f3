// Concurrent calls, and a platform on which every operation fails.
#include <cstdlib>
#include <string>
#include <vector>

#include "behaviour.h"
#include "support/menu_items.h"
#include "support/utf16.h"

namespace {

// A short session: the user uses the dial once in every way.
void RunShortSession() {
    static const std::uint32_t buzz = 1;
    dialsim_async(DIALSIM_AT_ONCE);
    dialsim_skip_sleeps(true);
    dialsim_set_packaged(true);
    initialize();
    RecordingHost host(kWindow);
    host.haptic_request = &buzz;
    init_dial_listener(&host);
    set_default_menu(kWindow, kTwoSystemItems, 2);
    try {
        SetMenu(kWindow, {KnownIcon(1), SystemFont(2)});
    } catch (const std::exception&) {
        // the platform refused a label
    }
    set_current_custom_menu(kWindow, 2);
    dialsim_choose(kWindow, 0);
    dialsim_acquire(kWindow);
    dialsim_turn(kWindow, 5.0);
    dialsim_touch(kWindow, 1, 2, 3, 4);
    dialsim_turn(kWindow, 5.0);
    dialsim_move(kWindow, 2, 2, 3, 4);
    dialsim_lift(kWindow);
    dialsim_click(kWindow);
    dialsim_lose(kWindow);
    is_dial_present(kWindow);
    set_string_in_storage(UTF16("host"), UTF16("key"), UTF16("7"));
    std::free(get_string_from_storage(UTF16("host"), UTF16("key")));
    set_int_in_storage(UTF16("host"), UTF16("key"), 7);
    get_int_from_storage(UTF16("host"), UTF16("key"));
    uninit();
}

using Sweep = UninitializedTest;

// Each operation fails from each of its calls on, in each way: the process survives without a leak.
TEST_F(Sweep, NoFailureOfThePlatformEndsTheProcessOrLeaksAnything) {
    constexpr int kFaultKinds = 3;
    constexpr std::uint32_t kCalls = 4;
    std::uint32_t i = 0;
    std::uint32_t runs = 0;
    for (; const char* operation = dialsim_operation(i); ++i) {
        // initialize ends the process where its class names cannot be created: tested separately.
        const bool is_fatal = std::string(operation) == "WindowsCreateStringReference";
        for (std::uint32_t from = is_fatal ? 3 : 1; from <= kCalls; ++from) {
            for (int way = 0; way < kFaultKinds; ++way) {
                dialsim_reset();
                EXPECT_TRUE(dialsim_clear_stores());
                if (way == 0) {
                    dialsim_fail(operation, kFail, from, 0);
                } else if (way == 1) {
                    dialsim_fail_late(operation, kFail, from, 0);
                } else {
                    dialsim_yield_null(operation, from, 0);
                }
                RunShortSession();
                ++runs;
                // An object whose release fails is leaked.
                if (std::string(operation).find("Delete") == std::string::npos) {
                    EXPECT_EQ(LeakReport(), "") << operation << " from call " << from << ", way " << way;
                }
            }
        }
    }
    Printed();
    std::fprintf(stderr, "sweep: the whole library: %u operations, %u runs\n", i, runs);
}

using Threads = ListeningTest;

TEST_F(Threads, BackgroundScriptsReachTheHostAndCanBeWaitedFor) {
    static int ended = 0;
    ended = 0;
    dialsim_play_in_background(
        "turn 1\nturn 2\nturn 3\n", 0, [](void*, const char* error) { ended += error == nullptr; }, nullptr);
    dialsim_wait_for_scripts();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(host.rotations.size(), 3u);
}

// The simulator's queries are thread-safe while events run.
TEST_F(Threads, TheSimulatorMayBeAskedWhileEventsRun) {
    std::string script;
    for (int i = 0; i < 200; ++i) {
        script += "turn 1\n";
    }
    static int ended = 0;
    ended = 0;
    dialsim_play_in_background(
        script.c_str(), 0, [](void*, const char*) { ++ended; }, nullptr);
    for (int i = 0; i < 50; ++i) {
        LeakReport();
        Journal();
        dialsim_references(nullptr);
        dialsim_hold(i % 2 == 0);
    }
    dialsim_wait_for_scripts();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(host.rotations.size(), 200u);
}

}  // namespace
