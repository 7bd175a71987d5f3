// An owned system handle.
#pragma once

#include <windows.h>

#include <utility>

namespace dialsim {

class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Handle() {
        if (handle_ != nullptr) {
            CloseHandle(handle_);
        }
    }

    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_ = nullptr;
};

}  // namespace dialsim
