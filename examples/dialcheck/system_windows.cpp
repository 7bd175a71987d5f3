#include <windows.h>
// after windows.h
#include <roapi.h>
#include <winstring.h>

#include <conio.h>

#include <cstdio>

#include "../text.h"
#include "module_path.h"
#include "system.h"

namespace {

constexpr char kClassName[] = "BrindleDialcheck";

using PackageNameFunction = LONG(WINAPI*)(UINT32* length, wchar_t* name);

// Null when the module lacks it.
template <class Function>
Function FunctionOf(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

template <class Function>
Function SystemFunction(const char* module, const char* name) {
    return FunctionOf<Function>(GetModuleHandleA(module), name);
}

bool IsConsole(DWORD handle) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(handle), &mode) != FALSE;
}

}  // namespace

int32_t StartRuntime() { return RoInitialize(RO_INIT_SINGLETHREADED); }

void StopRuntime() { RoUninitialize(); }

int32_t GetFactory(const Need& need, void** factory) {
    static_assert(sizeof(GUID) == sizeof(Identifier));
    const std::string name = need.class_name;
    const Text wide(name.begin(), name.end());
    HSTRING string = nullptr;
    if (const HRESULT code = WindowsCreateString(wide.c_str(), static_cast<UINT32>(wide.size()), &string);
        code < 0) {
        return code;
    }
    const auto& identifier = reinterpret_cast<const GUID&>(need.identifier);
    const HRESULT code = RoGetActivationFactory(string, identifier, factory);
    WindowsDeleteString(string);
    return code;
}

// GetVersionEx returns an older version to a program without a manifest.
std::string SystemVersion() {
    using GetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOW*);
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    SystemFunction<GetVersionFunction>("ntdll.dll", "RtlGetVersion")(&version);
    return std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) +
           ", build " + std::to_string(version.dwBuildNumber);
}

std::string WineVersion() {
    using WineVersionFunction = const char*(CDECL*)();
    const auto get_version = SystemFunction<WineVersionFunction>("ntdll.dll", "wine_get_version");
    return get_version == nullptr ? "" : get_version();
}

std::string SimulatorPath() {
    const HMODULE simulator = GetModuleHandleA("dialsim.dll");
    const bool records = GetEnvironmentVariableA("DIALSIM_REAL", nullptr, 0) > 0;  // the real dial
    return simulator == nullptr || records ? "" : ToUtf8(ModulePath(simulator));
}

// Nobody presses a key for a program whose input or output is redirected. Wine gives it a console of its own
// in every Unix terminal, with a hidden window.
bool HasOwnConsole() {
    DWORD process = 0;
    return GetConsoleProcessList(&process, 1) == 1 && IsConsole(STD_INPUT_HANDLE) &&
           IsConsole(STD_OUTPUT_HANDLE) && (WineVersion().empty() || IsWindowVisible(GetConsoleWindow()));
}

void WaitForKey() {
    std::printf("\nPress a key to close this window.\n");
    _getch();
}

std::optional<bool> IsElevated() {
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) {
        return {};
    }
    TOKEN_ELEVATION elevation{};
    DWORD size = 0;
    const bool told = GetTokenInformation(token, TokenElevation, &elevation, sizeof elevation, &size);
    CloseHandle(token);
    return told ? std::optional(elevation.TokenIsElevated != 0) : std::nullopt;
}

std::string PackageName() {
    // Loaded dynamically: Windows versions before packages lack it.
    const auto get_name = SystemFunction<PackageNameFunction>("kernel32.dll", "GetCurrentPackageFullName");
    if (get_name == nullptr) {
        return "none, this Windows does not support packages";
    }
    wchar_t name[128];  // names have at most 127 characters
    UINT32 length = 128;
    const LONG error = get_name(&length, name);
    if (error != ERROR_SUCCESS) {
        return "none (error " + std::to_string(error) + ")";
    }
    return ToUtf8(name);
}

struct ProbeWindow::Impl {
    HWND window = nullptr;
};

ProbeWindow::ProbeWindow(const char* title) : impl_(std::make_unique<Impl>()) {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = DefWindowProcA;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    window_class.lpszClassName = kClassName;
    RegisterClassA(&window_class);
    impl_->window =
        CreateWindowExA(0, kClassName, title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                        480, 240, nullptr, nullptr, window_class.hInstance, nullptr);
    SetForegroundWindow(impl_->window);  // the dial turns for the window in front
}

ProbeWindow::~ProbeWindow() {
    DestroyWindow(impl_->window);
    UnregisterClassA(kClassName, GetModuleHandleA(nullptr));
}

uint64_t ProbeWindow::Handle() const { return reinterpret_cast<uint64_t>(impl_->window); }

void ProbeWindow::HandleMessages(std::chrono::milliseconds limit, const std::function<bool()>& enough) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (IsWindow(impl_->window) && !enough()) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()).count();
        if (left <= 0) {
            return;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(left), QS_ALLINPUT);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

void ProbeWindow::Wake() { PostMessageA(impl_->window, WM_NULL, 0, 0); }
