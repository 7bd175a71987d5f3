#include "simulator/instruments/leak_tracker.h"

#include <cstdio>

namespace dialsim {

namespace {

// The null string is the empty text and belongs to nobody.
void EraseOne(std::multiset<HSTRING>& strings, HSTRING string) {
    if (const auto found = strings.find(string); found != strings.end()) {
        strings.erase(found);
    }
}

std::string Line(std::string_view name, const Accounts::Tally& tally) {
    char counts[64];
    std::snprintf(counts, sizeof counts, ": %u objects, %u references\n", tally.objects, tally.references);
    return std::string(name) + counts;
}

}  // namespace

Accounts& TheAccounts() {
    // Never destroyed: objects may come back after the end of main.
    static Accounts& accounts = *new Accounts;
    return accounts;
}

void Accounts::Made(const void* object, std::string_view class_name,
                    const std::atomic<std::uint32_t>& references) {
    const std::lock_guard guard(mutex_);
    objects_.emplace(object, Entry{std::string(class_name), &references});
}

void Accounts::Gone(const void* object) {
    const std::lock_guard guard(mutex_);
    objects_.erase(object);
}

void Accounts::HandlerTaken(const void* handler) {
    const std::lock_guard guard(mutex_);
    handlers_.insert(handler);
}

void Accounts::HandlerReleased(const void* handler) {
    const std::lock_guard guard(mutex_);
    if (const auto found = handlers_.find(handler); found != handlers_.end()) {
        handlers_.erase(found);
    }
}

void Accounts::StringTaken(HSTRING string) {
    if (string != nullptr) {
        const std::lock_guard guard(mutex_);
        strings_.insert(string);
    }
}

void Accounts::StringReturned(HSTRING string) {
    const std::lock_guard guard(mutex_);
    EraseOne(strings_, string);
}

void Accounts::BlockTaken(const void* block) {
    if (block != nullptr) {
        const std::lock_guard guard(mutex_);
        blocks_.insert(block);
    }
}

void Accounts::BlockReturned(const void* block) {
    const std::lock_guard guard(mutex_);
    blocks_.erase(block);
}

Accounts::Tally Accounts::Objects(std::string_view class_name) {
    const std::lock_guard guard(mutex_);
    Tally tally;
    for (const auto& [object, entry] : objects_) {
        if (class_name.empty() || entry.class_name == class_name) {
            ++tally.objects;
            tally.references += *entry.references;
        }
    }
    return tally;
}

std::uint32_t Accounts::Handlers() {
    const std::lock_guard guard(mutex_);
    return static_cast<std::uint32_t>(handlers_.size());
}

std::uint32_t Accounts::Strings() {
    const std::lock_guard guard(mutex_);
    return static_cast<std::uint32_t>(strings_.size());
}

std::uint32_t Accounts::Blocks() {
    const std::lock_guard guard(mutex_);
    return static_cast<std::uint32_t>(blocks_.size());
}

std::string Accounts::Text() {
    std::set<std::string> classes;
    {
        const std::lock_guard guard(mutex_);
        for (const auto& [object, entry] : objects_) {
            classes.insert(entry.class_name);
        }
    }
    std::string text;
    for (const std::string& name : classes) {
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

void Accounts::Reset() {
    const std::lock_guard guard(mutex_);
    for (const auto& [object, entry] : objects_) {
        written_off_.push_back(object);
    }
    written_off_.insert(written_off_.end(), strings_.begin(), strings_.end());
    written_off_.insert(written_off_.end(), blocks_.begin(), blocks_.end());
    objects_.clear();
    handlers_.clear();
    strings_.clear();
    blocks_.clear();
}

}  // namespace dialsim
