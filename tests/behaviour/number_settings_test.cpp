// Number settings: stored in the two containers, and also read from a text in the vault.
#include "settings.h"
#include "support/edges.h"

namespace {

using NumberSettings = Settings;

constexpr char kNewNumber[] =
    "RoGetActivationFactory(Windows.Foundation.PropertyValue)\n"
    "IPropertyValueStatics::CreateInt32()\n"
    "IMap<String, Object>::Insert(key)\n";

// --- reading

TEST_F(NumberSettings, AKeyThatWasNeverWrittenIsAbsent) {
    EXPECT_EQ(get_int_from_storage(kResource, UTF16("never")), kAbsentNumber);
    EXPECT_EQ(kAbsentNumber, static_cast<std::int32_t>(0x80000000));
}

TEST_F(NumberSettings, ANumberIsLookedForInTheRoamingContainerTheVaultAndTheLocalContainer) {
    EXPECT_EQ(GetNumber(), kAbsentNumber);
    EXPECT_EQ(Calls(),
              ContainerLookup("Roaming") +
                  "RoGetActivationFactory(Windows.Security.Credentials.PasswordVault)\n"
                  "IActivationFactory::ActivateInstance(Windows.Security.Credentials.PasswordVault)\n"
                  "IPasswordVault::FindAllByUserName(key) = 80070490\n" +
                  ContainerLookup("Local"));
}

TEST_F(NumberSettings, TheRoamingContainerWinsOverTheOthers) {
    Put("roaming", "Int32", "5");
    PutInVault("6");
    Put("local", "Int32", "7");
    EXPECT_EQ(GetNumber(), 5);
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + "IPropertyValue::GetInt32()\n");
}

TEST_F(NumberSettings, TheVaultWinsOverTheLocalContainer) {
    PutInVault("6");
    Put("local", "Int32", "7");
    EXPECT_EQ(GetNumber(), 6);
    EXPECT_EQ(dialsim_calls(kCurrent), 1u);
}

TEST_F(NumberSettings, TheLocalContainerIsTheLastResort) {
    Put("local", "Int32", "7");
    EXPECT_EQ(GetNumber(), 7);
}

TEST_F(NumberSettings, AnEntryOfAnotherKindIsIgnored) {
    for (const char* type : {"String", "UInt32", "Int64", "UInt8", "composite"}) {
        Put("roaming", type, "5");
        Put("local", "Int32", "7");
        EXPECT_EQ(GetNumber(), 7) << type;
        Put("local", type, "5");
        EXPECT_EQ(GetNumber(), kAbsentNumber) << type;
    }
}

TEST_F(NumberSettings, ACredentialOfAnotherResourceIsNotRead) {
    PutInVault("6", "other");
    EXPECT_EQ(GetNumber(), kAbsentNumber);
    Put("local", "Int32", "7");
    EXPECT_EQ(GetNumber(), 7);
    EXPECT_EQ(get_int_from_storage(kOtherResource, kKey), 6);
}

TEST_F(NumberSettings, ZeroAndNegativeNumbersAreFound) {
    for (const char* number : {"0", "-1", "-2147483647", "2147483647"}) {
        Put("roaming", "Int32", number);
        PutInVault("6");
        EXPECT_EQ(GetNumber(), std::stoi(number));
    }
}

// --- a text in the vault as a number

struct NumberText {
    const char* text;
    std::int32_t number;
};

TEST_F(NumberSettings, ATextInTheVaultIsReadAsTheNumberThatItsDigitsMake) {
    for (const NumberText& spelling : {
             NumberText{"42", 42},
             {"0", 0},
             {"+5", 5},
             {"-12", -12},
             {"  7", 7},
             {"\t\n\v\f\r -8", -8},
             {"12 monkeys", 12},
             {"12.9", 12},
             {"1e3", 1},
             {"1 2", 1},
             {"010", 10},
             {"0x10", 0},
             {"00000000000000000000000042", 42},
             {"-0", 0},
             {"2147483647", 2147483647},
             {"-2147483647", -2147483647},
         }) {
        PutInVault(spelling.text);
        EXPECT_EQ(GetNumber(), spelling.number) << spelling.text;
    }
}

