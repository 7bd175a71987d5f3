// Text settings: stores, search order, and conditions of a write.
#include <cstdio>

#include "settings.h"
#include "support/edges.h"

namespace {

using TextSettings = Settings;

constexpr char kSearchWithoutSuccess[] =
    "RoGetActivationFactory(Windows.Security.Credentials.PasswordVault)\n"
    "IActivationFactory::ActivateInstance(Windows.Security.Credentials.PasswordVault)\n"
    "IPasswordVault::FindAllByUserName(key) = 80070490\n";
constexpr char kSearchWithSuccess[] =
    "RoGetActivationFactory(Windows.Security.Credentials.PasswordVault)\n"
    "IActivationFactory::ActivateInstance(Windows.Security.Credentials.PasswordVault)\n"
    "IPasswordVault::FindAllByUserName(key)\n"
    "IVectorView<PasswordCredential>::get_Size()\n"
    "IPasswordVault::Retrieve(host, key)\n"
    "IPasswordCredential::get_Password()\n";
constexpr char kNewCredential[] =
    "RoGetActivationFactory(Windows.Security.Credentials.PasswordCredential)\n"
    "ICredentialFactory::CreatePasswordCredential(host, key)\n"
    "IPasswordVault::Add(host, key)\n";
constexpr char kNewText[] =
    "RoGetActivationFactory(Windows.Foundation.PropertyValue)\n"
    "IPropertyValueStatics::CreateString()\n"
    "IMap<String, Object>::Insert(key)\n";

// --- reading

TEST_F(TextSettings, AKeyThatWasNeverWrittenIsAbsent) {
    EXPECT_EQ(get_string_from_storage(kResource, UTF16("never")), nullptr);
}

TEST_F(TextSettings, ATextIsLookedForInTheRoamingContainerTheVaultAndTheLocalContainer) {
    EXPECT_FALSE(GetText().has_value());
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + kSearchWithoutSuccess + ContainerLookup("Local"));
}

TEST_F(TextSettings, TheRoamingContainerWinsOverTheOthers) {
    Put("roaming", "String", "first");
    PutInVault("second");
    Put("local", "String", "third");
    EXPECT_EQ(GetText(), UTF16("first"));
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + "IPropertyValue::GetString()\n");
}

TEST_F(TextSettings, TheVaultWinsOverTheLocalContainer) {
    PutInVault("second");
    Put("local", "String", "third");
    EXPECT_EQ(GetText(), UTF16("second"));
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + kSearchWithSuccess);
}

TEST_F(TextSettings, TheLocalContainerIsTheLastResort) {
    Put("local", "String", "third");
    EXPECT_EQ(GetText(), UTF16("third"));
}

TEST_F(TextSettings, AnEntryOfAnotherKindIsIgnored) {
    for (const char* type : {"Int32", "UInt32", "UInt8", "composite"}) {
        Put("roaming", type, "1");
        PutInVault("second");
        EXPECT_EQ(GetText(), UTF16("second")) << type;
    }
    ASSERT_TRUE(dialsim_clear_stores());
    Put("local", "Int32", "1");
    EXPECT_FALSE(GetText().has_value());
}

TEST_F(TextSettings, AnEmptyTextIsFoundAndEndsTheSearch) {
    Put("roaming", "String", "");
    PutInVault("second");
    EXPECT_EQ(GetText(), UTF16(""));
    EXPECT_EQ(dialsim_calls(kNewVault), 0u);
}

TEST_F(TextSettings, ACredentialOfAnotherResourceIsNotRead) {
    PutInVault("theirs", "other");
    EXPECT_FALSE(GetText().has_value());
    EXPECT_EQ(dialsim_calls("IPasswordVault::Retrieve(host, key)"), 1u);
    EXPECT_EQ(GetText(kOtherResource), UTF16("theirs"));
}

TEST_F(TextSettings, BehindACredentialOfAnotherResourceTheLocalContainerIsRead) {
    PutInVault("theirs", "other");
    Put("local", "String", "third");
    EXPECT_EQ(GetText(), UTF16("third"));
}

TEST_F(TextSettings, EachResourceHasItsOwnCredential) {
    PutInVault("ours");
    PutInVault("theirs", "other");
    EXPECT_EQ(GetText(), UTF16("ours"));
    EXPECT_EQ(GetText(kOtherResource), UTF16("theirs"));
}

