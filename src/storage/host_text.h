// Texts that the library returns to the host, which frees them.
#pragma once

#include <cstdlib>
#include <memory>

#include "platform/strings.h"

namespace brindle {

struct FreeText {
    void operator()(WCHAR* text) const noexcept { std::free(text); }
};

// Allocated with the C runtime's heap, which the host's free() uses.
using HostText = std::unique_ptr<WCHAR, FreeText>;

// A buffer of the text's length + 1 units. Throws std::bad_alloc without memory.
HostText CopyForHost(const String& text);

// Overwrites a text that may be a secret, and frees it.
void Wipe(HostText text) noexcept;

}  // namespace brindle
