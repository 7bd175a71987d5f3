// The simulator's journal and fault injection.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "event_recorder.h"
#include "platform/interfaces/metadata.h"
#include "platform/interfaces/property_value.h"
#include "platform/text.h"

namespace brindle {
namespace {

constexpr char kOperation[] = "IApiInformationStatics::IsTypePresent";
constexpr char kOfA[] = "IApiInformationStatics::IsTypePresent(A)";
constexpr char kCreate[] = "IRadialControllerInterop::CreateForWindow";
constexpr HRESULT kOtherFault = Code(0x80000002);

using Codes = std::vector<HRESULT>;

// Queries the platform for two types.
class TypeQueryTest : public SimulatorApartmentTest {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        a = ToPlatformString("A");
        b = ToPlatformString("B");
        ASSERT_EQ(GetFactory<abi::ApiInformation>(types), S_OK);
        dialsim_clear_journal();
    }
    void TearDown() override {
        types.Reset();
        a = String();
        b = String();
        SimulatorApartmentTest::TearDown();
    }

    HRESULT QueryType(const String& type) {
        answer = 7;
        return types->IsTypePresent(type.Get(), &answer);
    }
    Codes QueryTypeTimes(int times) {
        Codes codes;
        for (int i = 0; i < times; ++i) {
            codes.push_back(QueryType(a));
        }
        return codes;
    }

