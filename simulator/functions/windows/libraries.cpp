#include "simulator/functions/windows/libraries.h"
// after windows.h
#include <psapi.h>

#include "simulator/functions/intercepted.h"
#include "simulator/functions/windows/module_image.h"

namespace dialsim {

namespace {

// The loader's notification, which the compiler's headers lack.
struct LoadNotification {
    ULONG flags;
    const void* full_name;
    const void* name;
    void* base;
    ULONG size;
};
constexpr ULONG kLoaded = 1;
using Notify = void(CALLBACK*)(ULONG reason, const LoadNotification* data, void* context);
using RegisterNotification = LONG(NTAPI*)(ULONG flags, Notify notify, void* context, void** cookie);

HANDLE library_event = nullptr;

void InterceptLibrary(HMODULE module) {
    if (IsLibrary(module)) {
        HookImports(module);
        if (library_event != nullptr) {
            SetEvent(library_event);
        }
    }
}

// Runs with the loader's lock, after the module's imports are bound and before its entry point.
void CALLBACK OnModule(ULONG reason, const LoadNotification* data, void* /*context*/) {
    if (reason == kLoaded) {
        InterceptLibrary(static_cast<HMODULE>(data->base));
    }
}

bool WatchLoads() {
    const FARPROC found = GetProcAddress(GetModuleHandleA("ntdll.dll"), "LdrRegisterDllNotification");
    void* cookie = nullptr;
    return found != nullptr && reinterpret_cast<RegisterNotification>(reinterpret_cast<void*>(found))(
                                   0, OnModule, nullptr, &cookie) >= 0;
}

}  // namespace

bool IsLibrary(HMODULE module) {
    const ModuleImage image(module);
    return image.Exports("init_dial_listener") && image.Exports("add_custom_menu");
}

std::vector<HMODULE> LoadedModules() {
    std::vector<HMODULE> modules(64);
    DWORD size = 0;
    while (EnumProcessModules(GetCurrentProcess(), modules.data(),
                              static_cast<DWORD>(modules.size() * sizeof(HMODULE)), &size) != FALSE &&
           size > modules.size() * sizeof(HMODULE)) {
        modules.resize(size / sizeof(HMODULE));
    }
    modules.resize(size / sizeof(HMODULE));
    return modules;
}

void SetEventForLibraries(HANDLE event) { library_event = event; }

bool InterceptLibraries() {
    // In this order no load is missed; a module that both find is hooked once.
    static const bool watching = WatchLoads();
    for (const HMODULE module : LoadedModules()) {
        InterceptLibrary(module);
    }
    return watching;
}

}  // namespace dialsim
