/* Exports what the simulator recognises brindle.dll by, in another version, and activates a class. */
#include <windows.h>
/* after windows.h */
#include <roapi.h>
#include <winstring.h>

__declspec(dllexport) int initialize(void) {
    static const wchar_t name[] = L"Windows.UI.Input.RadialController";
    HSTRING string = NULL;
    void* factory = NULL;
    RoInitialize(RO_INIT_SINGLETHREADED);
    WindowsCreateString(name, sizeof name / sizeof *name - 1, &string);
    RoGetActivationFactory(string, &IID_IUnknown, &factory);
    return 0;
}
__declspec(dllexport) unsigned char init_dial_listener(void* host) { return host != NULL; }
__declspec(dllexport) unsigned char add_custom_menu(void) { return 0; }
__declspec(dllexport) void uninit(void) {}
