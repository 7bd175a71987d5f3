// Where the stores of settings and credentials are while a test program runs: in a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>

#ifdef _WIN32
#include <direct.h>
#include <process.h>
#else
#include <unistd.h>
#endif

#include "simulator/dialsim.h"

// The simulator makes the folder when it first needs it; it is gone with this object.
class StoresFolder {
public:
    StoresFolder() { dialsim_set_stores(Path().c_str()); }
    StoresFolder(const StoresFolder&) = delete;
    StoresFolder& operator=(const StoresFolder&) = delete;
    ~StoresFolder() {
        dialsim_clear_stores();
        rmdir(Path().c_str());
    }

    static std::string Path() { return testing::TempDir() + "brindle-stores-" + std::to_string(getpid()); }
};
