#include <condition_variable>
#include <mutex>

#include "../text.h"
#include "library.h"
#include "system.h"

// Platform functions, which the simulator defines.
extern "C" {
int32_t RoInitialize(int type);
void RoUninitialize();
int32_t RoGetActivationFactory(void* class_name, const Identifier& identifier, void** factory);
int32_t WindowsCreateString(const char16_t* text, unsigned length, void** string);
int32_t WindowsDeleteString(void* string);
}

int32_t StartRuntime() { return RoInitialize(0); }

void StopRuntime() { RoUninitialize(); }

int32_t GetFactory(const Need& need, void** factory) {
    const std::string name = need.class_name;
    const Text wide(name.begin(), name.end());
    void* string = nullptr;
    if (const int32_t code = WindowsCreateString(wide.c_str(), static_cast<unsigned>(wide.size()), &string);
        code < 0) {
        return code;
    }
    const int32_t code = RoGetActivationFactory(string, need.identifier, factory);
    WindowsDeleteString(string);
    return code;
}

LoadedLibrary LoadDialLibrary() {
    return {Library{initialize, uninit, init_dial_listener, is_dial_present}, "linked into this program"};
}

std::string SystemVersion() { return "none, this is a native program over the simulator"; }

std::string WineVersion() { return {}; }

std::string SimulatorPath() { return {}; }

bool HasOwnConsole() { return false; }

void WaitForKey() {}

std::optional<bool> IsElevated() { return {}; }

std::string PackageName() { return "none, this system does not support packages"; }

struct ProbeWindow::Impl {
    std::mutex mutex;
    std::condition_variable woken;
};

ProbeWindow::ProbeWindow(const char* /*title*/) : impl_(std::make_unique<Impl>()) {}

ProbeWindow::~ProbeWindow() = default;

uint64_t ProbeWindow::Handle() const { return 1; }

void ProbeWindow::HandleMessages(std::chrono::milliseconds limit, const std::function<bool()>& enough) {
    std::unique_lock lock(impl_->mutex);
    impl_->woken.wait_for(lock, limit, enough);
}

void ProbeWindow::Wake() {
    const std::lock_guard guard(impl_->mutex);
    impl_->woken.notify_all();
}
