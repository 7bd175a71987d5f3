#include "simulator/instruments/journal.h"

#include "simulator/system/text.h"

#include <algorithm>

namespace dialsim {

namespace {

thread_local int pause_depth = 0;

bool Matches(std::string_view pattern, std::string_view operation, std::string_view call) {
    return pattern == operation || pattern == call;
}

std::string CallText(std::string_view operation, std::string_view arguments) {
    return std::string(operation) + "(" + std::string(arguments) + ")";
}

bool Applies(Fault& fault) {
    const std::uint32_t call = ++fault.matching_calls;
    return call >= fault.from && (fault.times == 0 || call - fault.from < fault.times);
}

}  // namespace

Journal& TheJournal() {
    // Never destroyed: controllers may end after main.
    static Journal& journal = *new Journal;
    return journal;
}

Journal::Entry Journal::Begin(std::string_view operation, std::string_view arguments) {
    const std::string call = CallText(operation, arguments);
    CallHook hook = nullptr;
    void* context = nullptr;
    Entry entry{};
    {
        const std::lock_guard guard(mutex_);
        entry = Write(operation, call);
        hook = hook_;
        context = hook_context_;
    }
    if (hook != nullptr) {
        hook(context, call.c_str());
    }
    return entry;
}

// With the lock held.
Journal::Entry Journal::Write(std::string_view operation, const std::string& call) {
    Entry entry{first_number_ + lines_.size(), std::nullopt};
    for (Fault& fault : faults_) {
        // Every fault counts every call, also where an earlier one applies already.
        if (Matches(fault.pattern, operation, call) && Applies(fault) && !entry.fault) {
            entry.fault = fault;
        }
    }
    lines_.push_back({std::string(operation), call, S_OK});
    return entry;
}

void Journal::End(const Entry& entry, HRESULT code) {
    const std::lock_guard guard(mutex_);
    if (entry.number >= first_number_) {  // not cleared meanwhile
        lines_[entry.number - first_number_].code = code;
    }
}

void Journal::Note(std::string_view event, std::string_view arguments) {
    const std::lock_guard guard(mutex_);
    Write(event, CallText(event, arguments));
}

void Journal::Add(Fault fault) {
    const std::lock_guard guard(mutex_);
    faults_.push_back(std::move(fault));
}

void Journal::SetCallHook(CallHook hook, void* context) {
    const std::lock_guard guard(mutex_);
    hook_ = hook;
    hook_context_ = context;
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
    hook_ = nullptr;
}

JournalPause::JournalPause() { ++pause_depth; }
JournalPause::~JournalPause() { --pause_depth; }
bool JournalPause::IsActive() { return pause_depth > 0; }

}  // namespace dialsim
