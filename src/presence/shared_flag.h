// What a call and a completion that may outlive it tell each other by.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/implements.h"

namespace brindle {

// Counted as everything is that the library gives away.
class SharedFlag final : public Implements<abi::IUnknown> {
public:
    std::atomic<std::int32_t> value = 0;
};

}  // namespace brindle