TEST_F(TextSettings, ContainersDoNotKnowResources) {
    EXPECT_EQ(SetText(UTF16("text")), 0);
    EXPECT_EQ(GetText(kOtherResource), UTF16("text"));
    ASSERT_TRUE(dialsim_clear_stores());
    Put("local", "String", "third");
    EXPECT_EQ(GetText(kOtherResource), UTF16("third"));
}

TEST_F(TextSettings, KeysAreKeptApart) {
    EXPECT_EQ(set_string_in_storage(kResource, UTF16("one"), UTF16("1")), 0);
    EXPECT_EQ(set_string_in_storage(kResource, UTF16("two"), UTF16("2")), 0);
    EXPECT_EQ(GetText(kResource, UTF16("one")), UTF16("1"));
    EXPECT_EQ(GetText(kResource, UTF16("two")), UTF16("2"));
}

TEST_F(TextSettings, EveryAnswerIsAFreshBufferOfTheTextAndItsEnd) {
    EXPECT_EQ(SetText(UTF16("brush")), 0);
    BrindleChar* first = get_string_from_storage(kResource, kKey);
    BrindleChar* second = get_string_from_storage(kResource, kKey);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(dialsim_calls("wcscpy_s(6)"), 2u);
    first[0] = 'c';  // the host owns the buffer
    EXPECT_EQ(WideText(second), UTF16("brush"));
    std::free(first);
    EXPECT_EQ(WideText(second), UTF16("brush"));
    std::free(second);
    EXPECT_EQ(GetText(), UTF16("brush"));
}

TEST_F(TextSettings, AnEmptyTextIsABufferOfItsEndAlone) {
    Put("roaming", "String", "");
    EXPECT_EQ(GetText(), UTF16(""));
    EXPECT_EQ(dialsim_calls("wcscpy_s(1)"), 1u);
}

// --- writing

TEST_F(TextSettings, ANewTextIsWrittenToAllThreePlacesInTurn) {
    EXPECT_EQ(SetText(UTF16("new")), 0);
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + kNewText + kSearchWithoutSuccess + kNewCredential +
                           ContainerLookup("Local") + kNewText);
    EXPECT_EQ(StoreText("roaming"), StringEntry("new"));
    EXPECT_EQ(StoreText("vault"), Credential("host", "new"));
    EXPECT_EQ(StoreText("local"), StringEntry("new"));
    EXPECT_EQ(GetText(), UTF16("new"));
}

TEST_F(TextSettings, AChangedTextIsRemovedAndWrittenAgainEverywhere) {
    EXPECT_EQ(SetText(UTF16("old")), 0);
    dialsim_clear_journal();
    EXPECT_EQ(SetText(UTF16("new")), 0);
    const std::string replacement =
        "IPropertyValue::GetString()\nIMap<String, Object>::Remove(key)\n" + std::string(kNewText);
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + replacement + kSearchWithSuccess +
                           "IPasswordVault::Remove(host, key)\n" + kNewCredential + ContainerLookup("Local") +
                           replacement);
    EXPECT_EQ(StoreText("roaming"), StringEntry("new"));
    EXPECT_EQ(StoreText("vault"), Credential("host", "new"));
    EXPECT_EQ(StoreText("local"), StringEntry("new"));
}

TEST_F(TextSettings, TheSameTextOnceMoreIsWrittenNowhere) {
    EXPECT_EQ(SetText(UTF16("same")), 0);
    dialsim_clear_journal();
    EXPECT_EQ(SetText(UTF16("same")), 0);
    const std::string comparison = "IPropertyValue::GetString()\n";
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + comparison + kSearchWithSuccess +
                           ContainerLookup("Local") + comparison);
}

TEST_F(TextSettings, OnlyThePlaceThatDiffersIsWritten) {
    EXPECT_EQ(SetText(UTF16("same")), 0);
    Put("local", "String", "other");
    dialsim_clear_journal();
    EXPECT_EQ(SetText(UTF16("same")), 0);
    EXPECT_EQ(ContainerWrites(), 2u);
    EXPECT_EQ(VaultWrites(), 0u);
    EXPECT_EQ(StoreText("local"), StringEntry("same"));
}

TEST_F(TextSettings, TextsThatDifferInCaseOrLengthAreDifferent) {
    EXPECT_EQ(SetText(UTF16("text")), 0);
    for (const BrindleChar* text :
         {UTF16("Text"), UTF16("texts"), UTF16("tex"), UTF16(" tex"), UTF16("te\u0445t")}) {
        dialsim_clear_journal();
        EXPECT_EQ(SetText(text), 0);
        EXPECT_EQ(ContainerWrites(), 4u);
        EXPECT_EQ(VaultWrites(), 2u);
        EXPECT_EQ(GetText(), text);
    }
}

