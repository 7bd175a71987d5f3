// Settings on a platform with missing or failing parts, which are ignored silently.
#include <new>

#include "settings.h"

namespace {

using SettingsFailures = Settings;

// --- no containers

TEST_F(SettingsFailures, NoWayToTheContainersLeavesTheVault) {
    for (const char* operation : {kApplicationData, kCurrent, kValues, kViewAsMap}) {
        ASSERT_TRUE(dialsim_clear_stores());
        ASSERT_TRUE(dialsim_fail(operation, kFail, 1, 4)) << operation;
        EXPECT_EQ(SetText(UTF16("text")), 0) << operation;
        EXPECT_EQ(SetNumber(7), 0) << operation;
        EXPECT_EQ(StoreText("roaming") + StoreText("local"), "") << operation;
        EXPECT_EQ(StoreText("vault"), Credential("host", "text")) << operation;
    }
}

TEST_F(SettingsFailures, ApplicationDataOrValuesThatAreYieldedAsNullLeaveTheVault) {
    for (const char* operation : {kApplicationData, kCurrent, kValues}) {
        ASSERT_TRUE(dialsim_clear_stores());
        ASSERT_TRUE(dialsim_yield_null(operation, 1, 4)) << operation;
        EXPECT_EQ(SetText(UTF16("text")), 0) << operation;
        EXPECT_EQ(SetNumber(7), 0) << operation;
        EXPECT_EQ(StoreText("roaming") + StoreText("local"), "") << operation;
        EXPECT_EQ(StoreText("vault"), Credential("host", "text")) << operation;
    }
}

TEST_F(SettingsFailures, AMissingRoamingContainerIsIgnored) {
    EXPECT_EQ(SetText(UTF16("text")), 0);
    Put("local", "String", "local");
    ASSERT_TRUE(dialsim_yield_null(kRoamingSettings, 1, 3));
    EXPECT_EQ(GetText(), UTF16("text"));
    EXPECT_EQ(GetNumber(), 0) << "of the text in the vault";
    EXPECT_EQ(SetText(UTF16("new")), 0);
    EXPECT_EQ(StoreText("roaming"), StringEntry("text"));
    EXPECT_EQ(StoreText("vault"), Credential("host", "new"));
    EXPECT_EQ(StoreText("local"), StringEntry("new"));
}

TEST_F(SettingsFailures, AMissingLocalContainerIsIgnored) {
    Put("local", "String", "local");
    ASSERT_TRUE(dialsim_yield_null(kLocalSettings, 1, 2));
    EXPECT_FALSE(GetText().has_value());
    EXPECT_EQ(SetText(UTF16("new")), 0);
    EXPECT_EQ(StoreText("roaming"), StringEntry("new"));
    EXPECT_EQ(StoreText("vault"), Credential("host", "new"));
    EXPECT_EQ(StoreText("local"), StringEntry("local"));
}

// --- no store at all

TEST_F(SettingsFailures, SettersSucceedEvenWhereNothingCanBeWritten) {
    ASSERT_TRUE(dialsim_fail("RoGetActivationFactory", kClassNotRegistered, 1, 0));
    EXPECT_EQ(SetText(UTF16("text")), 0);
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_EQ(StoreText("roaming") + StoreText("vault") + StoreText("local"), "");
}

TEST_F(SettingsFailures, GettersFindNothingWhereEveryPlaceFails) {
    EXPECT_EQ(SetText(UTF16("42")), 0);
    ASSERT_TRUE(dialsim_fail("RoGetActivationFactory", kClassNotRegistered, 1, 0));
    EXPECT_FALSE(GetText().has_value());
    EXPECT_EQ(GetNumber(), kAbsentNumber);
}

TEST_F(SettingsFailures, StringsThatCannotBeCreatedAreIgnoredToo) {
    EXPECT_EQ(SetText(UTF16("42")), 0);
    ASSERT_TRUE(dialsim_fail("WindowsCreateString", kFail, 1, 0));
    ASSERT_TRUE(dialsim_fail("WindowsCreateStringReference", kFail, 1, 0));
    EXPECT_EQ(SetText(UTF16("new")), 0);
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_FALSE(GetText().has_value());
    EXPECT_EQ(GetNumber(), kAbsentNumber);
    EXPECT_EQ(StoreText("roaming"), StringEntry("42"));
    EXPECT_EQ(StoreText("vault"), Credential("host", "42"));
    EXPECT_EQ(StoreText("local"), StringEntry("42"));
}

// --- an entry that cannot be compared or removed is overwritten

TEST_F(SettingsFailures, AnEntryThatCannotBeLookedUpIsWritten) {
    for (const char* operation : {kLookup, kViewAsValue, kGetString}) {
        EXPECT_EQ(SetText(UTF16("same")), 0);
        dialsim_clear_journal();
        ASSERT_TRUE(dialsim_fail(operation, kFail, 1, 1)) << operation;
        EXPECT_EQ(SetText(UTF16("same")), 0);
        EXPECT_EQ(dialsim_calls(kRemoveEntry), 0u) << operation;
        EXPECT_EQ(dialsim_calls(kInsertEntry), 1u) << operation;
        EXPECT_EQ(StoreText("roaming"), StringEntry("same")) << operation;
    }
}

TEST_F(SettingsFailures, AnEntryThatCannotBeRemovedIsReplaced) {
    EXPECT_EQ(SetText(UTF16("old")), 0);
    ASSERT_TRUE(dialsim_fail(kRemoveEntry, kFail, 1, 1));
    EXPECT_EQ(SetText(UTF16("new")), 0);
    EXPECT_EQ(StoreText("roaming"), StringEntry("new"));
    EXPECT_EQ(SetNumber(7), 0);
    ASSERT_TRUE(dialsim_fail(kRemoveEntry, kFail, 1, 1));
    EXPECT_EQ(SetNumber(8), 0);
    EXPECT_EQ(StoreText("roaming"), NumberEntry(8));
}

// --- changes before a failure persist

TEST_F(SettingsFailures, AnOldEntryIsGoneWhenTheNewOneCannotBeMadeOrInserted) {
    for (const char* operation : {kValueFactory, kCreateString, kInsertEntry}) {
        EXPECT_EQ(SetText(UTF16("old")), 0);
        ASSERT_TRUE(dialsim_fail(operation, kFail, 1, 1)) << operation;
        EXPECT_EQ(SetText(UTF16("new")), 0) << operation;
        EXPECT_EQ(StoreText("roaming"), "") << operation;
        EXPECT_EQ(StoreText("vault"), Credential("host", "new")) << operation;
        EXPECT_EQ(StoreText("local"), StringEntry("new")) << operation;
    }
}

TEST_F(SettingsFailures, AnEntryOfAnotherKindStaysWhenTheNewOneCannotBeMadeOrInserted) {
    for (const char* operation : {kValueFactory, kCreateString, kInsertEntry}) {
        Put("roaming", "Int32", "7");
        ASSERT_TRUE(dialsim_fail(operation, kFail, 1, 1)) << operation;
        EXPECT_EQ(SetText(UTF16("new")), 0) << operation;
        EXPECT_EQ(StoreText("roaming"), NumberEntry(7)) << operation;
    }
}

TEST_F(SettingsFailures, AnOldCredentialIsGoneWhenTheNewOneCannotBeMadeOrAdded) {
    for (const char* operation : {kCredentialFactory, kCreateCredential, kAddCredential}) {
        EXPECT_EQ(SetText(UTF16("old")), 0);
        ASSERT_TRUE(dialsim_fail(operation, kFail, 1, 1)) << operation;
        EXPECT_EQ(SetText(UTF16("new")), 0) << operation;
        EXPECT_EQ(StoreText("vault"), "") << operation;
        EXPECT_EQ(StoreText("roaming"), StringEntry("new")) << operation;
        EXPECT_EQ(StoreText("local"), StringEntry("new")) << operation;
    }
}

// --- the vault

TEST_F(SettingsFailures, WithoutAVaultTheContainersAreUsed) {
    for (const char* operation : {kVaultFactory, kNewVault}) {
        for (const bool null : {false, true}) {
            ASSERT_TRUE(dialsim_clear_stores());
            ASSERT_TRUE(null ? dialsim_yield_null(operation, 1, 3) : dialsim_fail(operation, kFail, 1, 3));
            EXPECT_EQ(SetText(UTF16("42")), 0) << operation;
            EXPECT_EQ(StoreText("vault"), "") << operation;
            Put("roaming", "composite", "");
            EXPECT_EQ(GetText(), UTF16("42")) << operation << ", from the local container";
            EXPECT_EQ(GetNumber(), kAbsentNumber) << operation;
        }
    }
}

TEST_F(SettingsFailures, ASearchThatFailsOrFindsNoListCountsAsNoMatch) {
    for (const char* operation : {kSearch, kCountFound}) {
        for (const bool null : {false, true}) {
            ASSERT_TRUE(dialsim_clear_stores());
            PutInVault("old");
            ASSERT_TRUE(null ? dialsim_yield_null(operation, 1, 2) : dialsim_fail(operation, kFail, 1, 2));
            EXPECT_FALSE(GetText().has_value()) << operation;
            dialsim_clear_journal();
            EXPECT_EQ(SetText(UTF16("new")), 0) << operation;
            EXPECT_EQ(dialsim_calls(kRetrieve), 0u) << operation;
            EXPECT_EQ(StoreText("vault"), Credential("host", "new"))
                << operation << ": added over the old one";
        }
    }
}

TEST_F(SettingsFailures, ASearchThatFailsLiftsTheBlockOfAnotherResource) {
    PutInVault("theirs", "other");
    ASSERT_TRUE(dialsim_fail(kSearch, kFail, 1, 1));
    EXPECT_EQ(SetText(UTF16("ours")), 0);
    EXPECT_EQ(StoreText("vault"), Credential("host", "ours") + Credential("other", "theirs"));
}

TEST_F(SettingsFailures, ACredentialThatCannotBeRetrievedOrReadIsLeftAlone) {
    for (const char* operation : {kRetrieve, kGetPassword}) {
        PutInVault("old");
        dialsim_clear_journal();
        ASSERT_TRUE(dialsim_fail(operation, kFail, 1, 1)) << operation;
        EXPECT_EQ(SetText(UTF16("new")), 0) << operation;
        EXPECT_EQ(VaultWrites(), 0u) << operation;
        EXPECT_EQ(StoreText("vault"), Credential("host", "old")) << operation;
        EXPECT_EQ(StoreText("local"), StringEntry("new")) << operation;
    }
}

TEST_F(SettingsFailures, ACredentialThatIsRetrievedAsNullIsReplacedButNotRead) {
    PutInVault("42");
    ASSERT_TRUE(dialsim_yield_null(kRetrieve, 1, 3));
    EXPECT_FALSE(GetText().has_value());
    EXPECT_EQ(GetNumber(), kAbsentNumber);
    EXPECT_EQ(SetText(UTF16("new")), 0);
    EXPECT_EQ(dialsim_calls(kRemoveCredential), 0u);
    EXPECT_EQ(StoreText("vault"), Credential("host", "new"));
}

TEST_F(SettingsFailures, ACredentialThatCannotBeRemovedStays) {
    PutInVault("old");
    ASSERT_TRUE(dialsim_fail(kRemoveCredential, kFail, 1, 1));
    EXPECT_EQ(SetText(UTF16("new")), 0);
    EXPECT_EQ(dialsim_calls(kAddCredential), 0u);
    EXPECT_EQ(StoreText("vault"), Credential("host", "old"));
    EXPECT_EQ(StoreText("local"), StringEntry("new"));
}

// --- out of memory

// The only failure that affects more than one store.
TEST_F(SettingsFailures, APlatformWithoutMemoryIsAnAllocationFailure) {
    for (const char* operation : {kApplicationData,  kCurrent,           kRoamingSettings,  kValues,
                                  kLookup,           kGetString,         kRemoveEntry,      kValueFactory,
                                  kCreateString,     kInsertEntry,       kVaultFactory,     kNewVault,
                                  kSearch,           kCountFound,        kRetrieve,         kGetPassword,
                                  kRemoveCredential, kCredentialFactory, kCreateCredential, kAddCredential,
                                  kLocalSettings}) {
        ASSERT_TRUE(dialsim_clear_stores());
        PutInVault("old");
        Put("roaming", "String", "old");
        ASSERT_TRUE(dialsim_fail(operation, kOutOfMemory, 1, 1)) << operation;
        EXPECT_THROW(SetText(UTF16("new")), std::bad_alloc) << operation;
        EXPECT_EQ(LeakReport(), "") << operation;
    }
}

TEST_F(SettingsFailures, WithoutMemoryTheCallEndsWhereItStands) {
    PutInVault("old");
    ASSERT_TRUE(dialsim_fail(kRemoveCredential, kOutOfMemory, 1, 1));
    EXPECT_THROW(SetText(UTF16("new")), std::bad_alloc);
    EXPECT_EQ(StoreText("roaming"), StringEntry("new"));
    EXPECT_EQ(StoreText("vault"), Credential("host", "old"));
    EXPECT_EQ(StoreText("local"), "");
}

TEST_F(SettingsFailures, WithoutMemoryReadingIsAnAllocationFailureToo) {
    for (const char* operation :
         {kApplicationData, kCurrent, kLookup, kNewVault, kSearch, kRetrieve, kGetPassword}) {
        PutInVault("42");
        ASSERT_TRUE(dialsim_fail(operation, kOutOfMemory, 1, 1)) << operation;
        EXPECT_THROW(GetText(), std::bad_alloc) << operation;
        ASSERT_TRUE(dialsim_fail(operation, kOutOfMemory, 1, 1)) << operation;
        EXPECT_THROW(GetNumber(), std::bad_alloc) << operation;
        EXPECT_EQ(LeakReport(), "") << operation;
    }
}

TEST_F(SettingsFailures, WithoutMemoryANumberIsNotWrittenOn) {
    ASSERT_TRUE(dialsim_fail(kInsertEntry, kOutOfMemory, 1, 1));
    EXPECT_THROW(SetNumber(7), std::bad_alloc);
    EXPECT_EQ(StoreText("roaming") + StoreText("local"), "");
    EXPECT_EQ(LeakReport(), "");
}

}  // namespace
