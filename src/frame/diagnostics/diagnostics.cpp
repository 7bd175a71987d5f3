#include "frame/diagnostics/diagnostics.h"

#include <cstdarg>
#include <cstdio>

#include "platform/functions.h"

namespace brindle {

void PrintFailure(HRESULT code, int line) noexcept {
    std::printf("failed with %x at line %d\n", static_cast<unsigned>(code), line);
}

void PrintFailure(const char* step, HRESULT code, int line) noexcept {
    std::printf("%s failed with %x at line %d\n", step, static_cast<unsigned>(code), line);
}

int FormatWide(WCHAR* buffer, std::size_t size, const WCHAR* format, ...) noexcept {
    if (buffer == nullptr || size == 0 || format == nullptr) {
        return -1;
    }
    std::va_list arguments;
    va_start(arguments, format);
    // The unchecked formatter: the checked ones of the runtime library may end the process when a text does
    // not fit (WideFormatting.ALabelLongerThanTheLineFailsAndTheProcessLives).
    const int written = _vsnwprintf(buffer, size, format, arguments);
    va_end(arguments);
    // It omits the terminator when the text fills the buffer.
    if (written < 0 || static_cast<std::size_t>(written) >= size) {
        buffer[0] = 0;
        return -1;
    }
    return written;
}

}  // namespace brindle
