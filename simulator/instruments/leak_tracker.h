// Leak tracking: the outstanding objects, references, handlers, strings and memory blocks.
#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/types.h"
#include "sync.h"

namespace dialsim {

class LeakTracker {
public:
    struct ClassCounts {
        std::uint32_t objects = 0;
        std::uint32_t references = 0;
    };

    // `object` is the address of its allocation, `class_name` a constant. `references` must be valid until
    // UntrackObject.
    void TrackObject(const void* object, std::string_view class_name,
                     const std::atomic<std::uint32_t>& references);
    void UntrackObject(const void* object);
    void TrackHandler(const void* handler);
    void UntrackHandler(const void* handler);
    void TrackString(HSTRING string);
    void UntrackString(HSTRING string);
    void TrackBlock(const void* block);
    void UntrackBlock(const void* block);

    // An empty name sums over all classes.
    ClassCounts Objects(std::string_view class_name);
    std::uint32_t Handlers();
    std::uint32_t Strings();
    std::uint32_t Blocks();
    std::string Text();

    // Stops counting everything outstanding. Keeps pointers to it: leak checkers do not report references
    // that are deliberately never released.
    void Reset();

private:
    Mutex mutex_;
    struct Entry {
        std::string_view class_name;
        const std::atomic<std::uint32_t>* references;
    };
    std::map<const void*, Entry> objects_;
    std::multiset<const void*> handlers_;
    std::multiset<HSTRING> strings_;
    std::set<const void*> blocks_;
    std::vector<const void*> abandoned_;
};

LeakTracker& TheLeakTracker();

}  // namespace dialsim
