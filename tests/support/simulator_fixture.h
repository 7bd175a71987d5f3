// What the tests of code over the simulated platform share.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/functions.h"
#include "simulator/dialsim.h"
#include "support/dialsim_text.h"
#ifndef _WIN32
#include "simulator/functions/strings.h"
#endif

// UTF-16 literals, in the build's own character type.
#ifdef _WIN32
#define WIDE(text) L##text
#else
#define WIDE(text) u##text
#endif

namespace brindle {

using WideText = std::basic_string<WCHAR>;

inline constexpr std::uint64_t kWindow = 0x20316;
inline constexpr char kControllers[] = "Windows.UI.Input.RadialController";

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

// A fresh simulator, and at the end nothing that was handed out and has not come back. The library's code is
// part of the test program here: on Windows that is the module to watch.
class Simulated : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dialsim_watch("unit_tests.exe"));
        dialsim_reset();
    }
    void TearDown() override {
        dialsim_wait_for_async();  // a handler may be about to return
        EXPECT_EQ(OpenAccounts(), "");
        dialsim_reset();
    }
};

// The same in an apartment of the platform.
class SimulatedApartment : public Simulated {
protected:
    void SetUp() override {
        Simulated::SetUp();
        ASSERT_EQ(RoInitialize(RO_INIT_SINGLETHREADED), S_OK);
        dialsim_clear_journal();
    }
    void TearDown() override {
        RoUninitialize();
        Simulated::TearDown();
    }
};

}  // namespace brindle
