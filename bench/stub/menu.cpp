#include "bench/stub/menu.h"

#include <utility>

#include "bench/stub/factories.h"
#include "bench/stub/strings.h"

namespace stub {

namespace {

class MenuItem final : public Counted<abi::IRadialControllerMenuItem> {
    using Handler = abi::TypedEventHandler<abi::RadialControllerMenuItem, abi::IInspectable>;

public:
    explicit MenuItem(HSTRING text) : text_(text) {}

    HRESULT get_DisplayText(HSTRING* result) noexcept override {
        STUB_RECORD_CALL();
        return text_.ReturnReference(result);
    }
    HRESULT get_Tag(abi::IInspectable** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(tag_, result);
    }
    HRESULT put_Tag(abi::IInspectable* value) noexcept override {
        STUB_RECORD_CALL();
        StoreReference(tag_, value);
        return S_OK;
    }
    HRESULT add_Invoked(Handler* handler, EventRegistrationToken* result) noexcept override {
        STUB_RECORD_CALL();
        StoreReference(invoked_, handler);
        result->value = 1;
        return S_OK;
    }
    HRESULT remove_Invoked(EventRegistrationToken) noexcept override { return E_NOTIMPL; }

private:
    ~MenuItem() override {
        StoreReference(tag_, decltype(tag_){});
        StoreReference(invoked_, decltype(invoked_){});
    }

    const Text text_;
    abi::IInspectable* tag_ = nullptr;
    Handler* invoked_ = nullptr;
};

class Statics final
    : public StaticObject<abi::IRadialControllerMenuItemStatics, abi::IRadialControllerMenuItemStatics2> {
    using Item = abi::IRadialControllerMenuItem;

public:
    HRESULT CreateFromIcon(HSTRING text, abi::IRandomAccessStreamReference*,
                           Item** result) noexcept override {
        STUB_RECORD_CALL();
        *result = new MenuItem(text);
        return S_OK;
    }
    HRESULT CreateFromKnownIcon(HSTRING text, abi::RadialControllerMenuKnownIcon,
                                Item** result) noexcept override {
        STUB_RECORD_CALL();
        *result = new MenuItem(text);
        return S_OK;
    }
    HRESULT CreateFromFontGlyph(HSTRING text, HSTRING, HSTRING, Item** result) noexcept override {
        STUB_RECORD_CALL();
        *result = new MenuItem(text);
        return S_OK;
    }
    HRESULT CreateFromFontGlyphWithUri(HSTRING text, HSTRING, HSTRING, abi::IUriRuntimeClass*,
                                       Item** result) noexcept override {
        STUB_RECORD_CALL();
        *result = new MenuItem(text);
        return S_OK;
    }
};

}  // namespace

HRESULT ItemList::GetAt(std::uint32_t index, Item** result) noexcept {
    STUB_RECORD_CALL();
    return index < items_.size() ? ReturnReference(items_[index], result) : kOutOfBounds;
}

HRESULT ItemList::get_Size(std::uint32_t* result) noexcept {
    STUB_RECORD_CALL();
    *result = static_cast<std::uint32_t>(items_.size());
    return S_OK;
}

HRESULT ItemList::Append(Item* item) noexcept {
    STUB_RECORD_CALL();
    item->AddRef();
    items_.push_back(item);
    return S_OK;
}

HRESULT ItemList::Clear() noexcept {
    STUB_RECORD_CALL();
    ReleaseAll();
    return S_OK;
}

void ItemList::ReleaseAll() {
    for (Item* item : items_) {
        item->Release();
    }
    items_.clear();
}

HRESULT Menu::get_Items(abi::IVector<abi::RadialControllerMenuItem>** result) noexcept {
    STUB_RECORD_CALL();
    return ReturnReference(&items_, result);
}

HRESULT Menu::GetSelectedMenuItem(abi::IRadialControllerMenuItem** result) noexcept {
    STUB_RECORD_CALL();
    return ReturnReference(selected_, result);
}

HRESULT Menu::SelectMenuItem(abi::IRadialControllerMenuItem* item) noexcept {
    STUB_RECORD_CALL();
    selected_ = item;
    return S_OK;
}

abi::IUnknown& MenuItemStatics() {
    static Statics statics;
    return static_cast<abi::IRadialControllerMenuItemStatics&>(statics);
}

}  // namespace stub
