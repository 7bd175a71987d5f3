#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "platform/delegate.h"
#include "platform/interfaces/ui_input.h"

namespace brindle {
namespace {

using RotationHandler =
    abi::TypedEventHandler<abi::RadialController, abi::RadialControllerRotationChangedEventArgs>;

constexpr int kThreads = 4;
constexpr int kRounds = 20'000;

// Runs the body on several threads that start together.
template <class Body>
void RunTogether(Body body) {
    std::atomic<int> waiting = kThreads;
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            --waiting;
            while (waiting > 0) {
                std::this_thread::yield();
            }
            body();
        });
    }
}

TEST(DelegatesOnManyThreads, NoReferenceIsLostOrInvented) {
    const auto handler = MakeDelegate<RotationHandler>([](auto*, auto*) { return S_OK; });
    RunTogether([&] {
        for (int i = 0; i < kRounds; ++i) {
            ComPtr<abi::IAgileObject> marker;
            Query(handler.Get(), marker);
            handler->AddRef();
            handler->Release();
        }
    });
    EXPECT_EQ(handler->AddRef(), 2u);
    handler->Release();
}

TEST(DelegatesOnManyThreads, TheLastReferenceIsReleasedOnceOnAnyThread) {
    for (int round = 0; round < 200; ++round) {
        const auto captured = std::make_shared<int>(0);
        RotationHandler* handler =
            MakeDelegate<RotationHandler>([captured](auto*, auto*) { return S_OK; }).Detach();
        for (int i = 1; i < kThreads; ++i) {
            handler->AddRef();
        }
        std::atomic<int> last = 0;
        RunTogether([&] { last += handler->Release() == 0; });
        EXPECT_EQ(last, 1);
        EXPECT_EQ(captured.use_count(), 1);
    }
}

}  // namespace
}  // namespace brindle
