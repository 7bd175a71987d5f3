// Streams and references to them.
#pragma once

#include <string>

#include "platform/interfaces/storage_streams.h"
#include "simulator/classes/object.h"

namespace dialsim {

// At most `count` bytes from the beginning of the file or stream; empty when it cannot be read. Other
// implementations of the interface are read as ReadThroughInterfaces says.
std::string ReadPrefix(abi::IRandomAccessStreamReference* reference, std::size_t count);

// "file" or "image"; "picture" for other implementations of the interface.
std::string KindOfReference(abi::IRandomAccessStreamReference* reference);

}  // namespace dialsim
