#include "simulator/dial/script.h"

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "simulator/classes/async.h"
#include "simulator/classes/controllers.h"
#include "simulator/classes/devices.h"
#include "simulator/classes/event_raising.h"
#include "simulator/dial/commands.h"
#include "simulator/dial/menu_model.h"
#include "simulator/dial/open_menu.h"
#include "simulator/instruments/journal.h"
#include "simulator/instruments/leak_tracker.h"
#include "simulator/instruments/operations.h"
#include "simulator/stores/package_identity.h"
#include "simulator/stores/stores.h"
#include "simulator/system/clock.h"
#include "simulator/system/files.h"

namespace dialsim {

namespace {

// The state of a running script.
struct Player {
    std::uint64_t window = 0;
    bool real_time = false;
};

// Returns the result of an event; S_OK for commands that raise none.
using Action = std::function<HRESULT(Player&)>;
using Words = std::vector<std::string>;

// A syntax error of a line.
class ParseError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Parses a word as a number; integers are decimal, or hexadecimal after 0x.
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
        throw ParseError("'" + word + "' is not a number in range");
    }
    return number;
}

abi::Rect ParseRect(const Words& words) {
    return {Parse<float>(words[1]), Parse<float>(words[2]), Parse<float>(words[3]), Parse<float>(words[4])};
}

bool ParseChoice(const std::string& word, const char* first, const char* second) {
    if (word != first && word != second) {
        throw ParseError("'" + word + "' is neither '" + first + "' nor '" + second + "'");
    }
    return word == first;
}

// `counts` is the index of the optional FROM and TIMES.
Fault ParseFault(const Words& words, std::size_t counts, Fault::Kind kind, HRESULT code) {
    const auto count = [&](std::size_t i, std::uint32_t default_value) {
        return i < words.size() ? Parse<std::uint32_t>(words[i]) : default_value;
    };
    Fault fault{words[1], kind, code, count(counts, 1), count(counts + 1, 0)};
    if (!IsApplicable(fault)) {
        throw ParseError("no fault of this kind applies to '" + words[1] + "'");
    }
    return fault;
}

HRESULT ParseCode(const std::string& word) {
    return static_cast<HRESULT>(Parse<std::uint32_t>(word.starts_with("0x") ? word : "0x" + word));
}

// A command that raises no event.
Action WithoutResult(std::function<void(Player&)> action) {
    return [action = std::move(action)](Player& player) {
        action(player);
        return S_OK;
    };
}

Action InjectFault(const Fault& fault) {
    return WithoutResult([fault](Player&) { TheJournal().Add(fault); });
}

AsyncMode ParseAsyncMode(const std::string& word) {
    if (word == "at-once") {
        return AsyncMode::AtOnce;
    }
    return ParseChoice(word, "held", "own-thread") ? AsyncMode::Held : AsyncMode::OwnThread;
}

MouseAction ParseMouseAction(const std::string& word) {
    if (word == "move") {
        return MouseAction::Move;
    }
    return ParseChoice(word, "down", "up") ? MouseAction::Down : MouseAction::Up;
}

// Reports a command that failed; the script continues.
void ReportIfFailed(bool succeeded, const std::string& error) {
    if (!succeeded) {
        std::fprintf(stderr, "dial script: %s\n", error.c_str());
    }
}

void Print(const std::string& text) { std::fputs(text.c_str(), stdout); }

Action ParseShow(const std::string& word) {
    if (word == "menu") {
        return WithoutResult([](Player& player) { Print(MenuText(player.window)); });
    }
    if (word == "stores") {
        return WithoutResult([](Player&) { Print(AllStoresText()); });
    }
    return WithoutResult([journal = ParseChoice(word, "journal", "accounts")](Player&) {
        Print(journal ? TheJournal().Text() : TheLeakTracker().Text());
    });
}

struct Command {
    const char* name;
    std::size_t min_words;  // including the name
    std::size_t max_words;
    Action (*parse)(const Words& words);
};

constexpr std::size_t kUnlimited = 64;

