// The presence query: the platform calls, the devices that match, and the length of the wait.
#include <initializer_list>
#include <new>
#include <string>

#include "behaviour.h"
#include "support/edges.h"
#include "support/inside_call.h"

namespace {

constexpr std::uint32_t kFullWait = 10'001;

// The prefix of the matching device's Id.
constexpr char kPrefix[] = R"(\\?\BTHLE#Dev_bc838528f72a#)";
static_assert(sizeof kPrefix - 1 == 27);

// Exact text, with the platform's blanks and three tabs.
constexpr char kFilter[] =
    "System.Devices.InterfaceClassGuid:=\"{80795c47-03f0-446d-b1f2-e424b30db4da}\" AND\t\t\t"
    "System.Devices.InterfaceEnabled: = System.StructuredQueryType.Boolean#True";
static_assert(sizeof kFilter - 1 == 156);

constexpr char kStatics[] = "RoGetActivationFactory(Windows.Devices.Enumeration.DeviceInformation)";
constexpr char kFindAll[] = "IDeviceInformationStatics::FindAllAsyncAqsFilter";
constexpr char kAttach[] = "IAsyncOperation<DeviceInformationCollection>::put_Completed";
constexpr char kGetResults[] = "IAsyncOperation<DeviceInformationCollection>::GetResults";
constexpr char kSize[] = "IVectorView<DeviceInformation>::get_Size";
constexpr char kGetDevice[] = "IVectorView<DeviceInformation>::GetAt";
constexpr char kId[] = "IDeviceInformation::get_Id";

std::string MakingOf(const char* text) { return "WindowsCreateString(" + std::string(text) + ")"; }

// By default, enumerations complete before the handler is attached, and sleeps return at once.
class Presence : public ListeningTest {
protected:
    void SetUp() override {
        ListeningTest::SetUp();
        dialsim_async(DIALSIM_AT_ONCE);
        dialsim_skip_sleeps(true);
    }
    void TearDown() override {
        dialsim_wait_for_async();  // a wait may end before the handler has returned
        dialsim_abandon_pending();
        ListeningTest::TearDown();
    }

    // Enumerations complete on a thread of the simulator: sleeps take real time.
    static void CompleteOnAnotherThreadAfter(std::uint32_t milliseconds) {
        dialsim_skip_sleeps(false);
        dialsim_async(DIALSIM_OWN_THREAD);
        dialsim_async_delay(milliseconds);
    }

    // Null is an entry without an object.
    static void SetDevices(std::initializer_list<const char*> ids) {
        dialsim_remove_devices();
        for (const char* id : ids) {
            dialsim_add_device(id, nullptr, true);
        }
    }
    static bool IsPresentWithOnly(const std::string& id) {
        SetDevices({id.c_str()});
        return is_dial_present(kWindow);
    }
    static std::uint32_t Sleeps() { return dialsim_calls("Sleep(1)"); }
};

TEST_F(Presence, TheStaticsAreReleasedBeforeTheHandlerIsAttached) {
    std::uint32_t left = 1;
    const InsideCall look(kAttach, [&] { left = dialsim_objects("IDeviceInformationStatics"); });
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_EQ(left, 0u);
}

TEST_F(Presence, TheDialIsPresent) { EXPECT_TRUE(is_dial_present(kWindow)); }

TEST_F(Presence, AQueryTakesTheseStepsInThisOrder) {
    EXPECT_TRUE(is_dial_present(kWindow));
    std::string calls;
    for (const std::string& line : LinesOf(Journal())) {
        // Strings are created and released between the steps; they are compared separately.
        calls += line.find("Windows") == 0 || line.find("_wcsnicmp") == 0 ? "" : line + "\n";
    }
    EXPECT_EQ(calls, std::string(kStatics) + "\n" + kFindAll + "(" + kFilter + ")\n" +
                         "IAsyncOperation<DeviceInformationCollection>::put_Completed()\n"
                         "AsyncOperationCompletedHandler<DeviceInformationCollection>::Invoke(1)\n"
                         "IAsyncOperation<DeviceInformationCollection>::GetResults()\n"
                         "IVectorView<DeviceInformation>::get_Size()\n"
                         "IVectorView<DeviceInformation>::GetAt(0)\n"
                         "IDeviceInformation::get_Id()\n");
}

TEST_F(Presence, TheFilterIsCreatedFirstAndPassedUnchanged) {
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(MakingOf(kFilter).c_str()), 1u);
    EXPECT_EQ(dialsim_calls((std::string(kFindAll) + "(" + kFilter + ")").c_str()), 1u);
    EXPECT_LT(Journal().find(MakingOf(kFilter)), Journal().find(kStatics));
}

