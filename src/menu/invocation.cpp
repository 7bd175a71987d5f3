// Invoked: applies the haptic setting of the chosen item to the controller. The host is not called; the next
// turn carries the item's tag.
#include <algorithm>

#include "frame/diagnostics/diagnostics.h"
#include "menu/dial_menu.h"
#include "menu/item_tag.h"

namespace brindle {

namespace {

constexpr auto kInvokedLine = Wide("ItemInvoked %s\n");

}  // namespace

// Ignores every failure: the user's choice has taken effect already (Invocation.EveryFailureIsSwallowed).
HRESULT DialMenu::OnItemInvoked(abi::IRadialControllerMenuItem* sender, abi::IInspectable* /*args*/) {
    if (sender == nullptr) {
        return S_OK;
    }
    // Deliberately the first entry with this item_id, also that of an earlier menu: brindle.h tells hosts to
    // use fresh identifiers for new meanings (Invocation.AnEntryOfAnEarlierMenuDecidesForALaterOne).
    const std::uint32_t item_id = ReadTag(*sender);
    const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const MenuEntry& recorded) { return recorded.item_id == item_id; });
    if (entry != entries_.end()) {
        controller_->put_UseAutomaticHapticFeedback(entry->haptic_feedback ? 1 : 0);
    }

    String text;
    sender->get_DisplayText(text.Put());
    WCHAR line[kWideLineCharacters];
    FormatWide(line, kWideLineCharacters, kInvokedLine.data(), TextOf(text));
    return S_OK;
}

}  // namespace brindle
