// Fault injection into every platform call of each settings function, with every kind of fault: the
// function's result, and the content of each of the three stores.
#include <algorithm>
#include <array>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "settings.h"
#include "sweep_summary.h"

namespace settings_sweep {
namespace {

// In the order of access.
enum Place : std::size_t { kRoaming, kVault, kLocal };
constexpr std::array kNamesOfPlaces = {"roaming", "vault", "local"};

enum FaultKind : std::size_t { kFails, kFailsLate, kYieldsNull, kFailsTwice, kKeepsFailing };
constexpr FaultKind kFaultKinds[] = {kFails, kFailsLate, kYieldsNull, kFailsTwice, kKeepsFailing};
constexpr std::array kFaultKindNames = {"fails", "fails late", "yields null", "fails twice", "keeps failing"};

// One call of a run without faults.
struct Call {
    std::string text;       // with its arguments
    std::string operation;  // without arguments
    std::uint32_t number;   // among those with the same text, from 1
    Place place;

    // Strings are created just before the call that takes them; the call's store is not known here.
    bool MakesText() const { return operation.starts_with("WindowsCreateString"); }
};

// Calls that return no code, and journal lines that are no calls.
bool CannotFail(const std::string& line) {
    constexpr const char* kPrefixes[] = {"WindowsDeleteString", "WindowsGetString", "wcs", "end of "};
    return std::any_of(std::begin(kPrefixes), std::end(kPrefixes),
                       [&](const char* prefix) { return line.starts_with(prefix); });
}

std::vector<Call> CallsIn(const std::string& journal) {
    std::vector<Call> calls;
    for (const std::string& line : LinesOf(journal)) {
        if (!CannotFail(line)) {
            const std::string text = line.substr(0, line.rfind(')') + 1);
            const auto earlier = std::count_if(calls.begin(), calls.end(),
                                               [&](const Call& call) { return call.text == text; });
            calls.push_back(
                {text, text.substr(0, text.find('(')), static_cast<std::uint32_t>(earlier) + 1, kRoaming});
        }
    }
    return calls;
}

// The activation of a factory begins each store's calls. A string belongs to the call that follows it.
void FindPlaces(std::vector<Call>& calls) {
    Place place = kRoaming;
    auto unplaced = calls.begin();
    for (auto call = calls.begin(); call != calls.end(); ++call) {
        if (call->MakesText()) {
            continue;
        }
        if (call->text == kVaultFactory) {
            place = kVault;
        } else if (call->text == kApplicationData) {
            place = call->number == 1 ? kRoaming : kLocal;
        }
        for (; unplaced <= call; ++unplaced) {
            unplaced->place = place;
        }
    }
}

// Whether a read that reaches the store makes the call there: every store creates the key's string; other
// calls are the vault's, both containers' or one container's.
bool IsMadeIn(Place place, const Call& call) {
    if (call.text == "WindowsCreateStringReference(key)") {
        return true;
    }
    return place != kVault && call.place != kVault && call.text.find("RoamingSettings") == std::string::npos;
}

// The stores in which a call fails, one attempt in each: those of a run without faults, and those that are
// read only after a failure.
std::vector<Place> AffectedPlaces(const std::vector<Call>& calls, const Call& call, FaultKind way) {
    std::vector<Place> places;
    for (const Call& other : calls) {
        if (other.text == call.text && other.number >= call.number) {
            places.push_back(other.place);
        }
    }
    for (std::size_t unvisited = calls.back().place + 1; unvisited <= kLocal; ++unvisited) {
        if (IsMadeIn(static_cast<Place>(unvisited), call)) {
            places.push_back(static_cast<Place>(unvisited));
        }
    }
    const std::size_t most = way == kKeepsFailing ? places.size() : way == kFailsTwice ? 2 : 1;
    places.resize(std::min(places.size(), most));
    return places;
}

using Stores = std::array<std::string, 3>;

// The content of the store after one of its calls fails during a write.
enum class Kept {
    Before,   // the old content
    Without,  // the old content, without the value where it is removed before the new one is written
    After,    // the new value
    Any       // any of these
};

struct Effect {
    const char* call;
    std::array<Kept, 3> kept;  // by fault kind: fails, fails late, yields null
};

constexpr Effect kEffects[] = {
    // Access to a container, and to the vault.
    {kApplicationData, {Kept::Before, Kept::Before, Kept::Before}},
    {kCurrent, {Kept::Before, Kept::Before, Kept::Before}},
    {kRoamingSettings, {Kept::Before, Kept::Before, Kept::Before}},
    {kLocalSettings, {Kept::Before, Kept::Before, Kept::Before}},
    {kValues, {Kept::Before, Kept::Before, Kept::Before}},
    {kViewAsMap, {Kept::Before, Kept::Before, Kept::Before}},
    {kVaultFactory, {Kept::Before, Kept::Before, Kept::Before}},
    {kNewVault, {Kept::Before, Kept::Before, Kept::Before}},
    {kViewAsVault, {Kept::Before, Kept::Before, Kept::Before}},
    // An entry that cannot be compared or removed is overwritten.
    {kLookup, {Kept::After, Kept::After, Kept::After}},
    {kViewAsValue, {Kept::After, Kept::After, Kept::After}},
    {kGetString, {Kept::After, Kept::After, Kept::After}},
    {kGetInt32, {Kept::After, Kept::After, Kept::After}},
    {kRemoveEntry, {Kept::After, Kept::After, Kept::After}},
    // The new entry cannot be created. The platform decides what a null in its place does.
    {kValueFactory, {Kept::Without, Kept::Without, Kept::Without}},
    {kCreateString, {Kept::Without, Kept::Without, Kept::Any}},
    {kCreateInt32, {Kept::Without, Kept::Without, Kept::Any}},
    {kInsertEntry, {Kept::Without, Kept::After, Kept::Without}},
    // A failing search counts as no match: the new credential replaces an old one.
    {kSearch, {Kept::After, Kept::After, Kept::After}},
    {kCountFound, {Kept::After, Kept::After, Kept::After}},
    // A credential that cannot be compared or removed is unchanged; a null or empty one is replaced.
    {kRetrieve, {Kept::Before, Kept::Before, Kept::After}},
    {kGetPassword, {Kept::Before, Kept::Before, Kept::After}},
    {kRemoveCredential, {Kept::Before, Kept::Without, Kept::After}},
    {kCredentialFactory, {Kept::Without, Kept::Without, Kept::Without}},
    {kCreateCredential, {Kept::Without, Kept::Without, Kept::Any}},
    {kAddCredential, {Kept::Without, Kept::After, Kept::Without}},
};

constexpr std::array kTextEffect = {Kept::Any, Kept::Any, Kept::Any};

// Null for an unknown call.
const std::array<Kept, 3>* EffectsOf(const Call& call) {
    if (call.MakesText()) {
        return &kTextEffect;
    }
    const Effect* const effect = std::find_if(
        std::begin(kEffects), std::end(kEffects),
        [&](const Effect& each) { return each.call == call.text || each.call == call.operation; });
    return effect == std::end(kEffects) ? nullptr : &effect->kept;
}

// The value under the key before a run.
struct Entry {
    std::string type;  // empty: none
    std::string value;
};

struct Scenario {
    const char* name;
    Entry container;       // in both
    const char* password;  // of the resource's own credential; null: none
    bool other_resource;   // another resource has a credential
};

class SettingsSweep : public Settings {
protected:
    void TearDown() override {
        ReportSweep(operations_.size(), calls_, std::size(kFaultKinds), runs_);
        Settings::TearDown();
    }

