// The open menu over the host's window: a ring of items, the highlighted one marked, its label in the middle.
#pragma once

#include <windows.h>

#include <memory>

#include "simulator/desktop/surface.h"

namespace dialsim {

// Created, used and destroyed on one thread, which handles its messages.
class RingWindow {
public:
    RingWindow() = default;
    RingWindow(const RingWindow&) = delete;
    RingWindow& operator=(const RingWindow&) = delete;
    ~RingWindow() { Close(); }

    // Opens, updates or closes the ring according to the open menu.
    void UpdateDisplay();
    // Puts the open ring above all windows, or above its host's only.
    void Stack(bool in_front) const;

private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void Open(HWND host);
    void Close();
    void SetDpi(UINT dpi);

    HWND window_ = nullptr;  // null while no menu is open
    HWND host_ = nullptr;
    // The screen under the ring.
    std::unique_ptr<Surface> background_;
    std::unique_ptr<Surface> surface_;
};

}  // namespace dialsim
