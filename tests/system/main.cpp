// The tests of the library over the system's own classes: only the dial is simulated.
#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <string>

#include "simulator/dialsim.h"

namespace {

// Ends the output with a line that names what the system lacks.
class Summary final : public testing::EmptyTestEventListener {
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.skipped()) {
            ++reasons_[result.message()];
        }
    }
    void OnTestProgramEnd(const testing::UnitTest& tests) override {
        std::printf("system_tests: %d passed, ", tests.successful_test_count());
        if (const int failed = tests.failed_test_count(); failed > 0) {
            std::printf("%d failed, ", failed);
        }
        std::printf("%d skipped", tests.skipped_test_count());
        const char* separator = ": ";
        for (const auto& [reason, tests_with_it] : reasons_) {
            std::printf("%s%s (%d)", separator, reason.c_str(), tests_with_it);
            separator = "; ";
        }
        std::printf("\n");
    }

    std::map<std::string, int> reasons_;  // with the numbers of their tests
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!dialsim_start()) {
        std::fputs("system_tests: this system does not announce the loading of libraries\n", stderr);
        return 1;
    }
    testing::UnitTest::GetInstance()->listeners().Append(new Summary);
    return RUN_ALL_TESTS();
}
