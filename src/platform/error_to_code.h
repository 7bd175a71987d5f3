// Converts exceptions to codes at the functions that the platform calls.
#pragma once

#include "platform/types.h"

namespace brindle {

// Call in a catch block: returns the code for the exception that is being handled. The message of a standard
// exception other than std::bad_alloc is reported to the platform with the code.
HRESULT ErrorToCode() noexcept;

}  // namespace brindle
