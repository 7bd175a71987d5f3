// Recordings: their content, and their replay.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "dial/dial_listener.h"
#include "event_recorder.h"
#include "recorded_dial.h"
#include "support/recording_host.h"

namespace brindle {
namespace {

class Recordings : public RecordedDial {
protected:
    // The commands without the waits, which depend on the clock.
    std::string Commands() const {
        std::string commands;
        for (const std::string& line : LinesOf(Recording())) {
            if (line[0] != '#' && line.rfind("wait ", 0) != 0) {
                commands += line + "; ";
            }
        }
        return commands;
    }
};

TEST_F(Recordings, EachMovementIsALine) {
    const auto controller = MakeController(16);
    Record();
    dialsim_turn(16, -2.5);
    dialsim_click(16);
    dialsim_hold(true);
    dialsim_hold(false);
    dialsim_touch(16, 1.5F, 2, 3, 4);
    dialsim_move(16, -5, 6, 7, 8.25F);
    dialsim_lift(16);
    dialsim_choose(16, 3);
    dialsim_acquire(16);
    dialsim_lose(16);
    dialsim_wait_for_async();
    EXPECT_EQ(
        Commands(),
        "window @1; turn -2.5; click; hold; release; touch 1.5 2 3 4; move -5 6 7 8.25; lift; choose 3; "
        "acquire; lose; settle; ");
}

TEST_F(Recordings, BeginWithALineForTheReader) {
    Record();
    EXPECT_EQ(Recording(), "# What the dial did: angles in degrees, times in milliseconds\n");
}

TEST_F(Recordings, RecordTheMovementsOfScripts) {
    EventRecorder recorder(16);
    Record();
    Play("turn 1\nhold\nsettle");
    EXPECT_EQ(Commands(), "window @1; turn 1; hold; settle; ");
}

TEST_F(Recordings, NameAWindowByItsPlaceAndOnlyWhenItChanges) {
    const auto first = MakeController(16);
    const auto second = MakeController(17);
    const auto first_again = MakeController(16);
    Record();
    dialsim_turn(17, 1);
    dialsim_turn(17, 2);
    dialsim_click(16);
    dialsim_hold(true);
    dialsim_click(16);
    dialsim_click(17);
    EXPECT_EQ(Commands(), "window @2; turn 1; turn 2; window @1; click; hold; click; window @2; click; ");
}

TEST_F(Recordings, NameTheNewestWindowByItsPlaceToo) {
    const auto first = MakeController(16);
    const auto second = MakeController(17);
    Record();
    dialsim_click(0);
    EXPECT_EQ(Commands(), "window @2; click; ");
}

// A replay would end at such a line.
TEST_F(Recordings, LeaveOutCommandsForAWindowWithoutAController) {
    Record();
    dialsim_click(0);
    {
        const auto first = MakeController(16);
        dialsim_click(99);
        dialsim_turn(16, 1);
    }
    dialsim_turn(16, 2);
    dialsim_hold(true);
    EXPECT_EQ(Commands(), "window @1; turn 1; hold; ");
}

TEST_F(Recordings, MeanTheSameWindowsWhereHandlesDiffer) {
    {
        EventRecorder first(16);
        EventRecorder second(17);
        Record();
        dialsim_turn(17, 1);
        dialsim_click(16);
    }
    const std::string script = Recording();
    dialsim_reset();
    EventRecorder first(99);
    EventRecorder second(4);
    Play(script);
    EXPECT_EQ(first.TakeEvents(), "click; ");
    EXPECT_EQ(second.TakeEvents(), "turn 1; ");
}

TEST_F(Recordings, KeepEveryBitOfANumber) {
    RecordingHost host(16);
    DialListener listener(&host);
    ASSERT_EQ(listener.Register(16), S_OK);
    const std::vector<double> degrees = {0.1 + 0.2,
                                         1.0 / 3.0,
                                         -1e-300,
                                         1e22,
                                         5e-324,
                                         -0.0,
                                         123456.789012345678,
                                         1.0 + 1e-15,
                                         std::numeric_limits<double>::max()};
    Record();
    for (const double angle : degrees) {
        dialsim_turn(16, angle);
    }
    dialsim_touch(16, 16777215.0F, 1.0F / 3.0F, 0.1F, 1e-20F);
    Play(Recording());
    ASSERT_EQ(host.rotations.size(), 2 * degrees.size());
    for (std::size_t i = 0; i < degrees.size(); ++i) {
        EXPECT_EQ(host.rotations[degrees.size() + i].deltaDegrees, degrees[i]);
    }
    EXPECT_NE(Recording().find("touch 16777215 0.33333334 0.1 1e-20\n"), std::string::npos) << Recording();
}

TEST_F(Recordings, EndOnRequest) {
    const auto controller = MakeController(16);
    Record();
    dialsim_click(16);
    EXPECT_TRUE(dialsim_record(nullptr));
    dialsim_turn(16, 1);
    EXPECT_EQ(Commands(), "window @1; click; ");
    EXPECT_TRUE(dialsim_record(nullptr));
}

TEST_F(Recordings, EndWithAReset) {
    Record();
    dialsim_hold(true);
    dialsim_reset();
    dialsim_hold(false);
    EXPECT_EQ(Commands(), "hold; ");
}

TEST_F(Recordings, OverwriteTheSameFile) {
    const auto controller = MakeController(16);
    Record();
    dialsim_turn(16, 1);
    Record();
    dialsim_click(16);
    EXPECT_EQ(Commands(), "window @1; click; ");
}

TEST_F(Recordings, OfWhichTheFileCannotBeWrittenAreNone) {
    Record();
    EXPECT_FALSE(dialsim_record((Path() + "/no/such/folder").c_str()));
    dialsim_hold(true);
    EXPECT_EQ(Commands(), "");
}

}  // namespace
}  // namespace brindle