TEST_F(TextSettings, TextsEndAtTheFirstNul) {
    EXPECT_EQ(set_string_in_storage(UTF16("host\0x"), UTF16("key\0x"), UTF16("text\0x")), 0);
    EXPECT_EQ(StoreText("roaming"), StringEntry("text"));
    EXPECT_EQ(StoreText("vault"), Credential("host", "text"));
    dialsim_clear_journal();
    EXPECT_EQ(set_string_in_storage(UTF16("host\0y"), UTF16("key\0y"), UTF16("text\0y")), 0);
    EXPECT_EQ(ContainerWrites() + VaultWrites(), 0u);
}

TEST_F(TextSettings, AnEntryOfAnotherKindIsOverwrittenWithoutBeingRemoved) {
    for (const char* type : {"Int32", "UInt64", "Int16", "composite"}) {
        Put("roaming", type, "1");
        Put("local", type, "1");
        dialsim_clear_journal();
        EXPECT_EQ(SetText(UTF16("1")), 0);
        EXPECT_EQ(dialsim_calls(kRemoveEntry), 0u) << type;
        EXPECT_EQ(StoreText("roaming"), StringEntry("1")) << type;
        EXPECT_EQ(StoreText("local"), StringEntry("1")) << type;
    }
}

TEST_F(TextSettings, ACredentialOfAnotherResourceBlocksTheVault) {
    PutInVault("theirs", "other");
    EXPECT_EQ(SetText(UTF16("ours")), 0);
    EXPECT_EQ(StoreText("vault"), Credential("other", "theirs"));
    EXPECT_EQ(VaultWrites(), 0u);
    EXPECT_EQ(StoreText("roaming"), StringEntry("ours"));
    EXPECT_EQ(StoreText("local"), StringEntry("ours"));
}

TEST_F(TextSettings, BesideACredentialOfAnotherResourceTheOwnOneChanges) {
    PutInVault("old");
    PutInVault("theirs", "other");
    EXPECT_EQ(SetText(UTF16("new")), 0);
    EXPECT_EQ(StoreText("vault"), Credential("host", "new") + Credential("other", "theirs"));
}

TEST_F(TextSettings, AnEmptyTextIsKeptInTheContainersAlone) {
    EXPECT_EQ(SetText(UTF16("")), 0);
    EXPECT_EQ(StoreText("roaming"), StringEntry(""));
    EXPECT_EQ(StoreText("vault"), "");
    EXPECT_EQ(StoreText("local"), StringEntry(""));
    EXPECT_EQ(GetText(), UTF16(""));
}

// The vault refuses it after the old one is removed.
TEST_F(TextSettings, AnEmptyTextRemovesTheOldCredential) {
    EXPECT_EQ(SetText(UTF16("old")), 0);
    EXPECT_EQ(SetText(UTF16("")), 0);
    EXPECT_EQ(StoreText("vault"), "");
    EXPECT_EQ(GetText(), UTF16(""));
}

TEST_F(TextSettings, TheSameEmptyTextOnceMoreIsWrittenNowhere) {
    EXPECT_EQ(SetText(UTF16("")), 0);
    EXPECT_EQ(dialsim_calls("ICredentialFactory::CreatePasswordCredential(host, key)"), 1u) << "and refused";
    dialsim_clear_journal();
    EXPECT_EQ(SetText(UTF16("")), 0);
    EXPECT_EQ(ContainerWrites() + VaultWrites(), 0u);
}

TEST_F(TextSettings, AnEmptyKeyIsThePlatformsToJudge) {
    EXPECT_EQ(set_string_in_storage(kResource, UTF16(""), UTF16("text")), 0);
    EXPECT_EQ(dialsim_calls("IMap<String, Object>::Lookup()"), 2u);
    EXPECT_EQ(dialsim_calls("IMap<String, Object>::Insert()"), 2u);
    EXPECT_EQ(dialsim_calls("IPasswordVault::FindAllByUserName()"), 1u);
    EXPECT_EQ(dialsim_calls("ICredentialFactory::CreatePasswordCredential(host, )"), 1u) << "and refused";
    EXPECT_EQ(GetText(kResource, UTF16("")), UTF16("text"));
    dialsim_set_packaged(false);
    EXPECT_FALSE(GetText(kResource, UTF16("")).has_value());
    EXPECT_EQ(dialsim_calls("IPasswordVault::FindAllByUserName()"), 2u);
}