    static void PutEntry(const char* store, const Entry& entry) {
        if (!entry.type.empty()) {
            Put(store, entry.type.c_str(), entry.value.c_str());
        }
    }
    static Stores StoredContent() { return {StoreText("roaming"), StoreText("vault"), StoreText("local")}; }

    // Calls `check` for each run with a failing call. A string yielded as null is the valid empty string: no
    // fault.
    void InjectEachFault(
        std::vector<Call> calls,
        const std::function<void(const Call&, FaultKind, const std::vector<Place>&)>& check) {
        FindPlaces(calls);
        for (const Call& call : calls) {
            operations_.insert(call.operation);
            ++calls_;
            for (const FaultKind way : kFaultKinds) {
                if (!(way == kYieldsNull && call.MakesText())) {
                    SCOPED_TRACE(std::string(kNamesOfPlaces[call.place]) + ": " + call.text + ", call " +
                                 std::to_string(call.number) + ", " + kFaultKindNames[way]);
                    ++runs_;
                    check(call, way, AffectedPlaces(calls, call, way));
                    EXPECT_EQ(LeakReport(), "");
                    dialsim_reset();  // clears the persistent faults
                    dialsim_set_packaged(true);
                }
            }
        }
    }

    static void InjectedCode(const Call& call, FaultKind way) {
        const char* const text = call.text.c_str();
        const std::uint32_t times = way == kKeepsFailing ? 0 : way == kFailsTwice ? 2 : 1;
        ASSERT_TRUE(way == kFailsLate    ? dialsim_fail_late(text, kFail, call.number, 1)
                    : way == kYieldsNull ? dialsim_yield_null(text, call.number, 1)
                                         : dialsim_fail(text, kFail, call.number, times));
    }

private:
    std::set<std::string> operations_;
    std::size_t calls_ = 0;
    std::size_t runs_ = 0;
};

// --- writing

// A new value of a kind, as text.
struct NewValue {
    const char* type;
    const char* text;
    bool goes_to_the_vault;
};

class WritingSweep : public SettingsSweep {
protected:
    // Sweeps the write of the value over the scenario.
    void Sweep(const Scenario& scenario, const NewValue& value, const std::function<std::int32_t()>& write) {
        SCOPED_TRACE(scenario.name);
        Prepare(scenario);
        const Outcomes outcomes = OutcomesOf(scenario, value);
        dialsim_clear_journal();
        EXPECT_EQ(write(), 0);
        EXPECT_EQ(StoredContent(), outcomes.undisturbed);
        InjectEachFault(CallsIn(Journal()),
                        [&](const Call& call, FaultKind way, const std::vector<Place>& places) {
                            Prepare(scenario);
                            InjectedCode(call, way);
                            EXPECT_EQ(write(), 0);
                            Check(call, way, places, outcomes);
                        });
    }

private:
    struct Outcomes {
        Stores before;
        Stores without;
        Stores after;
        Stores undisturbed;
    };

