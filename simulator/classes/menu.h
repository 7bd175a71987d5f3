// A window's dial menu.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/interfaces/collections.h"
#include "simulator/classes/menu_item.h"

namespace dialsim {

// The live list of the menu's custom items.
class MenuItems final : public Object<abi::IVector<abi::RadialControllerMenuItem>> {
    using Interface = abi::IVector<abi::RadialControllerMenuItem>;
    using Element = abi::IRadialControllerMenuItem;

public:
    MenuItems() : Object(TypeName<Interface>()) {}

    HRESULT GetAt(std::uint32_t index, Element** result) noexcept override;
    HRESULT get_Size(std::uint32_t* result) noexcept override;
    HRESULT GetView(abi::IVectorView<abi::RadialControllerMenuItem>** result) noexcept override;
    HRESULT IndexOf(Element* value, std::uint32_t* index, abi::boolean* result) noexcept override;
    HRESULT SetAt(std::uint32_t index, Element* value) noexcept override;
    HRESULT InsertAt(std::uint32_t index, Element* value) noexcept override;
    HRESULT RemoveAt(std::uint32_t index) noexcept override;
    HRESULT Append(Element* value) noexcept override;
    HRESULT RemoveAtEnd() noexcept override;
    HRESULT Clear() noexcept override;
    HRESULT GetMany(std::uint32_t start, std::uint32_t count, Element** items,
                    std::uint32_t* result) noexcept override;
    HRESULT ReplaceAll(std::uint32_t count, Element** items) noexcept override;

    std::vector<Ref<Element>> Snapshot();

    // Removes the last item during the n-th call of GetAt from now; 0: at once.
    void ShrinkAfter(std::uint32_t calls);

private:
    Mutex mutex_;
    std::vector<Ref<Element>> items_;
    std::optional<std::uint32_t> calls_until_shrinking_;
};

class RadialMenu final : public Object<abi::IRadialControllerMenu> {
    using Interface = abi::IRadialControllerMenu;

public:
    RadialMenu();

    HRESULT get_Items(abi::IVector<abi::RadialControllerMenuItem>** result) noexcept override;
    HRESULT get_IsEnabled(abi::boolean* result) noexcept override;
    HRESULT put_IsEnabled(abi::boolean value) noexcept override;
    HRESULT GetSelectedMenuItem(abi::IRadialControllerMenuItem** result) noexcept override;
    HRESULT SelectMenuItem(abi::IRadialControllerMenuItem* item) noexcept override;
    HRESULT TrySelectPreviouslySelectedMenuItem(abi::boolean* result) noexcept override;

    // Simulates that the user chooses the item at this index.
    Outcome Choose(std::uint32_t index);

    MenuItems& items() { return *items_.get(); }
    // The last selected item, which may have been removed from the menu; null when there is none.
    Ref<abi::IRadialControllerMenuItem> Selected();

private:
    // Null when the item is not in the menu.
    Ref<abi::IRadialControllerMenuItem> IfInMenu(const Ref<abi::IRadialControllerMenuItem>& item);
    void Select(Ref<abi::IRadialControllerMenuItem> item);

    Mutex mutex_;
    const Ref<MenuItems> items_;
    Ref<abi::IRadialControllerMenuItem> selected_;
    Ref<abi::IRadialControllerMenuItem> previous_;
    bool enabled_ = true;
};

}  // namespace dialsim
