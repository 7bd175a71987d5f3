// Locations of the stores: a folder, memory, and the environment's choice.
#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "stores.h"
#include "support/environment_variable.h"

namespace brindle {
namespace {

constexpr HRESULT kDenied = Code(0x80070005);

TEST_F(StoresInAFolder, ThatCannotBeReadFailWithTheSystemsCode) {
    folder.MakeFolder("roaming.json");
    Object value;
    EXPECT_EQ(Lookup("key", value), kDenied);
    EXPECT_EQ(StoreFile("roaming"), std::nullopt);
    folder.RemoveFolder("roaming.json");
    EXPECT_EQ(Lookup("key", value), S_OK);
}

TEST_F(StoresInAFolder, ThatCannotBeWrittenFailWithTheSystemsCodeAndStay) {
    ASSERT_EQ(InsertText("key", "old"), S_OK);
    folder.MakeFolder("roaming.json.new");
    EXPECT_EQ(InsertText("key", "new"), kDenied);
    EXPECT_FALSE(PutStoreFile("roaming", "content"));
    EXPECT_EQ(TextAt("key"), UTF16("old"));
    folder.RemoveFolder("roaming.json.new");
    EXPECT_EQ(InsertText("key", "new"), S_OK);
}

TEST_F(StoresInAFolder, InNoFolderFailWithTheSystemsCode) {
    folder.Write("file", "no folder");
    dialsim_set_stores(folder.PathOf("file").c_str());
    EXPECT_EQ(InsertText("key", "text"), Code(0x80070003));
    EXPECT_FALSE(dialsim_clear_stores());
    EXPECT_FALSE(PutStoreFile("roaming", "content"));
    EXPECT_EQ(StoreFile("roaming"), std::nullopt);
    folder.Remove("file");
}

// Host and library report no lost setting.
TEST_F(StoresInAFolder, ThatCannotBeWrittenAreReportedOnceForEachFolder) {
    folder.Write("file", "no folder");
    const std::string no_folder = folder.PathOf("file");
    const std::string below = folder.PathOf("file/below");
    testing::internal::CaptureStderr();
    for (const std::string& path : {no_folder, below, no_folder}) {
        dialsim_set_stores(path.c_str());
        EXPECT_NE(InsertText("key", "text"), S_OK);
        EXPECT_NE(AddCredential("resource", "user", "secret"), S_OK);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "dialsim: settings cannot be stored in '" + no_folder + "' (80070003)\n" +
                  "dialsim: settings cannot be stored in '" + below + "' (80070003)\n");
    folder.Remove("file");
}

TEST_F(StoresInAFolder, WithAFileThatCannotBeReplacedAreReported) {
    ASSERT_EQ(InsertText("key", "old"), S_OK);
    folder.MakeFolder("roaming.json.new");
    testing::internal::CaptureStderr();
    EXPECT_EQ(InsertText("key", "new"), kDenied);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "dialsim: settings cannot be stored in '" + folder.path() + "' (80070005)\n");
    folder.RemoveFolder("roaming.json.new");
}

TEST_F(StoresInAFolder, AreTheFilesThere) {
    const std::string bytes("\0\r\n\xFF", 4);
    for (const char* store : kStores) {
        const std::string file = std::string(store) + ".json";
        EXPECT_TRUE(PutStoreFile(store, bytes));
        EXPECT_EQ(folder.Read(file), bytes) << store;
        folder.Write(file, store);
        EXPECT_EQ(StoreFile(store), store);
    }
}

TEST_F(StoresInAFolder, AreClearedWithWhatAKilledWriterHasLeftBehind) {
    folder.Write("vault.json.new", "left behind");
    EXPECT_TRUE(dialsim_clear_stores());
    EXPECT_FALSE(folder.Has("vault.json.new"));
}

// Writes to the default folder, and deletes it.
void ExpectStoresIn(const StoresFolder& folder, const std::vector<std::string>& below) {
    dialsim_set_stores(nullptr);
    std::string path;
    std::vector<std::string> made;
    for (const std::string& name : below) {
        path += (path.empty() ? "" : "/") + name;
        made.insert(made.begin(), path);
    }
    EXPECT_TRUE(dialsim_put_setting("local", "key", "Int32", "1"));
    EXPECT_TRUE(folder.Has(path + "/local.json")) << path;
    EXPECT_TRUE(dialsim_clear_stores());
    folder.Remove(path + "/lock");
    for (const std::string& each : made) {
        folder.RemoveFolder(each);
    }
}

TEST_F(StoresInAFolder, AreInTheFolderOfTheEnvironment) {
    const EnvironmentVariable stores("DIALSIM_STORES", folder.PathOf("some/where"));
    ExpectStoresIn(folder, {"some", "where"});
}

TEST_F(StoresInAFolder, AreInTheUsersOwnDataOtherwise) {
    const EnvironmentVariable stores("DIALSIM_STORES", "");
#ifdef _WIN32
    const EnvironmentVariable data("LOCALAPPDATA", folder.path());
    ExpectStoresIn(folder, {"dialsim"});
#else
    const EnvironmentVariable home("HOME", folder.path());
    {
        const EnvironmentVariable state("XDG_STATE_HOME", folder.PathOf("state"));
        ExpectStoresIn(folder, {"state", "dialsim"});
    }
    const EnvironmentVariable no_state("XDG_STATE_HOME", "");
    ExpectStoresIn(folder, {".local", "state", "dialsim"});
    const EnvironmentVariable no_home("HOME", "");
    EXPECT_FALSE(dialsim_put_setting("local", "key", "Int32", "1"));
#endif
}

using StoresInMemory = StoresInAFolder;

// Each location keeps its content while the other one is used.
TEST_F(StoresInMemory, AreApartFromThoseInAFolder) {
    dialsim_put_setting("roaming", "key", "String", "in the folder");
    dialsim_set_stores(DIALSIM_MEMORY);
    EXPECT_EQ(StoreText("roaming"), "");
    dialsim_put_setting("roaming", "key", "String", "in memory");
    dialsim_put_setting("local", "key", "String", "in memory");
    dialsim_put_credential("resource", "user", "secret");
    dialsim_set_stores(folder.path().c_str());
    EXPECT_EQ(StoreText("roaming"), "\"key\" String \"in the folder\"\n");
    EXPECT_FALSE(folder.Has("local.json"));
    EXPECT_FALSE(folder.Has("vault.json"));
    EXPECT_TRUE(dialsim_clear_stores());
    dialsim_set_stores(DIALSIM_MEMORY);
    EXPECT_EQ(StoreText("roaming"), "\"key\" String \"in memory\"\n");
    EXPECT_EQ(StoreText("vault"), "\"resource\" \"user\" \"secret\"\n");
    EXPECT_TRUE(dialsim_clear_stores());
}

TEST_F(StoresInMemory, MakeNoFolder) {
    dialsim_set_stores(DIALSIM_MEMORY);
    EXPECT_TRUE(dialsim_put_setting("local", "key", "Int32", "1"));
    EXPECT_EQ(std::fopen(DIALSIM_MEMORY "/lock", "rb"), nullptr);
    EXPECT_TRUE(dialsim_clear_stores());
}

TEST_F(StoresInMemory, MayBeThoseOfTheEnvironment) {
    const EnvironmentVariable stores("DIALSIM_STORES", DIALSIM_MEMORY);
    dialsim_set_stores(DIALSIM_MEMORY);
    dialsim_put_setting("local", "key", "Int32", "1");
    dialsim_set_stores(nullptr);
    EXPECT_EQ(StoreText("local"), "\"key\" Int32 1\n");
    EXPECT_TRUE(dialsim_clear_stores());
}

}  // namespace
}  // namespace brindle
