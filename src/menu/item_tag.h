// The host's identifier of a menu item, as the item carries it.
#pragma once

#include <cstdint>

#include "platform/com_ptr.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/ui_input_menu.h"

namespace brindle {

// 0 for anything that cannot be read: a missing tag is no reason to withhold an event.
inline std::uint32_t ReadTag(abi::IRadialControllerMenuItem& item) {
    ComPtr<abi::IInspectable> tag;
    if (item.get_Tag(tag.Put()) < 0 || !tag) {
        return 0;
    }
    ComPtr<abi::IPropertyValue> number;
    std::uint32_t value = 0;
    if (Query(tag.Get(), number) >= 0) {
        number->GetUInt32(&value);
    }
    return value;
}

}  // namespace brindle
