// Arbitrary scripts. A script with a syntax error has no effect; a valid one without faults raises exactly
// the turns and clicks that a simple parser finds in it, up to the line that fails.
#include <cmath>
#include <exception>
#include <limits>
#include <sstream>
#include <vector>

#include "fuzz.h"
#include "support/menu_items.h"
#include "support/recording_host.h"
#include "support/stores_folder.h"

namespace {

constexpr std::size_t kMaxLength = 2000;

struct Turn {
    double degrees;
    bool button_down;
    DialContactRect contact;
};

// The expected events of a valid script.
struct ExpectedEvents {
    std::vector<Turn> turns;
    std::vector<DialContactRect> clicks;
    std::uint32_t leaked_contacts = 0;  // a click leaks its contact, by contract
    bool injects_faults = false;
    bool leaks_strings = false;  // a faulty release leaks strings
};

std::int32_t Truncate(float value) {
    const double truncated = std::trunc(double{value});
    return std::fabs(truncated) < 2147483648.0 ? static_cast<std::int32_t>(truncated)
                                               : std::numeric_limits<std::int32_t>::min();
}

// The dial's position on the screen.
struct Place {
    float x = 0;
    float y = 0;
    float width = 0;
    float height = 0;

    DialContactRect ForTurn() const {
        return {Truncate(x), Truncate(y), Truncate(x + width), Truncate(y + height)};
    }
    DialContactRect ForClick() const {
        const auto left = static_cast<float>(Truncate(x));
        const auto top = static_cast<float>(Truncate(y));
        return {Truncate(x), Truncate(y), Truncate(left + width), Truncate(top + height)};
    }
};

Place PlaceIn(const std::vector<std::string>& words) {
    const auto number = [&](std::size_t i) { return std::strtof(words[i].c_str(), nullptr); };
    return {number(1), number(2), number(3), number(4)};
}

double Degrees(const std::string& word) {
    char* end = nullptr;
    const double degrees = std::strtod(word.c_str(), &end);
    Check(*end == '\0', "a played number is valid: " + word);
    return degrees;
}

class ScriptModel {
public:
    ExpectedEvents Read(const std::string& script) {
        std::istringstream lines(script);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream stream(line.substr(0, line.find('#')));
            std::vector<std::string> words;
            for (std::string word; stream >> word;) {
                words.push_back(word);
            }
            if (!words.empty()) {
                Apply(words);
            }
        }
        return expected_;
    }

private:
    void Apply(const std::vector<std::string>& words) {
        const std::string& command = words[0];
        const bool received = window_ == 0 || window_ == kWindow;
        if (command == "turn" && received) {
            expected_.turns.push_back({Degrees(words[1]), button_down_, place_.ForTurn()});
        } else if (command == "click" && received) {
            expected_.clicks.push_back(place_.ForClick());
            expected_.leaked_contacts += on_screen_ ? 1U : 0U;
        } else if (command == "hold" || command == "release") {
            button_down_ = command == "hold";
        } else if (command == "touch" || command == "move") {
            place_ = PlaceIn(words);
            on_screen_ = true;
        } else if (command == "lift") {
            place_ = {};
            on_screen_ = false;
        } else if (command == "window") {
            window_ = std::strtoull(words[1].c_str(), nullptr, words[1].starts_with("0x") ? 16 : 10);
        } else if (command == "fail" || command == "fail-late" || command == "null") {
            expected_.injects_faults = true;
            expected_.leaks_strings |= words[1].find("Delete") != std::string::npos;
        }
    }

    ExpectedEvents expected_;
    std::uint64_t window_ = 0;
    bool button_down_ = false;
    bool on_screen_ = false;
    Place place_;
};

bool SameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

void CheckEvents(const RecordingHost& host, const ExpectedEvents& expected) {
    CheckSame(host.rotations.size(), expected.turns.size(), "turns received");
    Check(host.clicks == expected.clicks, "clicks received, and their contacts");
    for (std::size_t i = 0; i < expected.turns.size(); ++i) {
        const DialRotationInfo& received = host.rotations[i];
        Check(SameNumber(received.deltaDegrees, expected.turns[i].degrees), "a turn's degrees");
        CheckSame(received.buttonPressed, expected.turns[i].button_down, "a turn's button");
        Check(received.contact == expected.turns[i].contact, "a turn's contact");
        Check(received.acceleration >= 1.0, "a turn's acceleration");
    }
}

