// The controller's menu and its list of items.
#pragma once

#include <cstdint>
#include <vector>

#include "bench/stub/object.h"
#include "platform/interfaces/ui_input_menu.h"

namespace stub {

// Member of its menu. Supports appending and clearing only.
class ItemList final : public StaticObject<abi::IVector<abi::RadialControllerMenuItem>> {
    using Item = abi::IRadialControllerMenuItem;

public:
    ~ItemList() { ReleaseAll(); }

    HRESULT GetAt(std::uint32_t index, Item** result) noexcept override;
    HRESULT get_Size(std::uint32_t* result) noexcept override;
    HRESULT Append(Item* item) noexcept override;
    HRESULT Clear() noexcept override;

    HRESULT GetView(abi::IVectorView<abi::RadialControllerMenuItem>**) noexcept override { return E_NOTIMPL; }
    HRESULT IndexOf(Item*, std::uint32_t*, abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT SetAt(std::uint32_t, Item*) noexcept override { return E_NOTIMPL; }
    HRESULT InsertAt(std::uint32_t, Item*) noexcept override { return E_NOTIMPL; }
    HRESULT RemoveAt(std::uint32_t) noexcept override { return E_NOTIMPL; }
    HRESULT RemoveAtEnd() noexcept override { return E_NOTIMPL; }
    HRESULT GetMany(std::uint32_t, std::uint32_t, Item**, std::uint32_t*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT ReplaceAll(std::uint32_t, Item**) noexcept override { return E_NOTIMPL; }

private:
    void ReleaseAll();

    std::vector<Item*> items_;
};

// Member of its controller. Its only state is the selected item.
class Menu final : public StaticObject<abi::IRadialControllerMenu> {
public:
    HRESULT get_Items(abi::IVector<abi::RadialControllerMenuItem>** result) noexcept override;
    HRESULT GetSelectedMenuItem(abi::IRadialControllerMenuItem** result) noexcept override;
    HRESULT SelectMenuItem(abi::IRadialControllerMenuItem* item) noexcept override;

    HRESULT get_IsEnabled(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT put_IsEnabled(abi::boolean) noexcept override { return E_NOTIMPL; }
    HRESULT TrySelectPreviouslySelectedMenuItem(abi::boolean*) noexcept override { return E_NOTIMPL; }

private:
    ItemList items_;
    abi::IRadialControllerMenuItem* selected_ = nullptr;  // one of the list's
};

}  // namespace stub
