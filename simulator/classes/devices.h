// The device interfaces of the machine, and their enumeration.
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

    // Null: an entry without an object; the dial's class.
    void Add(const char* id, const char* interface_class, bool enabled);
    void RemoveAll();
    void Fail(HRESULT code);
    // The dial alone, and enumerations that work.
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