// Written by another program, which may have more rights.
TEST_F(TextSettings, ACredentialOfTheEmptyKeyIsRead) {
    dialsim_set_packaged(false);
    stores.Write("vault.json", R"({"credentials": [{"resource": "host", "user": "", "password": "text"}]})");
    EXPECT_EQ(GetText(kResource, UTF16("")), UTF16("text"));
    EXPECT_EQ(set_string_in_storage(kResource, UTF16(""), UTF16("new")), 0);
    EXPECT_EQ(StoreText("vault"), "") << "removed, and the new one is refused";
}

TEST_F(TextSettings, WithoutAResourceACredentialOfAnotherResourceBlocksTheVaultToo) {
    PutInVault("theirs", "other");
    EXPECT_EQ(SetText(UTF16("ours"), UTF16("")), 0);
    EXPECT_EQ(dialsim_calls("IPasswordVault::Retrieve(, key)"), 1u);
    EXPECT_EQ(dialsim_calls("ICredentialFactory::CreatePasswordCredential"), 0u);
}

TEST_F(TextSettings, WithoutAResourceTheVaultRefusesAndTheContainersKeep) {
    EXPECT_EQ(set_string_in_storage(UTF16(""), kKey, UTF16("text")), 0);
    EXPECT_EQ(dialsim_calls("ICredentialFactory::CreatePasswordCredential(, key)"), 1u);
    EXPECT_EQ(StoreText("vault"), "");
    EXPECT_EQ(StoreText("roaming"), StringEntry("text"));
    EXPECT_EQ(GetText(UTF16("")), UTF16("text"));
}

// --- valid texts

TEST_F(TextSettings, AnyUnitsSurvive) {
    const BrindleChar lone[] = {'a', 0xD83D, 'b', 0xDC00, 0xFFFF, 0};
    for (const WideText& text :
         {WideText(UTF16("\u00E4\u20AC\U0001F39B")), WideText(lone), WideText(UTF16("\"\\\n\r\t\b\x01\x1F/")),
          WideText(UTF16("{\"key\": 1}")), WideText(UTF16(" blanks "))}) {
        for (const bool packaged : {true, false}) {  // from the roaming container, and from the vault
            dialsim_set_packaged(packaged);
            EXPECT_EQ(SetText(text), 0);
            EXPECT_EQ(GetText(), text);
        }
    }
}

TEST_F(TextSettings, LoneSurrogatesAreComparedUnitByUnit) {
    const BrindleChar high[] = {0xD83D, 0};
    const BrindleChar higher[] = {0xD83E, 0};
    EXPECT_EQ(SetText(high), 0);
    dialsim_clear_journal();
    EXPECT_EQ(SetText(high), 0);
    EXPECT_EQ(ContainerWrites() + VaultWrites(), 0u);
    EXPECT_EQ(SetText(higher), 0);
    EXPECT_EQ(GetText(), higher);
}

TEST_F(TextSettings, KeysAndResourcesMayBeAnyTextsToo) {
    constexpr BrindleChar kOddKey[] = UTF16("\u00FC \"\\ \U0001F39B");
    constexpr BrindleChar kOddResource[] = UTF16("\u4E2D/\\ \"");
    dialsim_set_packaged(false);
    EXPECT_EQ(set_string_in_storage(kOddResource, kOddKey, UTF16("text")), 0);
    EXPECT_EQ(GetText(kOddResource, kOddKey), UTF16("text"));
    EXPECT_FALSE(GetText(kResource, kOddKey).has_value());
}

class TextLength : public Settings, public testing::WithParamInterface<std::size_t> {
protected:
    static WideText TextEndingIn(BrindleChar last) { return WideText(GetParam() - 1, 'x') + last; }
};

// The vault has no length limit; the containers accept up to 4096 units.
TEST_P(TextLength, IsKeptAndComparedToItsLastUnit) {
    constexpr BrindleChar kLast = 0x1234;
    constexpr BrindleChar kOtherInItsTopBit = 0x9234;
    dialsim_set_packaged(GetParam() <= 4096);
    for (const BrindleChar last : {kLast, kOtherInItsTopBit}) {
        const WideText text = TextEndingIn(last);
        EXPECT_EQ(SetText(text), 0);
        EXPECT_EQ(GetText(), text);
        dialsim_clear_journal();
        EXPECT_EQ(SetText(text), 0);
        EXPECT_EQ(ContainerWrites() + VaultWrites(), 0u);
        BrindleChar* const copy = get_string_from_storage(kResource, kKey);
        std::free(copy);
        EXPECT_EQ(dialsim_calls(("wcscpy_s(" + std::to_string(GetParam() + 1) + ")").c_str()), 1u);
    }
}

