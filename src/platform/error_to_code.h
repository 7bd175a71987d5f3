// The border of what the platform calls: no exception leaves it.
#pragma once

#include "platform/types.h"

namespace brindle {

// Inside a catch block of an object that the platform calls: the code for what is being handled. The message
// of a standard error other than std::bad_alloc goes to the platform along with the code.
HRESULT ErrorToCode() noexcept;

}  // namespace brindle