TEST_F(Presence, ThePrefixIsCreatedForEachEntryBeforeItsIdIsRead) {
    SetDevices({"USB#1", "USB#2"});
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(MakingOf(kPrefix).c_str()), 2u);
    EXPECT_EQ(dialsim_calls("_wcsnicmp"), 2u);
    EXPECT_LT(Journal().find(MakingOf(kPrefix)), Journal().find(kId));
}

TEST_F(Presence, WithoutADeviceThereIsNoDialAndNoWait) {
    dialsim_remove_devices();
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(kGetDevice), 0u);
    EXPECT_EQ(Sleeps(), 0u);
}

TEST_F(Presence, EntriesWithoutAnObjectAreNoDial) {
    SetDevices({nullptr, nullptr});
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(kGetDevice), 2u);
    EXPECT_EQ(dialsim_calls(kId), 0u);
    EXPECT_EQ(Sleeps(), 0u);
}

TEST_F(Presence, ADisabledDialIsNoDial) {
    dialsim_remove_devices();
    dialsim_add_device((std::string(kPrefix) + "8").c_str(), nullptr, false);
    EXPECT_FALSE(is_dial_present(kWindow));
}

TEST_F(Presence, AnInterfaceOfAnotherClassIsNoDial) {
    dialsim_remove_devices();
    dialsim_add_device((std::string(kPrefix) + "8").c_str(), "{4d1e55b2-f16f-11cf-88cb-001111000030}", true);
    EXPECT_FALSE(is_dial_present(kWindow));
}

TEST_F(Presence, TheCaseOfTheIdDoesNotMatter) {
    EXPECT_TRUE(IsPresentWithOnly(R"(\\?\BTHLE#Dev_BC838528F72A#8&1)"));
    EXPECT_TRUE(IsPresentWithOnly(R"(\\?\bthle#dev_bc838528f72a#8&1)"));
    EXPECT_TRUE(IsPresentWithOnly(R"(\\?\BTHLE#DEV_BC838528F72A#8&1)"));
    EXPECT_TRUE(IsPresentWithOnly(R"(\\?\bThLe#dEv_bC838528f72A#8&1)"));
}

TEST_F(Presence, WhateverFollowsThePrefixCounts) {
    EXPECT_TRUE(IsPresentWithOnly(kPrefix));
    EXPECT_TRUE(IsPresentWithOnly(kPrefix + std::string("#")));
    EXPECT_TRUE(IsPresentWithOnly(kPrefix + std::string(1000, 'x')));
    EXPECT_TRUE(IsPresentWithOnly(kPrefix + std::string("\xC3\xA4")));
}

TEST_F(Presence, AnIdShorterThanThePrefixIsNoDial) {
    const std::string prefix = kPrefix;
    for (std::size_t length = 0; length < prefix.size(); ++length) {
        EXPECT_FALSE(IsPresentWithOnly(prefix.substr(0, length))) << length;
    }
}

TEST_F(Presence, ASimilarIdIsNoDial) {
    for (const char* id : {
             R"(BTHLE#Dev_bc838528f72a#8&1)",                           // without the prefix
             R"(\\.\BTHLE#Dev_bc838528f72a#8&1)",                       // another prefix
             R"( \\?\BTHLE#Dev_bc838528f72a#8&1)",                      // a leading blank
             R"(\\?\BTHENUM#Dev_bc838528f72a#8&1)",                     // classic Bluetooth
             R"(\\?\BTHLE#Dev_bc838528f72b#8&1)",                       // the next address
             R"(\\?\BTHLE#Dev_bc838528f72a&8)",                         // the address is not terminated
             R"(\\?\HID#1#\\?\BTHLE#Dev_bc838528f72a#8&1)",             // not at the start
             R"(\\?\BTHLEDevice#{80795c47}_Dev_bc838528f72a#8&1&0023)"  // a service of the device
         }) {
        EXPECT_FALSE(IsPresentWithOnly(id)) << id;
    }
}

TEST_F(Presence, TheFirstMatchEndsTheScan) {
    const std::string first = kPrefix + std::string("1");
    const std::string second = kPrefix + std::string("2");
    SetDevices({first.c_str(), second.c_str()});
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls((std::string(kGetDevice) + "(0)").c_str()), 1u);
    EXPECT_EQ(dialsim_calls(kGetDevice), 1u);
}

