#include "simulator/launcher/windows/recorder.h"

#include <windows.h>

#include <cstdio>
#include <cstring>

#include "platform/interfaces/ui_input.h"
#include "simulator/classes/object.h"
#include "simulator/dial/recording.h"
#include "simulator/functions/counted.h"
#include "simulator/functions/real.h"
#include "simulator/functions/windows/libraries.h"
#include "simulator/launcher/windows/module_path.h"
#include "simulator/launcher/windows/real_dial.h"
#include "simulator/launcher/windows/version.h"
#include "simulator/system/text.h"

namespace dialsim {

namespace {

std::string& recording_file = *new std::string;

std::string ProgramName() {
    const std::wstring path = PathOf(nullptr);
    return Narrow(path.substr(path.find_last_of(L'\\') + 1));
}

std::string LibraryVersion() {
    for (const LoadedModule& module : LoadedModules()) {
        if (IsLibrary(module.get())) {
            return VersionOf(module.get()).Text();
        }
    }
    return "unknown";
}

// GetVersionEx returns the version that the program's manifest declares.
std::string SystemVersion() {
    using GetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOW*);
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    const FARPROC found = GetProcAddress(GetModuleHandleA("ntdll.dll"), "RtlGetVersion");
    reinterpret_cast<GetVersionFunction>(reinterpret_cast<void*>(found))(&version);
    return std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) + "." +
           std::to_string(version.dwBuildNumber);
}

bool StartFile() {
    const bool started = StartRecording(recording_file, ProgramName() + " with brindle " + LibraryVersion() +
                                                            " on Windows " + SystemVersion());
    if (!started) {
        std::fprintf(stderr, "dial recording %s: cannot be written\n", recording_file.c_str());
    }
    return started;
}

void RecordController(abi::IUnknown* created, HWND window) {
    static const bool started = StartFile();
    abi::IRadialController* controller = nullptr;
    if (started &&
        created->QueryInterface(abi::IRadialController::Iid, reinterpret_cast<void**>(&controller)) >= 0) {
        const auto owner = Ref<abi::IRadialController>::Attach(controller);
        RecordEventsOf(*controller, window);
    }
}

// The platform's factory, each of whose controllers is recorded.
class RecordingFactory final : public Counted<abi::IRadialControllerInterop> {
public:
    explicit RecordingFactory(Ref<abi::IRadialControllerInterop> real) : real_(std::move(real)) {}

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
        const bool own = abi::SameId(iid, abi::IUnknown::Iid) || abi::SameId(iid, abi::IInspectable::Iid) ||
                         abi::SameId(iid, abi::IRadialControllerInterop::Iid);
        return own ? ReturnThis(own, object) : real_->QueryInterface(iid, object);
    }
    HRESULT GetIids(std::uint32_t* count, GUID** iids) noexcept override {
        return real_->GetIids(count, iids);
    }
    HRESULT GetRuntimeClassName(HSTRING* name) noexcept override { return real_->GetRuntimeClassName(name); }
    HRESULT GetTrustLevel(abi::TrustLevel* level) noexcept override { return real_->GetTrustLevel(level); }

    HRESULT CreateForWindow(HWND window, const GUID& iid, void** result) noexcept override {
        const HRESULT code = real_->CreateForWindow(window, iid, result);
        if (code >= 0 && *result != nullptr) {
            RecordController(static_cast<abi::IUnknown*>(*result), window);
        }
        return code;
    }

private:
    const Ref<abi::IRadialControllerInterop> real_;
};

HRESULT WINAPI GetRecordingFactory(HSTRING class_name, const IID& iid, void** factory) {
    const HRESULT code = real::RoGetActivationFactory(class_name, iid, factory);
    if (code >= 0 && *factory != nullptr && abi::SameId(iid, abi::IRadialControllerInterop::Iid)) {
        *factory = static_cast<abi::IRadialControllerInterop*>(
            new RecordingFactory(Ref<abi::IRadialControllerInterop>::Attach(
                static_cast<abi::IRadialControllerInterop*>(*factory))));
    }
    return code;
}

}  // namespace

void RecordRealDial(const std::string& file) {
    recording_file = file;
    SetReplacements([](const char* name) {
        return std::strcmp(name, "RoGetActivationFactory") == 0
                   ? reinterpret_cast<void*>(&GetRecordingFactory)
                   : nullptr;
    });
}

}  // namespace dialsim
