// The modules of this process that are brindle.dll.
#pragma once

#include <windows.h>

#include <vector>

namespace dialsim {

// Recognised by its exports: the file may have another name, and several may be loaded.
bool IsLibrary(HMODULE module);

std::vector<HMODULE> LoadedModules();

// Hooks the flat functions that the module imports; again has no effect.
void HookImports(HMODULE module);

// Sets the event that is set when a library is hooked.
void SetEventForLibraries(HANDLE event);

}  // namespace dialsim
