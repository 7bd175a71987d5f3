// dialsim.dll as an in-process server of Windows Runtime classes: activation and registration.
#include <windows.h>

#include <string>

#include "platform/interfaces/foundation.h"
#include "simulator/classes/activation.h"
#include "simulator/functions/class_objects.h"

namespace {

using namespace dialsim;

constexpr char kClassesKey[] = "SOFTWARE\\Microsoft\\WindowsRuntime\\ActivatableClassId\\";

HMODULE this_module = nullptr;

// On Windows the classes belong to the system: replacing them would disable the dial for every program.
bool RunsUnderWine() { return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr; }

HRESULT WriteClass(const std::string& name, const std::string& path) {
    HKEY key = nullptr;
    LSTATUS status = RegCreateKeyExA(HKEY_LOCAL_MACHINE, (kClassesKey + name).c_str(), 0, nullptr, 0,
                                     KEY_WRITE, nullptr, &key, nullptr);
    if (status == ERROR_SUCCESS) {
        status = RegSetValueExA(key, "DllPath", 0, REG_SZ, reinterpret_cast<const BYTE*>(path.c_str()),
                                static_cast<DWORD>(path.size() + 1));
        RegCloseKey(key);
    }
    return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        this_module = module;
        DisableThreadLibraryCalls(module);
    }
    return TRUE;
}

HRESULT WINAPI DllGetActivationFactory(HSTRING class_name, void** factory) {
    return GetClassFactory(class_name, brindle::abi::IInspectable::Iid, factory);
}

// Never unloaded: the DLL contains the control functions and the journal.
HRESULT WINAPI DllCanUnloadNow() { return S_FALSE; }

HRESULT WINAPI DllRegisterServer() {
    if (!RunsUnderWine()) {
        return HRESULT_FROM_WIN32(ERROR_NOT_SUPPORTED);
    }
    char path[MAX_PATH];
    if (GetModuleFileNameA(this_module, path, sizeof path) == 0) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    for (std::size_t i = 0; const char* name = ActivatableClass(i); ++i) {
        if (const HRESULT code = WriteClass(name, path); code < 0) {
            return code;
        }
    }
    return S_OK;
}

HRESULT WINAPI DllUnregisterServer() {
    if (!RunsUnderWine()) {
        return HRESULT_FROM_WIN32(ERROR_NOT_SUPPORTED);
    }
    for (std::size_t i = 0; const char* name = ActivatableClass(i); ++i) {
        RegDeleteKeyA(HKEY_LOCAL_MACHINE, (kClassesKey + std::string(name)).c_str());
    }
    return S_OK;
}

}  // extern "C"
