#include "storage/host_text.h"

#include <new>

#include "platform/text.h"

namespace brindle {

HostText CopyForHost(const String& text) {
    const std::size_t size = std::size_t{LengthOf(text)} + 1;
    HostText copy(static_cast<WCHAR*>(std::calloc(size, sizeof(WCHAR))));
    if (!copy) {
        throw std::bad_alloc();
    }
    wcscpy_s(copy.get(), size, TextOf(text));
    return copy;
}

// Through a volatile pointer: the compiler removes plain writes to memory that is about to be freed
// (WipedTexts.AWipedTextIsFreedWithoutItsCharacters).
void Wipe(HostText text) noexcept {
    for (volatile WCHAR* unit = text.get(); *unit != 0; ++unit) {
        *unit = 0;
    }
}

}  // namespace brindle
