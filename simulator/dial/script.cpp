#include "simulator/dial/script.h"

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "simulator/classes/async.h"
#include "simulator/classes/controllers.h"
#include "simulator/classes/devices.h"
#include "simulator/classes/event_raising.h"
#include "simulator/dial/commands.h"
#include "simulator/dial/menu_model.h"
#include "simulator/dial/open_menu.h"
#include "simulator/functions/only_dial.h"
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

// Returns the code of an event's handlers; S_OK for commands that raise none. Throws ScriptError when the
// command cannot take place.
using Action = std::function<HRESULT(Player&)>;
using Words = std::vector<std::string>;

// A line that cannot be parsed or executed.
class ScriptError : public std::runtime_error {
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
        throw ScriptError("'" + word + "' is not a number in range");
    }
    return number;
}

abi::Rect ParseRect(const Words& words) {
    return {Parse<float>(words[1]), Parse<float>(words[2]), Parse<float>(words[3]), Parse<float>(words[4])};
}

bool ParseChoice(const std::string& word, const char* first, const char* second) {
    if (word != first && word != second) {
        throw ScriptError("'" + word + "' is neither '" + first + "' nor '" + second + "'");
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
        throw ScriptError("no fault of this kind applies to '" + words[1] + "'");
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

std::string WithCode(const std::string& reason, HRESULT code) {
    char number[16];
    std::snprintf(number, sizeof number, " (%08x)", static_cast<unsigned>(code));
    return reason + number;
}

ScriptError NoController(std::uint64_t window) {
    return ScriptError(WithCode(
        window == 0 ? "no window has a controller" : "no controller for window " + std::to_string(window),
        kNoController));
}

// A command that raises an event; `missing` is the reason why it cannot although the window has a controller.
Action RaiseEvent(std::function<EventResult(std::uint64_t window)> raise, const std::string& missing = {}) {
    return [raise = std::move(raise), missing](Player& player) {
        const EventResult result = raise(player.window);
        if (!result.took_place) {
            throw result.code == kNoController ? NoController(player.window)
                                               : ScriptError(WithCode(missing, result.code));
        }
        if (result.code == kHandlerThrew) {
            throw ScriptError("a handler threw: " + LastExceptionMessage());
        }
        return result.code;
    };
}

// A command that returns false when it cannot take place.
Action Require(std::function<bool(Player&)> action, const std::string& reason) {
    return WithoutResult([action = std::move(action), reason](Player& player) {
        if (!action(player)) {
            throw ScriptError(reason);
        }
    });
}

void Print(const std::string& text) { std::fputs(text.c_str(), stdout); }

// The menu in a form that is empty only without a controller.
std::string RequireMenu(std::uint64_t window, const std::string& menu) {
    if (menu.empty()) {
        throw NoController(window);
    }
    return menu;
}

Action ParseWindow(const std::string& word) {
    if (!word.starts_with('@')) {
        return WithoutResult(
            [window = Parse<std::uint64_t>(word)](Player& player) { player.window = window; });
    }
    const auto select = [number = Parse<std::uint32_t>(word.substr(1))](Player& player) {
        player.window = WindowAt(number);
        return player.window != kNoWindow;
    };
    return Require(select, "no window " + word);
}

Action ParseComplete(const std::string& word) {
    if (word == "all") {
        return RaiseEvent([](std::uint64_t) { return EventResult{TheAsyncOperations().CompleteAll()}; });
    }
    return RaiseEvent([index = Parse<std::uint32_t>(word)](
                          std::uint64_t) { return TheAsyncOperations().Complete(index, {}); },
                      "no operation " + word + " to complete");
}

Action ParseShow(const std::string& word) {
    if (word == "menu") {
        return WithoutResult(
            [](Player& player) { Print(RequireMenu(player.window, MenuText(player.window))); });
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
         return RaiseEvent(
             [degrees = Parse<double>(words[1])](std::uint64_t window) { return Turn(window, degrees); });
     }},
    {"click", 1, 1,
     [](const Words&) -> Action { return RaiseEvent(Click, "the menu lacks the highlighted item"); }},
    {"hold", 1, 1, [](const Words&) -> Action { return WithoutResult([](Player&) { Hold(true); }); }},
    {"release", 1, 1, [](const Words&) -> Action { return WithoutResult([](Player&) { Hold(false); }); }},
    {"touch", 5, 5,
     [](const Words& words) -> Action {
         return RaiseEvent(
             [bounds = ParseRect(words)](std::uint64_t window) { return Touch(window, bounds); });
     }},
    {"move", 5, 5,
     [](const Words& words) -> Action {
         return RaiseEvent(
             [bounds = ParseRect(words)](std::uint64_t window) { return Move(window, bounds); });
     }},
    {"choose", 2, 2,
     [](const Words& words) -> Action {
         return RaiseEvent(
             [item = Parse<std::uint32_t>(words[1])](std::uint64_t window) { return Choose(window, item); },
             "no item " + words[1] + " in the menu");
     }},
    {"menu", 1, 1,
     [](const Words&) -> Action {
         return Require([](Player& player) { return OpenMenuOf(player.window); }, "no menu to open");
     }},
    {"close", 1, 1, [](const Words&) -> Action { return WithoutResult([](Player&) { CloseMenu(); }); }},
    {"mouse", 4, 4,
     [](const Words& words) -> Action {
         const auto use_mouse = [x = Parse<int>(words[1]), y = Parse<int>(words[2]),
                                 action = ParseMouseAction(words[3])](Player& player) {
             return UseMouse(player.window, action, x, y);
         };
         return Require(use_mouse, "no window for the mouse");
     }},
    {"shot", 2, 2,
     [](const Words& words) -> Action {
         const auto write = [file = words[1]](Player& player) {
             return TheDesktop().WriteScreenshot(player.window, file);
         };
         return Require(write, "cannot write the screenshot '" + words[1] + "'");
     }},
    {"lift", 1, 1, [](const Words&) -> Action { return RaiseEvent(Lift); }},
    {"acquire", 1, 1, [](const Words&) -> Action { return RaiseEvent(Acquire); }},
    {"lose", 1, 1, [](const Words&) -> Action { return RaiseEvent(Lose); }},
    {"wait", 2, 2,
     [](const Words& words) -> Action {
         return WithoutResult(
             [time = Parse<std::uint32_t>(words[1])](Player& player) { Wait(time, player.real_time); });
     }},
    {"window", 2, 2, [](const Words& words) -> Action { return ParseWindow(words[1]); }},
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
    {"complete", 2, 2, [](const Words& words) -> Action { return ParseComplete(words[1]); }},
    {"settle", 1, 1, [](const Words&) -> Action { return WithoutResult([](Player&) { Settle(); }); }},
    {"no-devices", 1, 1,
     [](const Words&) -> Action { return WithoutResult([](Player&) { TheDevices().RemoveAll(); }); }},
    {"device", 2, 3,
     [](const Words& words) -> Action {
         if (words.size() == 3 && words[2] != "disabled") {
             throw ScriptError("'" + words[2] + "' is not 'disabled'");
         }
         return WithoutResult([id = words[1], enabled = words.size() == 2](Player&) {
             TheDevices().Add(id.c_str(), nullptr, enabled);
         });
     }},
    {"packaged", 1, 1,
     [](const Words&) -> Action { return WithoutResult([](Player&) { SetPackaged(true); }); }},
    {"unpackaged", 1, 1,
     [](const Words&) -> Action { return WithoutResult([](Player&) { SetPackaged(false); }); }},
    {"only-dial", 2, 2,
     [](const Words& words) -> Action {
         return Require([on = ParseChoice(words[1], "on", "off")](Player&) { return SetOnlyDial(on); },
                        "there is no system beneath the simulator");
     }},
    {"show", 2, 2, [](const Words& words) -> Action { return ParseShow(words[1]); }},
    {"draw", 3, 3,
     [](const Words& words) -> Action {
         if (words[1] != "menu") {
             throw ScriptError("cannot draw '" + words[1] + "'");
         }
         const auto write = [file = words[2]](Player& player) {
             return WriteFile(file, RequireMenu(player.window, MenuSvg(player.window)));
         };
         return Require(write, "cannot write '" + words[2] + "'");
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
            throw ScriptError("'" + words[0] + "' does not take " + std::to_string(words.size() - 1) +
                              " arguments");
        }
        return command.parse(words);
    }
    throw ScriptError("unknown command '" + words[0] + "'");
}

struct Line {
    int number;
    Action action;
};

// Adds the number of the line to its error.
template <class Use>
void AtLine(int number, Use use) {
    try {
        use();
    } catch (const ScriptError& error) {
        throw ScriptError("line " + std::to_string(number) + ": " + error.what());
    }
}

// Some editors put it at the beginning of a file.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::vector<Line> ParseLines(const std::string& script) {
    std::vector<Line> parsed;
    std::istringstream lines(script.substr(script.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0));
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        AtLine(number, [&] {
            if (const Words words = Split(line); !words.empty()) {
                parsed.push_back({number, ParseCommand(words)});
            }
        });
    }
    return parsed;
}

// A handler's failure does not end the script: the event was raised, and the library fails by design where
// the platform does.
void Execute(const Line& line, Player& player) {
    AtLine(line.number, [&] {
        if (const HRESULT code = line.action(player); code < 0) {
            std::fprintf(stderr, "dial script: line %d: a handler returned %08x\n", line.number,
                         static_cast<unsigned>(code));
        }
    });
}

}  // namespace

std::string PlayScript(const std::string& script, bool real_time) {
    try {
        Player player;
        player.real_time = real_time;
        for (const Line& line : ParseLines(script)) {
            Execute(line, player);
        }
        return {};
    } catch (const ScriptError& error) {
        return error.what();
    }
}

}  // namespace dialsim
