// Streams and references to them.
#pragma once

#include <string>

#include "platform/interfaces/storage_streams.h"
#include "simulator/classes/object.h"

namespace dialsim {

// At most `count` bytes from the beginning of what is referred to; empty when it cannot be read.
std::string ReadPrefix(abi::IRandomAccessStreamReference* reference, std::size_t count);

// "file" or "image"; empty for a reference of others.
std::string KindOfReference(abi::IRandomAccessStreamReference* reference);

}  // namespace dialsim
