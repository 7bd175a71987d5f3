// The files of the stores: format, and handling of damaged files.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "stores.h"

namespace brindle {
namespace {

constexpr HRESULT kSettingsDamaged = Code(0x80073DB8);
constexpr HRESULT kVaultDamaged = Code(0x80070570);

using StoreFiles = Stores;
INSTANTIATE_TEST_SUITE_P(Places, StoreFiles, kBothPlaces, NameOf);

TEST_P(StoreFiles, OutliveAReset) {
    dialsim_put_setting("roaming", "key", "Int32", "1");
    dialsim_reset();
    EXPECT_EQ(StoreText("roaming"), "\"key\" Int32 1\n");
}

TEST_P(StoreFiles, AreMadeForAPersonToRead) {
    dialsim_put_setting("roaming", "runs", "Int32", "3");
    dialsim_put_setting("roaming", "brush", "String", "Palette");
    EXPECT_EQ(StoreFile("roaming"), R"({
  "settings": [
    {
      "key": "brush",
      "type": "String",
      "value": "Palette"
    },
    {
      "key": "runs",
      "type": "Int32",
      "value": 3
    }
  ]
}
)");
}

TEST_P(StoreFiles, CanBeWrittenByAPerson) {
    PutStoreFile("local",
                 "{\"settings\": [{\"value\": 3, \"key\": \"runs\", \"type\": \"Int32\"},\r\n"
                 "  {\"key\": \"a\", \"type\": \"String\", \"value\": [55357, 98]}]}");
    EXPECT_EQ(StoreText("local"), "\"a\" String [55357,98]\n\"runs\" Int32 3\n");
    EXPECT_EQ(TextAt("a", Where::Local), (WideText{static_cast<WCHAR>(55357), WCHAR('b')}));
}

TEST_P(StoreFiles, AreNotWrittenWhereNothingChanges) {
    Values()->Remove(Text("key"));
    Values()->Clear();
    EXPECT_EQ(StoreFile("roaming"), std::nullopt);
    const std::string hand_written = "{\"settings\":[{\"key\":\"key\",\"type\":\"Int32\",\"value\":1}]}";
    PutStoreFile("roaming", hand_written);
    EXPECT_EQ(Values()->Remove(Text("another")), S_OK);
    EXPECT_TRUE(dialsim_put_setting("roaming", "key", "Int32", "1"));
    EXPECT_EQ(StoreFile("roaming"), hand_written);
}

// Every operation fails, and the file is unchanged.
void ExpectSettingsDamaged(const std::string& content) {
    PutStoreFile("roaming", content);
    const auto values = Values();
    Object value;
    EXPECT_EQ(values->Lookup(Text("key"), value.Put()), kSettingsDamaged) << content;
    EXPECT_FALSE(value);
    EXPECT_EQ(values->Remove(Text("key")), kSettingsDamaged) << content;
    EXPECT_EQ(values->Clear(), kSettingsDamaged) << content;
    EXPECT_EQ(InsertText("key", "text"), kSettingsDamaged) << content;
    EXPECT_FALSE(dialsim_put_setting("roaming", "key", "Int32", "1")) << content;
    EXPECT_EQ(StoreText("roaming"), "damaged\n") << content;
    EXPECT_EQ(StoreFile("roaming"), content);
}

void ExpectVaultDamaged(const std::string& content) {
    PutStoreFile("vault", content);
    const auto vault = OpenVault();
    Credential credential;
    Credentials list;
    EXPECT_EQ(vault->Retrieve(Text("a"), Text("b"), credential.Put()), kVaultDamaged) << content;
    EXPECT_EQ(vault->FindAllByUserName(Text("b"), list.Put()), kVaultDamaged) << content;
    EXPECT_EQ(vault->FindAllByResource(Text("a"), list.Put()), kVaultDamaged) << content;
    EXPECT_EQ(vault->RetrieveAll(list.Put()), kVaultDamaged) << content;
    EXPECT_EQ(vault->Remove(Made("a", "b", "c").Get()), kVaultDamaged) << content;
    EXPECT_EQ(AddCredential("a", "b", "c"), kVaultDamaged) << content;
    EXPECT_FALSE(dialsim_put_credential("a", "b", "c")) << content;
    EXPECT_EQ(StoreText("vault"), "damaged\n") << content;
    EXPECT_EQ(StoreFile("vault"), content);
}

// Standard error reports the damage; these tests check everything else.
class DamagedStores : public Stores {
protected:
    void SetUp() override {
        Stores::SetUp();
        testing::internal::CaptureStderr();
    }
    void TearDown() override {
        testing::internal::GetCapturedStderr();
        Stores::TearDown();
    }
};

INSTANTIATE_TEST_SUITE_P(Places, DamagedStores, kBothPlaces, NameOf);

// The last newline carries no data.
TEST_P(DamagedStores, AreThoseCutOffAnywhere) {
    dialsim_put_setting("roaming", "key", "String", "text");
    dialsim_put_setting("roaming", "runs", "Int32", "12");
    dialsim_put_credential("a", "b", "c");
    const std::string settings = StoreFile("roaming").value();
    const std::string vault = StoreFile("vault").value();
    for (std::size_t length = 0; length < settings.size() - 1 && !HasFailure(); ++length) {
        ExpectSettingsDamaged(settings.substr(0, length));
    }
    for (std::size_t length = 0; length < vault.size() - 1 && !HasFailure(); ++length) {
        ExpectVaultDamaged(vault.substr(0, length));
    }
    PutStoreFile("roaming", settings.substr(0, settings.size() - 1));
    EXPECT_EQ(StoreText("roaming"), "\"key\" String \"text\"\n\"runs\" Int32 12\n");
}

TEST_P(DamagedStores, AreSettingsOfAnotherShape) {
    for (const char* entry : {"",
                              "1",
                              "[]",
                              "{}",
                              R"({"key":"a","type":"Int32"})",
                              R"({"key":"a","value":1})",
                              R"({"type":"Int32","value":1})",
                              R"({"key":"a","type":"Int32","value":1,"more":1})",
                              R"({"key":"a","key":"b","type":"Int32","value":1})",
                              R"({"key":"a","type":"Int32","valeu":1})",
                              R"({"key":1,"type":"Int32","value":1})",
                              R"({"key":"a","type":1,"value":1})",
                              R"({"key":"a","type":"Int","value":1})",
                              R"({"key":"a","type":"Int32","value":"1"})",
                              R"({"key":"a","type":"Int32","value":1.5})",
                              R"({"key":"a","type":"Int32","value":2147483648})",
                              R"({"key":"a","type":"Int32","value":18446744073709551615})",
                              R"({"key":"a","type":"Int64","value":9223372036854775808})",
                              R"({"key":"a","type":"Int32","value":null})",
                              R"({"key":"a","type":"UInt64","value":-1})",
                              R"({"key":"a","type":"UInt64","value":1e999})",
                              R"({"key":"a","type":"Boolean","value":1})",
                              R"({"key":"a","type":"String","value":1})",
                              R"({"key":"a","type":"String","value":[65536]})",
                              R"({"key":"a","type":"String","value":[-1]})",
                              R"({"key":"a","type":"String","value":["a"]})",
                              R"({"key":"a","type":"composite","value":1})",
                              R"({"key":"a","type":"Int32","value":1},{"key":"a","type":"Int32","value":1})",
                              R"({"key":"a","type":"String","value":"\uD83D"})",
                              "{\"key\":\"a\",\"type\":\"String\",\"value\":\"\xFF\"}",
                              "{\"key\":\"a\",\"type\":\"String\",\"value\":\"\xED\xA0\xBD\"}"}) {
        ExpectSettingsDamaged(std::string("{\"settings\":[") + entry + (*entry == '\0' ? "," : "") + "]}");
    }
    for (const char* content :
         {"", " ", "null", "1", "[]", "{}", R"({"settings":{}})", R"({"settings":[],"more":1})",
          R"({"settings":[{"key":"a","type":"Int32","value":1}],"settings":[]})", R"({"credentials":[]})",
          "\xFF\xFE{", "{\"settings\":[]}}", "not a store"}) {
        ExpectSettingsDamaged(content);
    }
    ExpectSettingsDamaged(std::string(100000, '['));
}

TEST_P(DamagedStores, AreVaultsOfAnotherShape) {
    for (const char* content : {"", "null", "[]", "{}", R"({"credentials":{}})", R"({"settings":[]})",
                                R"({"credentials":[1]})", R"({"credentials":[{"resource":"a","user":"b"}]})",
                                R"({"credentials":[{"resource":"a","user":"b","password":1}]})",
                                R"({"credentials":[{"resource":"a","user":"b","password":"c","user":"d"}]})",
                                R"({"credentials":[{"resource":"a","user":"b","password":"c","more":1}]})",
                                R"({"credentials":[{"resource":"a","user":"b","password":"c"},)"
                                R"({"resource":"a","user":"b","password":"d"}]})"}) {
        ExpectVaultDamaged(content);
    }
}

TEST_P(DamagedStores, LeaveTheOthersUnchanged) {
    PutStoreFile("roaming", "damaged");
    EXPECT_EQ(InsertText("key", "text", Where::Local), S_OK);
    EXPECT_EQ(AddCredential("a", "b", "c"), S_OK);
    EXPECT_EQ(StoreText("local"), "\"key\" String \"text\"\n");
}

// The output on standard error of a read.
std::string ReportedError(const char* store) {
    testing::internal::CaptureStderr();
    StoreText(store);
    return testing::internal::GetCapturedStderr();
}

TEST_P(StoreFiles, ThatAreDamagedAreReportedOnce) {
    PutStoreFile("local", "{\n  \"settings\": [x]\n}\n");
    EXPECT_EQ(ReportedError("local"),
              "dialsim: " + path +
                  "/local.json is damaged and not changed: line 2, column 16: invalid or incomplete "
                  "JSON\n");
    EXPECT_EQ(ReportedError("local"), "");
    PutStoreFile("local", R"({"settings": []})");
    EXPECT_EQ(ReportedError("local"), "");
    PutStoreFile("local", R"({"settings": [{"key": "a", "type": "Int32", "value": 1}, {}]})");
    EXPECT_EQ(ReportedError("local"),
              "dialsim: " + path + "/local.json is damaged and not changed: entry 2: expected 3 members\n");
}

TEST_P(StoreFiles, ThatAreDamagedDoNotPrintTheirPasswords) {
    dialsim_put_credential("resource", "user", "secret");
    const std::string valid = StoreFile("vault").value();
    for (const std::string& damaged : {valid.substr(0, valid.find("secret") + 6), "[" + valid + "]"}) {
        PutStoreFile("vault", valid);
        EXPECT_EQ(ReportedError("vault"), "");
        PutStoreFile("vault", damaged);
        const std::string reported = ReportedError("vault");
        EXPECT_NE(reported, "");
        EXPECT_EQ(reported.find("secret"), std::string::npos) << reported;
    }
}

}  // namespace
}  // namespace brindle
