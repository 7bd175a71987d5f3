#include "runner.h"

#ifndef _WIN32
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#endif

namespace model {

#ifdef _WIN32

Totals& TheTotals() {
    static Totals totals;
    return totals;
}

std::string Run(const Sequence& sequence, const Files& files) {
    return Compare(sequence, files, TheTotals());
}

bool CanRunAgain() { return false; }

#else

namespace {

constexpr unsigned kLongestSeconds = 120;
constexpr std::size_t kLongestReport = 8192;

struct Shared {
    Totals totals;
    char report[kLongestReport];
};

Shared& TheShared() {
    static Shared& shared = *new (
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Shared;
    return shared;
}

[[noreturn]] void RunInChild(const Sequence& sequence, const Files& files) {
    alarm(kLongestSeconds);
    const std::string report = Compare(sequence, files, TheShared().totals);
    std::snprintf(TheShared().report, kLongestReport, "%s", report.c_str());
    std::fflush(stderr);
    std::_Exit(report.empty() ? EXIT_SUCCESS : EXIT_FAILURE);
}

}  // namespace

Totals& TheTotals() { return TheShared().totals; }

std::string Run(const Sequence& sequence, const Files& files) {
    TheShared().report[0] = '\0';
    std::fflush(stdout);
    std::fflush(stderr);
    const pid_t child = fork();
    if (child == 0) {
        RunInChild(sequence, files);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && (WEXITSTATUS(status) == EXIT_SUCCESS || TheShared().report[0] != '\0')) {
        return TheShared().report;
    }
    const std::string how =
        WIFSIGNALED(status) ? strsignal(WTERMSIG(status)) : "status " + std::to_string(WEXITSTATUS(status));
    return "operation " + std::to_string(TheTotals().at_operation + 1) + ": the process ended, " + how + "\n";
}

bool CanRunAgain() { return true; }

#endif

}  // namespace model
