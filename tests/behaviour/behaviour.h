// Fixtures of the behaviour tests: a fresh simulator with the library initialized. A test fails on unexpected
// output and on leaked references. Settings and credentials are the test's own.
#pragma once

#include <brindle.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "simulator/dialsim.h"
#include "support/constants.h"
#include "support/dialsim_text.h"
#include "support/recording_host.h"
#include "support/stores_folder.h"

class UninitializedTest : public testing::Test {
protected:
    void SetUp() override {
        dialsim_reset();
        testing::internal::CaptureStdout();
    }
    void TearDown() override {
        EXPECT_EQ(Printed(), "") << "unexpected output";
        testing::internal::GetCapturedStdout();
        dialsim_wait_for_async();  // a handler may still be returning
        EXPECT_EQ(LeakReport(), "") << "leaked references";
    }

    StoresFolder stores;

    // The output since the last call.
    static std::string Printed() {
        const std::string printed = testing::internal::GetCapturedStdout();
        if (HasFailure()) {
            std::fputs(printed.c_str(), stderr);  // shown with the test framework's report
        }
        testing::internal::CaptureStdout();
        return printed;
    }

    // The operation fails once for each code, call by call; 0 is a call that succeeds.
    static void FailInTurn(const char* operation, std::initializer_list<std::int32_t> codes) {
        std::uint32_t call = 0;
        for (const std::int32_t code : codes) {
            ++call;
            if (code != 0) {
                ASSERT_TRUE(dialsim_fail(operation, code, call, 1)) << operation;
            }
        }
    }
};

class InitializedTest : public UninitializedTest {
protected:
    void SetUp() override {
        UninitializedTest::SetUp();
        ASSERT_EQ(initialize(), 0);
        dialsim_clear_journal();
    }
    void TearDown() override {
        uninit();
        UninitializedTest::TearDown();
    }
};

// A host is registered for kWindow.
class ListeningTest : public InitializedTest {
protected:
    void SetUp() override {
        InitializedTest::SetUp();
        ASSERT_TRUE(init_dial_listener(&host));
        dialsim_clear_journal();
    }

    RecordingHost host{kWindow};
};
