// Recordings with the simulated clock: times are exact.
#include <brindle.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "event_recorder.h"
#include "platform/interfaces/devices.h"
#include "recorded_dial.h"
#include "support/recording_host.h"

namespace brindle {
namespace {

// The lines after the header.
std::string Body(const std::string& recording) { return recording.substr(recording.find('\n') + 1); }

using RecordedTimes = RecordedDial;

TEST_F(RecordedTimes, AreThoseBetweenMovements) {
    const auto controller = MakeController(16);
    Record();
    dialsim_wait(40);
    dialsim_wait(60);
    dialsim_turn(16, 1);
    dialsim_turn(16, 2);
    dialsim_wait(7);
    dialsim_hold(true);
    EXPECT_EQ(Body(Recording()), "wait 100\nwindow @1\nturn 1\nturn 2\nwait 7\nhold\n");
}

TEST_F(RecordedTimes, ExcludeTheTimeOfHandlers) {
    const auto controller = MakeController(16);
    const auto slow = MakeDelegate<
        abi::TypedEventHandler<abi::RadialController, abi::RadialControllerButtonClickedEventArgs>>(
        [](auto*, auto*) {
            dialsim_wait(30);
            return S_OK;
        });
    EventRegistrationToken token{};
    ASSERT_EQ(controller->add_ButtonClicked(slow.Get(), &token), S_OK);
    Record();
    dialsim_click(16);
    dialsim_wait(5);
    dialsim_click(16);
    EXPECT_EQ(Body(Recording()), "window @1\nclick\nwait 5\nclick\n");
}

TEST_F(RecordedTimes, ExcludeWaitsForOperations) {
    ComPtr<abi::IDeviceInformationStatics> devices;
    ASSERT_EQ(GetFactory<abi::DeviceInformation>(devices), S_OK);
    StringReference query;
    ASSERT_EQ(query.Create(UTF16("System.Devices.InterfaceEnabled:=System.StructuredQueryType.Boolean#True")),
              S_OK);
    ComPtr<abi::IAsyncOperation<abi::DeviceInformationCollection>> enumeration;
    ASSERT_EQ(devices->FindAllAsyncAqsFilter(query.Get(), enumeration.Put()), S_OK);
    const auto ignore = MakeDelegate<abi::AsyncOperationCompletedHandler<abi::DeviceInformationCollection>>(
        [](auto*, auto) { return S_OK; });
    dialsim_async_delay(25);
    ASSERT_EQ(enumeration->put_Completed(ignore.Get()), S_OK);
    const std::uint64_t before = dialsim_now();
    Record();
    dialsim_wait_for_async();
    EXPECT_EQ(dialsim_now() - before, 25U);
    dialsim_wait(5);
    dialsim_hold(true);
    EXPECT_EQ(Body(Recording()), "settle\nwait 5\nhold\n");
}

TEST_F(RecordedTimes, AreZeroWhereTheClockIsSetBack) {
    Record();
    dialsim_set_clock(dialsim_now() - 10);
    dialsim_hold(true);
    dialsim_set_clock(dialsim_now() + 0x1'0000'0005);
    dialsim_hold(false);
    EXPECT_EQ(Body(Recording()), "hold\nwait 4294967295\nrelease\n");
}

// All data of the host calls, with the time since the session's start.
class EventLog {
public:
    void Record(RecordingHost& host, const char* name) {
        host.on_rotation = [this, name](const DialRotationInfo& turn) {
            Add(name, "turn", turn.contact, turn.deltaDegrees, turn.acceleration, turn.selectedItemTag,
                turn.buttonPressed);
        };
        host.on_click = [this, name](const DialContactRect& rect) {
            Add(name, "click", rect, 0.0, 0.0, 0, false);
        };
    }

