#include "simulator/script.h"

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "simulator/accounts.h"
#include "simulator/clock.h"
#include "simulator/control.h"
#include "simulator/dial.h"
#include "simulator/journal.h"
#include "simulator/operations.h"

namespace dialsim {

namespace {

// Where the script stands while it plays.
struct Player {
    std::uint64_t window = 0;
    bool real_time = false;
};

using Action = std::function<void(Player&)>;
using Words = std::vector<std::string>;

// Why a line cannot be understood.
class Misunderstood : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A whole word as a number; integers decimal, or hexadecimal behind 0x.
template <class Number>
Number Parse(const std::string& word) {
    const char* const end = word.data() + word.size();
    Number number{};
    std::from_chars_result result{};
    if constexpr (std::is_floating_point_v<Number>) {
        result = std::from_chars(word.data(), end, number);
    } else {
        const bool hexadecimal = word.starts_with("0x");
        result = std::from_chars(word.data() + (hexadecimal ? 2 : 0), end, number, hexadecimal ? 16 : 10);
    }
    if (result.ec != std::errc() || result.ptr != end) {
        throw Misunderstood("'" + word + "' is no number that fits here");
    }
    return number;
}

abi::Rect ParseRect(const Words& words) {
    return {Parse<float>(words[1]), Parse<float>(words[2]), Parse<float>(words[3]), Parse<float>(words[4])};
}

bool ParseChoice(const std::string& word, const char* yes, const char* no) {
    if (word != yes && word != no) {
        throw Misunderstood("'" + word + "' is neither '" + yes + "' nor '" + no + "'");
    }
    return word == yes;
}

// `counts` is where the optional FROM and TIMES begin.
Fault ParseFault(const Words& words, std::size_t counts, Fault::Kind kind, HRESULT code) {
    if (!IsOperation(words[1])) {
        throw Misunderstood("there is no operation '" + words[1] + "'");
    }
    const auto count = [&](std::size_t i, std::uint32_t absent) {
        return i < words.size() ? Parse<std::uint32_t>(words[i]) : absent;
    };
    return {words[1], kind, code, count(counts, 1), count(counts + 1, 0)};
}

HRESULT ParseCode(const std::string& word) {
    return static_cast<HRESULT>(Parse<std::uint32_t>(word.starts_with("0x") ? word : "0x" + word));
}

Action Strike(const Fault& fault) {
    return [fault](Player&) { TheJournal().Add(fault); };
}

struct Command {
    const char* name;
    std::size_t least_words;  // with the name
    std::size_t most_words;
    Action (*understand)(const Words& words);
};

constexpr std::size_t kAnyNumber = 64;

const Command kCommands[] = {
    {"turn", 2, 2,
     [](const Words& words) -> Action {
         return [degrees = Parse<double>(words[1])](Player& player) { Turn(player.window, degrees); };
     }},
    {"click", 1, 1, [](const Words&) -> Action { return [](Player& player) { Click(player.window); }; }},
    {"hold", 1, 1, [](const Words&) -> Action { return [](Player&) { Hold(true); }; }},
    {"release", 1, 1, [](const Words&) -> Action { return [](Player&) { Hold(false); }; }},
    {"touch", 5, 5,
     [](const Words& words) -> Action {
         return [bounds = ParseRect(words)](Player& player) { Touch(player.window, bounds); };
     }},
    {"move", 5, 5,
     [](const Words& words) -> Action {
         return [bounds = ParseRect(words)](Player& player) { Move(player.window, bounds); };
     }},
    {"lift", 1, 1, [](const Words&) -> Action { return [](Player& player) { Lift(player.window); }; }},
    {"acquire", 1, 1, [](const Words&) -> Action { return [](Player& player) { Acquire(player.window); }; }},
    {"lose", 1, 1, [](const Words&) -> Action { return [](Player& player) { Lose(player.window); }; }},
    {"wait", 2, 2,
     [](const Words& words) -> Action {
         return [time = Parse<std::uint32_t>(words[1])](Player& player) { Wait(time, player.real_time); };
     }},
    {"window", 2, 2,
     [](const Words& words) -> Action {
         return [window = Parse<std::uint64_t>(words[1])](Player& player) { player.window = window; };
     }},
    {"haptics", 1, kAnyNumber,
     [](const Words& words) -> Action {
         std::vector<std::uint16_t> waveforms;
         for (std::size_t i = 1; i < words.size(); ++i) {
             waveforms.push_back(Parse<std::uint16_t>(words[i]));
         }
         return [waveforms](Player&) { SetHaptics(true, waveforms); };
     }},
    {"thread", 2, 2,
     [](const Words& words) -> Action {
         return [own = ParseChoice(words[1], "own", "caller")](Player&) { TheDial().SetOwnThread(own); };
     }},
    {"fail", 3, 5,
     [](const Words& words) -> Action {
         return Strike(ParseFault(words, 3, Fault::Kind::Fail, ParseCode(words[2])));
     }},
    {"fail-late", 3, 5,
     [](const Words& words) -> Action {
         return Strike(ParseFault(words, 3, Fault::Kind::FailLate, ParseCode(words[2])));
     }},
    {"null", 2, 4,
     [](const Words& words) -> Action { return Strike(ParseFault(words, 2, Fault::Kind::YieldNull, S_OK)); }},
    {"show", 2, 2,
     [](const Words& words) -> Action {
         return [journal = ParseChoice(words[1], "journal", "accounts")](Player&) {
             const std::string text = journal ? TheJournal().Text() : TheAccounts().Text();
             std::fputs(text.c_str(), stdout);
         };
     }},
};

Words Split(std::string line) {
    line.erase(std::min(line.find('#'), line.size()));
    std::istringstream stream(line);
    Words words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

Action Understand(const Words& words) {
    for (const Command& command : kCommands) {
        if (words[0] != command.name) {
            continue;
        }
        if (words.size() < command.least_words || words.size() > command.most_words) {
            throw Misunderstood("'" + words[0] + "' does not go with " + std::to_string(words.size() - 1) +
                                " arguments");
        }
        return command.understand(words);
    }
    throw Misunderstood("there is no command '" + words[0] + "'");
}

}  // namespace

std::string PlayScript(const std::string& script, bool real_time) {
    std::vector<Action> actions;
    std::istringstream lines(script);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        try {
            if (const Words words = Split(line); !words.empty()) {
                actions.push_back(Understand(words));
            }
        } catch (const Misunderstood& reason) {
            return "line " + std::to_string(number) + ": " + reason.what();
        }
    }
    Player player;
    player.real_time = real_time;
    for (const Action& action : actions) {
        action(player);
    }
    return {};
}

}  // namespace dialsim
