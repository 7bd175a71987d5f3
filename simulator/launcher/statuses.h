// The exit statuses of dialsim-run that are not the program's own.
#pragma once

namespace dialsim {

enum Status : int {
    kUsageError = 2,
    kNotClosed = 118,
    kScriptFailed = 119,
    kWrongLibrary = 120,
    kNoLibrary = 121,
    kRefused = 122,
    kNoSimulator = 123,
    kNot64Bit = 124,
    kNotStarted = 125
};

}  // namespace dialsim
