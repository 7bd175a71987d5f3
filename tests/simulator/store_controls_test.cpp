// The control functions that write and print the stores.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "stores.h"

namespace brindle {
namespace {

using StoreControls = Stores;
INSTANTIATE_TEST_SUITE_P(Places, StoreControls, kBothPlaces, NameOf);

TEST_P(StoreControls, PutEntriesOfEveryType) {
    const struct {
        const char* type;
        const char* value;
        const char* shown;
    } rows[] = {
        {"String", "say \"hi\"", "String \"say \\\"hi\\\"\""},
        {"Int32", "-2147483648", "Int32 -2147483648"},
        {"UInt32", "4294967295", "UInt32 4294967295"},
        {"Int64", "-9223372036854775808", "Int64 -9223372036854775808"},
        {"UInt64", "18446744073709551615", "UInt64 18446744073709551615"},
        {"UInt8", "255", "UInt8 255"},
        {"Int16", "-32768", "Int16 -32768"},
        {"UInt16", "65535", "UInt16 65535"},
        {"Boolean", "true", "Boolean true"},
        {"Boolean", "false", "Boolean false"},
        {"composite", "ignored", "composite"},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(dialsim_put_setting("local", "key", row.type, row.value)) << row.type;
        EXPECT_EQ(StoreText("local"), std::string("\"key\" ") + row.shown + "\n");
    }
}

TEST_P(StoreControls, RefuseWhatTheStoresDoNotTake) {
    const struct {
        const char* store;
        const char* type;
        const char* value;
    } rows[] = {
        {"vault", "String", "text"},
        {"Roaming", "String", "text"},
        {"", "String", "text"},
        {"local", "Double", "1.5"},
        {"local", "string", "text"},
        {"local", "", ""},
        {"local", "Int32", "2147483648"},
        {"local", "Int32", "1.0"},
        {"local", "Int32", ""},
        {"local", "Int32", "one"},
        {"local", "Int32", "1 2"},
        {"local", "UInt8", "-1"},
        {"local", "UInt8", "256"},
        {"local", "Boolean", "1"},
        {"local", "Boolean", "True"},
        {"local", "UInt64", "18446744073709551616"},
        {"local", "Int16", "65536"},
        {"local", "Int32", "18446744073709551615"},
        {"local", "Int64", "9223372036854775808"},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(dialsim_put_setting(row.store, "key", row.type, row.value))
            << row.store << " " << row.type << " " << row.value;
    }
    EXPECT_FALSE(dialsim_put_setting("local", std::string(256, 'n').c_str(), "Int32", "1"));
    EXPECT_FALSE(dialsim_put_setting("local", "key", "String", std::string(4097, 'v').c_str()));
    EXPECT_EQ(StoreText("local"), "");
}

TEST_P(StoreControls, ShowEntriesInTheOrderOfTheirKeys) {
    for (const char* key : {"b", "a", "C", "ab", "\xC3\xA4"}) {
        ASSERT_TRUE(dialsim_put_setting("roaming", key, "Boolean", "true"));
    }
    EXPECT_EQ(StoreText("roaming"),
              "\"C\" Boolean true\n\"a\" Boolean true\n\"ab\" Boolean true\n\"b\" Boolean true\n"
              "\"\xC3\xA4\" Boolean true\n");
    EXPECT_EQ(StoreText("no such store"), "");
}

TEST_P(StoreControls, ClearEverythingDamagedOrNot) {
    dialsim_put_setting("roaming", "key", "Int32", "1");
    dialsim_put_credential("resource", "user", "secret");
    ASSERT_TRUE(PutStoreFile("local", "damaged"));
    EXPECT_TRUE(dialsim_clear_stores());
    for (const char* store : kStores) {
        EXPECT_EQ(StoreFile(store), std::nullopt) << store;
    }
    EXPECT_TRUE(dialsim_clear_stores());
}

TEST_P(StoreControls, PutAndGiveFilesByteByByte) {
    std::string bytes;
    for (const char* store : kStores) {
        EXPECT_TRUE(PutStoreFile(store, bytes));
        EXPECT_EQ(StoreFile(store), bytes) << store;
        bytes += std::string("\0\r\n\xFF", 4) + store;
    }
    EXPECT_EQ(StoreFile("roaming"), "");
    EXPECT_TRUE(PutStoreFile("roaming", R"({"settings": []})"));
    EXPECT_EQ(StoreText("roaming"), "");
    EXPECT_EQ(StoreFile("roaming"), R"({"settings": []})");
}

TEST_P(StoreControls, GiveTheBeginningOfAFileThatTheBufferCannotHold) {
    ASSERT_TRUE(PutStoreFile("local", "content"));
    char buffer[5] = "????";
    EXPECT_EQ(dialsim_store_file("local", buffer, sizeof buffer), sizeof "content");
    EXPECT_STREQ(buffer, "cont");
}

TEST_P(StoreControls, KnowNoFilesOfOtherStores) {
    for (const char* store : {"", "Roaming", "local.json", "lock"}) {
        EXPECT_FALSE(PutStoreFile(store, "content")) << store;
        EXPECT_EQ(dialsim_store_file(store, nullptr, 0), 0u) << store;
    }
}

TEST_P(StoreControls, OfScriptsArePackagedUnpackagedAndShowStores) {
    dialsim_set_packaged(false);
    ComPtr<abi::IApplicationData> data;
    EXPECT_TRUE(dialsim_play("packaged", 0, nullptr, 0));
    EXPECT_EQ(CurrentData(data), S_OK);
    EXPECT_TRUE(dialsim_play("unpackaged", 0, nullptr, 0));
    EXPECT_EQ(CurrentData(data), Code(0x80073D54));
    dialsim_put_setting("roaming", "brush", "String", "Palette");
    dialsim_put_credential("resource", "user", "secret");
    testing::internal::CaptureStdout();
    EXPECT_TRUE(dialsim_play("show stores", 0, nullptr, 0));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "roaming:\n\"brush\" String \"Palette\"\nlocal:\nvault:\n\"resource\" \"user\" \"secret\"\n");
}

}  // namespace
}  // namespace brindle