    static void Prepare(const Scenario& scenario) {
        ASSERT_TRUE(dialsim_clear_stores());
        PutEntry("roaming", scenario.container);
        PutEntry("local", scenario.container);
        if (scenario.password != nullptr) {
            PutInVault(scenario.password);
        }
        if (scenario.other_resource) {
            PutInVault("theirs", "other");
        }
    }

    static Outcomes OutcomesOf(const Scenario& scenario, const NewValue& value) {
        const std::string entry = "\"key\" " + std::string(value.type) + " " + value.text + "\n";
        const bool removed = scenario.container.type == value.type;
        Outcomes outcomes{StoredContent(), StoredContent(), {entry, "", entry}, {entry, "", entry}};
        if (removed) {
            outcomes.without[kRoaming] = outcomes.without[kLocal] = "";
        }
        const std::string theirs = scenario.other_resource ? Credential("other", "theirs") : "";
        const bool blocked = scenario.other_resource && scenario.password == nullptr;
        outcomes.without[kVault] = theirs;
        outcomes.after[kVault] = Credential("host", "new") + theirs;
        outcomes.undisturbed[kVault] =
            value.goes_to_the_vault && !blocked ? outcomes.after[kVault] : outcomes.before[kVault];
        return outcomes;
    }

    // Only failures in a store change its content.
    static void Check(const Call& call, FaultKind way, const std::vector<Place>& places,
                      const Outcomes& outcomes) {
        const std::array<Kept, 3>* const effects = EffectsOf(call);
        ASSERT_NE(effects, nullptr) << "unknown call";
        const Stores stored = StoredContent();
        Stores expected = outcomes.undisturbed;
        for (const Place place : places) {
            const Kept kept = (*effects)[way > kYieldsNull ? kFails : way];
            expected[place] = Expected(kept, outcomes, place, stored[place]);
        }
        EXPECT_EQ(stored, expected);
    }

