// Texts that the host is given to keep.
#pragma once

#include <cstdlib>
#include <memory>

#include "platform/strings.h"

namespace brindle {

struct FreeText {
    void operator()(WCHAR* text) const noexcept { std::free(text); }
};

// On the heap that the host's free() returns to.
using HostText = std::unique_ptr<WCHAR, FreeText>;

// Of the text's length and its terminator; std::bad_alloc without memory.
HostText CopyForHost(const String& text);

// Frees a text that the host does not get, wiped first: it may be a secret.
void Wipe(HostText text) noexcept;

}  // namespace brindle
