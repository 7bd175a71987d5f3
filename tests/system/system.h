// Fixtures of the tests over the system's own classes, and queries of the system that use neither the library
// nor the simulator.
#pragma once

#include <brindle.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>

#include "platform/activation.h"
#include "simulator/dialsim.h"
#include "support/constants.h"
#include "support/dialsim_text.h"
#include "support/recording_host.h"
#include "support/utf16.h"

// Skips the test on a system without this class. On a system with it every failure counts.
#define REQUIRE_CLASS(CLASS)                                               \
    if (!system_tests::HasClass<CLASS>()) {                                \
        GTEST_SKIP() << "this system has no " << std::string(CLASS::Name); \
    }

namespace system_tests {

namespace abi = brindle::abi;
using brindle::ComPtr;

// This program's calls are not hooked: the system answers. Every factory has this interface.
template <class RuntimeClass>
bool HasClass() {
    ComPtr<abi::IInspectable> factory;
    return brindle::GetFactory<RuntimeClass>(factory) >= 0;
}

// A platform string that borrows the text.
class Borrowed {
public:
    explicit Borrowed(std::wstring_view text) { EXPECT_GE(string_.Create(text), 0); }
    HSTRING Get() const { return string_.Get(); }

private:
    brindle::StringReference string_;
};

inline std::wstring TextOf(const brindle::String& string) {
    UINT length = 0;
    const WCHAR* characters = WindowsGetStringRawBuffer(string.Get(), &length);
    return {characters, length};
}

// Handles the thread's messages, as a host does, until the condition holds; false after ten seconds.
inline bool WaitUntil(const std::function<bool()>& condition) {
    const ULONGLONG deadline = GetTickCount64() + 10'000;
    while (!condition()) {
        if (GetTickCount64() > deadline) {
            return false;
        }
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            DispatchMessageW(&message);
        }
        Sleep(10);
    }
    return true;
}

// The library is initialized, with the dial simulated and all else of the system.
class SystemTest : public testing::Test {
protected:
    void SetUp() override {
        dialsim_reset();
        ASSERT_TRUE(dialsim_only_dial(true));
        // 2, "too old", where the system's probe lacks the required type; all else works.
        ASSERT_NE(initialize(), 1);
    }
    void TearDown() override {
        uninit();
        EXPECT_EQ(LeakReport(), "") << "leaked references";
    }
};

// A host is registered for kWindow.
class ListeningSystemTest : public SystemTest {
protected:
    void SetUp() override {
        SystemTest::SetUp();
        ASSERT_TRUE(init_dial_listener(&host));
    }

    RecordingHost host{kWindow};
};

}  // namespace system_tests
