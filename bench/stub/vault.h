#pragma once

namespace lean {

void ClearVault();

}  // namespace lean
