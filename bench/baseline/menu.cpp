// Fills the menu with known icons and selects an item.
#include <cstdarg>
#include <string>

#include "bench/baseline/activation.h"
#include "bench/baseline/baseline.h"
#include "bench/baseline/handler.h"
#include "platform/interfaces/property_value.h"

namespace baseline {

namespace {

using List = abi::IVector<abi::RadialControllerMenuItem>;

class InvokedHandler final
    : public Counted<abi::TypedEventHandler<abi::RadialControllerMenuItem, abi::IInspectable>> {
public:
    explicit InvokedHandler(Dial& dial) : dial_(dial) {}

    // No workload chooses an item.
    HRESULT Invoke(abi::IRadialControllerMenuItem*, abi::IInspectable*) override { return E_NOTIMPL; }

private:
    [[maybe_unused]] Dial& dial_;
};

HSTRING Reference(const WCHAR* text, HSTRING_HEADER& header) {
    HSTRING string = nullptr;
    WindowsCreateStringReference(text, static_cast<UINT>(std::char_traits<WCHAR>::length(text)), &header,
                                 &string);
    return string;
}

void Format(WCHAR* line, std::size_t size, const WCHAR* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    _vsnwprintf(line, size, format, arguments);
    va_end(arguments);
}

bool HasTag(abi::IRadialControllerMenuItem* item, std::uint32_t item_id) {
    abi::IInspectable* tag = nullptr;
    item->get_Tag(&tag);
    if (tag == nullptr) {
        return false;
    }
    std::uint32_t value = 0;
    abi::IPropertyValue* number = nullptr;
    const HRESULT code = Query(tag, number);
    if (code >= 0) {
        number->GetUInt32(&value);
        number->Release();
    }
    tag->Release();
    return code >= 0 && value == item_id;
}

HRESULT SelectIn(abi::IRadialControllerMenu* menu, List* list, std::uint32_t item_id) {
    std::uint32_t size = 0;
    for (std::uint32_t i = 0; list->get_Size(&size) >= 0 && i < size; ++i) {
        abi::IRadialControllerMenuItem* item = nullptr;
        list->GetAt(i, &item);
        if (item == nullptr) {
            continue;
        }
        if (HasTag(item, item_id)) {
            const HRESULT code = menu->SelectMenuItem(item);
            item->Release();
            return code;
        }
        item->Release();
    }
    return E_FAIL;
}

}  // namespace

HRESULT Dial::FillMenu(const MenuItemDescription* items, std::uint32_t count) {
    if (menu_ != nullptr) {
        menu_->Release();
    }
    menu_ = nullptr;
    controller_->get_Menu(&menu_);
    // A reference of its own, as of the factory and the menu below: an event inside a call may replace the
    // menu.
    abi::IRadialControllerMenu* const menu = menu_;
    menu->AddRef();
    List* list = nullptr;
    if (menu->get_Items(&list) < 0) {
        menu->Release();
        return E_FAIL;
    }
    list->Clear();
    for (std::uint32_t i = 0; i < count; ++i) {
        AddItem(items[i]);
    }
    list->Release();
    menu->Release();
    return S_OK;
}

HRESULT Dial::AddItem(const MenuItemDescription& description) {
    HSTRING_HEADER header;
    Entry entry{nullptr, description.item_id, 0, description.haptic_feedback != 0};
    WindowsDuplicateString(Reference(description.display_text, header), &entry.label);
    if (const HRESULT code = GetFactory<abi::RadialControllerMenuItem>(items_); code < 0) {
        return code;
    }
    abi::IRadialControllerMenuItemStatics* const statics = items_;
    statics->AddRef();
    abi::IRadialControllerMenuItem* item = nullptr;
    const HSTRING label = Reference(WindowsGetStringRawBuffer(entry.label, nullptr), header);
    HRESULT code = statics->CreateFromKnownIcon(
        label, static_cast<abi::RadialControllerMenuKnownIcon>(description.source.number), &item);
    if (code >= 0) {
        code = AddToMenu(item, entry);
        item->Release();
    }
    statics->Release();
    entries_.push_back(entry);
    return code;
}

HRESULT Dial::AddToMenu(abi::IRadialControllerMenuItem* item, Entry& entry) {
    abi::IRadialControllerMenu* const menu = menu_;
    menu->AddRef();
    auto* handler = new InvokedHandler(*this);
    EventRegistrationToken token{};
    HRESULT code = item->add_Invoked(handler, &token);
    entry.invoked_token = token.value;
    handler->Release();
    if (code < 0) {
        menu->Release();
        return code;
    }
    List* list = nullptr;
    menu->get_Items(&list);
    list->Append(item);
    abi::IPropertyValueStatics* values = nullptr;
    GetFactory<abi::PropertyValue>(values);
    abi::IInspectable* tag = nullptr;
    values->CreateUInt32(entry.item_id, &tag);
    code = item->put_Tag(tag);
    if (code >= 0) {
        WCHAR line[2000];
        Format(line, 2000, u"Added %s to menu\n", WindowsGetStringRawBuffer(entry.label, nullptr));
    }
    tag->Release();
    values->Release();
    list->Release();
    menu->Release();
    return code;
}

HRESULT Dial::Select(std::uint32_t item_id) {
    abi::IRadialController* controller = nullptr;
    if (Query(controller_, controller) < 0) {
        return E_NOINTERFACE;
    }
    HRESULT code = E_FAIL;
    abi::IRadialControllerMenu* menu = nullptr;
    if (controller->get_Menu(&menu) >= 0) {
        List* list = nullptr;
        if (menu->get_Items(&list) >= 0) {
            code = SelectIn(menu, list, item_id);
            list->Release();
        }
        menu->Release();
    }
    controller->Release();
    return code;
}

}  // namespace baseline
