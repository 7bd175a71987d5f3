// The dial's interface to the desktop: display of the dial and its menu, mouse input, screenshots.
#pragma once

#include <cstdint>
#include <string>

namespace dialsim {

enum class MouseAction { Down, Move, Up };

// The base class is the desktop of the native build: it draws nothing and returns false.
class DesktopPort {
public:
    // Opens the window of the dial beside this window.
    virtual void OpenDial(std::uint64_t /*window*/) {}

    // Whether this is a window of the program that can be closed.
    virtual bool HasWindow(std::uint64_t /*window*/) { return false; }

    // Closes the window as the user would.
    virtual void CloseWindow(std::uint64_t /*window*/) {}

    // Returns when the display shows the current state of dial and menu.
    virtual void UpdateDisplay() {}

    // The same without a wait: drawing the dial takes as long as a pause between two turns.
    virtual void UpdateDisplaySoon() {}

    // Shows for a moment that the dial plays a waveform. Called on any thread, also that of the display.
    virtual void ShowFeedback() {}

    // Sends an action of the left button at a point in the window. Returns when the window has handled it;
    // false when there is no such window.
    virtual bool SendMouse(std::uint64_t /*window*/, MouseAction /*action*/, int /*x*/, int /*y*/) {
        return false;
    }

    // Writes the areas of the window and the dial on the screen as PNG. False when there is no area or the
    // file cannot be written.
    virtual bool WriteScreenshot(std::uint64_t /*window*/, const std::string& /*path*/) { return false; }

protected:
    ~DesktopPort() = default;
};

DesktopPort& TheDesktop();

// Called during loading of the simulator, before any call of TheDesktop.
void InstallDesktop(DesktopPort& desktop);

}  // namespace dialsim