TEST_F(NumberSettings, ATextWithoutDigitsIsZero) {
    Put("local", "Int32", "7");
    for (const char* text : {"abc", "x1", "-", "+", "- 5", "+-5", "--5", " ", ".5", "#"}) {
        PutInVault(text);
        EXPECT_EQ(GetNumber(), 0) << text;
    }
}

TEST_F(NumberSettings, ATextBeyondTheLargestNumberIsTheLargest) {
    for (const char* text : {"2147483648", "4294967296", "4294967338", "99999999999999999999999"}) {
        PutInVault(text);
        EXPECT_EQ(GetNumber(), INT32_MAX) << text;
    }
}

TEST_F(NumberSettings, ATextInTheVaultMayBeOfAnyLength) {
    const std::string many(kVeryMany, '0');
    const std::string digits(kVeryMany, '9');
    for (const auto& [text, number] : {std::pair(many + "42", 42),
                                       {"-" + many + "42", -42},
                                       {std::string(kVeryMany, ' ') + "42", 42},
                                       {"42" + std::string(kVeryMany, 'x'), 42},
                                       {digits, INT32_MAX},
                                       {"1" + many, INT32_MAX}}) {
        PutInVault(text.c_str());
        EXPECT_EQ(GetNumber(), number) << text.substr(0, 5);
    }
    PutInVault(("-" + digits).c_str());
    Put("local", "Int32", "7");
    EXPECT_EQ(GetNumber(), 7) << "at or below the smallest number";
}

// The result is the same as for an absent number.
TEST_F(NumberSettings, ATextAtOrBelowTheSmallestNumberIsIgnored) {
    for (const char* text :
         {"-2147483648", " -2147483648x", "-2147483649", "-4294967296", "-99999999999999999999999"}) {
        PutInVault(text);
        ASSERT_TRUE(dialsim_put_setting("local", "key", "Int32", "7"));
        EXPECT_EQ(GetNumber(), 7) << text;
        ASSERT_TRUE(dialsim_put_setting("local", "key", "String", "7"));
        EXPECT_EQ(GetNumber(), kAbsentNumber) << text;
    }
}

TEST_F(NumberSettings, ATextThatWasSetIsReadFromTheVault) {
    EXPECT_EQ(SetText(UTF16("42")), 0);
    EXPECT_EQ(GetNumber(), 42);
    EXPECT_EQ(dialsim_calls("wcstol(42, 10)"), 1u);
    EXPECT_EQ(SetText(UTF16("abc")), 0);
    EXPECT_EQ(GetNumber(), 0);
}

TEST_F(NumberSettings, AnEarlierTextInTheVaultIsPreferredToTheLocalNumber) {
    EXPECT_EQ(SetText(UTF16("42")), 0);
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_EQ(GetNumber(), 7) << "from the roaming container";
    Put("roaming", "String", "no number");
    EXPECT_EQ(GetNumber(), 42) << "from the vault";
}

TEST_F(NumberSettings, AnEmptyTextThatWasSetIsNoNumberAnywhere) {
    EXPECT_EQ(SetText(UTF16("")), 0);
    EXPECT_EQ(GetNumber(), kAbsentNumber);
}

// --- writing

TEST_F(NumberSettings, ANewNumberIsWrittenToBothContainersInTurn) {
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + kNewNumber + ContainerLookup("Local") + kNewNumber);
    EXPECT_EQ(StoreText("roaming"), NumberEntry(7));
    EXPECT_EQ(StoreText("vault"), "");
    EXPECT_EQ(StoreText("local"), NumberEntry(7));
    EXPECT_EQ(GetNumber(), 7);
}

TEST_F(NumberSettings, NumbersOfEitherSignAreKept) {
    for (const std::int32_t number : {0, -1, 42, -42, INT32_MAX, INT32_MIN + 1}) {
        EXPECT_EQ(SetNumber(number), 0);
        EXPECT_EQ(StoreText("roaming"), NumberEntry(number));
        EXPECT_EQ(StoreText("local"), NumberEntry(number));
        EXPECT_EQ(GetNumber(), number);
    }
}

