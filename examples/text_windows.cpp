#include <windows.h>
// after windows.h
#include <shellapi.h>

#include "text.h"

std::string ToUtf8(const Text& text) {
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

// The narrow arguments lack the characters that the system's code page does not have.
std::vector<Text> Arguments(int /*argc*/, char** /*argv*/) {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<Text> texts(arguments, arguments + count);
    LocalFree(arguments);
    return texts;
}

std::FILE* OpenToRead(const Text& path) { return _wfopen(path.c_str(), L"rb"); }
