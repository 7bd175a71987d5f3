#include "simulator/functions/strings.h"

#include "simulator/functions/real.h"
#include "simulator/instruments/leak_tracker.h"

namespace dialsim {

HRESULT NewString(WideView text, HSTRING* string) {
    const HRESULT code = real::WindowsCreateString(text.data(), static_cast<UINT>(text.size()), string);
    if (code >= 0) {
        TheLeakTracker().TrackString(*string);
    }
    return code;
}

WideView View(HSTRING string) {
    UINT length = 0;
    const WCHAR* characters = real::WindowsGetStringRawBuffer(string, &length);
    return {characters, length};
}

std::string TakeText(HSTRING string) {
    std::string text = Narrow(View(string));
    TheLeakTracker().UntrackString(string);
    real::WindowsDeleteString(string);
    return text;
}

}  // namespace dialsim
