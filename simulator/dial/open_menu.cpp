#include "simulator/dial/open_menu.h"

#include <cmath>
#include <mutex>

#include "simulator/dial/desktop_port.h"
#include "simulator/dial/menu_model.h"
#include "simulator/dial/recording.h"
#include "simulator/system/reset.h"
#include "sync.h"

namespace dialsim {

namespace {

constexpr double kDegreesForItem = 10;

struct State {
    Mutex mutex;
    std::optional<OpenMenu> menu;
};

State& TheState() {
    static State& state = *new State;
    return state;
}

void SetOpenMenu(std::optional<OpenMenu> menu) {
    {
        const std::lock_guard guard(TheState().mutex);
        TheState().menu = menu;
    }
    TheDesktop().UpdateDisplay();
}

// Does not call CloseMenu, which would be recorded as an action of the user.
const ResetAction close_menu(ResetPhase::State, [] { SetOpenMenu({}); });

std::int64_t ItemCount(std::uint64_t window) {
    const auto model = ReadMenu(window);
    return model ? static_cast<std::int64_t>(model->items.size()) : 0;
}

}  // namespace

std::optional<OpenMenu> TheOpenMenu() {
    const std::lock_guard guard(TheState().mutex);
    return TheState().menu;
}

bool OpenMenuOf(std::uint64_t window) {
    const auto model = ReadMenu(window);
    if (!model || model->items.empty()) {
        return false;
    }
    const RecordingScope action(window, "menu");
    OpenMenu menu{model->window};
    for (std::uint32_t i = 0; i < model->items.size(); ++i) {
        menu.highlighted = model->items[i].selected ? i : menu.highlighted;
    }
    SetOpenMenu(menu);
    return true;
}

void CloseMenu() {
    const RecordingScope action("close");
    SetOpenMenu({});
}

bool MoveHighlight(double degrees) {
    auto menu = TheOpenMenu();
    if (!menu) {
        return false;
    }
    const std::int64_t count = ItemCount(menu->window);
    if (count == 0) {
        CloseMenu();  // its items or its controller no longer exist
        return false;
    }
    menu->turned += degrees;
    const std::int64_t moved = std::llround(menu->turned / kDegreesForItem);
    menu->turned -= static_cast<double>(moved) * kDegreesForItem;
    const std::int64_t index = menu->highlighted + moved;
    menu->highlighted = static_cast<std::uint32_t>((index % count + count) % count);
    SetOpenMenu(menu);
    return true;
}

}  // namespace dialsim