TEST_F(NumberSettings, AChangedNumberIsRemovedAndWrittenAgain) {
    EXPECT_EQ(SetNumber(7), 0);
    dialsim_clear_journal();
    EXPECT_EQ(SetNumber(8), 0);
    const std::string replacement =
        "IPropertyValue::GetInt32()\nIMap<String, Object>::Remove(key)\n" + std::string(kNewNumber);
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + replacement + ContainerLookup("Local") + replacement);
    EXPECT_EQ(StoreText("roaming"), NumberEntry(8));
    EXPECT_EQ(StoreText("local"), NumberEntry(8));
}

TEST_F(NumberSettings, TheSameNumberOnceMoreIsWrittenNowhere) {
    EXPECT_EQ(SetNumber(7), 0);
    dialsim_clear_journal();
    EXPECT_EQ(SetNumber(7), 0);
    const std::string comparison = "IPropertyValue::GetInt32()\n";
    EXPECT_EQ(Calls(), ContainerLookup("Roaming") + comparison + ContainerLookup("Local") + comparison);
}

class SimilarSettings : public Settings, public testing::WithParamInterface<SimilarNumbers> {};

TEST_P(SimilarSettings, AreDifferent) {
    const auto first = static_cast<std::int32_t>(GetParam().first);
    const auto second = static_cast<std::int32_t>(GetParam().second);
    EXPECT_EQ(SetNumber(first), 0);
    for (const std::int32_t number : {second, first}) {
        dialsim_clear_journal();
        EXPECT_EQ(SetNumber(number), 0);
        EXPECT_EQ(ContainerWrites(), 4u);
        EXPECT_EQ(StoreText("roaming"), NumberEntry(number));
        EXPECT_EQ(StoreText("local"), NumberEntry(number));
        EXPECT_EQ(GetNumber(), number);
    }
}

INSTANTIATE_TEST_SUITE_P(DifferIn, SimilarSettings, testing::ValuesIn(kSimilarNumbers), kNameOfPair);

TEST_F(NumberSettings, OnlyTheContainerThatDiffersIsWritten) {
    EXPECT_EQ(SetNumber(7), 0);
    Put("roaming", "Int32", "6");
    dialsim_clear_journal();
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_EQ(ContainerWrites(), 2u);
    EXPECT_EQ(StoreText("roaming"), NumberEntry(7));
}

TEST_F(NumberSettings, TheVaultIsNotTouchedByNumbers) {
    PutInVault("old");
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_EQ(StoreText("vault"), Credential("host", "old"));
    EXPECT_EQ(dialsim_calls(kNewVault), 0u);
}

TEST_F(NumberSettings, AnEntryOfAnotherKindIsOverwrittenWithoutBeingRemoved) {
    for (const char* type : {"String", "UInt32", "Int64", "UInt16", "composite"}) {
        Put("roaming", type, "7");
        Put("local", type, "7");
        dialsim_clear_journal();
        EXPECT_EQ(SetNumber(7), 0);
        EXPECT_EQ(dialsim_calls(kRemoveEntry), 0u) << type;
        EXPECT_EQ(StoreText("roaming"), NumberEntry(7)) << type;
        EXPECT_EQ(StoreText("local"), NumberEntry(7)) << type;
    }
}

TEST_F(NumberSettings, ATextMayFollowANumberAndANumberAText) {
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_EQ(SetText(UTF16("text")), 0);
    EXPECT_EQ(GetText(), UTF16("text"));
    EXPECT_EQ(GetNumber(), 0) << "the text in the vault has no digits";
    EXPECT_EQ(SetNumber(8), 0);
    EXPECT_EQ(GetNumber(), 8);
    EXPECT_EQ(GetText(), UTF16("text")) << "still in the vault";
}

TEST_F(NumberSettings, ResourcesDoNotMatter) {
    EXPECT_EQ(set_int_in_storage(kResource, kKey, 7), 0);
    EXPECT_EQ(get_int_from_storage(kOtherResource, kKey), 7);
    EXPECT_EQ(set_int_in_storage(UTF16(""), kKey, 8), 0);
    EXPECT_EQ(GetNumber(), 8);
    EXPECT_EQ(get_int_from_storage(UTF16(""), kKey), 8);
}

