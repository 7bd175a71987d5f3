// add_custom_menu: from the host's descriptions to the window's menu.
#include <memory>
#include <optional>
#include <utility>

#include "dial/dial_listener.h"
#include "frame/diagnostics/steps.h"
#include "platform/activation.h"

namespace brindle {

namespace {

// A CustomFont item addresses its file by the 8.3 form only. Null when there is none to be had, also when it
// no longer fits what was asked for.
std::unique_ptr<WCHAR[]> ShortPath(const WCHAR* path) {
    const DWORD characters = GetShortPathNameW(path, nullptr, 0);
    if (characters == 0) {
        return nullptr;
    }
    // Not std::make_unique, whose check of the length takes a kilobyte of the DLL.
    std::unique_ptr<WCHAR[]> buffer(new WCHAR[characters]());
    const DWORD written = GetShortPathNameW(path, buffer.get(), characters);
    return written == 0 || written >= characters ? nullptr : std::move(buffer);
}

}  // namespace

// The menu held before is released first, by every call and every attempt. An event that the platform lets in
// here may make the menu too: what it has stored then is released for this one.
HRESULT DialListener::FetchMenu() {
    menu_.Reset();
    ComPtr<abi::IRadialControllerMenu> menu;
    const HRESULT code = controller_->get_Menu(menu.Put());
    menu_ = std::move(menu);
    return code;
}

HRESULT DialListener::AddCustomMenu(const MenuItemDescription* items, std::uint32_t count) {
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

// A failing item does not stop the others, nor make the call fail; only where the factory for known icons is
// not to be had, the rest is skipped and its code is what the whole call ends with. An entry is recorded even
// for an item that failed, where the source is a known icon or a glyph: intended.
std::optional<HRESULT> DialListener::AddDescribedItem(const MenuItemDescription& item) {
    MenuEntry entry = MakeEntry(item.display_text, item.item_id, item.haptic_feedback != 0);
    switch (item.kind) {
        case MenuItemKind::KnownIcon: {
            const auto icon = static_cast<abi::RadialControllerMenuKnownIcon>(item.source.number);
            // A factory that is null although the call succeeded fails the item, not the menu: intended.
            RETURN_IF_STEP_FAILS(151, GetFactoryOrNull<abi::RadialControllerMenuItem>(item_statics_));
            LOG_IF_STEP_FAILS("AddMenuItemFromKnownIcon", 152, AddMenuItemFromKnownIcon(entry, icon));
            menu_entries_.push_back(std::move(entry));
            break;
        }
        case MenuItemKind::SystemFont: {
            const TextReference font_family(item.source2.text);
            const TextReference glyph(item.source.text);
            LOG_IF_STEP_FAILS("AddMenuItemFromSystemFont", 157,
                              AddMenuItemFromSystemFont(entry, glyph.Get(), font_family.Get()));
            menu_entries_.push_back(std::move(entry));
            break;
        }
        case MenuItemKind::CustomFont:
            AddCustomFontItem(std::move(entry), item);
            break;
        case MenuItemKind::FilePNG: {
            // The entry is not recorded here: the load records its own when it completes.
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

void DialListener::AddCustomFontItem(MenuEntry entry, const MenuItemDescription& item) {
    const auto short_path = PathFileExistsW(item.source3.text) ? ShortPath(item.source3.text) : nullptr;
    if (!short_path) {
        return;
    }
    const TextReference path(short_path.get());
    const TextReference font_family(item.source2.text);
    const TextReference glyph(item.source.text);
    LOG_IF_STEP_FAILS("AddMenuItemFromCustomFont", 189,
                      AddMenuItemFromCustomFont(entry, glyph.Get(), font_family.Get(), path.Get()));
    menu_entries_.push_back(std::move(entry));
}

}  // namespace brindle
