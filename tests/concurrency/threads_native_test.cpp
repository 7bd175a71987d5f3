// Allowed concurrency of platform threads and host threads. The thread sanitizer checks the accesses, the
// expectations check the results.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <latch>
#include <thread>
#include <vector>

#include "brindle.h"
#include "support/menu_items.h"
#include "support/pictures.h"
#include "support/recording_host.h"
#include "support/simulator_fixture.h"
#include "support/stores_folder.h"

namespace brindle {
namespace {

constexpr int kRounds = 100;
constexpr int kFullWaits = 5;  // of 10,001 sleeps each

template <class Platform, class Host>
void RunConcurrently(Platform platform, Host host) {
    std::latch start(2);
    const std::jthread other([&] {
        start.arrive_and_wait();
        platform();
    });
    start.arrive_and_wait();
    host();
}

class Threads : public SimulatorTest {
protected:
    void SetUp() override {
        SimulatorTest::SetUp();
        ASSERT_EQ(initialize(), 0);
        ASSERT_TRUE(init_dial_listener(&host_));
    }
    void TearDown() override {
        uninit();
        SimulatorTest::TearDown();
    }

    // Raises the dial's events in turn on one thread while the host repeats `work`.
    template <class Work>
    void WorkWhileTheDialIsUsed(Work work) {
        std::atomic<bool> working = true;
        std::size_t uses = 0;
        RunConcurrently(
            [&] {
                for (; working || uses == 0; ++uses) {
                    EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
                    EXPECT_EQ(dialsim_click(kWindow), 0);
                    EXPECT_EQ(dialsim_touch(kWindow, 1, 2, 3, 4), 0);
                    EXPECT_EQ(dialsim_lift(kWindow), 0);
                }
            },
            [&] {
                for (int round = 0; round < kRounds; ++round) {
                    work();
                }
                working = false;
            });
        EXPECT_EQ(host_.rotations.size(), uses);
        EXPECT_EQ(host_.clicks.size(), uses);
    }

    RecordingHost host_{kWindow};
};

TEST_F(Threads, TheDialIsUsedWhileTheHostAsksForIt) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1)}));
    WorkWhileTheDialIsUsed([] { EXPECT_TRUE(is_dial_present(kWindow)); });
}

TEST_F(Threads, TheDialIsUsedWhileTheHostKeepsSettings) {
    const StoresFolder stores;
    dialsim_set_packaged(true);
    std::int32_t number = 0;
    WorkWhileTheDialIsUsed([&number] {
        ++number;
        EXPECT_EQ(set_int_in_storage(UTF16("host"), UTF16("turns"), number), 0);
        EXPECT_EQ(get_int_from_storage(UTF16("host"), UTF16("turns")), number);
        EXPECT_EQ(set_string_in_storage(UTF16("host"), UTF16("item"), UTF16("Brush")), 0);
        BrindleChar* const text = get_string_from_storage(UTF16("host"), UTF16("item"));
        EXPECT_NE(text, nullptr);
        std::free(text);
    });
}

TEST_F(Threads, TheDialIsUsedWhileTheHostSelectsItemsAndKeepsSystemEntries) {
    ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1), KnownIcon(2)}));
    WorkWhileTheDialIsUsed([] {
        EXPECT_TRUE(set_current_custom_menu(kWindow, 2));
        EXPECT_TRUE(set_default_menu(kWindow, kTwoSystemItems, 2));
    });
}

TEST_F(Threads, TheDialIsUsedWhileTheHostMakesTheMenuOfAnotherWindow) {
    RecordingHost other(kOtherWindow);
    ASSERT_TRUE(init_dial_listener(&other));
    WorkWhileTheDialIsUsed([] { EXPECT_TRUE(SetMenu(kOtherWindow, {KnownIcon(1)})); });
}

