// Failures of each of the library's allocations: the test program is linked with --wrap for the allocation
// functions. The simulator is a separate library and is not affected.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "brindle.h"
#include "menu/kind_sequence.h"
#include "support/menu_items.h"
#include "support/pictures.h"
#include "support/silent_host.h"
#include "support/simulator_fixture.h"
#include "support/stores_folder.h"

namespace {

// Counts allocations from 1; those from `first` to `last` fail.
struct Shortage {
    std::uint32_t first = UINT32_MAX;
    std::uint32_t last = UINT32_MAX;
    std::uint32_t count = 0;

    bool FailsNext() {
        ++count;
        return count >= first && count <= last;
    }
    bool WasInjected() const { return count >= first; }
};

thread_local Shortage* shortage_in_force = nullptr;

bool FailsNow() { return shortage_in_force != nullptr && shortage_in_force->FailsNext(); }

}  // namespace

// operator new, operator new[] and the nothrow new.
extern "C" void* __real__Znwm(std::size_t size);
extern "C" void* __wrap__Znwm(std::size_t size) {
    return FailsNow() ? throw std::bad_alloc() : __real__Znwm(size);
}

extern "C" void* __real__Znam(std::size_t size);
extern "C" void* __wrap__Znam(std::size_t size) {
    return FailsNow() ? throw std::bad_alloc() : __real__Znam(size);
}

extern "C" void* __real__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag);
extern "C" void* __wrap__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag) {
    return FailsNow() ? nullptr : __real__ZnwmRKSt9nothrow_t(size, tag);
}

extern "C" void* __real_calloc(std::size_t count, std::size_t size);
extern "C" void* __wrap_calloc(std::size_t count, std::size_t size) {
    return FailsNow() ? nullptr : __real_calloc(count, size);
}

namespace brindle {
namespace {

// Exceeds the small-string buffer.
constexpr char16_t kLabel[] = u"a label that does not fit into a string object";

// A call of the library, and its expected outcomes when the first, second, third ... allocation fails.
struct Case {
    const char* name;
    std::function<void()> prepare;
    std::function<std::int32_t()> act;
    std::vector<std::string> outcomes;
    // Where they differ: the outcomes when all allocations from that one on fail.
    std::vector<std::string> lasting_outcomes = {};
    bool repeats = true;  // whether it can be repeated without a new start of the library
};

constexpr char kThrown[] = "std::bad_alloc";

std::vector<std::string> Always(const char* outcome, std::size_t times) {
    return std::vector<std::string>(times, outcome);
}

class AllocationFailures : public SimulatorTest {
protected:
    AllocationFailures() {
        static const std::uint32_t buzz = 1;
        host_.haptic_request = &buzz;
    }

    void InjectEachFailure(const Case& test_case) {
        SCOPED_TRACE(test_case.name);
        const Run baseline = Act(test_case, {});
        std::vector<std::string> outcomes;
        std::vector<std::string> lasting_outcomes;
        for (std::uint32_t which = 1;; ++which) {
            const Run run = Act(test_case, {which, which});
            if (!run.failed) {
                break;
            }
            const Run lasting = Act(test_case, {which, UINT32_MAX});
            outcomes.push_back(run.outcome);
            lasting_outcomes.push_back(lasting.outcome);
            EXPECT_EQ(run.again, baseline.again);
            EXPECT_EQ(lasting.again, baseline.again);
            EXPECT_EQ(Act(test_case, {}).outcome, baseline.outcome);
        }
        EXPECT_EQ(outcomes, test_case.outcomes);
        EXPECT_EQ(lasting_outcomes,
                  test_case.lasting_outcomes.empty() ? test_case.outcomes : test_case.lasting_outcomes);
        std::fprintf(stderr, "allocations: %s: %zu failures\n", test_case.name, outcomes.size());
    }

