#include "simulator/instruments/journal.h"

#include <algorithm>
#include <utility>

#include "simulator/system/reset.h"
#include "simulator/system/text.h"

namespace dialsim {

namespace {

const ResetAction reset_journal(ResetPhase::Instruments, [] { TheJournal().Reset(); });

thread_local int pause_depth = 0;

std::string CallText(std::string_view operation, std::string_view arguments) {
    std::string call;
    call.reserve(operation.size() + arguments.size() + 2);
    call.append(operation).append("(").append(arguments).append(")");
    return call;
}

bool Applies(Fault& fault) {
    const std::uint32_t call = ++fault.matching_calls;
    return call >= fault.from && (fault.times == 0 || call - fault.from < fault.times);
}

}  // namespace

Journal& TheJournal() {
    // Never destroyed: controllers may be destroyed after main returns.
    static Journal& journal = *new Journal;
    return journal;
}

bool Journal::Line::Matches(std::string_view pattern) const {
    return pattern == call || pattern == std::string_view(call).substr(0, operation_size);
}

Journal::Entry Journal::Begin(std::string_view operation, std::string_view arguments) {
    Line line{CallText(operation, arguments), operation.size(), S_OK};
    std::unique_lock guard(mutex_);
    if (hook_ == nullptr) {
        return Write(std::move(line));
    }
    const CallHook hook = hook_;
    void* const context = hook_context_;
    const std::string call = line.call;
    Entry entry = Write(std::move(line));
    guard.unlock();
    hook(context, call.c_str());
    return entry;
}

// Requires the lock.
Journal::Entry Journal::Write(Line line) {
    Entry entry{first_number_ + lines_.size(), std::nullopt};
    for (Fault& fault : faults_) {
        // Every fault counts the call, even when an earlier fault applies to it.
        if (line.Matches(fault.pattern) && Applies(fault) && !entry.fault) {
            entry.fault = fault;
        }
    }
    lines_.push_back(std::move(line));
    return entry;
}

void Journal::End(const Entry& entry, HRESULT code) {
    const std::lock_guard guard(mutex_);
    if (entry.number >= first_number_) {  // not cleared since Begin
        lines_[entry.number - first_number_].code = code;
    }
}

void Journal::Note(std::string_view event, std::string_view arguments) {
    const std::lock_guard guard(mutex_);
    Write({CallText(event, arguments), event.size(), S_OK});
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
    return static_cast<std::uint32_t>(
        std::count_if(lines_.begin(), lines_.end(), [&](const Line& line) { return line.Matches(pattern); }));
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
