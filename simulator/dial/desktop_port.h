// What the dial wants of the user's desktop: a dial and an open menu to look at, a mouse, and pictures of the
// screen.
#pragma once

#include <cstdint>
#include <string>

namespace dialsim {

enum class MouseAction { Down, Move, Up };

// By itself a desktop that is not there: nothing is drawn, and the answers are false. So it is natively.
class DesktopPort {
public:
    // A dial beside the window, for a person to turn.
    virtual void OpenDial(std::uint64_t /*window*/) {}

    // As if the user had closed it.
    virtual void CloseWindow(std::uint64_t /*window*/) {}

    // Returns when what there is to see shows the dial and its menu as they are now.
    virtual void UpdateDisplay() {}

    // The left button at a place in the window; returns when the window has dealt with it, and false where
    // there is no such window.
    virtual bool SendMouse(std::uint64_t /*window*/, MouseAction /*action*/, int /*x*/, int /*y*/) {
        return false;
    }

    // The window, and the dial beside it, as they are on the screen: a PNG. False where that cannot be had or
    // written.
    virtual bool WriteScreenshot(std::uint64_t /*window*/, const std::string& /*path*/) { return false; }

protected:
    ~DesktopPort() = default;
};

DesktopPort& TheDesktop();

// While the simulator is loaded, before anybody asks for it.
void InstallDesktop(DesktopPort& desktop);

}  // namespace dialsim
