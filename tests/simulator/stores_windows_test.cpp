// The files of the stores while another program, such as a virus scanner, has them open.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "stores.h"

namespace brindle {
namespace {

// Opens a file without FILE_SHARE_DELETE, and closes it on a thread after some time.
class OpenForAWhile {
public:
    OpenForAWhile(const WideText& path, DWORD sharing, DWORD milliseconds)
        : file_(CreateFileW(path.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr)),
          milliseconds_(milliseconds),
          thread_(CreateThread(nullptr, 0, &OpenForAWhile::Run, this, 0, nullptr)) {
        EXPECT_NE(file_, INVALID_HANDLE_VALUE);
    }
    OpenForAWhile(const OpenForAWhile&) = delete;
    OpenForAWhile& operator=(const OpenForAWhile&) = delete;
    ~OpenForAWhile() {
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
    }

private:
    static DWORD WINAPI Run(void* self) {
        const auto* open = static_cast<const OpenForAWhile*>(self);
        SleepEx(open->milliseconds_, FALSE);  // Sleep is the simulator's in this program
        CloseHandle(open->file_);
        return 0;
    }

    const HANDLE file_;
    const DWORD milliseconds_;
    const HANDLE thread_;
};

constexpr DWORD kSharedForReading = FILE_SHARE_READ;
constexpr DWORD kNotShared = 0;
constexpr DWORD kAWhile = 100;
constexpr DWORD kTooLong = 2000;  // longer than the simulator's second

class FilesInUse : public StoresInAFolder {
protected:
    void SetUp() override {
        StoresInAFolder::SetUp();
        ASSERT_EQ(InsertText("key", "old"), S_OK);
        ASSERT_EQ(AddCredential("resource", "user", "old"), S_OK);
    }
};

TEST_F(FilesInUse, AreReplacedAfterAWhile) {
    {
        const OpenForAWhile settings(folder.WidePathOf("roaming.json"), kSharedForReading, kAWhile);
        EXPECT_EQ(InsertText("key", "new"), S_OK);
    }
    const OpenForAWhile vault(folder.WidePathOf("vault.json"), kSharedForReading, kAWhile);
    EXPECT_EQ(AddCredential("resource", "user", "new"), S_OK);
    EXPECT_EQ(TextAt("key"), UTF16("new"));
    EXPECT_EQ(StoreText("vault"), "\"resource\" \"user\" \"new\"\n");
}

TEST_F(FilesInUse, AreReadAfterAWhile) {
    const OpenForAWhile settings(folder.WidePathOf("roaming.json"), kNotShared, kAWhile);
    EXPECT_EQ(TextAt("key"), UTF16("old"));
}

TEST_F(FilesInUse, AreDeletedAfterAWhile) {
    const OpenForAWhile settings(folder.WidePathOf("roaming.json"), kSharedForReading, kAWhile);
    EXPECT_TRUE(dialsim_clear_stores());
    EXPECT_FALSE(folder.Has("roaming.json"));
}

TEST_F(FilesInUse, OfAKilledWriterAreOverwrittenAfterAWhile) {
    folder.Write("roaming.json.new", "left behind");
    const OpenForAWhile left(folder.WidePathOf("roaming.json.new"), kSharedForReading, kAWhile);
    EXPECT_EQ(InsertText("key", "new"), S_OK);
}

TEST_F(FilesInUse, ForLongFailWithTheSystemsCodeAndStay) {
    {
        const OpenForAWhile settings(folder.WidePathOf("roaming.json"), kNotShared, kTooLong);
        Object value;
        EXPECT_EQ(Lookup("key", value), Code(0x80070020));
    }
    EXPECT_EQ(TextAt("key"), UTF16("old"));
}

}  // namespace
}  // namespace brindle
