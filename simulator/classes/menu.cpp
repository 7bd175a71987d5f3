#include "simulator/classes/menu.h"

#include <algorithm>

#include "simulator/classes/vectors.h"

namespace dialsim {

namespace {

// Removed items are released after the lock: their destruction may run code of the library.
template <class Body>
HRESULT WithLock(Mutex& mutex, Body body) {
    const std::lock_guard guard(mutex);
    return body();
}

}  // namespace

HRESULT MenuItems::GetAt(std::uint32_t index, Element** result) noexcept {
    return PerformInto(MethodName<Interface>("GetAt"), std::to_string(index), result, [&] {
        Ref<Element> removed;
        return WithLock(mutex_, [&] {
            const HRESULT code = index < items_.size() ? items_[index].CopyTo(result) : kOutOfBounds;
            if (calls_until_shrinking_ && --*calls_until_shrinking_ == 0) {
                calls_until_shrinking_.reset();
                if (!items_.empty()) {
                    removed = std::move(items_.back());
                    items_.pop_back();
                }
            }
            return code;
        });
    });
}

HRESULT MenuItems::get_Size(std::uint32_t* result) noexcept {
    return PerformInto(MethodName<Interface>("get_Size"), "", result, [&] {
        return WithLock(mutex_, [&] {
            *result = static_cast<std::uint32_t>(items_.size());
            return S_OK;
        });
    });
}

HRESULT MenuItems::GetView(abi::IVectorView<abi::RadialControllerMenuItem>** result) noexcept {
    return PerformInto(MethodName<Interface>("GetView"), "", result, [&] {
        return Make<VectorView<abi::RadialControllerMenuItem>>(Snapshot()).CopyTo(result);
    });
}

HRESULT MenuItems::IndexOf(Element* value, std::uint32_t* index, abi::boolean* result) noexcept {
    return PerformInto(MethodName<Interface>("IndexOf"), "", result, [&] {
        return WithLock(mutex_, [&] {
            const auto found = std::find_if(items_.begin(), items_.end(),
                                            [&](const auto& item) { return item.get() == value; });
            *index = static_cast<std::uint32_t>(found == items_.end() ? 0 : found - items_.begin());
            *result = found != items_.end();
            return S_OK;
        });
    });
}

HRESULT MenuItems::SetAt(std::uint32_t index, Element* value) noexcept {
    return Perform(MethodName<Interface>("SetAt"), std::to_string(index), [&] {
        Ref<Element> item(value);
        return WithLock(mutex_, [&] {
            if (index >= items_.size()) {
                return kOutOfBounds;
            }
            std::swap(items_[index], item);
            return S_OK;
        });
    });
}

HRESULT MenuItems::InsertAt(std::uint32_t index, Element* value) noexcept {
    return Perform(MethodName<Interface>("InsertAt"), std::to_string(index), [&] {
        return WithLock(mutex_, [&] {
            if (index > items_.size()) {
                return kOutOfBounds;
            }
            items_.emplace(items_.begin() + index, value);
            return S_OK;
        });
    });
}

HRESULT MenuItems::RemoveAt(std::uint32_t index) noexcept {
    return Perform(MethodName<Interface>("RemoveAt"), std::to_string(index), [&] {
        Ref<Element> removed;
        return WithLock(mutex_, [&] {
            if (index >= items_.size()) {
                return kOutOfBounds;
            }
            removed = std::move(items_[index]);
            items_.erase(items_.begin() + index);
            return S_OK;
        });
    });
}

HRESULT MenuItems::Append(Element* value) noexcept {
    return Perform(MethodName<Interface>("Append"), "", [&] {
        return WithLock(mutex_, [&] {
            items_.emplace_back(value);
            return S_OK;
        });
    });
}

HRESULT MenuItems::RemoveAtEnd() noexcept {
    return Perform(MethodName<Interface>("RemoveAtEnd"), "", [&] {
        Ref<Element> removed;
        return WithLock(mutex_, [&] {
            if (items_.empty()) {
                return kOutOfBounds;
            }
            removed = std::move(items_.back());
            items_.pop_back();
            return S_OK;
        });
    });
}

HRESULT MenuItems::Clear() noexcept {
    return Perform(MethodName<Interface>("Clear"), "", [&] {
        std::vector<Ref<Element>> removed;
        return WithLock(mutex_, [&] {
            removed.swap(items_);
            return S_OK;
        });
    });
}

HRESULT MenuItems::GetMany(std::uint32_t start, std::uint32_t count, Element** items,
                           std::uint32_t* result) noexcept {
    return PerformInto(MethodName<Interface>("GetMany"), "", result, [&] {
        return WithLock(mutex_, [&] {
            *result = 0;
            while (*result < count && start + *result < items_.size()) {
                items_[start + *result].CopyTo(&items[*result]);
                ++*result;
            }
            return S_OK;
        });
    });
}

HRESULT MenuItems::ReplaceAll(std::uint32_t count, Element** items) noexcept {
    return Perform(MethodName<Interface>("ReplaceAll"), "", [&] {
        std::vector<Ref<Element>> replaced;
        for (std::uint32_t i = 0; i < count; ++i) {
            replaced.emplace_back(items[i]);
        }
        return WithLock(mutex_, [&] {
            replaced.swap(items_);
            return S_OK;
        });
    });
}

std::vector<Ref<MenuItems::Element>> MenuItems::Snapshot() {
    const std::lock_guard guard(mutex_);
    return items_;
}

void MenuItems::ShrinkAfter(std::uint32_t calls) {
    Ref<Element> removed;
    const std::lock_guard guard(mutex_);
    if (calls > 0) {
        calls_until_shrinking_ = calls;
    } else if (!items_.empty()) {
        removed = std::move(items_.back());
        items_.pop_back();
    }
}

RadialMenu::RadialMenu() : Object(abi::RadialControllerMenu::Name), items_(Make<MenuItems>()) {}

HRESULT RadialMenu::get_Items(abi::IVector<abi::RadialControllerMenuItem>** result) noexcept {
    return PerformInto(MethodName<Interface>("get_Items"), "", result, [&] { return items_.CopyTo(result); });
}

HRESULT RadialMenu::get_IsEnabled(abi::boolean* result) noexcept {
    return PerformInto(MethodName<Interface>("get_IsEnabled"), "", result, [&] {
        return WithLock(mutex_, [&] {
            *result = enabled_;
            return S_OK;
        });
    });
}

HRESULT RadialMenu::put_IsEnabled(abi::boolean value) noexcept {
    return Perform(MethodName<Interface>("put_IsEnabled"), std::to_string(value), [&] {
        return WithLock(mutex_, [&] {
            enabled_ = value != 0;
            return S_OK;
        });
    });
}

HRESULT RadialMenu::GetSelectedMenuItem(abi::IRadialControllerMenuItem** result) noexcept {
    return PerformInto(MethodName<Interface>("GetSelectedMenuItem"), "", result,
                       [&] { return IfInMenu(Selected()).CopyTo(result); });
}

HRESULT RadialMenu::SelectMenuItem(abi::IRadialControllerMenuItem* item) noexcept {
    return Perform(MethodName<Interface>("SelectMenuItem"), "", [&] {
        Ref<abi::IRadialControllerMenuItem> wanted = IfInMenu(Ref(item));
        if (!wanted) {
            return E_INVALIDARG;
        }
        Select(std::move(wanted));
        return S_OK;
    });
}

HRESULT RadialMenu::TrySelectPreviouslySelectedMenuItem(abi::boolean* result) noexcept {
    return PerformInto(MethodName<Interface>("TrySelectPreviouslySelectedMenuItem"), "", result, [&] {
        Ref<abi::IRadialControllerMenuItem> previous;
        WithLock(mutex_, [&] {
            previous = previous_;
            return S_OK;
        });
        previous = IfInMenu(previous);
        *result = static_cast<bool>(previous);
        if (previous) {
            Select(std::move(previous));
        }
        return S_OK;
    });
}

Outcome RadialMenu::Choose(std::uint32_t index) {
    const auto items = items_->Snapshot();
    if (index >= items.size() || !items[index]) {
        return {kOutOfBounds, false, {}, false};
    }
    Select(items[index]);
    auto* item = OwnObject<MenuItem>(items[index].get());
    return item == nullptr ? Outcome() : item->Invoke();
}

Ref<abi::IRadialControllerMenuItem> RadialMenu::Selected() {
    const std::lock_guard guard(mutex_);
    return selected_;
}

Ref<abi::IRadialControllerMenuItem> RadialMenu::IfInMenu(const Ref<abi::IRadialControllerMenuItem>& item) {
    for (const auto& present : items_->Snapshot()) {
        if (item && present.get() == item.get()) {
            return item;
        }
    }
    return {};
}

void RadialMenu::Select(Ref<abi::IRadialControllerMenuItem> item) {
    Ref<abi::IRadialControllerMenuItem> released;
    const std::lock_guard guard(mutex_);
    released = std::exchange(previous_, std::exchange(selected_, std::move(item)));
}

}  // namespace dialsim