TEST_F(Presence, TheScanSkipsNullEntriesAndOtherDevices) {
    SetDevices({nullptr, "USB#1", nullptr, kPrefix, "USB#2"});
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(kGetDevice), 4u);
    EXPECT_EQ(dialsim_calls((std::string(kGetDevice) + "(4)").c_str()), 0u);
    EXPECT_EQ(dialsim_calls(kId), 2u);
}

TEST_F(Presence, ADialAfterOthersIsFoundAndADeviceAfterTheDialDoesNotHideIt) {
    SetDevices({"USB#1", kPrefix});
    EXPECT_TRUE(is_dial_present(kWindow));
    SetDevices({kPrefix, "USB#1"});
    EXPECT_TRUE(is_dial_present(kWindow));
}

class PlaceOfTheDial : public Presence, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(PlaceOfTheDial, AmongFiveThousandDevicesIsFound) {
    dialsim_remove_devices();
    for (std::uint32_t i = 0; i < kVeryMany; ++i) {
        dialsim_add_device(i == GetParam() ? kPrefix : i % 2 == 0 ? "USB#1" : nullptr, nullptr, true);
    }
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(kGetDevice), GetParam() + 1);
    EXPECT_EQ(Sleeps(), 0u);
}

INSTANTIATE_TEST_SUITE_P(All, PlaceOfTheDial, testing::Values(0, 1, 100, 4096, kVeryMany - 1));

TEST_F(Presence, FiveThousandOtherDevicesAreNoDial) {
    dialsim_remove_devices();
    for (std::uint32_t i = 0; i < kVeryMany; ++i) {
        dialsim_add_device("USB#1", nullptr, true);
    }
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(kGetDevice), kVeryMany);
    EXPECT_EQ(Sleeps(), 0u);
}

TEST_F(Presence, AnIdMayBeOfAnyLength) {
    for (const std::size_t length : {1u, 256u, 5000u, 65'509u, 65'536u, 100'000u}) {
        EXPECT_TRUE(IsPresentWithOnly(kPrefix + std::string(length, 'x'))) << length;
        EXPECT_FALSE(IsPresentWithOnly(std::string(length, 'x'))) << length;
        EXPECT_FALSE(IsPresentWithOnly(std::string(length, 'x') + kPrefix)) << length;
    }
}

// Each unit of the prefix in turn with a nonzero high byte: 'B' becomes U+0142.
TEST_F(Presence, UnitsThatAreAlikeInTheirLowByteOnlyAreNoDial) {
    const std::string prefix = kPrefix;
    for (std::size_t i = 0; i < prefix.size(); ++i) {
        const unsigned unit = 0x100u + static_cast<unsigned char>(prefix[i]);
        const std::string utf8 = {static_cast<char>(0xC0 | unit >> 6),
                                  static_cast<char>(0x80 | (unit & 0x3F))};
        EXPECT_FALSE(IsPresentWithOnly(prefix.substr(0, i) + utf8 + prefix.substr(i + 1) + "8&1")) << i;
    }
}

TEST_F(Presence, EveryCallEnumeratesAgain) {
    EXPECT_TRUE(is_dial_present(kWindow));
    dialsim_remove_devices();
    EXPECT_FALSE(is_dial_present(kWindow));
    dialsim_add_device(kPrefix, nullptr, true);
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(kStatics), 3u);
    EXPECT_EQ(dialsim_calls(kFindAll), 3u);
}

TEST_F(Presence, AnUnknownWindowIsAnsweredWithoutAsking) {
    EXPECT_FALSE(is_dial_present(kWindow + 1));
    EXPECT_EQ(Journal(), "");
}

TEST_F(Presence, WithoutAnyListenerNothingIsAsked) {
    uninit();
    dialsim_clear_journal();
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(Journal(), "");
}

TEST_F(Presence, AWindowThatWasRegisteredTwiceAsksAsBefore) {
    RecordingHost second(kWindow);
    ASSERT_TRUE(init_dial_listener(&second));
    EXPECT_TRUE(is_dial_present(kWindow));
    uninit();
    dialsim_reset();  // a displaced listener is not destroyed
}

// --- the wait

TEST_F(Presence, ACompletionBeforeTheFirstCheckCostsNoSleep) {
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls("Sleep"), 0u);
}

TEST_F(Presence, AnEnumerationMayEndOnAnotherThreadDuringTheWait) {
    CompleteOnAnotherThreadAfter(5);
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_GE(Sleeps(), 1u);
    EXPECT_LT(Sleeps(), kFullWait);
    EXPECT_EQ(dialsim_calls("Sleep"), Sleeps());
}