// With faults, fewer contacts are leaked, or one of them several times.
void CheckLeaks(const ExpectedEvents& expected) {
    const std::uint32_t leaked = dialsim_objects(kContacts);
    Check(expected.injects_faults ? leaked <= expected.leaked_contacts : leaked == expected.leaked_contacts,
          "leaked contacts");
    for (const std::string& line : LinesOf(LeakReport())) {
        Check(line.starts_with(kContacts), "leaked: " + line);
    }
}

long LineNumberOf(const std::string& reason) {
    return reason.starts_with("line ") ? std::strtol(reason.c_str() + 5, nullptr, 10) : 0;
}

long LineCount(const std::string& script) { return 1 + std::count(script.begin(), script.end(), '\n'); }

std::string FirstLines(const std::string& script, long count) {
    std::size_t end = 0;
    for (long i = 0; i < count; ++i) {
        end = script.find('\n', end) + 1;
    }
    return script.substr(0, end);
}

// The error names a line of the script.
void CheckReason(const std::string& reason, const std::string& script) {
    const long number = LineNumberOf(reason);
    Check(number >= 1 && number <= LineCount(script), "the error names a line of the script: " + reason);
}

// All calls of a host, in the state that the script leaves.
void CallEveryExport() {
    const std::int32_t kinds[] = {3, 0};
    SetMenu(kWindow,
            {KnownIcon(1), SystemFont(2), CustomFont(3, UTF16("/dev/null")), FilePNG(4, UTF16("/x"))});
    set_default_menu(kWindow, kinds, 2);
    set_current_custom_menu(kWindow, 2);
    dialsim_choose(kWindow, 0);
    dialsim_turn(kWindow, 5.0);
    is_dial_present(kWindow);
    set_string_in_storage(UTF16("host"), UTF16("key"), UTF16("7"));
    std::free(get_string_from_storage(UTF16("host"), UTF16("key")));
    set_int_in_storage(UTF16("host"), UTF16("key"), 7);
    get_int_from_storage(UTF16("host"), UTF16("key"));
}

// With a last line that does not parse, a script is parsed and not played.
bool Parses(const std::string& script) {
    char reason[512];
    const std::string before = Journal();
    Check(!dialsim_play((script + "\nspin").c_str(), 0, reason, sizeof reason), "a last line does not parse");
    CheckReason(reason, script + "\n");
    CheckSame(Journal(), before, "the journal of a script that does not parse");
    return LineNumberOf(reason) == LineCount(script) + 1;
}

// The lines that take place: all, or those before the one that fails.
std::string LinesPlayed(const std::string& script) {
    char reason[512];
    if (dialsim_play(script.c_str(), 0, reason, sizeof reason)) {
        return script;
    }
    CheckReason(reason, script);
    return FirstLines(script, LineNumberOf(reason) - 1);
}

// Returns the expected events, none after a syntax error. With faults, exports may throw: a label is refused,
// or memory runs out.
ExpectedEvents Play(const std::string& script, const RecordingHost& host) {
    if (!Parses(script)) {
        return {};
    }
    const ExpectedEvents expected = ScriptModel().Read(LinesPlayed(script));
    if (!expected.injects_faults) {
        CheckEvents(host, expected);
    }
    try {
        CallEveryExport();
    } catch (const std::exception&) {
        Check(expected.injects_faults, "no exception without failures");
    }
    dialsim_wait_for_async();
    dialsim_complete_all();
    return expected;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const StoresFolder folder;
    const std::string all = Input(bytes, size).Rest();
    const std::string script = all.substr(0, all.find('\0'));
    // The draw command writes files to arbitrary paths.
    if (script.size() > kMaxLength || script.find("draw") != std::string::npos) {
        return 0;
    }
    dialsim_reset();
    static const std::uint32_t buzz = 1;
    RecordingHost host(kWindow);
    host.haptic_request = &buzz;
    initialize();
    Check(init_dial_listener(&host), "the window is registered");
    const ExpectedEvents expected = Play(script, host);
    uninit();
    if (!expected.leaks_strings) {
        CheckLeaks(expected);
    }
    return 0;
}
