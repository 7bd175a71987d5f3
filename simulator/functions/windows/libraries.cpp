#include "simulator/functions/windows/libraries.h"
// after windows.h
#include <psapi.h>

#include <algorithm>
#include <cstdio>

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

bool InterceptLibrary(HMODULE module) {
    if (!IsLibrary(module)) {
        return true;
    }
    if (!HookImports(module)) {
        std::fputs("dialsim: a brindle.dll is not simulated: its imports are not bound\n", stderr);
        return false;
    }
    if (library_event != nullptr) {
        SetEvent(library_event);
    }
    return true;
}

// Since Windows 8 the loader calls this after it has bound the module's imports, before the module's entry
// point. The loader is locked.
void CALLBACK OnModule(ULONG reason, const LoadNotification* data, void* /*context*/) {
    if (reason == kLoaded) {
        InterceptLibrary(static_cast<HMODULE>(data->base));
    }
}

// For ever: the hooks point into this module.
bool StayLoaded() {
    HMODULE self = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                              reinterpret_cast<const wchar_t*>(&StayLoaded), &self) != FALSE;
}

bool WatchLoads() {
    const FARPROC found = GetProcAddress(GetModuleHandleA("ntdll.dll"), "LdrRegisterDllNotification");
    void* cookie = nullptr;
    return found != nullptr && StayLoaded() &&
           reinterpret_cast<RegisterNotification>(reinterpret_cast<void*>(found))(0, OnModule, nullptr,
                                                                                  &cookie) >= 0;
}

bool InterceptLoadedLibraries() {
    const std::vector<LoadedModule> modules = LoadedModules();
    bool intercepted = !modules.empty();
    for (const LoadedModule& module : modules) {
        intercepted = InterceptLibrary(module.get()) && intercepted;
    }
    return intercepted;
}

}  // namespace

bool IsLibrary(HMODULE module) {
    const ModuleImage image(module);
    return image.Exports("init_dial_listener") && image.Exports("add_custom_menu");
}

std::vector<LoadedModule> LoadedModules() {
    std::vector<HMODULE> handles(1024);
    DWORD size = 0;
    if (EnumProcessModules(GetCurrentProcess(), handles.data(),
                           static_cast<DWORD>(handles.size() * sizeof(HMODULE)), &size) == FALSE) {
        return {};
    }
    handles.resize(std::min(handles.size(), size / sizeof(HMODULE)));
    std::vector<LoadedModule> modules;
    for (const HMODULE handle : handles) {
        HMODULE held = nullptr;
        if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                               reinterpret_cast<const wchar_t*>(handle), &held) != FALSE) {
            modules.emplace_back(held);
        }
    }
    return modules;
}

void SetEventForLibraries(HANDLE event) { library_event = event; }

bool InterceptLibraries() {
    // In this order no load is missed.
    static const bool watching = WatchLoads();
    return watching && InterceptLoadedLibraries();
}

}  // namespace dialsim
