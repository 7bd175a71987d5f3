#include "dial/dial_listener.h"

namespace brindle {

// This version cannot ask.
HRESULT DialListener::IsDialPresent() { return E_NOTIMPL; }

}  // namespace brindle