TEST_F(Presence, AnEnumerationThatFindsNothingOnAnotherThreadEndsTheWaitToo) {
    dialsim_remove_devices();
    CompleteOnAnotherThreadAfter(5);
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_LT(Sleeps(), kFullWait);
}

TEST_F(Presence, ThePlatformMayTakeTheHandlerToEveryApartment) {
    dialsim_async(DIALSIM_HELD);
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_TRUE(dialsim_completion_marshals(0));
    EXPECT_EQ(dialsim_complete(0), 0);
    EXPECT_FALSE(dialsim_completion_marshals(0)) << "it is released";
    EXPECT_FALSE(dialsim_completion_marshals(1));
}

TEST_F(Presence, TheWaitGivesUpAfterTenThousandAndOneSleeps) {
    dialsim_async(DIALSIM_HELD);
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(Sleeps(), kFullWait);
    EXPECT_EQ(dialsim_calls("Sleep"), kFullWait);
    EXPECT_EQ(dialsim_pending(), 1u);
}

TEST_F(Presence, AFullWaitReallyTakesTenSecondsWhichIsSlow) {
    constexpr std::uint64_t kTick = 16;  // resolution of the clock
    dialsim_async(DIALSIM_HELD);
    dialsim_skip_sleeps(false);
    const std::uint64_t start = dialsim_now();
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_GE(dialsim_now() - start + kTick, kFullWait);
    EXPECT_EQ(Sleeps(), kFullWait);
}

TEST_F(Presence, AnOperationThatIsYieldedAsNullTimesOut) {
    ASSERT_TRUE(dialsim_yield_null(kFindAll, 1, 1));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(kAttach), 0u);
    EXPECT_EQ(Sleeps(), kFullWait);
}

TEST_F(Presence, EventsReachTheHostDuringTheWait) {
    static int ended = 0;
    ended = 0;
    CompleteOnAnotherThreadAfter(5);
    dialsim_play_in_background(
        "turn 1\nturn 2\nturn 3\n", 0, [](void*, const char* error) { ended += error == nullptr; }, nullptr);
    EXPECT_TRUE(is_dial_present(kWindow));
    dialsim_wait_for_scripts();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(host.rotations.size(), 3u);
}

// --- completions after the timeout

TEST_F(Presence, ALateCompletionIsAcceptedAndIgnored) {
    dialsim_async(DIALSIM_HELD);
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_complete(0), 0);
    EXPECT_EQ(dialsim_calls(kGetResults), 1u);
    // Neither its result nor its completion affects the next call.
    dialsim_remove_devices();
    dialsim_clear_journal();
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(Sleeps(), kFullWait);
}

TEST_F(Presence, TheCallAfterALateCompletionIsRight) {
    dialsim_async(DIALSIM_HELD);
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_complete(0), 0);
    dialsim_async(DIALSIM_AT_ONCE);
    EXPECT_TRUE(is_dial_present(kWindow));
    dialsim_remove_devices();
    EXPECT_FALSE(is_dial_present(kWindow));
}

TEST_F(Presence, ACompletionBetweenTwoLaterCallsAffectsNeither) {
    dialsim_async(DIALSIM_HELD);
    EXPECT_FALSE(is_dial_present(kWindow));
    dialsim_async(DIALSIM_AT_ONCE);
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_complete(0), 0);
    dialsim_remove_devices();
    EXPECT_FALSE(is_dial_present(kWindow));
}

TEST_F(Presence, ALateCompletionAfterUninitTouchesNothing) {
    dialsim_async(DIALSIM_HELD);
    EXPECT_FALSE(is_dial_present(kWindow));
    uninit();
    EXPECT_EQ(dialsim_complete(0), 0);
    EXPECT_EQ(LeakReport(), "");
}

TEST_F(Presence, ALateFailureIsAnsweredWithItsCode) {
    dialsim_async(DIALSIM_HELD);
    EXPECT_FALSE(is_dial_present(kWindow));
    ASSERT_TRUE(dialsim_fail(kSize, kDisconnected, 1, 1));
    EXPECT_EQ(dialsim_complete(0), kDisconnected);
}

