// Files and paths.
#pragma once

#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/system/text.h"

namespace dialsim {

// Whether the path begins with a drive, a share or, natively, the root.
bool IsAbsolutePath(WideView path);

// The Windows path of a file's absolute URI; empty for another URI. The system's PathCreateFromUrlW decodes
// the UTF-8 of the URI in the user's code page.
std::string PathOfFileUri(std::string_view uri);

// False for a folder.
bool IsFile(const WideString& path);

// Null when the file cannot be opened; `mode` is that of fopen.
std::FILE* OpenFile(const std::string& path, const char* mode);

// At most `count` bytes from the beginning of the file; empty when it cannot be read.
std::string ReadPrefix(const WideString& path, std::size_t count);

// Empty when the file cannot be read.
std::optional<std::string> ReadFile(const std::string& path);

// False when the file cannot be written.
bool WriteFile(const std::string& path, const std::string& content);

}  // namespace dialsim