    static std::string Expected(Kept kept, const Outcomes& outcomes, Place place, const std::string& stored) {
        switch (kept) {
            case Kept::Before:
                return outcomes.before[place];
            case Kept::Without:
                return outcomes.without[place];
            case Kept::After:
                return outcomes.after[place];
            default:
                EXPECT_TRUE(stored == outcomes.before[place] || stored == outcomes.without[place] ||
                            stored == outcomes.after[place])
                    << stored;
                return stored;
        }
    }
};

TEST_F(WritingSweep, OfATextKeepsWhatCanBeKept) {
    for (const Scenario& scenario : {
             Scenario{"nothing is stored", {}, nullptr, false},
             {"the text is stored", {"String", "new"}, "new", false},
             {"another text is stored", {"String", "old"}, "old", false},
             {"a number is stored, and the vault has the key of another resource",
              {"Int32", "1"},
              nullptr,
              true},
             {"no value is stored, and the vault has the key twice", {"composite", ""}, "old", true},
         }) {
        Sweep(scenario, {"String", "\"new\"", true}, [] { return SetText(UTF16("new")); });
    }
}

TEST_F(WritingSweep, OfANumberKeepsWhatCanBeKept) {
    for (const Scenario& scenario : {
             Scenario{"nothing is stored", {}, nullptr, false},
             {"the number is stored", {"Int32", "7"}, "old", false},
             {"another number is stored", {"Int32", "8"}, nullptr, false},
             {"a text is stored", {"String", "7"}, "7", true},
             {"a number of another kind is stored", {"UInt32", "7"}, nullptr, false},
             {"no value is stored", {"composite", ""}, nullptr, false},
         }) {
        Sweep(scenario, {"Int32", "7", false}, [] { return SetNumber(7); });
    }
}

// --- reading

template <class Value>
using Found = std::array<std::optional<Value>, 3>;

template <class Value>
std::optional<Value> FirstOf(const Found<Value>& found) {
    for (const std::optional<Value>& value : found) {
        if (value.has_value()) {
            return value;
        }
    }
    return std::nullopt;
}

class ReadingSweep : public SettingsSweep {
protected:
    static void Prepare(const Entry& roaming, const char* password, bool other_resource, const Entry& local) {
        ASSERT_TRUE(dialsim_clear_stores());
        PutEntry("roaming", roaming);
        if (password != nullptr) {
            PutInVault(password);
        }
        if (other_resource) {
            PutInVault("3", "other");
        }
        PutEntry("local", local);
    }

    // Sweeps a read of stores with these values. A failing store yields nothing; a value yielded as null is
    // the valid empty text.
    template <class Value>
    void Sweep(const std::function<std::optional<Value>()>& read, const Found<Value>& found) {
        const Stores before = StoredContent();
        dialsim_clear_journal();
        EXPECT_EQ(read(), FirstOf(found));
        InjectEachFault(CallsIn(Journal()), [&](const Call& call, FaultKind way,
                                                const std::vector<Place>& places) {
            Found<Value> left = found;
            for (const Place place : places) {
                left[place] = way == kYieldsNull && IsTheValue(call) ? std::optional(Value()) : std::nullopt;
            }
            InjectedCode(call, way);
            EXPECT_EQ(read(), FirstOf(left));
        });
        EXPECT_EQ(StoredContent(), before);
    }

private:
    static bool IsTheValue(const Call& call) {
        return call.operation == kGetString || call.operation == kGetInt32 || call.operation == kGetPassword;
    }
};

TEST_F(ReadingSweep, OfATextYieldsWhatTheRemainingPlacesHold) {
    const auto read = [] { return GetText(); };
    const WideText one = UTF16("1");
    const WideText two = UTF16("2");
    const WideText four = UTF16("4");
    Prepare({}, nullptr, false, {});
    Sweep<WideText>(read, {});
    Prepare({"String", "1"}, "2", false, {"String", "4"});
    Sweep<WideText>(read, {one, two, four});
    Prepare({"String", "1"}, nullptr, false, {});
    Sweep<WideText>(read, {one});
    Prepare({}, "2", true, {"String", "4"});
    Sweep<WideText>(read, {std::nullopt, two, four});
    Prepare({"Int32", "1"}, nullptr, true, {"String", "4"});
    Sweep<WideText>(read, {std::nullopt, std::nullopt, four});
    Prepare({"composite", ""}, nullptr, true, {"Int32", "4"});
    Sweep<WideText>(read, {});
}

TEST_F(ReadingSweep, OfANumberYieldsWhatTheRemainingPlacesHold) {
    const auto read = [] {
        const std::int32_t number = GetNumber();
        return number == kAbsentNumber ? std::nullopt : std::optional(number);
    };
    Prepare({}, nullptr, false, {});
    Sweep<std::int32_t>(read, {});
    Prepare({"Int32", "1"}, "2", false, {"Int32", "4"});
    Sweep<std::int32_t>(read, {1, 2, 4});
    Prepare({"Int32", "1"}, nullptr, false, {});
    Sweep<std::int32_t>(read, {1});
    Prepare({}, "2", true, {"Int32", "4"});
    Sweep<std::int32_t>(read, {std::nullopt, 2, 4});
    Prepare({"String", "1"}, nullptr, true, {"Int32", "4"});
    Sweep<std::int32_t>(read, {std::nullopt, std::nullopt, 4});
    Prepare({"Int32", "-2147483648"}, "-2147483648", false, {"Int32", "4"});
    Sweep<std::int32_t>(read, {std::nullopt, std::nullopt, 4});
    Prepare({"composite", ""}, nullptr, true, {"UInt32", "4"});
    Sweep<std::int32_t>(read, {});
}

}  // namespace
}  // namespace settings_sweep
