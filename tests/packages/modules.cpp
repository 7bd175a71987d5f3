// Prints the modules that brindle.dll loads, a line each, and fails when one of them besides the DLL comes
// from outside the system's folder. Usage: modules FULL-PATH-OF-DLL
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <set>
#include <string>
#include <vector>
// after windows.h
#include <psapi.h>

namespace {

std::string InLowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return text;
}

std::set<std::string> LoadedModules() {
    std::vector<HMODULE> modules(1024);
    DWORD size = 0;
    EnumProcessModules(GetCurrentProcess(), modules.data(),
                       static_cast<DWORD>(modules.size() * sizeof(HMODULE)), &size);
    modules.resize(size / sizeof(HMODULE));
    std::set<std::string> paths;
    for (HMODULE module : modules) {
        char path[MAX_PATH];
        GetModuleFileNameA(module, path, sizeof path);
        paths.insert(InLowerCase(path));
    }
    return paths;
}

std::string SystemFolder() {
    char path[MAX_PATH];
    GetSystemDirectoryA(path, sizeof path);
    return InLowerCase(path) + '\\';
}

}  // namespace

int main(int argc, char** argv) {
    const std::set<std::string> before = LoadedModules();
    if (argc != 2 || LoadLibraryA(argv[1]) == nullptr) {
        std::fprintf(stderr, "modules: give it the full path of a DLL\n");
        return 2;
    }
    bool all_are_known = true;
    for (const std::string& path : LoadedModules()) {
        const std::string folder = path.substr(0, path.rfind('\\') + 1);
        if (before.count(path) == 0) {
            std::printf("%s\n", path.c_str() + folder.size());
            all_are_known = all_are_known && (folder == SystemFolder() || path == InLowerCase(argv[1]));
        }
    }
    return all_are_known ? 0 : 1;
}
