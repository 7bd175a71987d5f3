// Fixtures for the tests of code over the simulated platform.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/functions.h"
#include "simulator/dialsim.h"
#include "support/constants.h"
#include "support/dialsim_text.h"
#include "support/utf16.h"
#ifndef _WIN32
#include "simulator/functions/strings.h"
#endif

namespace brindle {

constexpr HRESULT Code(std::uint32_t code) { return static_cast<HRESULT>(code); }
inline constexpr HRESULT kFault = Code(0x80000001);

inline WideText CharactersOf(HSTRING string) {
#ifdef _WIN32
    UINT length = 0;
    const WCHAR* characters = WindowsGetStringRawBuffer(string, &length);
    return {characters, length};
#else
    return WideText(dialsim::View(string));
#endif
}

// A fresh simulator; leaked references fail the test. The library's code is part of the test program: on
// Windows its calls are hooked in that module.
class SimulatorTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dialsim_watch(nullptr));
        dialsim_reset();
    }
    void TearDown() override {
        dialsim_wait_for_async();  // a handler may still be returning
        EXPECT_EQ(LeakReport(), "");
        dialsim_reset();
    }
};

// The same in an apartment of the platform.
class SimulatorApartmentTest : public SimulatorTest {
protected:
    void SetUp() override {
        SimulatorTest::SetUp();
        ASSERT_EQ(RoInitialize(RO_INIT_SINGLETHREADED), S_OK);
        dialsim_clear_journal();
    }
    void TearDown() override {
        RoUninitialize();
        SimulatorTest::TearDown();
    }
};

}  // namespace brindle
