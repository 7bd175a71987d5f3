#include "simulator/dial/commands.h"

#include "simulator/classes/controller.h"
#include "simulator/classes/controllers.h"
#include "simulator/dial/dial.h"
#include "simulator/dial/open_menu.h"
#include "simulator/dial/recording.h"
#include "simulator/system/clock.h"

namespace dialsim {

namespace {

// Raises an event on every controller of the window, on the thread that is set for it.
template <class RaiseOne>
HRESULT RaiseAt(std::uint64_t window, RaiseOne raise_one) {
    const auto controllers = ControllersOf(window);
    if (controllers.empty()) {
        return kNoController;
    }
    Outcome outcome;
    RunOnEventThread([&] {
        const DialState state = TheDial().State();
        for (const auto& controller : controllers) {
            outcome.Join(raise_one(*controller.get(), state));
        }
    });
    return CodeOf(outcome);
}

std::string CommandWithRect(const char* action, const abi::Rect& bounds) {
    return Command(action, bounds.X, bounds.Y, bounds.Width, bounds.Height);
}

}  // namespace

// With the menu open, turns and clicks are the menu's, and the window hears nothing of them.
HRESULT Turn(std::uint64_t window, double degrees) {
    const RecordingScope action(window, Command("turn", degrees));
    TheDial().Update([=](DialState& state) { state.angle += degrees; });
    if (MoveHighlight(degrees)) {
        return S_OK;
    }
    TheDesktop().UpdateDisplay();
    return RaiseAt(window, [=](Controller& controller, const DialState& state) {
        return controller.RaiseRotation(state, degrees);
    });
}

HRESULT Click(std::uint64_t window) {
    const RecordingScope action(window, "click");
    if (const auto menu = TheOpenMenu()) {
        CloseMenu();
        return Choose(menu->window, menu->highlighted);
    }
    return RaiseAt(
        window, [](Controller& controller, const DialState& state) { return controller.RaiseClick(state); });
}

void Hold(bool down) {
    const RecordingScope action(down ? "hold" : "release");
    TheDial().Update([=](DialState& state) { state.button_down = down; });
    TheDesktop().UpdateDisplay();
}

HRESULT Touch(std::uint64_t window, const abi::Rect& bounds) {
    const RecordingScope action(window, CommandWithRect("touch", bounds));
    TheDial().Update([&](DialState& state) { state.contact = bounds; });
    return RaiseAt(window, [](Controller& controller, const DialState& state) {
        return controller.RaiseContactStarted(state);
    });
}

HRESULT Move(std::uint64_t window, const abi::Rect& bounds) {
    const RecordingScope action(window, CommandWithRect("move", bounds));
    TheDial().Update([&](DialState& state) { state.contact = bounds; });
    return RaiseAt(window, [](Controller& controller, const DialState& state) {
        return controller.RaiseContactContinued(state);
    });
}

HRESULT Lift(std::uint64_t window) {
    const RecordingScope action(window, "lift");
    TheDial().Update([](DialState& state) { state.contact.reset(); });
    return RaiseAt(window,
                   [](Controller& controller, const DialState&) { return controller.RaiseContactEnded(); });
}

HRESULT Acquire(std::uint64_t window) {
    const RecordingScope action(window, "acquire");
    return RaiseAt(window, [](Controller& controller, const DialState& state) {
        return controller.RaiseControlAcquired(state);
    });
}

HRESULT Lose(std::uint64_t window) {
    const RecordingScope action(window, "lose");
    return RaiseAt(window,
                   [](Controller& controller, const DialState&) { return controller.RaiseControlLost(); });
}

HRESULT Choose(std::uint64_t window, std::uint32_t item) {
    const RecordingScope action(window, Command("choose", item));
    return RaiseAt(window,
                   [=](Controller& controller, const DialState&) { return controller.menu().Choose(item); });
}

bool UseMouse(std::uint64_t window, MouseAction button, int x, int y) {
    constexpr const char* kNames[] = {" down", " move", " up"};
    const RecordingScope action(window, Command("mouse", x, y) + kNames[static_cast<int>(button)]);
    return TheDesktop().SendMouse(window, button, x, y);
}

void Settle() {
    const RecordingScope action("settle");
    WaitForActions();
}

void SetHaptics(bool present, std::vector<std::uint16_t> waveforms) {
    TheDial().Update([&](DialState& state) {
        state.has_haptics = present;
        state.waveforms = std::move(waveforms);
    });
}

}  // namespace dialsim
