// Fills the menu and selects an item.
#include <cstdarg>
#include <cstdio>
#include <new>

#include "bench/baseline/activation.h"
#include "bench/baseline/baseline.h"
#include "bench/baseline/handler.h"
#include "bench/baseline/text.h"
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

void Format(WCHAR* line, std::size_t size, const WCHAR* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    _vsnwprintf(line, size, format, arguments);
    va_end(arguments);
}

HRESULT EndSearch(HRESULT code, abi::IRadialControllerMenuItem* item, abi::IInspectable* tag) {
    if (tag != nullptr) {
        tag->Release();
    }
    if (item != nullptr) {
        item->Release();
    }
    return code;
}

// Every failure ends the search with its code; a null item and an item without a tag are skipped.
HRESULT SelectIn(abi::IRadialControllerMenu* menu, List* list, std::uint32_t item_id) {
    for (std::uint32_t i = 0;; ++i) {
        std::uint32_t size = 0;
        if (const HRESULT code = list->get_Size(&size); code < 0) {
            return code;
        }
        if (i >= size) {
            return E_FAIL;
        }
        abi::IRadialControllerMenuItem* item = nullptr;
        if (const HRESULT code = list->GetAt(i, &item); code < 0) {
            return EndSearch(code, item, nullptr);
        }
        if (item == nullptr) {
            continue;
        }
        abi::IInspectable* tag = nullptr;
        if (const HRESULT code = item->get_Tag(&tag); code < 0) {
            return EndSearch(code, item, tag);
        }
        if (tag != nullptr) {
            abi::IPropertyValue* number = nullptr;
            if (const HRESULT code = Query(tag, number); code < 0) {
                return EndSearch(code, item, tag);
            }
            std::uint32_t value = 0;
            const HRESULT code = number->GetUInt32(&value);
            number->Release();
            if (code < 0) {
                return EndSearch(code, item, tag);
            }
            tag->Release();
            if (value == item_id) {
                return EndSearch(menu->SelectMenuItem(item), item, nullptr);
            }
        }
        item->Release();
    }
}

}  // namespace

HRESULT Dial::FillMenu(const MenuItemDescription* items, std::uint32_t count) {
    if (menu_ != nullptr) {
        menu_->Release();
        menu_ = nullptr;
    }
    if (const HRESULT code = controller_->get_Menu(&menu_); code < 0) {
        return code;
    }
    if (menu_ == nullptr) {
        return E_NOINTERFACE;
    }
    // A reference of its own, as of the factory and the menu below: an event inside a call may replace the
    // menu.
    abi::IRadialControllerMenu* const menu = menu_;
    menu->AddRef();
    List* list = nullptr;
    HRESULT code = menu->get_Items(&list);
    if (list == nullptr) {
        menu->Release();
        return code < 0 ? code : E_NOINTERFACE;
    }
    try {
        if (code >= 0) {
            if (const HRESULT cleared = list->Clear(); cleared < 0) {
                LogFailure("clear", cleared, 132);
            }
            for (std::uint32_t i = 0; items != nullptr && i < count && code >= 0; ++i) {
                code = AddItem(items[i]);
            }
        }
    } catch (...) {
        list->Release();
        menu->Release();
        throw;
    }
    list->Release();
    menu->Release();
    return code;
}

Dial::Entry Dial::MakeEntry(const WCHAR* label, std::uint32_t item_id, bool haptic_feedback) {
    HSTRING_HEADER header;
    HSTRING copy = nullptr;
    if (const HRESULT code = WindowsDuplicateString(Reference(label, header), &copy); code < 0) {
        Raise(code);
    }
    try {
        return {new HSTRING(copy), item_id, 0, haptic_feedback};
    } catch (...) {
        WindowsDeleteString(copy);
        throw;
    }
}

void Dial::FreeLabel(HSTRING* label) {
    if (*label != nullptr) {
        WindowsDeleteString(*label);
    }
    delete label;
}

HRESULT Dial::AddToMenu(abi::IRadialControllerMenuItem* item, Entry& entry) {
    // Null when no menu is there any more and the file of an earlier one is opened.
    abi::IRadialControllerMenu* const menu = menu_;
    if (menu == nullptr) {
        return E_NOINTERFACE;
    }
    menu->AddRef();
    auto* handler = new (std::nothrow) InvokedHandler(*this);
    if (handler == nullptr) {
        menu->Release();
        throw std::bad_alloc();
    }
    EventRegistrationToken token{};
    HRESULT code = item->add_Invoked(handler, &token);
    handler->Release();
    List* list = nullptr;
    if (code >= 0) {
        entry.invoked_token = token.value;
        code = menu->get_Items(&list);
        if (list == nullptr) {
            code = code < 0 ? code : E_NOINTERFACE;
        } else {
            if (code >= 0) {
                code = list->Append(item);
            }
            abi::IPropertyValueStatics* values = nullptr;
            if (code >= 0 && (code = GetFactory<abi::PropertyValue>(values)) >= 0) {
                abi::IInspectable* tag = nullptr;
                code = values->CreateUInt32(entry.item_id, &tag);
                if (code >= 0 && (code = item->put_Tag(tag)) >= 0) {
                    WCHAR line[2000];
                    Format(line, 2000, u"Added %s to menu\n",
                           WindowsGetStringRawBuffer(*entry.label, nullptr));
                }
                if (tag != nullptr) {
                    tag->Release();
                }
                values->Release();
            }
            list->Release();
        }
    }
    menu->Release();
    return code;
}

HRESULT Dial::Select(std::uint32_t item_id) {
    abi::IRadialController* controller = nullptr;
    HRESULT code = Query(controller_, controller);
    if (code < 0) {
        return code;
    }
    abi::IRadialControllerMenu* menu = nullptr;
    code = controller->get_Menu(&menu);
    if (menu == nullptr) {
        code = code < 0 ? code : E_NOINTERFACE;
    } else {
        List* list = nullptr;
        if (code >= 0) {
            code = menu->get_Items(&list);
        }
        if (list == nullptr) {
            code = code < 0 ? code : E_NOINTERFACE;
        } else {
            if (code >= 0) {
                code = SelectIn(menu, list, item_id);
            }
            list->Release();
        }
        menu->Release();
    }
    controller->Release();
    return code;
}

void LogFailure(const char* step, HRESULT code, int line) {
    std::printf("%s failed with %x at line %d\n", step, static_cast<unsigned>(code), line);
}

}  // namespace baseline
