// Random sequences of what hosts, users and the platform do, each played to the library and to a model of it.
//
//   model_tests [--seeds N] [--from SEED] [--seconds S] [--no-reduce]
//
// Plays the regressions and then the seeds from SEED on (1), N of them (300) or as many as fit into S
// seconds. Ends early after ten failing seeds; on Windows, and with --no-reduce, after one.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "generator.h"
#include "regression.h"
#include "runner.h"
#include "simulator/dialsim.h"
#include "support/simulated_library.h"

namespace {

using namespace model;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kBetweenReports(10);
// More failures add little information.
constexpr std::uint64_t kMostFailures = 10;

struct Options {
    std::uint64_t from = 1;
    std::uint64_t seeds = 300;
    std::uint64_t seconds = 0;  // 0: until all seeds are played
    bool reduce = true;
};

bool Parse(int count, char** words, Options& options) {
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        if (word == "--no-reduce") {
            options.reduce = false;
            continue;
        }
        std::uint64_t* number = word == "--seeds"     ? &options.seeds
                                : word == "--from"    ? &options.from
                                : word == "--seconds" ? &options.seconds
                                                      : nullptr;
        if (number == nullptr || ++i == count) {
            std::fprintf(stderr,
                         "usage: model_tests [--seeds N] [--from SEED] [--seconds S] [--no-reduce]\n");
            return false;
        }
        *number = std::strtoull(words[i], nullptr, 10);
        if (word == "--seconds") {
            options.seeds = UINT64_MAX;
        }
    }
    return true;
}

bool Play(const std::string& name, const Sequence& sequence, const Files& files, const Options& options) {
    const std::string difference = model::Run(sequence, files);
    if (difference.empty()) {
        return true;
    }
    std::printf("%s failed\n%s", name.c_str(), difference.c_str());
    std::fflush(stdout);
    if (!CanRunAgain()) {
        std::printf("to reduce it, run the native model_tests\n");
    } else if (options.reduce) {
        const Sequence reduced = Reduce(sequence, files);
        std::printf("reduced, for tests/model/regression_test.cpp:\n        {\"%s\",\n    {\n%s    }},\n%s",
                    name.c_str(), CodeOf(reduced).c_str(), model::Run(reduced, files).c_str());
    }
    return false;
}

void PrintSummary(std::uint64_t failed) {
    const Totals& totals = TheTotals();
    std::string missing;
    unsigned reached = 0;
    unsigned operations = 0;
    for (; dialsim_operation(operations) != nullptr; ++operations) {
        const bool called = totals.calls.counts[operations] > 0;
        reached += called;
        missing += called ? "" : std::string(missing.empty() ? "" : ", ") + dialsim_operation(operations);
    }
    std::printf(
        "model: %llu sequences, %llu operations, %llu events inside calls, faults: %llu fail, %llu fail "
        "late, %llu yield null; %u of %u platform operations; %llu failed\n",
        static_cast<unsigned long long>(totals.sequences), static_cast<unsigned long long>(totals.operations),
        static_cast<unsigned long long>(totals.events_inside),
        static_cast<unsigned long long>(totals.reach.faults[0]),
        static_cast<unsigned long long>(totals.reach.faults[1]),
        static_cast<unsigned long long>(totals.reach.faults[2]), reached, operations,
        static_cast<unsigned long long>(failed));
    std::printf("never called: %s\n", missing.empty() ? "none" : missing.c_str());
}

std::uint64_t PlayAll(const Options& options) {
    const Files files;
    std::uint64_t failed = 0;
    for (const Regression& regression : Regressions()) {
        failed += !Play(regression.behaviour, regression.sequence, files, options);
    }
    const auto start = Clock::now();
    auto next_report = start + kBetweenReports;
    const std::uint64_t most = failed + (CanRunAgain() && options.reduce ? kMostFailures : 1);
    for (std::uint64_t i = 0; i < options.seeds && failed < most; ++i) {
        const auto now = Clock::now();
        if (options.seconds > 0 && now - start >= std::chrono::seconds(options.seconds)) {
            break;
        }
        if (now >= next_report) {
            std::printf("at seed %llu\n", static_cast<unsigned long long>(options.from + i));
            std::fflush(stdout);
            next_report += kBetweenReports;
        }
        const std::uint64_t seed = options.from + i;
        failed += !Play("seed " + std::to_string(seed), Generate(seed, files), files, options);
    }
    return failed;
}

}  // namespace

int main(int count, char** words) {
    Options options;
    if (!Parse(count, words, options)) {
        return 2;
    }
    if (!StartSimulatedLibrary()) {
        return 2;
    }
    const std::uint64_t failed = PlayAll(options);
    PrintSummary(failed);
    return failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
