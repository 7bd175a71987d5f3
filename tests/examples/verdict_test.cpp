// The verdict of dialcheck agrees with its findings.
#include "examples/dialcheck/verdict.h"

#include <gtest/gtest.h>

#include <string>

namespace {

Findings AllWell() {
    Findings found;
    found.library = true;
    found.classes = true;
    found.start = kReady;
    found.listening = true;
    found.dial = true;
    found.turned = true;
    return found;
}

void ExpectVerdict(const Findings& found, Status status, const std::string& beginning) {
    const Verdict verdict = VerdictOf(found);
    EXPECT_EQ(verdict.status, status) << verdict.text;
    EXPECT_EQ(verdict.text.substr(0, beginning.size()), beginning);
}

TEST(DialcheckVerdict, IsThatTheDialWorksWhenATurnArrived) {
    Findings found = AllWell();
    ExpectVerdict(found, kWorks, "the dial works");
    found.simulated = true;
    ExpectVerdict(found, kWorks, "the simulated dial works");
}

TEST(DialcheckVerdict, NamesTheFirstPartThatIsMissing) {
    Findings found = AllWell();
    found.turned = false;
    ExpectVerdict(found, kNoTurn, "no turn arrived; wake the dial");
    found.dial = false;
    ExpectVerdict(found, kMissing, "the dial is not paired");
    found.listening = false;
    ExpectVerdict(found, kMissing, "the dial listener cannot be created");
    found.start = kUnavailable;
    ExpectVerdict(found, kMissing, "the library cannot start");
    found.start = kTooOld;
    ExpectVerdict(found, kMissing, "this Windows is too old");
    found.classes = false;
    ExpectVerdict(found, kMissing, "Windows lacks a class");
    found.runtime = static_cast<std::int32_t>(0x80004005);
    ExpectVerdict(found, kMissing, "the Windows Runtime cannot be started");
    found.runtime = static_cast<std::int32_t>(0x80010106);
    ExpectVerdict(found, kMissing, "another module has made this thread multithreaded");
    found.library = false;
    ExpectVerdict(found, kMissing, "brindle.dll is not loaded");
}

TEST(DialcheckVerdict, IsAnotherDialWhenATurnArrivesFromAnUnknownOne) {
    Findings found = AllWell();
    found.dial = false;
    ExpectVerdict(found, kMissing, "a dial turns, but it is not the supported one");
}

TEST(DialcheckVerdict, BlamesElevationOnlyForTurnsOfARealDial) {
    Findings found = AllWell();
    found.elevated = true;
    ExpectVerdict(found, kWorks, "the dial works");
    found.turned = false;
    ExpectVerdict(found, kNoTurn, "no turn arrived; run the program without administrator rights");
    found.wine = true;
    ExpectVerdict(found, kNoTurn, "no turn arrived; wake the dial");
    found.simulated = true;
    ExpectVerdict(found, kNoTurn, "the simulated dial was not turned");
}

TEST(DialcheckVerdict, IgnoresClassesOfTheSystemWithTheSimulator) {
    Findings found = AllWell();
    found.simulated = true;
    found.classes = false;
    ExpectVerdict(found, kWorks, "the simulated dial works");
    found.dial = false;
    found.turned = false;
    ExpectVerdict(found, kMissing, "the simulator has no dial");
}

TEST(DialcheckVerdict, AdvisesTheSimulatorUnderWine) {
    Findings found = AllWell();
    found.wine = true;
    found.classes = false;
    ExpectVerdict(found, kMissing, "Wine has no dial; run this with the simulator");
}

}  // namespace
