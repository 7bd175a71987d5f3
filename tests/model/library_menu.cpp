// The dial's menu: filling it, choosing an item, and the system items.
#include "library_model.h"

namespace model {

namespace {

enum Kind { kFilePng, kResourcePng, kKnownIcon, kSystemFont, kCustomFont };

}  // namespace

bool Library::AddCustomMenu(std::uint64_t window, const std::vector<Item>* items, std::uint32_t times) {
    Listener* listener = Find(window);
    return listener != nullptr && FillMenu(*listener, items, times) >= 0;
}

Code Library::FillMenu(Listener& listener, const std::vector<Item>* items, std::uint32_t times) {
    if (!listener.controller) {
        return kFail;
    }
    listener.menu.reset();
    Ref<Menu> menu;
    if (const End end = Guarded(124, [&] {
            menu.reset();
            listener.menu.reset();
            const Code code = Get("IRadialController::get_Menu", menu, listener.controller->menu);
            listener.menu = menu;
            return code;
        })) {
        return *end;
    }
    if (!menu) {
        return kNoInterface;
    }
    Ref<MenuItems> list;
    if (const End end = GetStep(129, "IRadialControllerMenu::get_Items", list, menu->items)) {
        return *end;
    }
    if (!list) {
        return kNoInterface;
    }
    Logged("clear", 132, [&] {
        return platform_.Call("IVector<RadialControllerMenuItem>::Clear", "", [&] {
            const std::vector<Ref<MenuItem>> removed = std::exchange(list->list, {});
            return 0;
        });
    });
    for (std::uint32_t round = 0; items != nullptr && round < times; ++round) {
        for (const Item& item : *items) {
            if (const End end = AddItem(listener, item)) {
                return *end;
            }
        }
    }
    return 0;
}

Library::End Library::AddItem(Listener& listener, const Item& item) {
    const Entry entry{Duplicate(Reference(item.label)), item.id, item.haptics != 0};
    switch (item.kind) {
        case kKnownIcon:
            if (const End end =
                    Guarded(151, [&] { return GetFactory(kItem, listener.item_statics, false); })) {
                return end;
            }
            Logged("AddMenuItemFromKnownIcon", 152,
                   [&] { return AddKnownIcon(listener, entry, static_cast<std::uint32_t>(item.number)); });
            listener.entries.push_back(entry);
            break;
        case kSystemFont: {
            const WideText family = Reference(item.family);
            const WideText glyph = Reference(item.glyph);
            Logged("AddMenuItemFromSystemFont", 157,
                   [&] { return AddGlyph(listener, entry, glyph, family); });
            listener.entries.push_back(entry);
            break;
        }
        case kCustomFont:
            AddFontGlyph(listener, entry, item);
            break;
        case kFilePng: {
            const WideText path = Reference(platform_.files.PathOf(item.file));
            Logged("AddMenuItemFromFilePNG", 199, [&] { return AddFile(listener, entry, path); });
            break;
        }
        case kResourcePng:
            Logged("AddMenuItemFromResourcePNG", 203,
                   [&] { return AddResource(listener, entry, item.number); });
            break;
        default:
            break;
    }
    return std::nullopt;
}

Code Library::AddItemToMenu(Listener& listener, const Ref<MenuItem>& item, const Entry& entry) {
    const Ref<Menu> menu = listener.menu;  // a nested call may replace it
    if (!item || !menu) {
        return kNoInterface;
    }
    if (const End end = CallStep(743, "IRadialControllerMenuItem::add_Invoked", [&] {
            item->handlers.push_back(&listener);
            return 0;
        })) {
        return *end;
    }
    Ref<MenuItems> list;
    if (const End end = GetStep(747, "IRadialControllerMenu::get_Items", list, menu->items)) {
        return *end;
    }
    if (!list) {
        return kNoInterface;
    }
    if (const End end = CallStep(750, "IVector<RadialControllerMenuItem>::Append", [&] {
            list->list.push_back(item);
            return 0;
        })) {
        return *end;
    }
    Ref<Object> values;
    if (const End end = FactoryStep(754, "Windows.Foundation.PropertyValue", values)) {
        return *end;
    }
    Ref<Tag> tag;
    if (const End end = FetchStep(758, "IPropertyValueStatics::CreateUInt32", "", tag, [&] {
            tag = platform_.Make<Tag>(Tag::Kind::Number, entry.id);
            return 0;
        })) {
        return *end;
    }
    return CallStep(760, "IRadialControllerMenuItem::put_Tag",
                    [&] {
                        item->tag = tag;
                        return 0;
                    })
        .value_or(0);
}

// --- selecting an item

bool Library::SetCurrentCustomMenu(std::uint64_t window, std::uint32_t id) {
    const Listener* listener = Find(window);
    if (listener == nullptr) {
        return false;
    }
    return Succeeds([&] { Select(*listener, id); });
}

void Library::Select(const Listener& listener, std::uint32_t id) {
    Require(static_cast<bool>(listener.controller));
    View("IRadialController");
    Ref<Menu> menu;
    Check(Get("IRadialController::get_Menu", menu, listener.controller->menu));
    Require(static_cast<bool>(menu));
    Ref<MenuItems> items;
    Check(Get("IRadialControllerMenu::get_Items", items, menu->items));
    Require(static_cast<bool>(items));
    for (std::uint32_t index = 0;; ++index) {
        std::uint32_t size = 0;
        Check(platform_.Read("IVector<RadialControllerMenuItem>::get_Size", size, [&] {
            size = static_cast<std::uint32_t>(items->list.size());
            return 0;
        }));
        if (index >= size) {
            throw PlatformError{kFail};
        }
        Ref<MenuItem> item;
        Check(platform_.Fetch("IVector<RadialControllerMenuItem>::GetAt", std::to_string(index), item, [&] {
            const bool there = index < items->list.size();
            item = there ? items->list[index] : nullptr;
            if (items->calls_until_shrinking > 0 && --items->calls_until_shrinking == 0 &&
                !items->list.empty()) {
                items->list.pop_back();
            }
            return there ? 0 : kOutOfBounds;
        }));
        Ref<Tag> tag;
        if (item) {
            Check(Get("IRadialControllerMenuItem::get_Tag", tag, item->tag));
        }
        if (!tag) {
            continue;
        }
        Require(tag->kind != Tag::Kind::NoValue);
        View("IPropertyValue");
        std::uint32_t number = 0;
        Check(platform_.Read("IPropertyValue::GetUInt32", number, [&] {
            number = tag->number;
            return tag->kind == Tag::Kind::Number ? 0 : kTypeMismatch;
        }));
        if (number == id) {
            Check(platform_.Call("IRadialControllerMenu::SelectMenuItem", "", [&] {
                if (!menu->Contains(item)) {
                    return kInvalidArgument;
                }
                menu->SelectItem(item);
                return 0;
            }));
            return;
        }
    }
}

// --- the system items

bool Library::SetDefaultMenu(std::uint64_t window, const std::vector<std::int32_t>* kinds) {
    const Listener* listener = Find(window);
    if (listener == nullptr) {
        return false;
    }
    return Succeeds([&] { ConfigureSystemItems(*listener, kinds); });
}

void Library::ConfigureSystemItems(const Listener& listener, const std::vector<std::int32_t>* kinds) {
    const std::uint64_t window = hosts_.QueryWindow(listener.host);
    const Ref<Object> factory = Factory("Windows.UI.Input.RadialControllerConfiguration");
    View("IRadialControllerConfigurationInterop");
    bool there = false;
    platform_.Fetch("IRadialControllerConfigurationInterop::GetForWindow", std::to_string(window), there,
                    [&] {
                        there = true;
                        return 0;
                    });
    Require(there);
    if (kinds == nullptr) {
        throw PlatformError{kInvalidArgument};
    }
    Check(platform_.Call("IRadialControllerConfiguration::SetDefaultMenuItems", "", [&] {
        std::string shown;
        bool all_exist = true;
        for (const std::int32_t kind : *kinds) {
            shown += (shown.empty() ? "" : ", ") + std::to_string(kind);
            all_exist = all_exist && kind >= 0 && kind < 5;
        }
        platform_.Note("system items(" + shown + ")");
        if (all_exist) {
            platform_.system_items[window] = *kinds;
        }
        return all_exist ? 0 : kInvalidArgument;
    }));
}

}  // namespace model
