// The stores on the native system: file modes, threads, and killed processes.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <string>
#include <thread>
#include <vector>

#include "support/child_process.h"
#include "support/simulator_fixture.h"
#include "support/stores_folder.h"

namespace brindle {
namespace {

class NativeStores : public SimulatorTest {
protected:
    static mode_t ModeOf(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
        return status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    }

    // Writes from four threads.
    static void WriteSideBySide() {
        constexpr int kEach = 25;
        std::vector<std::thread> threads;
        for (const char* name : {"a", "b", "c", "d"}) {
            threads.emplace_back([name] {
                for (int i = 0; i < kEach; ++i) {
                    const std::string key = name + std::to_string(i);
                    EXPECT_TRUE(dialsim_put_setting("local", key.c_str(), "Int32", "1"));
                    EXPECT_TRUE(dialsim_put_credential("resource", key.c_str(), "secret"));
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(LinesOf(StoreText("local")).size(), threads.size() * kEach);
        EXPECT_EQ(LinesOf(StoreText("vault")).size(), threads.size() * kEach);
        EXPECT_TRUE(dialsim_clear_stores());
    }

    StoresFolder folder;
};

TEST_F(NativeStores, HaveAVaultThatOnlyItsOwnerMayRead) {
    ASSERT_TRUE(dialsim_put_credential("resource", "user", "secret"));
    EXPECT_EQ(ModeOf(folder.PathOf("vault.json")), 0600u);
    // A killed process's leftover file is never reused: others may be able to read it.
    folder.Write("vault.json.new", "left behind");
    ASSERT_EQ(chmod(folder.PathOf("vault.json.new").c_str(), 0666), 0);
    ASSERT_TRUE(dialsim_put_credential("resource", "user", "another secret"));
    EXPECT_EQ(ModeOf(folder.PathOf("vault.json")), 0600u);
    ASSERT_TRUE(dialsim_clear_stores());
    ASSERT_TRUE(PutStoreFile("vault", "put as it is"));
    EXPECT_EQ(ModeOf(folder.PathOf("vault.json")), 0600u);
}

TEST_F(NativeStores, CreateFoldersThatOnlyTheirOwnerMayRead) {
    const std::string outer = folder.PathOf("outer");
    const std::string inner = outer + "/inner";
    dialsim_set_stores(inner.c_str());
    ASSERT_TRUE(dialsim_put_setting("local", "key", "Int32", "1"));
    EXPECT_EQ(ModeOf(outer), 0700u);
    EXPECT_EQ(ModeOf(inner), 0700u);
    EXPECT_TRUE(dialsim_clear_stores());
    folder.Remove("outer/inner/lock");
    folder.RemoveFolder("outer/inner");
    folder.RemoveFolder("outer");
}

// During its lifetime, the system kills a child process that writes more than this to a file.
class FileSizeLimit {
public:
    explicit FileSizeLimit(std::size_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

private:
    rlimit before_{};
};

TEST_F(NativeStores, SurviveAWriterThatIsKilledAtAnyByte) {
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(dialsim_put_setting("local", std::to_string(i).c_str(), "String",
                                        std::string(1000, 'z').c_str()));
    }
    const std::string before = folder.Read("local.json").value();
    for (std::size_t part = 1; part < 40; ++part) {
        const std::size_t limit = before.size() * part / 40;
        {
            const FileSizeLimit file_size(limit);
            ChildProcess writer("store_writer", {folder.path(), "setting", "key", "1"});
            EXPECT_EQ(writer.Wait(), ChildProcess::kKilled) << limit;
        }
        EXPECT_EQ(folder.Read("local.json"), before) << limit;
        EXPECT_EQ(folder.Read("local.json.new").value_or("none").size(), limit);
    }
    EXPECT_TRUE(dialsim_put_setting("local", "key", "Int32", "1"));
    EXPECT_FALSE(folder.Has("local.json.new"));
}

TEST_F(NativeStores, LoseNothingOfThreadsThatWriteSideBySide) { WriteSideBySide(); }

TEST_F(NativeStores, LoseNothingOfThreadsThatWriteSideBySideInMemory) {
    dialsim_set_stores(DIALSIM_MEMORY);
    WriteSideBySide();
}

}  // namespace
}  // namespace brindle
