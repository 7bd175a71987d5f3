// Facts of the declared binary interface, as the compiler lays it out, in the format of
// tests/interfaces/interfaces.txt.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/types.h"

namespace brindle::abi {

// Both toolchains represent a pointer to a virtual member as 1 plus the byte offset of its slot.
template <class Method>
std::size_t SlotOf(Method method) {
    return (std::bit_cast<std::array<std::size_t, 2>>(method)[0] - 1) / sizeof(void*);
}

std::vector<std::string> DeclaredFacts();

// The format of identifiers in facts.
std::string TextOf(const GUID& id);

}  // namespace brindle::abi
