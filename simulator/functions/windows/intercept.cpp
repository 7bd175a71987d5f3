// Hooks a module's calls of the flat functions through its import address table.
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

void PatchEntry(void** entry, void* replacement) {
    DWORD protection = 0;
    VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &protection);
    *entry = replacement;
    VirtualProtect(entry, sizeof *entry, protection, &protection);
}

void HookImport(const char* name, void** entry) {
    for (const Hook& hook : kHooks) {
        if (std::strcmp(name, hook.name) == 0) {
            PatchEntry(entry, hook.replacement);
        }
    }
}

void HookLibraryImports(char* base, const IMAGE_IMPORT_DESCRIPTOR& library) {
    const auto* names = At<IMAGE_THUNK_DATA>(base, library.OriginalFirstThunk);
    auto* entries = At<void*>(base, library.FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++entries) {
        if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) {
            const char* name = At<IMAGE_IMPORT_BY_NAME>(base, names->u1.AddressOfData)->Name;
            HookImport(name, entries);
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
