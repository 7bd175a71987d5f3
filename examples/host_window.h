// A top-level window with its message loop. The native build, which has no windows, uses a number and a wait.
#pragma once

#include <cstdint>
#include <memory>

// The module of this program, for its resources.
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