    ComPtr<abi::IApiInformationStatics> types;
    String a;
    String b;
    abi::boolean answer = 0;
};

using Faults = TypeQueryTest;

TEST_F(Faults, FailTheNextCall) {
    ASSERT_TRUE(dialsim_fail(kOperation, kFault, 1, 1));
    EXPECT_EQ(QueryTypeTimes(3), (Codes{kFault, S_OK, S_OK}));
}

TEST_F(Faults, ApplyFromALaterCallOnSomeTimes) {
    ASSERT_TRUE(dialsim_fail(kOperation, kFault, 3, 2));
    EXPECT_EQ(QueryTypeTimes(6), (Codes{S_OK, S_OK, kFault, kFault, S_OK, S_OK}));
}

TEST_F(Faults, ApplyForeverWithoutACount) {
    ASSERT_TRUE(dialsim_fail(kOperation, kFault, 2, 0));
    EXPECT_EQ(QueryTypeTimes(5), (Codes{S_OK, kFault, kFault, kFault, kFault}));
}

TEST_F(Faults, CountFromWhenTheyAreSet) {
    QueryTypeTimes(3);
    ASSERT_TRUE(dialsim_fail(kOperation, kFault, 2, 1));
    EXPECT_EQ(QueryTypeTimes(3), (Codes{S_OK, kFault, S_OK}));
}

TEST_F(Faults, OutliveTheJournal) {
    ASSERT_TRUE(dialsim_fail(kOperation, kFault, 2, 1));
    QueryType(a);
    dialsim_clear_journal();
    EXPECT_EQ(QueryTypeTimes(2), (Codes{kFault, S_OK}));
}

TEST_F(Faults, WithArgumentsCountAndFailThatCallOnly) {
    ASSERT_TRUE(dialsim_fail(kOfA, kFault, 2, 1));
    EXPECT_EQ((Codes{QueryType(b), QueryType(b), QueryType(a), QueryType(b), QueryType(a), QueryType(a)}),
              (Codes{S_OK, S_OK, S_OK, S_OK, kFault, S_OK}));
}

TEST_F(Faults, OfAnotherOperationDoNotApply) {
    ASSERT_TRUE(dialsim_fail(kCreate, kFault, 1, 0));
    EXPECT_EQ(QueryTypeTimes(1), (Codes{S_OK}));
}

TEST_F(Faults, TheFirstApplicableOfSeveralDecides) {
    ASSERT_TRUE(dialsim_fail(kOperation, kFault, 2, 1));
    ASSERT_TRUE(dialsim_fail(kOperation, kOtherFault, 1, 3));
    EXPECT_EQ(QueryTypeTimes(4), (Codes{kOtherFault, kFault, kOtherFault, S_OK}));
}

TEST_F(Faults, InTurnAreSetByCall) {
    ASSERT_TRUE(dialsim_fail(kOperation, kFault, 1, 1));
    ASSERT_TRUE(dialsim_fail(kOperation, kOtherFault, 2, 1));
    EXPECT_EQ(QueryTypeTimes(3), (Codes{kFault, kOtherFault, S_OK}));
}

TEST_F(Faults, MayBeSuccesses) {
    ASSERT_TRUE(dialsim_fail(kOperation, S_FALSE, 1, 1));
    EXPECT_EQ(QueryType(a), S_FALSE);
}

TEST_F(Faults, LeaveAValueUnchanged) {
    ASSERT_TRUE(dialsim_fail(kOperation, kFault, 1, 1));
    QueryType(a);
    EXPECT_EQ(answer, 7);
}

TEST_F(Faults, ThatFailLateReturnTheResult) {
    ASSERT_TRUE(dialsim_fail_late(kOperation, kFault, 1, 1));
    EXPECT_EQ(QueryType(a), kFault);
    EXPECT_EQ(answer, 1);
}

TEST_F(Faults, MayYieldNothing) {
    ASSERT_TRUE(dialsim_yield_null(kOperation, 1, 1));
    EXPECT_EQ(QueryType(a), S_OK);
    EXPECT_EQ(answer, 0);
}

// Result and code of the creation of a controller.
std::pair<HRESULT, bool> Create() {
    ComPtr<abi::IRadialControllerInterop> factory;
    EXPECT_EQ(GetFactory<abi::RadialController>(factory), S_OK);
    ComPtr<abi::IRadialController> controller;
    const HRESULT code = factory->CreateForWindow(nullptr, abi::IRadialController::Iid,
                                                  reinterpret_cast<void**>(controller.Put()));
    return {code, static_cast<bool>(controller)};
}

TEST_F(Faults, OfACreationCreateNoObject) {
    ASSERT_TRUE(dialsim_fail(kCreate, kFault, 1, 1));
    EXPECT_EQ(Create(), std::pair(kFault, false));
    EXPECT_EQ(dialsim_calls("end of RadialController"), 0u);
}

TEST_F(Faults, ThatFailLateCreateTheObject) {
    ASSERT_TRUE(dialsim_fail_late(kCreate, kFault, 1, 1));
    EXPECT_EQ(Create(), std::pair(kFault, true));
}

TEST_F(Faults, ThatYieldNullMakeNoObject) {
    ASSERT_TRUE(dialsim_yield_null(kCreate, 1, 1));
    EXPECT_EQ(Create(), std::pair(S_OK, false));
}

TEST_F(Faults, FailQueriesForAnInterface) {
    ASSERT_TRUE(dialsim_fail("QueryInterface(IPropertyValue)", kFault, 1, 1));
    ComPtr<abi::IPropertyValueStatics> values;
    ASSERT_EQ(GetFactory<abi::PropertyValue>(values), S_OK);
    ComPtr<abi::IInspectable> number;
    ASSERT_EQ(values->CreateUInt32(1, number.Put()), S_OK);
    ComPtr<abi::IPropertyValue> value;
    EXPECT_EQ(Query(number.Get(), value), kFault);
    EXPECT_FALSE(value);
    EXPECT_EQ(Query(number.Get(), value), S_OK);
}

TEST_F(Faults, FailTheFlatFunctions) {
    ASSERT_TRUE(dialsim_fail("WindowsCreateStringReference", kFault, 1, 1));
    StringReference reference;
    EXPECT_EQ(reference.Create(UTF16("dial")), kFault);
    EXPECT_EQ(reference.Get(), nullptr);
}

TEST_F(Faults, OfNoOperationAreRefused) {
    for (const char* name :
         {"", "(A)", "IsTypePresent", "IApiInformationStatics::IsTypePresen",
          "IApiInformationStatics::IsTypePresents", "IApiInformationStatics::IsMagic(A)"}) {
        EXPECT_FALSE(dialsim_fail(name, kFault, 1, 1)) << name;
        EXPECT_FALSE(dialsim_fail_late(name, kFault, 1, 1)) << name;
        EXPECT_FALSE(dialsim_yield_null(name, 1, 1)) << name;
    }
}

TEST_F(Faults, CannotFailAPromotionLate) {
    EXPECT_FALSE(dialsim_fail_late("WindowsPromoteStringBuffer", kFault, 1, 1));
    EXPECT_TRUE(dialsim_fail("WindowsPromoteStringBuffer", kFault, 9, 1));
}

TEST_F(Faults, AreClearedByAReset) {
    const String kept = ToPlatformString("A");
    ASSERT_TRUE(dialsim_fail(kOperation, kFault, 1, 0));
    dialsim_reset();
    EXPECT_EQ(QueryTypeTimes(1), (Codes{S_OK}));
}

TEST_F(Faults, CanBeSetOnEveryOperationListed) {
    std::set<std::string> names;
    for (std::uint32_t i = 0; const char* name = dialsim_operation(i); ++i) {
        EXPECT_TRUE(dialsim_fail(name, kFault, 1000, 1)) << name;
        EXPECT_TRUE(names.insert(name).second) << name << " is listed twice";
    }
    EXPECT_TRUE(names.contains("RoInitialize"));
    EXPECT_TRUE(names.contains(kOperation));
    EXPECT_EQ(dialsim_operation(static_cast<std::uint32_t>(names.size()) + 1), nullptr);
    EXPECT_EQ(dialsim_operation(0xFFFFFFFF), nullptr);
}

using TheJournal = TypeQueryTest;

TEST_F(TheJournal, HasALineACallInOrder) {
    QueryType(b);
    QueryType(a);
    EXPECT_EQ(Journal(),
              "IApiInformationStatics::IsTypePresent(B)\n"
              "IApiInformationStatics::IsTypePresent(A)\n");
}

TEST_F(TheJournal, PrintsNonzeroCodesInHexadecimal) {
    dialsim_fail(kOperation, Code(0x8007000E), 1, 1);
    dialsim_fail(kOperation, S_FALSE, 2, 1);
    dialsim_yield_null(kOperation, 3, 1);
    QueryTypeTimes(3);
    EXPECT_EQ(Journal(),
              "IApiInformationStatics::IsTypePresent(A) = 8007000e\n"
              "IApiInformationStatics::IsTypePresent(A) = 1\n"
              "IApiInformationStatics::IsTypePresent(A)\n");
}

TEST_F(TheJournal, PrintsCodesOfThePlatformItself) {
    EXPECT_EQ(types->IsTypePresent(nullptr, nullptr), Code(0x80004003));
    EXPECT_EQ(Journal(), "IApiInformationStatics::IsTypePresent() = 80004003\n");
}

TEST_F(TheJournal, CountsCallsByNameOrByNameAndArguments) {
    QueryType(a);
    QueryType(b);
    QueryType(b);
    EXPECT_EQ(dialsim_calls(kOperation), 3u);
    EXPECT_EQ(dialsim_calls(kOfA), 1u);
    EXPECT_EQ(dialsim_calls("IApiInformationStatics::IsTypePresent(C)"), 0u);
    EXPECT_EQ(dialsim_calls("IApiInformationStatics::IsType"), 0u);
    EXPECT_EQ(dialsim_calls(""), 0u);
}

TEST_F(TheJournal, CountsCallsThatFailedToo) {
    dialsim_fail(kOperation, kFault, 1, 1);
    QueryTypeTimes(2);
    EXPECT_EQ(dialsim_calls(kOperation), 2u);
}

TEST_F(TheJournal, StartsAgainWhenItIsCleared) {
    QueryType(a);
    dialsim_clear_journal();
    EXPECT_EQ(Journal(), "");
    EXPECT_EQ(dialsim_calls(kOperation), 0u);
    QueryType(b);
    EXPECT_EQ(Journal(), "IApiInformationStatics::IsTypePresent(B)\n");
}

TEST_F(TheJournal, IsEmptyAfterAReset) {
    QueryType(a);
    dialsim_reset();
    EXPECT_EQ(Journal(), "");
}

TEST_F(TheJournal, IsCopiedAsFarAsItFitsAndAlwaysTerminated) {
    QueryType(a);
    const std::size_t full_size = std::string(kOfA).size() + 2;  // newline and terminator
    char buffer[8] = "xxxxxxx";
    EXPECT_EQ(dialsim_journal(buffer, 4), full_size);
    EXPECT_STREQ(buffer, "IAp");
    EXPECT_EQ(buffer[4], 'x');
    EXPECT_EQ(dialsim_journal(buffer, 1), full_size);
    EXPECT_STREQ(buffer, "");
}

TEST_F(TheJournal, ReturnsItsSizeWithoutABuffer) {
    char untouched = 'x';
    EXPECT_EQ(dialsim_journal(nullptr, 0), 1u);
    QueryType(a);
    EXPECT_EQ(dialsim_journal(&untouched, 0), std::string(kOfA).size() + 2);
    EXPECT_EQ(untouched, 'x');
}

// Records each platform call and the journal at its start.
struct CallRecorder {
    static void OnCall(void* context, const char* call) {
        auto& recorder = *static_cast<CallRecorder*>(context);
        recorder.calls += std::string(call) + "\n";
        recorder.journal = Journal();
        if (const auto inside = std::exchange(recorder.inside, nullptr)) {
            inside();
        }
    }

