// Platform behaviour in the native simulator only: apartments, the clock, threads, exceptions.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include "event_recorder.h"

namespace brindle {
namespace {

// Runs on a new thread without an apartment.
class Apartments : public SimulatorTest {
protected:
    static void OnAFreshThread(const std::function<void()>& body) { std::thread(body).join(); }
    static HRESULT ActivationCode() {
        ComPtr<abi::IRadialControllerInterop> factory;
        return GetFactory<abi::RadialController>(factory);
    }
};

TEST_F(Apartments, BeginOnce) {
    OnAFreshThread([] {
        EXPECT_EQ(RoInitialize(RO_INIT_SINGLETHREADED), S_OK);
        EXPECT_EQ(RoInitialize(RO_INIT_SINGLETHREADED), S_FALSE);
    });
}

TEST_F(Apartments, KeepTheirMode) {
    OnAFreshThread([] {
        EXPECT_EQ(RoInitialize(RO_INIT_MULTITHREADED), S_OK);
        EXPECT_EQ(RoInitialize(RO_INIT_SINGLETHREADED), Code(0x80010106));
        RoUninitialize();
        EXPECT_EQ(RoInitialize(RO_INIT_SINGLETHREADED), S_OK);
    });
}

TEST_F(Apartments, AreNeededForActivation) {
    OnAFreshThread([] {
        EXPECT_EQ(ActivationCode(), Code(0x800401F0));
        RoInitialize(RO_INIT_SINGLETHREADED);
        EXPECT_EQ(ActivationCode(), S_OK);
        RoUninitialize();
        EXPECT_EQ(ActivationCode(), Code(0x800401F0));
    });
}

TEST_F(Apartments, EndWithTheLastOfTheirBeginnings) {
    OnAFreshThread([] {
        RoInitialize(RO_INIT_SINGLETHREADED);
        RoInitialize(RO_INIT_SINGLETHREADED);
        RoInitialize(RO_INIT_MULTITHREADED);
        RoUninitialize();
        EXPECT_EQ(ActivationCode(), S_OK);
        RoUninitialize();
        EXPECT_EQ(ActivationCode(), Code(0x800401F0));
    });
}

TEST_F(Apartments, BelongToTheirThread) {
    RoInitialize(RO_INIT_SINGLETHREADED);
    OnAFreshThread([] {
        EXPECT_EQ(ActivationCode(), Code(0x800401F0));
        EXPECT_EQ(RoInitialize(RO_INIT_MULTITHREADED), S_OK);
    });
    RoUninitialize();
}

TEST_F(Apartments, DoNotBeginWhereAFaultApplies) {
    OnAFreshThread([] {
        dialsim_fail("RoInitialize", E_FAIL, 1, 1);
        EXPECT_EQ(RoInitialize(RO_INIT_SINGLETHREADED), E_FAIL);
        EXPECT_EQ(ActivationCode(), Code(0x800401F0));
    });
}

using Clock = SimulatorTest;

TEST_F(Clock, DoesNotAdvanceByItself) {
    EXPECT_TRUE(dialsim_set_clock(123'456));
    EXPECT_EQ(dialsim_now(), 123'456u);
    EXPECT_EQ(dialsim_now(), 123'456u);
}

TEST_F(Clock, AdvancesByWaits) {
    dialsim_set_clock(1000);
    dialsim_wait(60);
    EXPECT_EQ(dialsim_now(), 1060u);
    dialsim_play("wait 40", 0, nullptr, 0);
    EXPECT_EQ(dialsim_now(), 1100u);
}

TEST_F(Clock, IsTheOneThePlatformReturns) {
    dialsim_set_clock(std::uint64_t{5} << 32);
    EXPECT_EQ(GetTickCount64(), std::uint64_t{5} << 32);
}

TEST_F(Clock, IsNotReturnedWhereAFaultApplies) {
    dialsim_set_clock(1000);
    dialsim_yield_null("GetTickCount64", 1, 1);
    EXPECT_EQ(GetTickCount64(), 0u);
    EXPECT_EQ(GetTickCount64(), 1000u);
}

TEST_F(Clock, DoesNotMoveForAScriptThatDoesNotParse) {
    dialsim_set_clock(1000);
    dialsim_play("wait 40\nspin 5", 0, nullptr, 0);
    EXPECT_EQ(dialsim_now(), 1000u);
}

using RotationHandler =
    abi::TypedEventHandler<abi::RadialController, abi::RadialControllerRotationChangedEventArgs>;

// A controller with one rotation handler.
template <class Action>
ComPtr<abi::IRadialController> ControllerCalling(std::uint64_t window, Action action) {
    const auto controller = MakeController(window);
    const auto handler = MakeDelegate<RotationHandler>([action](auto*, auto*) { return action(); });
    EventRegistrationToken token{};
    EXPECT_EQ(controller->add_RotationChanged(handler.Get(), &token), S_OK);
    return controller;
}

using EventThreads = SimulatorApartmentTest;

TEST_F(EventThreads, AreTheCallersByDefault) {
    std::thread::id raised_on;
    const auto controller = ControllerCalling(1, [&] {
        raised_on = std::this_thread::get_id();
        return S_OK;
    });
    dialsim_turn(1, 1.0);
    EXPECT_EQ(raised_on, std::this_thread::get_id());
    dialsim_play("thread own\nturn 1", 0, nullptr, 0);
    EXPECT_NE(raised_on, std::this_thread::get_id());
    dialsim_play("thread caller\nturn 1", 0, nullptr, 0);
    EXPECT_EQ(raised_on, std::this_thread::get_id());
}

TEST_F(EventThreads, AreTheCallersAfterAReset) {
    dialsim_raise_on_own_thread(true);
    dialsim_reset();
    std::thread::id raised_on;
    const auto controller = ControllerCalling(1, [&] {
        raised_on = std::this_thread::get_id();
        return S_OK;
    });
    dialsim_turn(1, 1.0);
    EXPECT_EQ(raised_on, std::this_thread::get_id());
}

TEST_F(EventThreads, AHandlerMayTurnTheDialItself) {
    int depth = 0;
    const auto controller =
        ControllerCalling(1, [&] { return ++depth < 3 ? dialsim_turn(1, 1.0) : Code(0x80000003); });
    EXPECT_EQ(dialsim_turn(1, 1.0), Code(0x80000003));
    EXPECT_EQ(depth, 3);
}

TEST_F(EventThreads, AControllerMayEndDuringItsEvent) {
    ComPtr<abi::IRadialController> controller;
    controller = ControllerCalling(1, [&] {
        controller.Reset();
        return S_OK;
    });
    EXPECT_EQ(dialsim_turn(1, 1.0), S_OK);
    EXPECT_EQ(dialsim_turn(1, 1.0), DIALSIM_NO_CONTROLLER);
}

using RaisedErrorsOfHandlers = SimulatorApartmentTest;

TEST_F(RaisedErrorsOfHandlers, StopAtThePlatformAndTheirMessageIsKept) {
    const auto controller =
        ControllerCalling(1, []() -> HRESULT { throw std::runtime_error("no such feedback"); });
    EXPECT_EQ(Raised(), "");
    EXPECT_EQ(dialsim_turn(1, 1.0), DIALSIM_RAISED);
    EXPECT_EQ(Raised(), "no such feedback");
}

TEST_F(RaisedErrorsOfHandlers, AreKeptUntilTheReset) {
    bool raise = true;
    const auto controller = ControllerCalling(1, [&]() -> HRESULT {
        return std::exchange(raise, false) ? throw std::runtime_error("raised") : S_OK;
    });
    dialsim_turn(1, 1.0);
    EXPECT_EQ(dialsim_turn(1, 1.0), S_OK);
    EXPECT_EQ(Raised(), "raised");
    dialsim_reset();
    EXPECT_EQ(Raised(), "");
}

TEST_F(RaisedErrorsOfHandlers, ThatAreNoStandardErrorsStopTooWithAMessage) {
    const auto controller = ControllerCalling(1, []() -> HRESULT { throw 42; });
    EXPECT_EQ(dialsim_turn(1, 1.0), DIALSIM_RAISED);
    EXPECT_NE(Raised(), "");
}

TEST_F(RaisedErrorsOfHandlers, StopOnAThreadOfItsOwnToo) {
    const auto controller = ControllerCalling(1, []() -> HRESULT { throw std::runtime_error("raised"); });
    dialsim_raise_on_own_thread(true);
    EXPECT_EQ(dialsim_turn(1, 1.0), DIALSIM_RAISED);
    EXPECT_EQ(Raised(), "raised");
}

// Plays in the background and waits; returns the result that the end callback received.
std::string PlayedInBackground(const char* script, std::thread::id& done_on) {
    struct End {
        std::string result;
        std::thread::id on;
    } end;
    dialsim_play_in_background(
        script, 0,
        [](void* context, const char* error) {
            auto& end_result = *static_cast<End*>(context);
            end_result.on = std::this_thread::get_id();
            end_result.result = error == nullptr ? "played" : error;
        },
        &end);
    dialsim_wait_for_scripts();
    done_on = end.on;
    return end.result;
}

using BackgroundScripts = SimulatorApartmentTest;

TEST_F(BackgroundScripts, ArePlayedOnAnotherThreadThatReportsTheEnd) {
    EventRecorder recorder(1);
    std::thread::id done_on;
    EXPECT_EQ(PlayedInBackground("turn 5\nclick", done_on), "played");
    EXPECT_NE(done_on, std::this_thread::get_id());
    EXPECT_EQ(recorder.TakeEvents(), "turn 5; click; ");
}

TEST_F(BackgroundScripts, ReportWhyNothingWasPlayed) {
    EventRecorder recorder(1);
    std::thread::id done_on;
    EXPECT_EQ(PlayedInBackground("turn 5\nspin 5", done_on).find("line 2:"), 0u);
    EXPECT_EQ(recorder.TakeEvents(), "");
}

}  // namespace
}  // namespace brindle
