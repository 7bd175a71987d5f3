// add_custom_menu: creates the items of the window's menu from the host's records.
#include <memory>
#include <optional>
#include <utility>

#include "frame/diagnostics/steps.h"
#include "menu/dial_menu.h"
#include "platform/activation.h"

namespace brindle {

namespace {

// A CustomFont item refers to its file by the 8.3 path only. Null when the file has none, or when it has
// grown since its length was queried.
std::unique_ptr<WCHAR[]> ShortPath(const WCHAR* path) {
    const DWORD characters = GetShortPathNameW(path, nullptr, 0);
    if (characters == 0) {
        return nullptr;
    }
    auto buffer = std::make_unique<WCHAR[]>(characters);
    const DWORD written = GetShortPathNameW(path, buffer.get(), characters);
    return written == 0 || written >= characters ? nullptr : std::move(buffer);
}

}  // namespace

// Every call and every attempt releases the former menu first. An event that arrives inside get_Menu may
// fetch the menu too: the menu that it has stored is released and replaced
// (MenuMadeInACall.WhileTheMenuIsFetchedIsReplacedAndLeavesNoReference).
HRESULT DialMenu::FetchMenu() {
    menu_.Reset();
    ComPtr<abi::IRadialControllerMenu> menu;
    const HRESULT code = controller_->get_Menu(menu.Put());
    menu_ = std::move(menu);
    return code;
}

HRESULT DialMenu::AddCustomMenu(const MenuItemDescription* items, std::uint32_t count) {
    if (!controller_) {
        return E_FAIL;
    }
    RETURN_IF_STEP_FAILS(124, FetchMenu());
    const ComPtr<abi::IRadialControllerMenu> menu = menu_;
    if (!menu) {
        return E_NOINTERFACE;
    }
    ComPtr<abi::IVector<abi::RadialControllerMenuItem>> list;
    RETURN_IF_STEP_FAILS(129, menu->get_Items(list.Put()));
    if (!list) {
        return E_NOINTERFACE;
    }
    LOG_IF_STEP_FAILS("clear", 132, list->Clear());

    for (std::uint32_t i = 0; items != nullptr && i < count; ++i) {
        if (const auto ended = AddDescribedItem(items[i])) {
            return *ended;
        }
    }
    return S_OK;
}

// A failing item neither stops the others nor fails the call. Only a failure to get the factory for known
// icons skips the remaining records and ends the call with its code. The entry of a known icon or a glyph is
// deliberately recorded even when its item failed, as brindle.h tells hosts
// (CustomMenu.AFailingKnownIconIsRecordedAndTheNextItemIsMade,
// CustomMenu.AFailingGlyphIsRecordedAndTheNextItemIsMade).
std::optional<HRESULT> DialMenu::AddDescribedItem(const MenuItemDescription& item) {
    MenuEntry entry = MakeEntry(item.display_text, item.item_id, item.haptic_feedback != 0);
    switch (item.kind) {
        case MenuItemKind::KnownIcon: {
            const auto icon = static_cast<abi::RadialControllerMenuKnownIcon>(item.source.number);
            // A null factory under a success code deliberately fails the item and not the call: the records
            // after it are still added (CustomMenu.AFactoryForKnownIconsThatIsNullFailsTheItemAndNotTheMenu).
            RETURN_IF_STEP_FAILS(151, GetFactoryOrNull<abi::RadialControllerMenuItem>(item_statics_));
            LOG_IF_STEP_FAILS("AddMenuItemFromKnownIcon", 152, AddMenuItemFromKnownIcon(entry, icon));
            entries_.push_back(std::move(entry));
            break;
        }
        case MenuItemKind::SystemFont: {
            const TextReference font_family(item.source2.text);
            const TextReference glyph(item.source.text);
            LOG_IF_STEP_FAILS("AddMenuItemFromSystemFont", 157,
                              AddMenuItemFromSystemFont(entry, glyph.Get(), font_family.Get()));
            entries_.push_back(std::move(entry));
            break;
        }
        case MenuItemKind::CustomFont:
            AddCustomFontItem(std::move(entry), item);
            break;
        case MenuItemKind::FilePNG: {
            // Not recorded here: the completion of the load records its own entry.
            const TextReference path(item.source.text);
            LOG_IF_STEP_FAILS("AddMenuItemFromFilePNG", 199, AddMenuItemFromFilePNG(entry, path.Get()));
            break;
        }
        case MenuItemKind::ResourcePNG: {
            const auto module = reinterpret_cast<HMODULE>(item.source.number);
            const auto resource = static_cast<std::uint32_t>(item.source2.number);
            LOG_IF_STEP_FAILS("AddMenuItemFromResourcePNG", 203,
                              AddMenuItemFromResourcePNG(entry, module, resource));
            break;
        }
        default:
            break;
    }
    return std::nullopt;
}

void DialMenu::AddCustomFontItem(MenuEntry entry, const MenuItemDescription& item) {
    const auto short_path = PathFileExistsW(item.source3.text) ? ShortPath(item.source3.text) : nullptr;
    if (!short_path) {
        return;
    }
    const TextReference path(short_path.get());
    const TextReference font_family(item.source2.text);
    const TextReference glyph(item.source.text);
    LOG_IF_STEP_FAILS("AddMenuItemFromCustomFont", 189,
                      AddMenuItemFromCustomFont(entry, glyph.Get(), font_family.Get(), path.Get()));
    entries_.push_back(std::move(entry));
}

}  // namespace brindle