TEST_F(Threads, TheDialIsUsedWhileTheHostRegistersOtherWindows) {
    std::vector<RecordingHost> others;
    for (std::uint64_t window = 1; window <= kRounds; ++window) {
        others.emplace_back(window);
    }
    std::size_t next = 0;
    WorkWhileTheDialIsUsed([&] { EXPECT_TRUE(init_dial_listener(&others.at(next++))); });
}

TEST_F(Threads, AnItemIsChosenWhileTheHostAsksForTheDial) {
    ASSERT_TRUE(SetMenu(kWindow, {WithHaptics(KnownIcon(1)), KnownIcon(2)}));
    for (int round = 0; round < kRounds; ++round) {
        const std::uint32_t chosen = round % 2 == 0 ? 1 : 0;
        RunConcurrently([&] { EXPECT_EQ(dialsim_choose(kWindow, chosen), 0); },
                        [] { EXPECT_TRUE(is_dial_present(kWindow)); });
    }
    constexpr auto half = static_cast<std::uint32_t>(kRounds / 2);
    EXPECT_EQ(dialsim_calls("IRadialController::put_UseAutomaticHapticFeedback(0)"), half);
    EXPECT_EQ(dialsim_calls("IRadialController::put_UseAutomaticHapticFeedback(1)"), half);
}

TEST_F(Threads, APictureIsLoadedWhileTheDialIsUsedAndTheHostAsksForIt) {
    const TemporaryFile picture("brindle-threads.png", SmallPng());
    for (int round = 0; round < kRounds; ++round) {
        ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(1), FilePNG(2, picture.Path())}));
        RunConcurrently(
            [] {
                EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
                EXPECT_EQ(dialsim_click(kWindow), 0);
            },
            [] { EXPECT_TRUE(is_dial_present(kWindow)); });
        dialsim_wait_for_async();
        EXPECT_TRUE(set_current_custom_menu(kWindow, 2));
    }
}

TEST_F(Threads, PicturesOfTwoWindowsAreLoadedAtOnce) {
    const TemporaryFile picture("brindle-threads.png", SmallPng());
    RecordingHost other(kOtherWindow);
    ASSERT_TRUE(init_dial_listener(&other));
    dialsim_async(DIALSIM_HELD);
    for (std::uint32_t round = 0; round < kRounds; ++round) {
        ASSERT_TRUE(SetMenu(kWindow, {FilePNG(1, picture.Path())}));
        ASSERT_TRUE(SetMenu(kOtherWindow, {FilePNG(2, picture.Path())}));
        RunConcurrently([&] { EXPECT_EQ(dialsim_complete(2 * round), 0); },
                        [&] { EXPECT_EQ(dialsim_complete(2 * round + 1), 0); });
        EXPECT_TRUE(set_current_custom_menu(kWindow, 1));
        EXPECT_TRUE(set_current_custom_menu(kOtherWindow, 2));
    }
}

// The completion may end the wait or follow it: both results are valid, and the next query is unaffected.
TEST_F(Threads, TheAnswerAboutTheDialComesAsTheWaitEnds) {
    for (int round = 0; round < kRounds; ++round) {
        dialsim_async(DIALSIM_HELD);
        RunConcurrently(
            [&] {
                while (dialsim_pending() == 0) {
                    std::this_thread::yield();
                }
                EXPECT_EQ(dialsim_complete_all(), 0);
            },
            [] { is_dial_present(kWindow); });
        dialsim_async(DIALSIM_AT_ONCE);
        EXPECT_TRUE(is_dial_present(kWindow));
    }
}

TEST_F(Threads, TheAnswerAboutTheDialComesAsTheLibraryStops) {
    for (int wait = 0; wait < kFullWaits; ++wait) {
        dialsim_async(DIALSIM_HELD);
        EXPECT_FALSE(is_dial_present(kWindow));
        RunConcurrently([] { EXPECT_EQ(dialsim_complete_all(), 0); }, uninit);
        ASSERT_EQ(initialize(), 0);
        ASSERT_TRUE(init_dial_listener(&host_));
    }
}

}  // namespace
}  // namespace brindle
