#include "simulator/classes/controllers.h"

#include <algorithm>
#include <mutex>

#include "simulator/classes/controller.h"
#include "simulator/system/reset.h"
#include "sync.h"

namespace dialsim {

namespace {

struct Registry {
    Mutex mutex;
    std::vector<Controller*> controllers;
    std::vector<std::uint64_t> windows;  // every window that has had a controller
};

// Never destroyed: controllers may be destroyed after main returns.
Registry& registry = *new Registry;

// Requires the lock. Replaces 0 with the window of the newest controller, if there is one.
std::uint64_t Resolve(std::uint64_t window) {
    return window == 0 && !registry.controllers.empty() ? registry.controllers.back()->window() : window;
}

// Controllers that still exist raise no more events.
const ResetAction clear_controllers(ResetPhase::State, [] {
    const std::lock_guard guard(registry.mutex);
    registry.controllers.clear();
    registry.windows.clear();
});

}  // namespace

void AddController(Controller* controller) {
    const std::lock_guard guard(registry.mutex);
    registry.controllers.push_back(controller);
    auto& windows = registry.windows;
    if (std::find(windows.begin(), windows.end(), controller->window()) == windows.end()) {
        windows.push_back(controller->window());
    }
}

void RemoveController(Controller* controller) {
    const std::lock_guard guard(registry.mutex);
    std::erase(registry.controllers, controller);
}

std::vector<Ref<Controller>> ControllersOf(std::uint64_t window) {
    const std::lock_guard guard(registry.mutex);
    window = Resolve(window);
    std::vector<Ref<Controller>> found;
    for (Controller* controller : registry.controllers) {
        if (controller->window() == window && controller->TryAddRef()) {
            found.push_back(Ref<Controller>::Attach(controller));
        }
    }
    return found;
}

Ref<Controller> NewestControllerOf(std::uint64_t window) {
    const auto controllers = ControllersOf(window);
    return controllers.empty() ? Ref<Controller>() : controllers.back();
}

std::size_t WindowNumber(std::uint64_t window) {
    const std::lock_guard guard(registry.mutex);
    const auto& windows = registry.windows;
    const auto found = std::find(windows.begin(), windows.end(), Resolve(window));
    return found == windows.end() ? 0 : static_cast<std::size_t>(found - windows.begin()) + 1;
}

std::uint64_t WindowAt(std::size_t number) {
    const std::lock_guard guard(registry.mutex);
    return number >= 1 && number <= registry.windows.size() ? registry.windows[number - 1] : kNoWindow;
}

OneShotSignal<std::uint64_t>& FirstController() {
    static OneShotSignal<std::uint64_t>& signal = *new OneShotSignal<std::uint64_t>;
    return signal;
}

}  // namespace dialsim
