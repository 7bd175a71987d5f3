#include <windows.h>

#include <vector>

#include "../text.h"
#include "library.h"
#include "module_path.h"

namespace {

std::wstring LibraryPath() {
    const std::wstring program = ModulePath(nullptr);
    return program.substr(0, program.find_last_of(L'\\') + 1) + L"brindle.dll";
}

// From the version resource.
std::string VersionOf(const std::wstring& path) {
    std::vector<char> resource(GetFileVersionInfoSizeW(path.c_str(), nullptr));
    void* found = nullptr;
    UINT size = 0;
    if (!GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(resource.size()), resource.data()) ||
        !VerQueryValueW(resource.data(), L"\\", &found, &size)) {
        return "unknown";
    }
    const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(found);
    return std::to_string(HIWORD(version.dwFileVersionMS)) + "." +
           std::to_string(LOWORD(version.dwFileVersionMS)) + "." +
           std::to_string(HIWORD(version.dwFileVersionLS));
}

// False when the module lacks the function.
template <class Function>
bool Find(HMODULE module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    return function != nullptr;
}

LoadedLibrary NotLoaded(const std::wstring& path, DWORD error) {
    const bool exists = GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    return {{},
            (exists ? "cannot be loaded: " : "not found: ") + ToUtf8(path) + " (error " +
                std::to_string(error) + ")"};
}

}  // namespace

// Stays loaded: events may still run in it.
LoadedLibrary LoadDialLibrary() {
    const std::wstring path = LibraryPath();
    const HMODULE module = LoadLibraryW(path.c_str());
    if (module == nullptr) {
        return NotLoaded(path, GetLastError());
    }
    Library library{};
    if (!Find(module, "initialize", library.start) || !Find(module, "uninit", library.stop) ||
        !Find(module, "init_dial_listener", library.listen) ||
        !Find(module, "is_dial_present", library.find_dial)) {
        return {{}, "not the dial's library, because it lacks functions: " + ToUtf8(path)};
    }
    return {library, ToUtf8(path) + ", version " + VersionOf(path)};
}
