// A folder of the simulator's stores, unique to each test; the destructor deletes it.
#pragma once

#include "simulator/dialsim.h"
#include "support/temporary_folder.h"

class StoresFolder : public TemporaryFolder {
public:
    StoresFolder() { dialsim_set_stores(path().c_str()); }
    StoresFolder(const StoresFolder&) = delete;
    StoresFolder& operator=(const StoresFolder&) = delete;
    ~StoresFolder() {
        dialsim_set_stores(path().c_str());
        dialsim_clear_stores();
        dialsim_set_stores(nullptr);
        Remove("lock");
    }
};
