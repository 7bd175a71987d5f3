// Uniform resource identifiers.
#pragma once

#include <string>

#include "platform/interfaces/uri.h"
#include "simulator/classes/object.h"

namespace dialsim {

// "file:///C:/x/y.ttf"; empty for null and for those of others.
std::string AbsoluteUri(abi::IUriRuntimeClass* uri);

}  // namespace dialsim
