// dialsim.dll as an in-process server: the system's activation finds the classes here where they are
// registered.
#include <windows.h>

#include "platform/interfaces/foundation.h"
#include "simulator/functions/class_objects.h"

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(module);
    }
    return TRUE;
}

HRESULT WINAPI DllGetActivationFactory(HSTRING class_name, void** factory) {
    return dialsim::GetClassFactory(class_name, brindle::abi::IInspectable::Iid, factory);
}

// Never unloaded: the DLL contains the control functions, the journal, and the functions of hooked modules.
HRESULT WINAPI DllCanUnloadNow() { return S_FALSE; }

}  // extern "C"
