// The result of all checks.
#pragma once

#include <cstdint>
#include <string>

// Another module has initialised the thread's apartment as multithreaded (the platform's RPC_E_CHANGED_MODE).
inline constexpr auto kMultithreaded = static_cast<std::int32_t>(0x80010106);

// Results of `initialize`.
enum Start : std::int32_t { kReady = 0, kUnavailable = 1, kTooOld = 2 };

struct Findings {
    bool simulated = false;  // the simulator answers the library
    bool wine = false;
    bool library = false;
    std::int32_t runtime = 0;  // the code of its initialisation, single-threaded
    bool classes = false;      // the system has all of them
    Start start = kUnavailable;
    bool listening = false;
    bool dial = false;
    bool elevated = false;
    bool turned = false;
};

enum Status { kWorks = 0, kMissing = 1, kNoTurn = 2, kUsageError = 3 };

struct Verdict {
    Status status;
    std::string text;
};

Verdict VerdictOf(const Findings& found);
