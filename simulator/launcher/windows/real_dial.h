// The events of a real dial as commands of a script.
#pragma once

#include <windows.h>

#include "platform/interfaces/ui_input.h"

namespace dialsim {

// Records the events of a controller of the platform until the controller is destroyed. Call it before the
// program subscribes to them: each event is then written before the program's handlers run. The recording
// owns no reference to the controller.
void RecordEventsOf(brindle::abi::IRadialController& controller, HWND window);

}  // namespace dialsim
