// Puts the simulator between a module and the platform's flat functions, by way of the module's import table.
#include <cstring>

#include "simulator/functions/intercepted.h"

namespace {

namespace intercepted = dialsim::intercepted;

struct Hook {
    const char* name;
    void* replacement;
};

const Hook kHooks[] = {
#define HOOK(result, name, ...) {#name, reinterpret_cast<void*>(&intercepted::name)},
    PLATFORM_FUNCTIONS(HOOK)
#undef HOOK
};

template <class T>
T* At(char* base, std::size_t offset) {
    return reinterpret_cast<T*>(base + offset);
}

void Replace(void** place, void* replacement) {
    DWORD protection = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
    *place = replacement;
    VirtualProtect(place, sizeof *place, protection, &protection);
}

void HookImport(const char* name, void** place) {
    for (const Hook& import : kHooks) {
        if (std::strcmp(name, import.name) == 0) {
            Replace(place, import.replacement);
        }
    }
}

void HookLibraryImports(char* base, const IMAGE_IMPORT_DESCRIPTOR& library) {
    const auto* names = At<IMAGE_THUNK_DATA>(base, library.OriginalFirstThunk);
    auto* places = At<void*>(base, library.FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++places) {
        if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) {
            const char* name = At<IMAGE_IMPORT_BY_NAME>(base, names->u1.AddressOfData)->Name;
            HookImport(name, places);
        }
    }
}

}  // namespace

bool dialsim::InterceptModule(const char* module) {
    auto* base = reinterpret_cast<char*>(GetModuleHandleA(module));
    if (base == nullptr) {
        return false;
    }
    const auto* headers =
        At<IMAGE_NT_HEADERS64>(base, static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(base, 0)->e_lfanew));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(base, directory.VirtualAddress);
    for (; library->Name != 0; ++library) {
        HookLibraryImports(base, *library);
    }
    return true;
}
