// The user chooses an item: its haptic setting becomes the controller's. The host is not told; it sees the
// item's tag with the next turn.
#include <algorithm>

#include "dial/dial_listener.h"
#include "frame/diagnostics/diagnostics.h"
#include "menu/item_tag.h"

namespace brindle {

namespace {

constexpr auto kInvokedLine = Wide("ItemInvoked %s\n");

}  // namespace

// Every failure is swallowed: the choice itself has happened.
HRESULT DialListener::OnItemInvoked(abi::IRadialControllerMenuItem* sender, abi::IInspectable* /*args*/) {
    if (sender == nullptr) {
        return S_OK;
    }
    // The first entry wins, however old: a menu's predecessor decides for an identifier that both have.
    // Intended.
    const std::uint32_t item_id = ReadTag(*sender);
    const auto entry = std::find_if(menu_entries_.begin(), menu_entries_.end(),
                                    [&](const MenuEntry& recorded) { return recorded.item_id == item_id; });
    if (entry != menu_entries_.end()) {
        controller_->put_UseAutomaticHapticFeedback(entry->haptic_feedback ? 1 : 0);
    }

    String text;
    sender->get_DisplayText(text.Put());
    WCHAR line[kWideLineCharacters];
    FormatWide(line, kWideLineCharacters, kInvokedLine.data(), TextOf(text));
    return S_OK;
}

}  // namespace brindle
