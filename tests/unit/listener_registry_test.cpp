#include "frame/listener_registry.h"

#include <gtest/gtest.h>

#include <map>

#include "dial/dial_listener.h"

namespace brindle {
namespace {

std::unique_ptr<DialListener> MakeListener() { return std::make_unique<DialListener>(nullptr); }

TEST(ListenerRegistry, FindsEachListenerUnderItsOwnWindow) {
    ListenerRegistry registry;
    auto first = MakeListener();
    auto second = MakeListener();
    DialListener* const at_first = first.get();
    DialListener* const at_second = second.get();
    registry.Insert(1, std::move(first));
    registry.Insert(0xFFFFFFFFFFFFFFFF, std::move(second));
    EXPECT_EQ(registry.Find(1), at_first);
    EXPECT_EQ(registry.Find(0xFFFFFFFFFFFFFFFF), at_second);
    registry.EndAll();
}

TEST(ListenerRegistry, FindsListenersThatWereInsertedInAnyOrder) {
    ListenerRegistry registry;
    std::map<std::uint64_t, DialListener*> inserted;
    for (const std::uint64_t window : {5U, 1U, 9U, 3U, 7U}) {
        auto listener = MakeListener();
        inserted[window] = listener.get();
        registry.Insert(window, std::move(listener));
    }
    for (const std::uint64_t window : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U, 10U}) {
        const auto entry = inserted.find(window);
        EXPECT_EQ(registry.Find(window), entry == inserted.end() ? nullptr : entry->second) << window;
    }
    registry.EndAll();
}

TEST(ListenerRegistry, HoldsFiveThousand) {
    ListenerRegistry registry;
    for (std::uint64_t window = 0; window < 5000; ++window) {
        registry.Insert(window << 32, MakeListener());
    }
    for (std::uint64_t window = 0; window < 5000; ++window) {
        EXPECT_NE(registry.Find(window << 32), nullptr) << window;
    }
    registry.EndAll();
}

TEST(ListenerRegistry, AMissGivesNull) {
    ListenerRegistry registry;
    EXPECT_EQ(registry.Find(1), nullptr);
    registry.Insert(2, MakeListener());
    EXPECT_EQ(registry.Find(1), nullptr);
    EXPECT_EQ(registry.Find(3), nullptr);
    registry.EndAll();
}

TEST(ListenerRegistry, ASecondListenerReplacesTheFirstAndLeavesItAlive) {
    ListenerRegistry registry;
    auto first = MakeListener();
    DialListener* const displaced = first.get();
    registry.Insert(1, std::move(first));
    registry.Insert(1, MakeListener());
    EXPECT_NE(registry.Find(1), displaced);
    registry.EndAll();
    delete displaced;  // owned by the test: the registry no longer refers to it
}

TEST(ListenerRegistry, EndingAllLeavesItEmptyAndUsable) {
    ListenerRegistry registry;
    registry.Insert(1, MakeListener());
    registry.EndAll();
    EXPECT_EQ(registry.Find(1), nullptr);
    registry.Insert(1, MakeListener());
    EXPECT_NE(registry.Find(1), nullptr);
    registry.EndAll();
}

}  // namespace
}  // namespace brindle
