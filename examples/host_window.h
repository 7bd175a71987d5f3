// A top-level window with its message loop; in the native build, which has no windows, a number and a wait.
#pragma once

#include <cstdint>
#include <memory>

// The module that this program is, for its resources.
const void* OwnModule();

class HostWindow {
public:
    explicit HostWindow(const char* title);
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow();

    uint64_t Handle() const;

    // Returns when the window has been closed.
    void RunMessageLoop();

    // From any thread.
    void Close();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
