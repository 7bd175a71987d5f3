// A flag that a call shares with a completion that may outlive it.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/implements.h"

namespace brindle {

// Reference-counted: the completion handler holds one reference, the call or the listener the other.
class SharedFlag final : public Implements<abi::IUnknown> {
public:
    std::atomic<std::int32_t> value = 0;
};

}  // namespace brindle
