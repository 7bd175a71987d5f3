// The open menu over the host's window: a ring of items, the highlighted one marked, its label in the middle.
#pragma once

#include <windows.h>

#include <memory>

#include "simulator/desktop/surface.h"

namespace dialsim {

// Created, used and destroyed on one thread, which handles its messages.
class RingWindow {
public:
    RingWindow();
    RingWindow(const RingWindow&) = delete;
    RingWindow& operator=(const RingWindow&) = delete;
    ~RingWindow();

    // Shows, updates or hides the ring according to the open menu.
    void UpdateDisplay();

private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void PlaceOver(HWND host);

    const HWND window_;
    // The area of the ring while it is shown.
    std::unique_ptr<Surface> background_;
    const std::unique_ptr<Surface> surface_;
};

}  // namespace dialsim
