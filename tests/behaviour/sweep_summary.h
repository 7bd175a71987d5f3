// The report of each sweep, for the summary of all tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>

inline void ReportSweep(std::size_t operations, std::size_t calls, std::size_t kinds, std::size_t runs) {
    EXPECT_GT(runs, 0u) << "a sweep without a call to fail tests nothing";
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    std::fprintf(stderr, "sweep: %s.%s: %zu operations, %zu calls, %zu kinds, %zu runs\n",
                 test.test_suite_name(), test.name(), operations, calls, kinds, runs);
}
