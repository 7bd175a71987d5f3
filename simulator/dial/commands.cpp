#include "simulator/dial/commands.h"

#include "simulator/classes/controller.h"
#include "simulator/classes/controllers.h"
#include "simulator/dial/dial.h"
#include "simulator/dial/open_menu.h"
#include "simulator/dial/recording.h"
#include "simulator/system/clock.h"

namespace dialsim {

namespace {

// Raises an event on every controller of the window, on the thread for events.
template <class RaiseOne>
EventResult RaiseOnControllers(std::uint64_t window, RaiseOne raise_one) {
    const auto controllers = ControllersOf(window);
    if (controllers.empty()) {
        return {kNoController, false};
    }
    Outcome outcome;
    RunOnEventThread([&] {
        const DialState state = TheDial().State();
        for (const auto& controller : controllers) {
            outcome.Merge(raise_one(*controller.get(), state));
        }
    });
    return {CodeOf(outcome), outcome.took_place};
}

std::string CommandWithRect(const char* name, const abi::Rect& bounds) {
    return Command(name, bounds.X, bounds.Y, bounds.Width, bounds.Height);
}

}  // namespace

// While the menu is open, turns and clicks go to the menu and not to the window.
EventResult Turn(std::uint64_t window, double degrees) {
    const RecordingScope recording(window, Command("turn", degrees));
    TheDial().Update([=](DialState& state) { state.angle += degrees; });
    if (MoveHighlight(degrees)) {
        return {};
    }
    TheDesktop().UpdateDisplaySoon();
    return RaiseOnControllers(window, [=](Controller& controller, const DialState& state) {
        return controller.RaiseRotation(state, degrees);
    });
}

EventResult Click(std::uint64_t window) {
    const RecordingScope recording(window, "click");
    if (const auto menu = TheOpenMenu()) {
        CloseMenu();
        return Choose(menu->window, menu->highlighted);
    }
    return RaiseOnControllers(
        window, [](Controller& controller, const DialState& state) { return controller.RaiseClick(state); });
}

void Hold(bool down) {
    const RecordingScope recording(down ? "hold" : "release");
    TheDial().Update([=](DialState& state) { state.button_down = down; });
    TheDesktop().UpdateDisplaySoon();
}

EventResult Touch(std::uint64_t window, const abi::Rect& bounds) {
    const RecordingScope recording(window, CommandWithRect("touch", bounds));
    TheDial().Update([&](DialState& state) { state.contact = bounds; });
    return RaiseOnControllers(window, [](Controller& controller, const DialState& state) {
        return controller.RaiseContactStarted(state);
    });
}

EventResult Move(std::uint64_t window, const abi::Rect& bounds) {
    const RecordingScope recording(window, CommandWithRect("move", bounds));
    TheDial().Update([&](DialState& state) { state.contact = bounds; });
    return RaiseOnControllers(window, [](Controller& controller, const DialState& state) {
        return controller.RaiseContactContinued(state);
    });
}

EventResult Lift(std::uint64_t window) {
    const RecordingScope recording(window, "lift");
    TheDial().Update([](DialState& state) { state.contact.reset(); });
    return RaiseOnControllers(
        window, [](Controller& controller, const DialState&) { return controller.RaiseContactEnded(); });
}

EventResult Acquire(std::uint64_t window) {
    const RecordingScope recording(window, "acquire");
    return RaiseOnControllers(window, [](Controller& controller, const DialState& state) {
        return controller.RaiseControlAcquired(state);
    });
}

EventResult Lose(std::uint64_t window) {
    const RecordingScope recording(window, "lose");
    return RaiseOnControllers(
        window, [](Controller& controller, const DialState&) { return controller.RaiseControlLost(); });
}

EventResult Choose(std::uint64_t window, std::uint32_t item) {
    const RecordingScope recording(window, Command("choose", item));
    return RaiseOnControllers(
        window, [=](Controller& controller, const DialState&) { return controller.menu().Choose(item); });
}

bool UseMouse(std::uint64_t window, MouseAction button, int x, int y) {
    constexpr const char* kActions[] = {" down", " move", " up"};
    const RecordingScope recording(window, Command("mouse", x, y) + kActions[static_cast<int>(button)]);
    return TheDesktop().SendMouse(window, button, x, y);
}

void Settle() {
    const RecordingScope recording("settle");
    WaitForActions();
}

void SetHaptics(bool present, std::vector<std::uint16_t> waveforms) {
    TheDial().Update([&](DialState& state) {
        state.has_haptics = present;
        state.waveforms = std::move(waveforms);
    });
}

}  // namespace dialsim
