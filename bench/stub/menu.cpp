#include "bench/stub/menu.h"

#include <utility>

#include "bench/stub/factories.h"
#include "bench/stub/strings.h"

namespace lean {

namespace {

class MenuItem final : public Counted<abi::IRadialControllerMenuItem> {
    using Handler = abi::TypedEventHandler<abi::RadialControllerMenuItem, abi::IInspectable>;

public:
    explicit MenuItem(HSTRING text) : text_(text) {}

    HRESULT get_DisplayText(HSTRING* result) noexcept override {
        LEAN_NOTE();
        return text_.Hand(result);
    }
    HRESULT get_Tag(abi::IInspectable** result) noexcept override {
        LEAN_NOTE();
        return Hand(tag_, result);
    }
    HRESULT put_Tag(abi::IInspectable* value) noexcept override {
        LEAN_NOTE();
        Keep(tag_, value);
        return S_OK;
    }
    HRESULT add_Invoked(Handler* handler, EventRegistrationToken* result) noexcept override {
        LEAN_NOTE();
        Keep(invoked_, handler);
        result->value = 1;
        return S_OK;
    }
    HRESULT remove_Invoked(EventRegistrationToken) noexcept override { return E_NOTIMPL; }

private:
    ~MenuItem() override {
        Keep(tag_, decltype(tag_){});
        Keep(invoked_, decltype(invoked_){});
    }

    const Text text_;
    abi::IInspectable* tag_ = nullptr;
    Handler* invoked_ = nullptr;
};

class Statics final : public Fixed<abi::IRadialControllerMenuItemStatics> {
public:
    HRESULT CreateFromIcon(HSTRING, abi::IRandomAccessStreamReference*,
                           abi::IRadialControllerMenuItem**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT CreateFromKnownIcon(HSTRING text, abi::RadialControllerMenuKnownIcon,
                                abi::IRadialControllerMenuItem** result) noexcept override {
        LEAN_NOTE();
        *result = new MenuItem(text);
        return S_OK;
    }
};

}  // namespace

HRESULT ItemList::GetAt(std::uint32_t index, Item** result) noexcept {
    LEAN_NOTE();
    return index < items_.size() ? Hand(items_[index], result) : kOutOfBounds;
}

HRESULT ItemList::get_Size(std::uint32_t* result) noexcept {
    LEAN_NOTE();
    *result = static_cast<std::uint32_t>(items_.size());
    return S_OK;
}

HRESULT ItemList::Append(Item* item) noexcept {
    LEAN_NOTE();
    item->AddRef();
    items_.push_back(item);
    return S_OK;
}

HRESULT ItemList::Clear() noexcept {
    LEAN_NOTE();
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
    LEAN_NOTE();
    return Hand(&items_, result);
}

HRESULT Menu::GetSelectedMenuItem(abi::IRadialControllerMenuItem** result) noexcept {
    LEAN_NOTE();
    return Hand(selected_, result);
}

HRESULT Menu::SelectMenuItem(abi::IRadialControllerMenuItem* item) noexcept {
    LEAN_NOTE();
    selected_ = item;
    return S_OK;
}

abi::IUnknown& MenuItemStatics() {
    static Statics statics;
    return statics;
}

}  // namespace lean
