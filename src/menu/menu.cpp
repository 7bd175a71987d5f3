#include "dial/dial_listener.h"

namespace brindle {

// This version has no menus.

HRESULT DialListener::AddCustomMenu(const MenuItemDescription*, std::uint32_t) { return E_NOTIMPL; }

HRESULT DialListener::SetDefaultMenu(const std::int32_t*, std::uint32_t) { return E_NOTIMPL; }

HRESULT DialListener::SetCurrentCustomMenu(std::uint32_t) { return E_NOTIMPL; }

}  // namespace brindle
