#include "simulator/instruments/leak_tracker.h"

#include <cstdio>

#include "simulator/system/reset.h"

namespace dialsim {

namespace {

const ResetAction reset_tracker(ResetPhase::Instruments, [] { TheLeakTracker().Reset(); });

// The null string is the empty string and is not tracked.
void EraseOne(std::multiset<HSTRING>& strings, HSTRING string) {
    if (const auto found = strings.find(string); found != strings.end()) {
        strings.erase(found);
    }
}

std::string Line(std::string_view name, const LeakTracker::ClassCounts& counts) {
    char text[64];
    std::snprintf(text, sizeof text, ": %u objects, %u references\n", counts.objects, counts.references);
    return std::string(name) + text;
}

}  // namespace

LeakTracker& TheLeakTracker() {
    // Never destroyed: objects may be released after main returns.
    static LeakTracker& tracker = *new LeakTracker;
    return tracker;
}

void LeakTracker::TrackObject(const void* object, std::string_view class_name,
                              const std::atomic<std::uint32_t>& references) {
    const std::lock_guard guard(mutex_);
    objects_.emplace(object, Entry{class_name, &references});
}

void LeakTracker::UntrackObject(const void* object) {
    const std::lock_guard guard(mutex_);
    objects_.erase(object);
}

void LeakTracker::TrackHandler(const void* handler) {
    const std::lock_guard guard(mutex_);
    handlers_.insert(handler);
}

void LeakTracker::UntrackHandler(const void* handler) {
    const std::lock_guard guard(mutex_);
    if (const auto found = handlers_.find(handler); found != handlers_.end()) {
        handlers_.erase(found);
    }
}

void LeakTracker::TrackString(HSTRING string) {
    if (string != nullptr) {
        const std::lock_guard guard(mutex_);
        strings_.insert(string);
    }
}

void LeakTracker::UntrackString(HSTRING string) {
    const std::lock_guard guard(mutex_);
    EraseOne(strings_, string);
}

void LeakTracker::TrackBlock(const void* block) {
    if (block != nullptr) {
        const std::lock_guard guard(mutex_);
        blocks_.insert(block);
    }
}

void LeakTracker::UntrackBlock(const void* block) {
    const std::lock_guard guard(mutex_);
    blocks_.erase(block);
}

LeakTracker::ClassCounts LeakTracker::Objects(std::string_view class_name) {
    const std::lock_guard guard(mutex_);
    ClassCounts counts;
    for (const auto& [object, entry] : objects_) {
        if (class_name.empty() || entry.class_name == class_name) {
            ++counts.objects;
            counts.references += *entry.references;
        }
    }
    return counts;
}

std::uint32_t LeakTracker::Handlers() {
    const std::lock_guard guard(mutex_);
    return static_cast<std::uint32_t>(handlers_.size());
}

std::uint32_t LeakTracker::Strings() {
    const std::lock_guard guard(mutex_);
    return static_cast<std::uint32_t>(strings_.size());
}

std::uint32_t LeakTracker::Blocks() {
    const std::lock_guard guard(mutex_);
    return static_cast<std::uint32_t>(blocks_.size());
}

std::string LeakTracker::Text() {
    std::set<std::string_view> classes;
    {
        const std::lock_guard guard(mutex_);
        for (const auto& [object, entry] : objects_) {
            classes.insert(entry.class_name);
        }
    }
    std::string text;
    for (const std::string_view name : classes) {
        text += Line(name, Objects(name));
    }
    if (const std::uint32_t strings = Strings(); strings > 0) {
        text += "strings: " + std::to_string(strings) + "\n";
    }
    if (const std::uint32_t blocks = Blocks(); blocks > 0) {
        text += "blocks: " + std::to_string(blocks) + "\n";
    }
    if (const std::uint32_t handlers = Handlers(); handlers > 0) {
        text += "handlers: " + std::to_string(handlers) + "\n";
    }
    return text;
}

void LeakTracker::Reset() {
    const std::lock_guard guard(mutex_);
    for (const auto& [object, entry] : objects_) {
        abandoned_.push_back(object);
    }
    abandoned_.insert(abandoned_.end(), strings_.begin(), strings_.end());
    abandoned_.insert(abandoned_.end(), blocks_.begin(), blocks_.end());
    objects_.clear();
    handlers_.clear();
    strings_.clear();
    blocks_.clear();
}

}  // namespace dialsim