TEST_F(NumberSettings, AnEmptyKeyIsThePlatformsToJudge) {
    EXPECT_EQ(set_int_in_storage(kResource, UTF16(""), 7), 0);
    EXPECT_EQ(dialsim_calls("IMap<String, Object>::Lookup()"), 2u);
    EXPECT_EQ(dialsim_calls("IMap<String, Object>::Insert()"), 2u);
    EXPECT_EQ(get_int_from_storage(kResource, UTF16("")), 7);
}

TEST_F(NumberSettings, AKeyMayHaveTwoHundredAndFiftyFiveUnits) {
    const WideText fitting(255, 'k');
    const WideText longer(256, 'k');
    EXPECT_EQ(set_int_in_storage(kResource, fitting.c_str(), 7), 0);
    EXPECT_EQ(get_int_from_storage(kResource, fitting.c_str()), 7);
    EXPECT_EQ(set_int_in_storage(kResource, longer.c_str(), 7), 0);
    EXPECT_EQ(get_int_from_storage(kResource, longer.c_str()), kAbsentNumber);
}

// --- the number that means "absent"

TEST_F(NumberSettings, TheSmallestNumberIsStoredLikeAnyOther) {
    EXPECT_EQ(SetNumber(INT32_MIN), 0);
    EXPECT_EQ(StoreText("roaming"), NumberEntry(INT32_MIN));
    EXPECT_EQ(StoreText("local"), NumberEntry(INT32_MIN));
    dialsim_clear_journal();
    EXPECT_EQ(SetNumber(INT32_MIN), 0);
    EXPECT_EQ(ContainerWrites(), 0u);
}

TEST_F(NumberSettings, TheSmallestNumberIsReadByWayOfAllThreePlaces) {
    EXPECT_EQ(SetNumber(INT32_MIN), 0);
    dialsim_clear_journal();
    EXPECT_EQ(GetNumber(), INT32_MIN);
    EXPECT_EQ(dialsim_calls("IPropertyValue::GetInt32"), 2u);
    EXPECT_EQ(dialsim_calls(kSearch), 1u);
}

TEST_F(NumberSettings, TheSmallestNumberGivesWayToTheVaultAndTheLocalContainer) {
    Put("roaming", "Int32", "-2147483648");
    Put("local", "Int32", "7");
    EXPECT_EQ(GetNumber(), 7);
    PutInVault("6");
    EXPECT_EQ(GetNumber(), 6);
    PutInVault("-2147483648");
    EXPECT_EQ(GetNumber(), 7);
}

// --- without package identity, and persistence

TEST_F(NumberSettings, WithoutAnIdentityNumbersAreKeptNowhere) {
    dialsim_set_packaged(false);
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_EQ(GetNumber(), kAbsentNumber);
    EXPECT_EQ(StoreText("roaming") + StoreText("vault") + StoreText("local"), "");
}

TEST_F(NumberSettings, WithoutAnIdentityOnlyATextInTheVaultIsFound) {
    Put("roaming", "Int32", "5");
    Put("local", "Int32", "7");
    dialsim_set_packaged(false);
    EXPECT_EQ(GetNumber(), kAbsentNumber);
    EXPECT_EQ(SetText(UTF16("42")), 0);
    EXPECT_EQ(GetNumber(), 42);
}

TEST_F(NumberSettings, NumbersOutliveTheLibrarysRun) {
    EXPECT_EQ(SetNumber(7), 0);
    uninit();
    dialsim_reset();
    ASSERT_EQ(initialize(), 0);
    dialsim_set_packaged(true);
    EXPECT_EQ(GetNumber(), 7);
}

TEST_F(NumberSettings, NothingIsHeldOrCachedBetweenCalls) {
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_EQ(LeakReport(), "");
    EXPECT_EQ(GetNumber(), 7);
    EXPECT_EQ(LeakReport(), "");
    Put("roaming", "Int32", "8");
    EXPECT_EQ(GetNumber(), 8);
    dialsim_clear_journal();
    EXPECT_EQ(SetNumber(7), 0);
    EXPECT_EQ(dialsim_calls(kCurrent), 2u);
    EXPECT_EQ(StoreText("roaming"), NumberEntry(7));
}

}  // namespace
