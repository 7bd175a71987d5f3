#include <gtest/gtest.h>

#include <cstdio>

#include "simulator/dialsim.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Each death test runs in a new process: the library's process-wide state is initial.
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    if (!dialsim_start()) {
        std::fprintf(stderr, "the simulator cannot be started\n");
        return 1;
    }
    return RUN_ALL_TESTS();
}
