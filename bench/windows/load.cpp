// Loads and frees a DLL once between two markers, undefined instructions that bench/count_steps stops at.
// Usage: load HELD_DLL DLL
//
// HELD_DLL imports the same functions. It stays loaded, so that the measured load is that of DLL alone,
// without the system's DLLs. An earlier load has warmed up the caches.
#include <windows.h>

namespace {

bool LoadAndFree(const char* dll) {
    const HMODULE module = LoadLibraryA(dll);
    return module != nullptr && FreeLibrary(module) != 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3 || LoadLibraryA(argv[1]) == nullptr || !LoadAndFree(argv[2])) {
        return 1;
    }
    asm volatile("ud2" ::: "memory");
    const bool loaded = LoadAndFree(argv[2]);
    asm volatile("ud2" ::: "memory");
    return loaded ? 0 : 1;
}
