// The simulator's windows on the desktop: creation, place and order.
#pragma once

#include <windows.h>

namespace dialsim {

// Creates a hidden window without a frame, whose cursor is one of the system's (IDC_HAND ...).
HWND CreatePopup(const wchar_t* class_name, WNDPROC procedure, const wchar_t* cursor, DWORD extended_style,
                 const RECT& rect);

// The client area of a window in screen coordinates.
RECT ClientScreenRect(HWND window);

// The rectangle, moved by as little as possible to be within the work area of the nearest monitor.
RECT MovedOntoMonitor(RECT rect);

// Whether the user works in this program: the foreground window belongs to it.
bool IsInFront();

// Puts a window above all others, or as a window of a program in the background directly above its host.
//
// A window that the host owned would need none of this, but it would belong to another thread than the host:
// the system then joins the input queues of both threads, and a host that is busy would stop the dial.
void StackOverHost(HWND window, HWND host, bool in_front);

}  // namespace dialsim
