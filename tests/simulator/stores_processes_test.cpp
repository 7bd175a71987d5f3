// The simulator's stores with concurrent processes, some of which are killed.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "changing_text.h"
#include "support/child_process.h"
#include "support/sanitized.h"
#include "support/simulator_fixture.h"
#include "support/stores_folder.h"

namespace brindle {
namespace {

using Moment = std::chrono::steady_clock::time_point;

// Starting a process is slow under Wine, a change is slow under a sanitizer.
#ifdef _WIN32
constexpr int kKillsEach = 3;
#else
constexpr int kKillsEach = kSanitized ? 4 : 20;
#endif

// A store, its name in the functions, and the start of its lines.
struct Kind {
    const char* argument;
    const char* store;
    const char* file;
    bool (*put)(const std::string& name, const std::string& text);
    std::string (*line)(const std::string& name);
};

const Kind kSetting = {"setting", "local", "local.json",
                       [](const std::string& name, const std::string& text) {
                           return dialsim_put_setting("local", name.c_str(), "String", text.c_str());
                       },
                       [](const std::string& name) { return "\"" + name + "\" String "; }};
const Kind kCredential = {"credential", "vault", "vault.json",
                          [](const std::string& name, const std::string& text) {
                              return dialsim_put_credential("resource", name.c_str(), text.c_str());
                          },
                          [](const std::string& name) { return "\"resource\" \"" + name + "\" "; }};

class StoresOfProcesses : public SimulatorTest {
protected:
    std::vector<std::string> Forever(const Kind& kind) const {
        return {folder.path(), kind.argument, "changing", "forever"};
    }

    // Duration of one change by the writer.
    std::chrono::nanoseconds TimeOfAChange(const Kind& kind) const {
        constexpr int kChanges = 10;
        ChildProcess writer("store_writer", Forever(kind));
        EXPECT_TRUE(writer.ReadByte());
        const Moment start = std::chrono::steady_clock::now();
        for (int i = 0; i < kChanges; ++i) {
            EXPECT_TRUE(writer.ReadByte());
        }
        return (std::chrono::steady_clock::now() - start) / kChanges;
    }

    // Kills a writer during a write: a delay after a change, or after its next temporary file appears. It
    // polls the clock and the folder; there is no event to wait for.
    void KillAWriter(const Kind& kind, bool with_new_file, std::chrono::nanoseconds after) const {
        ChildProcess writer("store_writer", Forever(kind));
        ASSERT_TRUE(writer.ReadByte());
        const Moment patience = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
        while (with_new_file && !HasNewFile(kind) && std::chrono::steady_clock::now() < patience) {
        }
        const Moment end = std::chrono::steady_clock::now() + after;
        while (std::chrono::steady_clock::now() < end) {
        }
        writer.Kill();
    }

    bool HasNewFile(const Kind& kind) const { return folder.Has(std::string(kind.file) + ".new"); }

    // `others` unchanged entries and one changing entry are all valid.
    void ExpectWhole(const Kind& kind, int others) const {
        const std::vector<std::string> lines = LinesOf(StoreText(kind.store));
        ASSERT_EQ(lines.size(), static_cast<std::size_t>(others) + 1);
        const std::string start = kind.line("changing") + "\"";
        ASSERT_EQ(lines[0].find(start), 0u) << lines[0];
        const std::string text = lines[0].substr(start.size(), lines[0].size() - start.size() - 1);
        EXPECT_TRUE(IsWholeText(text)) << text;
        for (std::size_t i = 1; i < lines.size(); ++i) {
            EXPECT_NE(lines[i].find(std::string(4000, 'z')), std::string::npos) << lines[i];
        }
    }

    void KillWriters(const Kind& kind, int others) {
        for (int i = 0; i < others; ++i) {
            ASSERT_TRUE(kind.put("other" + std::to_string(i), std::string(4000, 'z')));
        }
        const auto change = TimeOfAChange(kind);
        int caught = 0;
        for (int i = 0; i < kKillsEach && !HasFailure(); ++i) {
            const bool with_new_file = i % 2 != 0;
            KillAWriter(kind, with_new_file, change * i / (with_new_file ? 20 * kKillsEach : kKillsEach));
            caught += HasNewFile(kind) ? 1 : 0;
            ExpectWhole(kind, others);
            ASSERT_TRUE(kind.put("changing", "written after kill " + std::to_string(i)));
            EXPECT_FALSE(HasNewFile(kind));
        }
        RecordProperty("killed_with_a_new_file", caught);
    }

    void WriteSideBySide(const Kind& kind) {
        constexpr int kEach = 100;
        const std::string count = std::to_string(kEach);
        ChildProcess first("store_writer", {folder.path(), kind.argument, "first", count});
        ChildProcess second("store_writer", {folder.path(), kind.argument, "second", count});
        EXPECT_EQ(first.Wait(), 0);
        EXPECT_EQ(second.Wait(), 0);
        const std::string text = StoreText(kind.store);
        EXPECT_EQ(LinesOf(text).size(), 2u * kEach);
        for (int i = 0; i < kEach; ++i) {
            for (const char* name : {"first", "second"}) {
                const std::string number = std::to_string(i);
                const std::string line = kind.line(name + number) + "\"" + number + "\"\n";
                EXPECT_NE(text.find(line), std::string::npos) << line;
            }
        }
    }

    StoresFolder folder;
};

TEST_F(StoresOfProcesses, OutliveAKilledWriterWhenTheyAreSmall) { KillWriters(kSetting, 0); }
TEST_F(StoresOfProcesses, OutliveAKilledWriterWhenTheyHaveGrown) { KillWriters(kSetting, 5); }
TEST_F(StoresOfProcesses, OutliveAKilledWriterWhenTheyAreLarge) { KillWriters(kSetting, 20); }
TEST_F(StoresOfProcesses, OutliveAKilledWriterOfASmallVault) { KillWriters(kCredential, 0); }
TEST_F(StoresOfProcesses, OutliveAKilledWriterOfALargeVault) { KillWriters(kCredential, 20); }

TEST_F(StoresOfProcesses, LoseNothingOfTwoThatWriteSettingsSideBySide) { WriteSideBySide(kSetting); }
TEST_F(StoresOfProcesses, LoseNothingOfTwoThatWriteCredentialsSideBySide) { WriteSideBySide(kCredential); }

// A change by one process is visible to the other's next call.
TEST_F(StoresOfProcesses, AreReadAgainByEveryCall) {
    EXPECT_EQ(StoreText("local"), "");
    ChildProcess writer("store_writer", {folder.path(), "setting", "key", "1"});
    EXPECT_EQ(writer.Wait(), 0);
    EXPECT_EQ(StoreText("local"), "\"key0\" String \"0\"\n");
}

}  // namespace
}  // namespace brindle
