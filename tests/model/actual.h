// A player of the library over the simulator.
#pragma once

#include <cstdio>
#include <functional>
#include <memory>

#include "files.h"
#include "player.h"
#include "support/stores_folder.h"

namespace model {

// Calls of each platform operation, by its index in the simulator's list.
struct CallCounts {
    static constexpr std::size_t kMost = 256;
    std::uint64_t counts[kMost] = {};
};

// Redirects standard output to a file of the folder for the lifetime of the object.
class CapturedOutput {
public:
    explicit CapturedOutput(const TemporaryFolder& folder);
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;
    ~CapturedOutput();

    // The output since the last call.
    std::string Take();

private:
    const TemporaryFolder& folder_;
    const int standard_output_;
    std::FILE* const file_;
    long taken_ = 0;
};

class Actual final : public Player {
public:
    Actual(const Files& files, CallCounts& counts, std::vector<std::uint64_t> windows, bool uses_stores,
           bool virtual_clock);
    ~Actual() override;

private:
    class Host;

    void SetFault(const Fault& fault) override;
    void CallExport(const Operation& operation) override;
    void RaiseEvent(const Operation& operation) override;
    void ChangePlatform(const Operation& operation) override;
    void Uninit() override;
    std::size_t ObjectsOf(const char* class_name) override;
    std::string TakePrinted() override;
    std::string TakeJournal() override;
    std::string ShowMenu(std::uint64_t window) override;
    std::string ShowStore(const char* name) override;
    std::string Outstanding() override;

    void OnCall(const char* call);
    void CallStorage(const Operation& operation);
    bool CallWindowExport(const Operation& operation);
    bool FillMenu(const Operation& operation);
    void AddDevices(const Operation& operation);
    void WriteOutcome(Code code);

    const Files& files_;
    CallCounts& counts_;
    StoresFolder stores_;
    std::uint64_t module_;
    CapturedOutput output_;
    std::map<std::string, std::size_t, std::less<>> operations_;
    int hosts_made_ = 0;
};

}  // namespace model
