// The runtime library's bounded wide formatter, as far as the library uses it. Every conversion except %s is
// done by the standard narrow formatter.
#include <cstdio>
#include <string>
#include <string_view>

#include "platform/functions.h"
#include "simulator/system/text.h"

namespace {

using dialsim::WideString;
using dialsim::WideView;

constexpr WideView kConversions = u"dioxXucsfFeEgGaApn%";

// Removes one conversion specification from the front, from % to its letter, and returns it.
std::string TakeConversion(WideView& format) {
    const std::size_t end = format.find_first_of(kConversions, 1);
    const WideView conversion = format.substr(0, end == WideView::npos ? format.size() : end + 1);
    format.remove_prefix(conversion.size());
    return dialsim::Narrow(conversion);
}

template <class Value>
WideString Convert(const std::string& conversion, Value value) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    const int length = std::snprintf(nullptr, 0, conversion.c_str(), value);
    std::string text(static_cast<std::size_t>(length), '\0');
    std::snprintf(text.data(), text.size() + 1, conversion.c_str(), value);
#pragma GCC diagnostic pop
    return dialsim::Widen(text);
}

}  // namespace

int _vsnwprintf(WCHAR* buffer, std::size_t size, const WCHAR* format, std::va_list arguments) {
    WideString text;
    for (WideView rest = format; !rest.empty();) {
        if (rest.front() != u'%') {
            text += rest.front();
            rest.remove_prefix(1);
            continue;
        }
        const std::string conversion = TakeConversion(rest);
        switch (conversion.back()) {
            case '%':
                text += u'%';
                break;
            case 's':
                text += va_arg(arguments, const WCHAR*);
                break;
            case 'f':
                text += Convert(conversion, va_arg(arguments, double));
                break;
            case 'd':
            case 'x':
                text += Convert(conversion, va_arg(arguments, int));
                break;
            default:
                return -1;
        }
    }
    if (text.size() > size) {
        return -1;
    }
    text.copy(buffer, text.size());
    if (text.size() < size) {
        buffer[text.size()] = 0;
    }
    return static_cast<int>(text.size());
}
