#include "simulator/strings.h"

#include "simulator/accounts.h"
#include "simulator/underlying.h"

namespace dialsim {

HRESULT NewString(WideView text, HSTRING* string) {
    const HRESULT code = underlying::WindowsCreateString(text.data(), static_cast<UINT>(text.size()), string);
    if (code >= 0) {
        TheAccounts().StringTaken(*string);
    }
    return code;
}

WideView View(HSTRING string) {
    UINT length = 0;
    const WCHAR* characters = underlying::WindowsGetStringRawBuffer(string, &length);
    return {characters, length};
}

}  // namespace dialsim
