// URIs.
#pragma once

#include <string>

#include "platform/interfaces/uri.h"
#include "simulator/classes/object.h"

namespace dialsim {

// "file:///C:/x/y.ttf", of any implementation; empty for null.
std::string AbsoluteUri(abi::IUriRuntimeClass* uri);

}  // namespace dialsim
