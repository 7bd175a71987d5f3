// Short paths, which the native file system lacks.
#pragma once

#include <string>

namespace dialsim {

// Returns the path's 8.3 form, which LongPath converts back until the next reset.
std::string ShortPath(const std::string& path);

// The path for a result of ShortPath; any other path is returned unchanged.
std::string LongPath(const std::string& path);

// Whether the path, or the path for its short form, is an existing file or folder.
bool PathExists(const std::string& path);

}  // namespace dialsim