// The results decide, whatever the status is.
TEST_F(Presence, TheStatusOfTheCompletionIsNotConsulted) {
    constexpr std::int32_t kIllegalCall = static_cast<std::int32_t>(0x8000000E);
    constexpr std::int32_t kCanceled = static_cast<std::int32_t>(0x800704C7);
    const std::int32_t answers[] = {kIllegalCall, 0, kCanceled, kFail};
    dialsim_async(DIALSIM_HELD);
    for (std::uint32_t status = 0; status < 4; ++status) {
        EXPECT_FALSE(is_dial_present(kWindow));
        EXPECT_EQ(dialsim_complete_as(status, static_cast<std::int32_t>(status)), answers[status]);
        EXPECT_EQ(dialsim_calls(kGetResults), status + 1);
    }
}

// A call times out, and its enumeration completes during the next wait: natively after 50 ms, on Windows,
// where the first call's sleeps are skipped, after up to two seconds.
void TimeOutWithLateCompletion(std::uint64_t window) {
    dialsim_async(DIALSIM_OWN_THREAD);
#ifdef _WIN32
    dialsim_async_delay(2'000);
#else
    dialsim_skip_sleeps(false);
    dialsim_async_delay(kFullWait + 50);
#endif
    EXPECT_FALSE(is_dial_present(window));
    dialsim_skip_sleeps(false);
    dialsim_clear_journal();
}

// A window has one flag: an earlier call's enumeration ends a later call's wait, which has no result of its
// own yet.
TEST_F(Presence, ACompletionThatComesDuringTheNextWaitEndsItWithoutAnAnswer) {
    TimeOutWithLateCompletion(kWindow);
    dialsim_async(DIALSIM_HELD);
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_GE(Sleeps(), 1u);
    EXPECT_LT(Sleeps(), kFullWait);
    dialsim_wait_for_async();
    EXPECT_EQ(dialsim_completion_code(0), 0);
    EXPECT_EQ(dialsim_complete(1), 0);
    dialsim_async(DIALSIM_AT_ONCE);
    EXPECT_TRUE(is_dial_present(kWindow));
}

TEST_F(Presence, WindowsDoNotEndEachOthersWaits) {
    RecordingHost other(kWindow + 1);
    ASSERT_TRUE(init_dial_listener(&other));
    TimeOutWithLateCompletion(kWindow + 1);
    CompleteOnAnotherThreadAfter(4'000);
    EXPECT_TRUE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_completion_code(0), 0);
}

// --- failures

struct QueryStep {
    const char* name;
    std::string operation;
};

void PrintTo(const QueryStep& step, std::ostream* stream) { *stream << step.operation; }

const auto kNameOfStep = [](const auto& step_info) { return step_info.param.name; };

class StartingStep : public Presence, public testing::WithParamInterface<QueryStep> {
protected:
    const char* Operation() const { return GetParam().operation.c_str(); }
};

TEST_P(StartingStep, ThatFailsIsTriedOnceAndAnsweredAtOnce) {
    ASSERT_TRUE(dialsim_fail(Operation(), kAccessDenied, 1, 0));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(Operation()), 1u);
    EXPECT_EQ(dialsim_calls("Sleep"), 0u);
}

TEST_P(StartingStep, ThatFailedDoesNotMatterToTheNextCall) {
    ASSERT_TRUE(dialsim_fail(Operation(), kAccessDenied, 1, 1));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_TRUE(is_dial_present(kWindow));
}

TEST_P(StartingStep, ThatWorksAndClaimsToHaveFailedHasFailed) {
    ASSERT_TRUE(dialsim_fail_late(Operation(), kFail, 1, 1));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls("Sleep"), 0u);
}

TEST_P(StartingStep, WithoutMemoryIsAnAllocationFailure) {
    ASSERT_TRUE(dialsim_fail(Operation(), kOutOfMemory, 1, 1));
    EXPECT_THROW(is_dial_present(kWindow), std::bad_alloc);
    EXPECT_EQ(dialsim_calls("Sleep"), 0u);
    EXPECT_TRUE(is_dial_present(kWindow));
}

INSTANTIATE_TEST_SUITE_P(All, StartingStep,
                         testing::Values(QueryStep{"MakingTheFilter", MakingOf(kFilter)},
                                         QueryStep{"GettingTheStatics", kStatics},
                                         QueryStep{"StartingToFind", kFindAll},
                                         QueryStep{"AttachingTheHandler", kAttach}),
                         kNameOfStep);

TEST_F(Presence, ASuccessWithoutTheStaticsIsAFailure) {
    ASSERT_TRUE(dialsim_yield_null(kStatics, 1, 1));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_calls(kFindAll), 0u);
    EXPECT_EQ(Sleeps(), 0u);
}

