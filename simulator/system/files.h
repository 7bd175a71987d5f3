// The real file system.
#pragma once

#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>

#include "simulator/system/text.h"

namespace dialsim {

// Whether a path says where it begins: at a drive, a share or, natively, the root.
bool IsAbsolutePath(WideView path);

// Whether it leads to a file; a folder is none.
bool IsFile(const WideString& path);

// Null where it cannot be opened; `mode` is that of fopen.
std::FILE* OpenFile(const std::string& path, const char* mode);

// The file's beginning, at most `count` bytes; empty when it cannot be read.
std::string ReadPrefix(const WideString& path, std::size_t count);

// Nothing where it cannot be read.
std::optional<std::string> ReadFile(const std::string& path);

// False where it could not be written.
bool WriteFile(const std::string& path, const std::string& content);

}  // namespace dialsim
