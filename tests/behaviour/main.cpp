#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
// after windows.h
#include <timeapi.h>
#endif

#include "support/simulated_library.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Each death test runs in a new process: the library's process-wide state is initial.
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    if (!StartSimulatedLibrary()) {
        return 1;
    }
#ifdef _WIN32
    // A sleep of 1 ms lasts until the next tick of the clock, 15.6 ms by default.
    timeBeginPeriod(1);
#endif
    return RUN_ALL_TESTS();
}
