#include "simulator/journal.h"

#include "simulator/text.h"

#include <algorithm>

namespace dialsim {

namespace {

thread_local int unobserved_depth = 0;

bool Matches(std::string_view pattern, std::string_view operation, std::string_view call) {
    return pattern == operation || pattern == call;
}

bool Strikes(Fault& fault) {
    const std::uint32_t call = ++fault.seen;
    return call >= fault.from && (fault.times == 0 || call - fault.from < fault.times);
}

}  // namespace

Journal& TheJournal() {
    // Never destroyed: controllers may end after main.
    static Journal& journal = *new Journal;
    return journal;
}

Journal::Entry Journal::Begin(std::string_view operation, std::string_view arguments) {
    const std::lock_guard guard(mutex_);
    std::string call = std::string(operation) + "(" + std::string(arguments) + ")";
    Entry entry{first_number_ + lines_.size(), std::nullopt};
    for (Fault& fault : faults_) {
        // Every fault counts every call, also where an earlier one has struck already.
        if (Matches(fault.pattern, operation, call) && Strikes(fault) && !entry.fault) {
            entry.fault = fault;
        }
    }
    lines_.push_back({std::string(operation), std::move(call), S_OK});
    return entry;
}

void Journal::End(const Entry& entry, HRESULT code) {
    const std::lock_guard guard(mutex_);
    if (entry.number >= first_number_) {  // not cleared meanwhile
        lines_[entry.number - first_number_].code = code;
    }
}

void Journal::Note(std::string_view event, std::string_view arguments) { Begin(event, arguments); }

void Journal::Add(Fault fault) {
    const std::lock_guard guard(mutex_);
    faults_.push_back(std::move(fault));
}

std::uint32_t Journal::Count(std::string_view pattern) {
    const std::lock_guard guard(mutex_);
    return static_cast<std::uint32_t>(std::count_if(lines_.begin(), lines_.end(), [&](const Line& line) {
        return Matches(pattern, line.operation, line.call);
    }));
}

std::string Journal::Text() {
    const std::lock_guard guard(mutex_);
    std::string text;
    for (const Line& line : lines_) {
        text += line.call + (line.code == 0 ? "" : " = " + Hex(line.code)) + "\n";
    }
    return text;
}

void Journal::Clear() {
    const std::lock_guard guard(mutex_);
    first_number_ += lines_.size();
    lines_.clear();
}

void Journal::Reset() {
    Clear();
    const std::lock_guard guard(mutex_);
    faults_.clear();
}

Unobserved::Unobserved() { ++unobserved_depth; }
Unobserved::~Unobserved() { --unobserved_depth; }
bool Unobserved::Now() { return unobserved_depth > 0; }

}  // namespace dialsim
