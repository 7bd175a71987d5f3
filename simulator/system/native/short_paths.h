// Short paths, which the native file system lacks.
#pragma once

#include <string>

namespace dialsim {

// The path's 8.3 form; it stands for the path from now on.
std::string ShortPath(const std::string& path);

// What the path stands for; itself unless it is a short one.
std::string LongPath(const std::string& path);

// Whether it, or what it stands for, leads to a file or a folder.
bool PathExists(const std::string& path);

}  // namespace dialsim
