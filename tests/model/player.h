// Plays a sequence to the library over the simulator or to the model. Both record the observable behaviour in
// the same format.
#pragma once

#include <brindle.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "sequence.h"

namespace model {

std::string Hex(Code code);

class Player {
public:
    // Records the menus of these windows, and the stores if the sequence uses them.
    Player(std::vector<std::uint64_t> windows, bool uses_stores, bool virtual_clock)
        : windows_(std::move(windows)), uses_stores_(uses_stores), virtual_clock_(virtual_clock) {}
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;
    virtual ~Player() = default;

    // Performs the operation; returns the record of its observable behaviour.
    std::string Play(const Operation& operation);
    // Completes every load and calls uninit; returns the same record.
    std::string End();
    // The library has not started: no other call is allowed.
    bool stopped() const { return stopped_; }
    std::uint64_t operations() const { return operations_; }
    std::uint64_t events_inside() const { return events_inside_; }

protected:
    virtual void SetFault(const Fault& fault) = 0;
    virtual void CallExport(const Operation& operation) = 0;
    virtual void RaiseEvent(const Operation& operation) = 0;
    virtual void ChangePlatform(const Operation& operation) = 0;
    virtual void Uninit() = 0;
    virtual std::size_t ObjectsOf(const char* class_name) = 0;
    virtual std::string TakePrinted() = 0;
    // Without the lines that the contract does not define.
    virtual std::string TakeJournal() = 0;
    virtual std::string ShowMenu(std::uint64_t window) = 0;
    virtual std::string ShowStore(const char* name) = 0;
    virtual std::string Outstanding() = 0;

    // Called inside a platform call, before its effect.
    void AtCall(const std::string& call);
    // Called inside a callback of a host.
    void AtCallback();

    void Write(const std::string& line) { seen_ += line + "\n"; }
    void WriteAnswer(bool answer) { Write(answer ? "true" : "false"); }
    void WriteCode(Code code) { Write("code " + Hex(code)); }
    void WriteTurn(int host, const void* sender, const DialRotationInfo& info);
    void WriteClick(int host, const void* sender, const DialContactRect& rect);
    void StopIf(bool stopped) { stopped_ = stopped_ || stopped; }

    const Operation& current() const { return *current_; }
    bool virtual_clock() const { return virtual_clock_; }

private:
    void Perform(const Operation& operation);
    std::string TakeRecord();
    std::string NameOf(const void* sender);

    const std::vector<std::uint64_t> windows_;
    const bool uses_stores_;
    const bool virtual_clock_;
    bool stopped_ = false;
    const Operation* current_ = nullptr;
    bool counts_ = true;  // whether objects are counted inside some calls
    std::uint32_t calls_ = 0;
    std::uint64_t operations_ = 0;
    std::uint64_t events_inside_ = 0;
    std::size_t next_reaction_ = 0;
    std::string seen_;
    std::map<const void*, std::size_t> senders_;
};

}  // namespace model
