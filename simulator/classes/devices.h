// The machine's device interfaces and their enumeration.
#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "simulator/classes/object.h"
#include "sync.h"

namespace dialsim {

class Devices {
public:
    struct Entry {
        bool is_null;
        std::string id;
        std::string interface_class;
        bool enabled;
    };

    Devices();

    // Without an id the enumeration yields null for the entry; without a class it has the dial's.
    void Add(const char* id, const char* interface_class, bool enabled);
    void RemoveAll();
    void Fail(HRESULT code);
    // Restores the initial state: one device, the dial, and successful enumerations.
    void Reset();

    std::vector<Entry> All();
    HRESULT Failure();

private:
    Mutex mutex_;
    std::vector<Entry> entries_;
    HRESULT failure_ = S_OK;
};

Devices& TheDevices();

}  // namespace dialsim
