// Hooks the calls of the flat functions that a module makes, through its import address table.
#include <cstring>
#include <mutex>

#include "simulator/functions/intercepted.h"
#include "simulator/functions/windows/libraries.h"
#include "simulator/functions/windows/module_image.h"
#include "sync.h"

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

void* InterceptedFunction(const char* name) {
    for (const Hook& hook : kHooks) {
        if (std::strcmp(name, hook.name) == 0) {
            return hook.replacement;
        }
    }
    return nullptr;
}

// The table may be read-only, and other data may share its page.
bool Write(void** entry, void* value) {
    DWORD protection = 0;
    if (VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &protection) == FALSE) {
        return false;
    }
    *entry = value;
    return VirtualProtect(entry, sizeof *entry, protection, &protection) != FALSE;
}

void* (*replacement_of)(const char* name) = InterceptedFunction;

// One module may be hooked by two threads: by dialsim_start and by the loader's notification.
Mutex& mutex = *new Mutex;

}  // namespace

void SetReplacements(void* (*function)(const char* name)) { replacement_of = function; }

bool HookImports(HMODULE module) {
    const std::lock_guard guard(mutex);
    bool hooked = true;
    ModuleImage(module).VisitImports([&](const char* name, void** entry, bool bound) {
        if (void* const replacement = replacement_of(name)) {
            hooked = bound && (*entry == replacement || Write(entry, replacement)) && hooked;
        }
    });
    return hooked;
}

bool InterceptModule(const char* module) {
    const HMODULE base = GetModuleHandleA(module);
    return base != nullptr && HookImports(base);
}

}  // namespace dialsim
