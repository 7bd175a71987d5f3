// Conversions between UTF-8 and UTF-16: the library, the simulator and a reference implementation agree.
#include "platform/text.h"

#include "fuzz.h"
#include "simulator/functions/strings.h"
#include "simulator/system/text.h"
#include "unicode.h"

namespace {

void CheckBytes(const std::string& bytes) {
    const WideText units = Utf16Of(bytes);
    Check(dialsim::Widen(bytes) == units, "the simulator widens");
    const brindle::String string = brindle::ToPlatformString(bytes);
    Check(dialsim::View(string.Get()) == units, "the library makes a string");
    Check((string.Get() == nullptr) == bytes.empty(), "no text is the null string");
    CheckSame(dialsim::Narrow(units), EncodeUtf8(DecodeUtf8(bytes)), "UTF-8 round trip");
}

void CheckUnits(const std::string& bytes) {
    WideText units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto high = static_cast<unsigned char>(bytes[i]);
        const auto low = static_cast<unsigned char>(bytes[i + 1]);
        units += static_cast<BrindleChar>((high << 8) | low);
    }
    CheckSame(dialsim::Narrow(units), Utf8Of(units), "the simulator narrows");
    Check(dialsim::Widen(dialsim::Narrow(units)) == EncodeUtf16(DecodeUtf16(units)), "UTF-16 round trip");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Run run;
    const std::string text = Input(bytes, size).Rest();
    CheckBytes(text);
    CheckUnits(text);
    return 0;
}
