#include "verdict.h"

namespace {

const char* ReasonWithoutClasses(const Findings& found) {
    return found.wine ? "Wine has no dial; run this with the simulator: dialsim-run dialcheck.exe"
                      : "Windows lacks a class, see above; install Windows updates";
}

// Why the library cannot be used; null when it can.
const char* ReasonAgainstStart(const Findings& found) {
    if (!found.library) {
        return "brindle.dll is not loaded, see above; put it beside dialcheck";
    }
    if (found.runtime == kMultithreaded) {
        return "another module has made this thread multithreaded; send this output to your support";
    }
    if (found.runtime < 0) {
        return "the Windows Runtime cannot be started; install Windows updates";
    }
    // The library does not use the system's classes while the simulator answers it.
    if (!found.simulated && !found.classes) {
        return ReasonWithoutClasses(found);
    }
    if (found.start == kTooOld) {
        return "this Windows is too old for the dial; install Windows updates";
    }
    return found.start == kReady ? nullptr : "the library cannot start; send this output to your support";
}

const char* ReasonWithoutDial(const Findings& found) {
    return found.turned      ? "a dial turns, but it is not the supported one"
           : found.simulated ? "the simulator has no dial; see the script of DIALSIM_SETUP"
                             : "the dial is not paired; pair it in the Bluetooth settings";
}

const char* ReasonWithoutTurn(const Findings& found) {
    const bool withheld = found.elevated && !found.wine;
    return found.simulated ? "the simulated dial was not turned"
           : withheld      ? "no turn arrived; run the program without administrator rights"
                           : "no turn arrived; wake the dial, check its batteries, keep the window in front";
}

}  // namespace

Verdict VerdictOf(const Findings& found) {
    if (const char* reason = ReasonAgainstStart(found)) {
        return {kMissing, reason};
    }
    if (!found.listening) {
        return {kMissing, "the dial listener cannot be created; send this output to your support"};
    }
    if (!found.dial) {
        return {kMissing, ReasonWithoutDial(found)};
    }
    if (!found.turned) {
        return {kNoTurn, ReasonWithoutTurn(found)};
    }
    return {kWorks, found.simulated ? "the simulated dial works" : "the dial works"};
}