    std::string calls;
    std::string journal;
    std::function<void()> inside;
};

class CallHook : public TypeQueryTest {
protected:
    void SetUp() override {
        TypeQueryTest::SetUp();
        dialsim_on_call(CallRecorder::OnCall, &recorder);
    }
    void TearDown() override {
        dialsim_on_call(nullptr, nullptr);
        TypeQueryTest::TearDown();
    }

    CallRecorder recorder;
};

TEST_F(CallHook, IsCalledInsideACallThatTheJournalHasAlready) {
    QueryType(a);
    EXPECT_EQ(recorder.calls, "IApiInformationStatics::IsTypePresent(A)\n");
    EXPECT_EQ(recorder.journal, recorder.calls);
}

TEST_F(CallHook, IsCalledBeforeTheCallDoesItsWork) {
    recorder.inside = [] { dialsim_set_type_present("A", false); };
    EXPECT_EQ(QueryType(a), S_OK);
    EXPECT_EQ(answer, 0);
}

TEST_F(CallHook, IsCalledInACallThatFailsToo) {
    dialsim_fail(kOperation, kFault, 1, 1);
    EXPECT_EQ(QueryType(a), kFault);
    EXPECT_EQ(recorder.calls, "IApiInformationStatics::IsTypePresent(A)\n");
}

TEST_F(CallHook, IsCalledForTheCallsThatItLeadsTo) {
    recorder.inside = [this] { QueryType(b); };
    QueryType(a);
    EXPECT_EQ(recorder.calls,
              "IApiInformationStatics::IsTypePresent(A)\n"
              "IApiInformationStatics::IsTypePresent(B)\n");
}

TEST_F(CallHook, EndsWithNull) {
    dialsim_on_call(nullptr, nullptr);
    QueryType(a);
    EXPECT_EQ(recorder.calls, "");
}

TEST_F(CallHook, EndsWithAReset) {
    dialsim_reset();
    QueryType(a);
    EXPECT_EQ(recorder.calls, "");
}

}  // namespace
}  // namespace brindle