    static void Start() { ASSERT_EQ(initialize(), 0); }
    // Loads complete only on request.
    void Listen() {
        Start();
        ASSERT_TRUE(init_dial_listener(&host_));
        dialsim_async(DIALSIM_HELD);
        ModuleWithPng();
    }
    void ListenWithAMenu(const MenuItemDescription& item) {
        Listen();
        ASSERT_TRUE(SetMenu(kWindow, {item}));
    }
    void InjectEachFailureOfMenu(const char* name, MenuItemDescription item,
                                 std::vector<std::string> outcomes) {
        item.display_text = kLabel;
        InjectEachFailure({name, [this] { Listen(); },
                           [&item] { return std::int32_t{add_custom_menu(kWindow, &item, 1)}; },
                           std::move(outcomes)});
    }

    const TemporaryFile file_{"brindle-allocation.png", SmallPng()};
    SilentHost host_{kWindow};

private:
    struct Run {
        bool failed = false;
        std::string outcome;
        std::string again;  // the outcome of the repetition, with memory
    };

    // Restarts the library; at the end nothing is leaked.
    static Run Act(const Case& test_case, Shortage shortage) {
        dialsim_reset();
        test_case.prepare();
        Run run;
        run.outcome = OutcomeOf(test_case, &shortage);
        run.failed = shortage.WasInjected();
        if (test_case.repeats) {
            run.again = OutcomeOf(test_case, nullptr);
        }
        dialsim_abandon_pending();
        uninit();
        EXPECT_EQ(LeakReport(), "");
        return run;
    }

