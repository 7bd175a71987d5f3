#include "platform/text.h"

#include <limits>

#include "platform/errors.h"

namespace brindle {

namespace {

// A preallocated string buffer; deleted unless it is promoted.
class StringBuffer {
public:
    StringBuffer() = default;
    StringBuffer(const StringBuffer&) = delete;
    StringBuffer& operator=(const StringBuffer&) = delete;
    ~StringBuffer() {
        if (buffer_ != nullptr) {
            WindowsDeleteStringBuffer(buffer_);
        }
    }

    WCHAR* Allocate(UINT length) {
        WCHAR* characters = nullptr;
        ThrowIfFailed(WindowsPreallocateStringBuffer(length, &characters, &buffer_));
        return characters;
    }
    String Promote() {
        String string;
        ThrowIfFailed(WindowsPromoteStringBuffer(buffer_, string.Put()));
        buffer_ = nullptr;
        return string;
    }

private:
    HSTRING_BUFFER buffer_ = nullptr;
};

}  // namespace

String ToPlatformString(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
    if (length <= 0) {
        return {};
    }
    StringBuffer buffer;
    WCHAR* characters = buffer.Allocate(static_cast<UINT>(length));
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, characters, length);
    return buffer.Promote();
}

TextReference::TextReference(const WCHAR* text) {
    const std::basic_string_view<WCHAR> characters(text);
    if (characters.size() > std::numeric_limits<UINT>::max()) {
        Throw(kArithmeticOverflow);
    }
    ThrowIfFailed(string_.Create(characters));
}

String CopyText(const WCHAR* text) {
    const TextReference reference(text);
    String copy;
    ThrowIfFailed(WindowsDuplicateString(reference.Get(), copy.Put()));
    return copy;
}

}  // namespace brindle
