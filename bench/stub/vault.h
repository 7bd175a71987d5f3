#pragma once

namespace stub {

void ClearVault();

}  // namespace stub
