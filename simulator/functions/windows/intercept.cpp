// Hooks the calls of the flat functions that a module makes, through its import address table.
#include <cstring>

#include "simulator/functions/intercepted.h"
#include "simulator/functions/windows/libraries.h"
#include "simulator/functions/windows/module_image.h"

namespace dialsim {

namespace {

struct Hook {
    const char* name;
    void* replacement;
};

const Hook kHooks[] = {
#define HOOK(result, name, ...) {#name, reinterpret_cast<void*>(&intercepted::name)},
    PLATFORM_FUNCTIONS(HOOK)
#undef HOOK
};

void HookImport(const char* name, void** entry) {
    for (const Hook& hook : kHooks) {
        if (std::strcmp(name, hook.name) == 0 && *entry != hook.replacement) {
            // The table may be read-only, and other data may share its page.
            DWORD protection = 0;
            VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &protection);
            *entry = hook.replacement;
            VirtualProtect(entry, sizeof *entry, protection, &protection);
        }
    }
}

}  // namespace

void HookImports(HMODULE module) { ModuleImage(module).VisitImports(HookImport); }

bool InterceptModule(const char* module) {
    const HMODULE base = GetModuleHandleA(module);
    if (base != nullptr) {
        HookImports(base);
    }
    return base != nullptr;
}

}  // namespace dialsim
