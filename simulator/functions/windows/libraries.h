// The modules of this process that are brindle.dll.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>
#include <vector>

namespace dialsim {

struct FreeModule {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using LoadedModule = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;

// Recognised by its exports: the file may have another name, and several may be loaded.
bool IsLibrary(HMODULE module);

// Held: none of them is unloaded meanwhile.
std::vector<LoadedModule> LoadedModules();

// Hooks the flat functions that the module imports; a second time has no effect. False when the loader has
// not bound them, as in a module that is loaded without its dependencies.
bool HookImports(HMODULE module);

// Sets what HookImports writes for the function with this name, null for nothing; by default the intercepted
// flat functions.
void SetReplacements(void* (*function)(const char* name));

// Sets the event that is set when a library is hooked.
void SetEventForLibraries(HANDLE event);

}  // namespace dialsim