INSTANTIATE_TEST_SUITE_P(All, TextLength,
                         testing::Values(1, 2, 255, 256, 257, 4095, 4096, 4097, 65'535, 65'536, 100'000));

TEST_F(TextSettings, TextsThatDifferInOneUnitAreDifferent) {
    const WideText text = UTF16("a\u7FFF\u0100b");
    EXPECT_EQ(SetText(text), 0);
    for (const BrindleChar* other :
         {UTF16("a\uFFFF\u0100b"), UTF16("a\u7FFF\u0101b"), UTF16("a\u7FFF\u0100\u0162"),
          UTF16("\u8061\u7FFF\u0100b"), UTF16("a\u7FFF\u0100b\x01")}) {
        EXPECT_EQ(SetText(text), 0);
        dialsim_clear_journal();
        EXPECT_EQ(SetText(other), 0);
        EXPECT_EQ(ContainerWrites(), 4u);
        EXPECT_EQ(VaultWrites(), 2u);
        EXPECT_EQ(GetText(), other);
    }
}

// The vault has no limit for keys and resources; the containers accept keys up to 255 units.
TEST_F(TextSettings, LongKeysAndResourcesThatDifferInTheirLastUnitAreKeptApart) {
    for (const std::size_t length : {std::size_t{255}, std::size_t{5000}, std::size_t{70'000}}) {
        const WideText start(length - 1, 'k');
        const WideText one = start + BrindleChar{0x1234};
        const WideText other = start + BrindleChar{0x9234};
        dialsim_set_packaged(length == 255);
        EXPECT_EQ(set_string_in_storage(kResource, one.c_str(), UTF16("one")), 0);
        EXPECT_EQ(set_string_in_storage(kResource, other.c_str(), UTF16("other")), 0);
        EXPECT_EQ(GetText(kResource, one.c_str()), UTF16("one"));
        EXPECT_EQ(GetText(kResource, other.c_str()), UTF16("other"));
        dialsim_set_packaged(false);
        EXPECT_EQ(set_string_in_storage(one.c_str(), kKey, UTF16("text")), 0);
        EXPECT_EQ(GetText(one.c_str()), UTF16("text"));
        EXPECT_FALSE(GetText(other.c_str()).has_value());
        ASSERT_TRUE(dialsim_clear_stores());
    }
}

// A container accepts 8192 bytes.
TEST_F(TextSettings, ATextThatIsTooLongForTheContainersIsKeptInTheVault) {
    const WideText fitting(4096, 'x');
    const WideText longer(4097, 'x');
    EXPECT_EQ(SetText(fitting), 0);
    EXPECT_NE(StoreText("roaming"), "");
    EXPECT_NE(StoreText("local"), "");
    EXPECT_EQ(GetText(), fitting);
    EXPECT_EQ(SetText(longer), 0);
    EXPECT_EQ(StoreText("roaming"), "") << "the old one was removed before";
    EXPECT_EQ(StoreText("local"), "");
    EXPECT_EQ(GetText(), longer);
}

TEST_F(TextSettings, AVeryLongTextSurvivesInTheVault) {
    WideText text;
    for (int i = 0; i < 100'000; ++i) {
        text += static_cast<BrindleChar>('a' + i % 26);
    }
    EXPECT_EQ(SetText(text), 0);
    EXPECT_EQ(GetText(), text);
}

TEST_F(TextSettings, AKeyThatIsTooLongForTheContainersIsKeptInTheVault) {
    const WideText fitting(255, 'k');
    const WideText longer(256, 'k');
    EXPECT_EQ(set_string_in_storage(kResource, fitting.c_str(), UTF16("short")), 0);
    EXPECT_EQ(set_string_in_storage(kResource, longer.c_str(), UTF16("long")), 0);
    EXPECT_EQ(GetText(kResource, fitting.c_str()), UTF16("short"));
    EXPECT_EQ(GetText(kOtherResource, fitting.c_str()), UTF16("short"));
    EXPECT_EQ(GetText(kResource, longer.c_str()), UTF16("long"));
    EXPECT_FALSE(GetText(kOtherResource, longer.c_str()).has_value());
}

// --- large stores

// Content of a simulator store with kVeryMany entries, generated from a template in which # is the number.
std::string ManyEntries(const std::string& list, const std::string& entry) {
    std::string entries;
    for (std::uint32_t i = 0; i < kVeryMany; ++i) {
        entries += i == 0 ? "" : ", ";
        for (const char c : entry) {
            entries += c == '#' ? std::to_string(i) : std::string(1, c);
        }
    }
    return "{\"" + list + "\": [" + entries + "]}";
}

TEST_F(TextSettings, AKeyAmongFiveThousandIsFound) {
    stores.Write("roaming.json",
                 ManyEntries("settings", R"({"key": "#", "type": "String", "value": "text #"})"));
    EXPECT_EQ(GetText(kResource, UTF16("4999")), UTF16("text 4999"));
}

TEST_F(TextSettings, ACredentialAmongFiveThousandOfOneKeyIsFound) {
    dialsim_set_packaged(false);
    stores.Write("vault.json",
                 ManyEntries("credentials", R"({"resource": "#", "user": "key", "password": "text #"})"));
    EXPECT_EQ(GetText(UTF16("4999")), UTF16("text 4999"));
}

// --- without package identity, and persistence

TEST_F(TextSettings, WithoutAnIdentityTheVaultAloneIsUsed) {
    dialsim_set_packaged(false);
    EXPECT_EQ(SetText(UTF16("text")), 0);
    EXPECT_EQ(StoreText("roaming"), "");
    EXPECT_EQ(StoreText("vault"), Credential("host", "text"));
    EXPECT_EQ(StoreText("local"), "");
    EXPECT_EQ(GetText(), UTF16("text"));
    EXPECT_FALSE(GetText(kOtherResource).has_value());
}

TEST_F(TextSettings, WithoutAnIdentityWhatTheContainersHoldIsNotSeen) {
    Put("roaming", "String", "first");
    Put("local", "String", "third");
    dialsim_set_packaged(false);
    EXPECT_FALSE(GetText().has_value());
    dialsim_set_packaged(true);
    EXPECT_EQ(GetText(), UTF16("first"));
}

TEST_F(TextSettings, TextsOutliveTheLibrarysRun) {
    EXPECT_EQ(SetText(UTF16("text")), 0);
    uninit();
    dialsim_reset();
    ASSERT_EQ(initialize(), 0);
    EXPECT_EQ(GetText(), UTF16("text")) << "from the vault";
    dialsim_set_packaged(true);
    EXPECT_EQ(GetText(kOtherResource), UTF16("text")) << "from a container";
}

TEST_F(TextSettings, NothingIsHeldBetweenCalls) {
    EXPECT_EQ(SetText(UTF16("text")), 0);
    EXPECT_EQ(LeakReport(), "");
    EXPECT_EQ(GetText(), UTF16("text"));
    EXPECT_EQ(LeakReport(), "");
    EXPECT_EQ(SetText(UTF16("changed")), 0);
    EXPECT_EQ(LeakReport(), "");
}

// Writes of other programs are visible at once.
TEST_F(TextSettings, NothingIsCachedBetweenCalls) {
    EXPECT_EQ(SetText(UTF16("text")), 0);
    EXPECT_EQ(GetText(), UTF16("text"));
    Put("roaming", "String", "from elsewhere");
    EXPECT_EQ(GetText(), UTF16("from elsewhere"));
    dialsim_clear_journal();
    EXPECT_EQ(SetText(UTF16("text")), 0);
    EXPECT_EQ(ContainerWrites(), 2u);
    EXPECT_EQ(StoreText("roaming"), StringEntry("text"));
}

// An unreadable store counts as missing.
class DamagedStore : public Settings, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        Settings::SetUp();
        EXPECT_EQ(SetText(UTF16("old")), 0);
        stores.Write(GetParam() + std::string(".json"), "{");
    }
};

TEST_P(DamagedStore, IsIgnoredByReadsAndWrites) {
    EXPECT_EQ(GetText(), UTF16("old"));
    EXPECT_EQ(SetText(UTF16("new")), 0);
    EXPECT_EQ(GetText(), UTF16("new"));
    for (const char* store : {"roaming", "vault", "local"}) {
        const std::string intact =
            store == std::string("vault") ? Credential("host", "new") : StringEntry("new");
        EXPECT_EQ(StoreText(store), store == std::string(GetParam()) ? "damaged\n" : intact) << store;
    }
}

INSTANTIATE_TEST_SUITE_P(All, DamagedStore, testing::Values("roaming", "vault", "local"),
                         [](const auto& store_info) { return std::string(store_info.param); });

}  // namespace
