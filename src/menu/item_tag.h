// The tag of a menu item: the host's item_id.
#pragma once

#include <cstdint>

#include "platform/com_ptr.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/ui_input_menu.h"

namespace brindle {

// 0 when the tag is missing or cannot be read: the event is delivered all the same
// (CustomMenu.ATagThatCannotBeReadIsZero).
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