    std::vector<std::string> entries;

private:
    void Add(const char* name, const char* event, const DialContactRect& rect, double degrees,
             double acceleration, std::uint32_t item, bool pressed) {
        char entry[200];
        std::snprintf(entry, sizeof entry, "%s at %llu: %s %a factor %a item %u %s (%d, %d, %d, %d)", name,
                      static_cast<unsigned long long>(dialsim_now() - start_), event, degrees, acceleration,
                      item, pressed ? "pressed" : "", rect.left, rect.top, rect.right, rect.bottom);
        entries.emplace_back(entry);
    }

    const std::uint64_t start_ = dialsim_now();
};

// Random dial input for two windows.
class RandomCommands {
public:
    RandomCommands(std::uint64_t first, std::uint64_t second) : windows_{first, second} {}

    void Act() {
        const std::uint64_t window = windows_[Below(2)];
        switch (Below(14)) {
            case 0:
                dialsim_click(window);
                break;
            case 1:
                dialsim_hold(Below(2) == 0);
                break;
            case 2:
                dialsim_touch(window, Place(), Place(), Place(), Place());
                break;
            case 3:
                dialsim_move(window, Place(), Place(), Place(), Place());
                break;
            case 4:
                dialsim_lift(window);
                break;
            case 5:
                dialsim_choose(window, Below(3));
                break;
            case 6:
                dialsim_acquire(window);
                break;
            case 7:
                dialsim_lose(window);
                break;
            default:
                dialsim_turn(window, std::uniform_real_distribution(-30.0, 40.0)(random_));
        }
        dialsim_wait(Below(3) == 0 ? Below(150) : Below(40));
    }

private:
    std::uint32_t Below(std::uint32_t end) {
        return std::uniform_int_distribution<std::uint32_t>(0, end - 1)(random_);
    }
    float Place() { return std::uniform_real_distribution(-2000.0F, 4000.0F)(random_); }

    std::mt19937 random_{2026};
    const std::uint64_t windows_[2];
};

// The calls that the hosts of two windows receive in a new process while `act` moves the dial.
template <class Act>
std::vector<std::string> LogOf(std::uint64_t first_window, std::uint64_t second_window, Act act) {
    EXPECT_EQ(initialize(), 0);
    EventLog log;
    RecordingHost first(first_window);
    RecordingHost second(second_window);
    log.Record(first, "first");
    log.Record(second, "second");
    EXPECT_TRUE(init_dial_listener(&first));
    EXPECT_TRUE(init_dial_listener(&second));
    const MenuItemDescription items[] = {
        {MenuItemKind::KnownIcon, UTF16("One"), 1, 0, {.number = 1}, {}, {}},
        {MenuItemKind::KnownIcon, UTF16("Two"), 2, 1, {.number = 2}, {}, {}},
        {MenuItemKind::KnownIcon, UTF16("Three"), 3, 0, {.number = 3}, {}, {}},
    };
    EXPECT_TRUE(add_custom_menu(first_window, items, 3));
    EXPECT_TRUE(add_custom_menu(second_window, items, 3));
    act();
    uninit();
    dialsim_reset();  // a click on the screen leaks its contact, by contract
    return log.entries;
}

TEST_F(RecordedTimes, ReplaysRaiseTheSameEventsAtTheSameTimes) {
    constexpr std::uint32_t kPause = 1000;  // ends the acceleration of earlier turns
    // The first turn of a process is never accelerated: it must be neither a played nor a replayed one.
    LogOf(16, 17, [] { dialsim_turn(16, 0.0); });
    const auto played = LogOf(16, 17, [this] {
        Record();
        dialsim_wait(kPause);
        RandomCommands commands(16, 17);
        for (int i = 0; i < 500; ++i) {
            commands.Act();
        }
    });
    const std::string script = Recording();
    EXPECT_EQ(script.find("window 1"), std::string::npos) << "a handle of this run";
    const auto replayed = LogOf(5, 4, [&] {
        Record();
        Play(script);
    });
    EXPECT_GT(played.size(), 200U);
    EXPECT_EQ(replayed, played);
    EXPECT_EQ(Recording(), script);
}

}  // namespace
}  // namespace brindle