    static std::string OutcomeOf(const Case& test_case, Shortage* shortage) {
        testing::internal::CaptureStdout();
        std::int32_t answer = 0;
        bool thrown = false;
        shortage_in_force = shortage;
        try {
            answer = test_case.act();
        } catch (const std::bad_alloc&) {
            thrown = true;
        }
        shortage_in_force = nullptr;
        const std::string printed = testing::internal::GetCapturedStdout();
        char answered[32];
        std::snprintf(answered, sizeof answered, "answered %x", static_cast<unsigned>(answer));
        return (thrown ? kThrown : answered) + (printed.empty() ? "" : ", " + printed);
    }
};

// A handler that cannot be allocated is a failed subscription: it is retried, and succeeds when there is
// memory.
TEST_F(AllocationFailures, OfRegistering) {
    std::vector<std::string> outcomes(2, kThrown);
    std::vector<std::string> lasting_outcomes = outcomes;
    for (int line = 467; line <= 491; line += 4) {
        const std::string at_line = " at line " + std::to_string(line) + "\n";
        outcomes.push_back("answered 1, failed with 0" + at_line);
        lasting_outcomes.push_back("answered 0, failed with 8007000e" + at_line +
                                   "register failed with 8007000e at line 110\n");
    }
    // The registry's two lists.
    outcomes.insert(outcomes.end(), 2, kThrown);
    lasting_outcomes.insert(lasting_outcomes.end(), 2, kThrown);
    InjectEachFailure({.name = "init_dial_listener",
                       .prepare = Start,
                       .act = [this] { return std::int32_t{init_dial_listener(&host_)}; },
                       .outcomes = outcomes,
                       .lasting_outcomes = lasting_outcomes,
                       .repeats = false});
}

TEST_F(AllocationFailures, OfFillingAMenu) {
    const TemporaryFile font("brindle-allocation.ttf", SmallPng());
    // The entry, the item's handler, and the list of entries.
    InjectEachFailureOfMenu("a known icon", KnownIcon(1), Always(kThrown, 3));
    InjectEachFailureOfMenu("a glyph of an installed font", SystemFont(1), Always(kThrown, 3));
    // Also the short path.
    InjectEachFailureOfMenu("a glyph of a font file", CustomFont(1, font.Path()), Always(kThrown, 4));
    InjectEachFailureOfMenu("a picture resource", ResourcePNG(1, 1, kPngResource), Always(kThrown, 3));
    // The entry, the copy of the label, and the completion handler.
    InjectEachFailureOfMenu("a picture file", FilePNG(1, file_.Path()), Always(kThrown, 3));
}

// The completion handler converts exceptions to codes.
TEST_F(AllocationFailures, OfOpeningAPictureFile) {
    InjectEachFailure({"a picture file that is open", [this] { ListenWithAMenu(FilePNG(1, file_.Path())); },
                       dialsim_complete_all, Always("answered 8007000e", 3)});
}

// The platform requests the sequence's iterator, and returns its failure.
TEST_F(AllocationFailures, OfTheDefaultMenu) {
    InjectEachFailure({"set_default_menu", [this] { Listen(); },
                       [] { return std::int32_t{set_default_menu(kWindow, kTwoSystemItems, 2)}; },
                       Always(kThrown, 3)});
}

TEST_F(AllocationFailures, OfLookingForTheDial) {
    InjectEachFailure({"is_dial_present",
                       [this] {
                           Listen();
                           dialsim_async(DIALSIM_AT_ONCE);
                       },
                       [] { return std::int32_t{is_dial_present(kWindow)}; }, Always(kThrown, 2)});
}

TEST_F(AllocationFailures, OfReadingSettings) {
    const StoresFolder stores;
    ASSERT_TRUE(dialsim_put_credential("host", "key", "17"));
    InjectEachFailure({"get_string_from_storage",
                       Start,
                       [] {
                           BrindleChar* const text = get_string_from_storage(u"host", u"key");
                           const bool found = text != nullptr;
                           std::free(text);
                           return std::int32_t{found};
                       },
                       {kThrown}});
    InjectEachFailure(
        {"get_int_from_storage", Start, [] { return get_int_from_storage(u"host", u"key"); }, {kThrown}});
}

TEST_F(AllocationFailures, OfAnIteratorKeepNoReference) {
    const auto sequence = ComPtr<KindSequence>::Attach(new KindSequence({SystemItemKind::Scroll}));
    auto* iterator = reinterpret_cast<abi::IIterator<SystemItemKind>*>(&host_);
    Shortage shortage{1, 1};
    shortage_in_force = &shortage;
    EXPECT_EQ(sequence->First(&iterator), E_OUTOFMEMORY);
    shortage_in_force = nullptr;
    EXPECT_EQ(iterator, nullptr);
    sequence->AddRef();
    EXPECT_EQ(sequence->Release(), 1u);
}

// Calls that allocate nothing.
TEST_F(AllocationFailures, OfEverythingElse) {
    const StoresFolder stores;
    const auto listen = [this] { ListenWithAMenu(KnownIcon(1)); };
    InjectEachFailure({"initialize", [] {}, initialize, {}});
    InjectEachFailure({"set_current_custom_menu",
                       listen,
                       [] { return std::int32_t{set_current_custom_menu(kWindow, 1)}; },
                       {}});
    InjectEachFailure({"an item that is chosen", listen, [] { return dialsim_choose(kWindow, 0); }, {}});
    InjectEachFailure({"a turn", listen, [] { return dialsim_turn(kWindow, 1.0); }, {}});
    InjectEachFailure({"a click", listen, [] { return dialsim_click(kWindow); }, {}});
    InjectEachFailure({"a contact",
                       [this] { Listen(); },
                       [] { return dialsim_touch(kWindow, 1, 2, 3, 4) | dialsim_acquire(kWindow); },
                       {}});
    InjectEachFailure(
        {"set_string_in_storage", Start, [] { return set_string_in_storage(u"host", u"key", u"18"); }, {}});
    InjectEachFailure(
        {"set_int_in_storage", Start, [] { return set_int_in_storage(u"host", u"key", 18); }, {}});
    InjectEachFailure({"uninit",
                       listen,
                       [] {
                           uninit();
                           return 0;
                       },
                       {}});
}

}  // namespace
}  // namespace brindle
