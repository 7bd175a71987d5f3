#include <condition_variable>
#include <mutex>

#include "dial_driver.h"
#include "host_window.h"

// The module that the DialDriver adds resources to.
const void* OwnModule() { return reinterpret_cast<const void*>(kSampleModule); }

struct HostWindow::Impl {
    std::mutex mutex;
    std::condition_variable changed;
    bool closed = false;
};

HostWindow::HostWindow(const char* /*title*/) : impl_(std::make_unique<Impl>()) {}

HostWindow::~HostWindow() = default;

uint64_t HostWindow::Handle() const { return 1; }

void HostWindow::RunMessageLoop() {
    std::unique_lock lock(impl_->mutex);
    impl_->changed.wait(lock, [this] { return impl_->closed; });
}

void HostWindow::Close() {
    const std::lock_guard guard(impl_->mutex);
    impl_->closed = true;
    impl_->changed.notify_all();
}