const Command kCommands[] = {
    {"turn", 2, 2,
     [](const Words& words) -> Action {
         return [degrees = Parse<double>(words[1])](Player& player) { return Turn(player.window, degrees); };
     }},
    {"click", 1, 1,
     [](const Words&) -> Action { return [](Player& player) { return Click(player.window); }; }},
    {"hold", 1, 1, [](const Words&) -> Action { return WithoutResult([](Player&) { Hold(true); }); }},
    {"release", 1, 1, [](const Words&) -> Action { return WithoutResult([](Player&) { Hold(false); }); }},
    {"touch", 5, 5,
     [](const Words& words) -> Action {
         return [bounds = ParseRect(words)](Player& player) { return Touch(player.window, bounds); };
     }},
    {"move", 5, 5,
     [](const Words& words) -> Action {
         return [bounds = ParseRect(words)](Player& player) { return Move(player.window, bounds); };
     }},
    {"choose", 2, 2,
     [](const Words& words) -> Action {
         return
             [item = Parse<std::uint32_t>(words[1])](Player& player) { return Choose(player.window, item); };
     }},
    {"menu", 1, 1,
     [](const Words&) -> Action {
         return WithoutResult(
             [](Player& player) { ReportIfFailed(OpenMenuOf(player.window), "no menu to open"); });
     }},
    {"close", 1, 1, [](const Words&) -> Action { return WithoutResult([](Player&) { CloseMenu(); }); }},
    {"mouse", 4, 4,
     [](const Words& words) -> Action {
         return WithoutResult([x = Parse<int>(words[1]), y = Parse<int>(words[2]),
                               action = ParseMouseAction(words[3])](Player& player) {
             ReportIfFailed(UseMouse(player.window, action, x, y), "no window for the mouse");
         });
     }},
    {"shot", 2, 2,
     [](const Words& words) -> Action {
         return WithoutResult([file = words[1]](Player& player) {
             ReportIfFailed(TheDesktop().WriteScreenshot(player.window, file),
                            "cannot write the screenshot '" + file + "'");
         });
     }},
    {"lift", 1, 1, [](const Words&) -> Action { return [](Player& player) { return Lift(player.window); }; }},
    {"acquire", 1, 1,
     [](const Words&) -> Action { return [](Player& player) { return Acquire(player.window); }; }},
    {"lose", 1, 1, [](const Words&) -> Action { return [](Player& player) { return Lose(player.window); }; }},
    {"wait", 2, 2,
     [](const Words& words) -> Action {
         return WithoutResult(
             [time = Parse<std::uint32_t>(words[1])](Player& player) { Wait(time, player.real_time); });
     }},
    {"window", 2, 2,
     [](const Words& words) -> Action {
         if (words[1].starts_with('@')) {
             return WithoutResult([number = Parse<std::uint32_t>(words[1].substr(1))](Player& player) {
                 player.window = WindowAt(number);
             });
         }
         return WithoutResult(
             [window = Parse<std::uint64_t>(words[1])](Player& player) { player.window = window; });
     }},
    {"haptics", 1, kUnlimited,
     [](const Words& words) -> Action {
         std::vector<std::uint16_t> waveforms;
         for (std::size_t i = 1; i < words.size(); ++i) {
             waveforms.push_back(Parse<std::uint16_t>(words[i]));
         }
         return WithoutResult([waveforms](Player&) { SetHaptics(true, waveforms); });
     }},
    {"thread", 2, 2,
     [](const Words& words) -> Action {
         return WithoutResult([own = ParseChoice(words[1], "own", "caller")](Player&) { SetOwnThread(own); });
     }},
    {"fail", 3, 5,
     [](const Words& words) -> Action {
         return InjectFault(ParseFault(words, 3, Fault::Kind::Fail, ParseCode(words[2])));
     }},
    {"fail-late", 3, 5,
     [](const Words& words) -> Action {
         return InjectFault(ParseFault(words, 3, Fault::Kind::FailLate, ParseCode(words[2])));
     }},
    {"null", 2, 4,
     [](const Words& words) -> Action {
         return InjectFault(ParseFault(words, 2, Fault::Kind::YieldNull, S_OK));
     }},
    {"async", 2, 2,
     [](const Words& words) -> Action {
         return WithoutResult(
             [mode = ParseAsyncMode(words[1])](Player&) { TheAsyncOperations().SetMode(mode); });
     }},
    {"delay", 2, 2,
     [](const Words& words) -> Action {
         return WithoutResult(
             [time = Parse<std::uint32_t>(words[1])](Player&) { TheAsyncOperations().SetDelay(time); });
     }},
    {"complete", 2, 2,
     [](const Words& words) -> Action {
         if (words[1] == "all") {
             return [](Player&) { return TheAsyncOperations().CompleteAll(); };
         }
         return [index = Parse<std::uint32_t>(words[1])](Player&) {
             return TheAsyncOperations().Complete(index, {});
         };
     }},
    {"settle", 1, 1, [](const Words&) -> Action { return WithoutResult([](Player&) { Settle(); }); }},
    {"no-devices", 1, 1,
     [](const Words&) -> Action { return WithoutResult([](Player&) { TheDevices().RemoveAll(); }); }},
    {"device", 2, 3,
     [](const Words& words) -> Action {
         if (words.size() == 3 && words[2] != "disabled") {
             throw ParseError("'" + words[2] + "' is not 'disabled'");
         }
         return WithoutResult([id = words[1], enabled = words.size() == 2](Player&) {
             TheDevices().Add(id.c_str(), nullptr, enabled);
         });
     }},
    {"packaged", 1, 1,
     [](const Words&) -> Action { return WithoutResult([](Player&) { SetPackaged(true); }); }},
    {"unpackaged", 1, 1,
     [](const Words&) -> Action { return WithoutResult([](Player&) { SetPackaged(false); }); }},
    {"show", 2, 2, [](const Words& words) -> Action { return ParseShow(words[1]); }},
    {"draw", 3, 3,
     [](const Words& words) -> Action {
         if (words[1] != "menu") {
             throw ParseError("cannot draw '" + words[1] + "'");
         }
         return WithoutResult([file = words[2]](Player& player) {
             ReportIfFailed(WriteFile(file, MenuSvg(player.window)), "cannot write '" + file + "'");
         });
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

Action ParseCommand(const Words& words) {
    for (const Command& command : kCommands) {
        if (words[0] != command.name) {
            continue;
        }
        if (words.size() < command.min_words || words.size() > command.max_words) {
            throw ParseError("'" + words[0] + "' does not take " + std::to_string(words.size() - 1) +
                             " arguments");
        }
        return command.parse(words);
    }
    throw ParseError("unknown command '" + words[0] + "'");
}

struct Line {
    int number;
    Action action;
};

std::vector<Line> ParseLines(const std::string& script) {
    std::vector<Line> parsed;
    std::istringstream lines(script);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        try {
            if (const Words words = Split(line); !words.empty()) {
                parsed.push_back({number, ParseCommand(words)});
            }
        } catch (const ParseError& error) {
            throw ParseError("line " + std::to_string(number) + ": " + error.what());
        }
    }
    return parsed;
}

// Reports an event that failed; the script continues.
void Report(int number, HRESULT code) {
    if (code == kNoController) {
        std::fprintf(stderr, "dial script, line %d: no window has a listener\n", number);
    } else if (code == kHandlerThrew) {
        std::fprintf(stderr, "dial script, line %d: a handler threw: %s\n", number,
                     LastExceptionMessage().c_str());
    } else if (code < 0) {
        std::fprintf(stderr, "dial script, line %d: a handler returned %x\n", number,
                     static_cast<unsigned>(code));
    }
}

}  // namespace

std::string PlayScript(const std::string& script, bool real_time) {
    try {
        Player player;
        player.real_time = real_time;
        for (const Line& line : ParseLines(script)) {
            Report(line.number, line.action(player));
        }
        return {};
    } catch (const ParseError& error) {
        return error.what();
    }
}

}  // namespace dialsim