// The handler is attached and called after the timeout.
TEST_F(Presence, AHandlerWhoseAttachingClaimsToHaveFailedMayStillBeCalled) {
    dialsim_async(DIALSIM_HELD);
    ASSERT_TRUE(dialsim_fail_late(kAttach, kFail, 1, 1));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(Sleeps(), 0u);
    EXPECT_EQ(dialsim_complete(0), 0);
    EXPECT_EQ(dialsim_calls(kGetResults), 1u);
}

class ScanningStep : public StartingStep {};

TEST_P(ScanningStep, ThatFailsLeavesTheWaitToItsBoundAndItsCodeToThePlatform) {
    ASSERT_TRUE(dialsim_fail(Operation(), kAccessDenied, 1, 1));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(Sleeps(), kFullWait);
    EXPECT_EQ(dialsim_calls(Operation()), 1u);
    EXPECT_EQ(dialsim_completion_code(0), kAccessDenied);
    EXPECT_NE(Journal().find("Invoke(1) = 80070005\n"), std::string::npos);
}

TEST_P(ScanningStep, WithoutMemoryIsAnsweredToThePlatformToo) {
    ASSERT_TRUE(dialsim_fail(Operation(), kOutOfMemory, 1, 1));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(Sleeps(), kFullWait);
    EXPECT_EQ(dialsim_completion_code(0), kOutOfMemory);
}

TEST_P(ScanningStep, ThatFailsLateReleasesItsResult) {
    ASSERT_TRUE(dialsim_fail_late(Operation(), kFail, 1, 1));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(Sleeps(), kFullWait);
    EXPECT_EQ(dialsim_completion_code(0), kFail);
}

TEST_P(ScanningStep, ThatFailsOnAnotherThreadAnswersItsCodeThere) {
    ASSERT_TRUE(dialsim_fail(Operation(), kDisconnected, 1, 1));
    dialsim_async(DIALSIM_HELD);
    dialsim_raise_on_own_thread(true);
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(dialsim_complete(0), kDisconnected);
}

TEST_P(ScanningStep, ThatFailedDoesNotMatterToTheNextCall) {
    ASSERT_TRUE(dialsim_fail(Operation(), kAccessDenied, 1, 1));
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_TRUE(is_dial_present(kWindow));
}

INSTANTIATE_TEST_SUITE_P(All, ScanningStep,
                         testing::Values(QueryStep{"GettingTheResults", kGetResults},
                                         QueryStep{"ReadingTheSize", kSize},
                                         QueryStep{"GettingAnEntry", kGetDevice},
                                         QueryStep{"MakingThePrefix", MakingOf(kPrefix)},
                                         QueryStep{"ReadingTheId", kId}),
                         kNameOfStep);

TEST_F(Presence, ANullInTheScanIsNoDialAndEndsTheWait) {
    for (const char* operation : {kGetResults, kSize, kGetDevice, kId}) {
        ASSERT_TRUE(dialsim_yield_null(operation, 1, 1)) << operation;
        EXPECT_FALSE(is_dial_present(kWindow)) << operation;
        EXPECT_EQ(Sleeps(), 0u) << operation;
    }
    EXPECT_TRUE(is_dial_present(kWindow));
}

TEST_F(Presence, AFailureBehindOtherDevicesIsAFailureToo) {
    for (const char* operation : {kGetDevice, kId}) {
        SetDevices({"USB#1", kPrefix});
        dialsim_clear_journal();
        ASSERT_TRUE(dialsim_fail(operation, kFail, 2, 1)) << operation;
        EXPECT_FALSE(is_dial_present(kWindow)) << operation;
        EXPECT_EQ(Sleeps(), kFullWait) << operation;
    }
}

TEST_F(Presence, AFailureAfterTheDialHasNoEffect) {
    SetDevices({kPrefix, "USB#1"});
    ASSERT_TRUE(dialsim_fail(kGetDevice, kFail, 2, 1));
    EXPECT_TRUE(is_dial_present(kWindow));
}

TEST_F(Presence, AnEnumerationThatEndsAsFailedTimesOut) {
    dialsim_fail_devices(kAccessDenied);
    EXPECT_FALSE(is_dial_present(kWindow));
    EXPECT_EQ(Sleeps(), kFullWait);
    EXPECT_EQ(dialsim_completion_code(0), kAccessDenied);
    EXPECT_NE(Journal().find("Invoke(3) = 80070005\n"), std::string::npos);
    dialsim_fail_devices(0);
    EXPECT_TRUE(is_dial_present(kWindow));
}

}  // namespace
