#include "expected.h"

#include <algorithm>

namespace model {

namespace {

constexpr Code kNoController = static_cast<Code>(0x80070490);
constexpr Code kRaised = static_cast<Code>(0xA0000001);
constexpr char kDial[] =
    "\\\\?\\BTHLE#Dev_bc838528f72a#8&1c0ffee&0&bc838528f72a#{80795c47-03f0-446d-b1f2-e424b30db4da}";

WideText Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

}  // namespace

Expected::Expected(Process& process, const Files& files, Reach& reach, std::vector<std::uint64_t> windows,
                   bool uses_stores, bool with_virtual_clock)
    : Player(std::move(windows), uses_stores, with_virtual_clock),
      platform_(files, reach, [this](const std::string& call) { AtCall(call); }),
      library_(process, platform_, *this) {
    platform_.devices.push_back({kDial, true});
}

void Expected::Uninit() { library_.Uninit(); }

// --- the host's calls

void Expected::CallExport(const Operation& operation) {
    try {
        switch (operation.act) {
            case Act::Initialize: {
                const int answer = library_.Initialize();
                WriteCode(answer);
                StopIf(answer == 1);
                break;
            }
            case Act::SetText:
                library_.SetString(operation.resource, operation.key, operation.value);
                WriteCode(0);
                break;
            case Act::GetText: {
                const auto text = library_.GetString(operation.resource, operation.key);
                Write(text ? "text " + Utf8(*text) : "no text");
                break;
            }
            case Act::SetNumber:
                library_.SetInt(operation.key, operation.code);
                WriteCode(0);
                break;
            case Act::GetNumber:
                WriteCode(library_.GetInt(operation.resource, operation.key));
                break;
            default:
                WriteAnswer(CallWindowExport(operation));
        }
    } catch (const PlatformError& error) {
        Write("raised " + error.What());
    }
}

bool Expected::CallWindowExport(const Operation& operation) {
    switch (operation.act) {
        case Act::Listen: {
            if (operation.null_list) {
                return false;
            }
            Host host{{operation.window}};
            host.windows.insert(host.windows.end(), operation.later_windows.begin(),
                                operation.later_windows.end());
            hosts_.push_back(std::move(host));
            return library_.InitDialListener(static_cast<int>(hosts_.size()) - 1);
        }
        case Act::AddMenu:
            return library_.AddCustomMenu(operation.window, operation.null_list ? nullptr : &operation.items,
                                          operation.times);
        case Act::DefaultMenu:
            return library_.SetDefaultMenu(operation.window,
                                           operation.null_list ? nullptr : &operation.kinds);
        case Act::Select:
            return library_.SetCurrentCustomMenu(operation.window,
                                                 static_cast<std::uint32_t>(operation.number));
        default:
            return library_.IsDialPresent(operation.window);
    }
}

// --- the host's callbacks

std::uint64_t Expected::QueryWindow(int host) {
    Host& queried = hosts_[static_cast<std::size_t>(host)];
    const std::uint64_t window =
        queried.windows[std::min(queried.window_queries, queried.windows.size() - 1)];
    ++queried.window_queries;
    Write("host " + std::to_string(host) + " asked for its window");
    AtCallback();
    return window;
}

std::optional<std::uint32_t> Expected::OnRotation(int host, const Controller& sender,
                                                  const DialRotationInfo& info) {
    WriteTurn(host, &sender, info);
    AtCallback();
    return current().haptic_request;
}

void Expected::OnClick(int host, const Controller& sender, const DialContactRect& rect) {
    WriteClick(host, &sender, rect);
    AtCallback();
}

// --- events

void Expected::WriteOutcome(Code code) {
    WriteCode(code);
    if (code == kRaised) {
        Write("raised " + platform_.last_raised);
    }
}

void Expected::RaiseAt(std::uint64_t window, const RaiseOne& raise_one) {
    const auto controllers = platform_.ControllersOf(window);
    if (controllers.empty()) {
        WriteCode(kNoController);
        return;
    }
    const DialState dial = platform_.dial;
    Outcome outcome;
    for (const Ref<Controller>& controller : controllers) {
        outcome.Join(raise_one(controller, dial));
    }
    WriteOutcome(platform_.CodeOf(outcome));
}

// Calls a copy of the list: a handler may change it.
Outcome Expected::CallEach(const std::vector<Listener*>& handlers, const Handle& handle) {
    Outcome outcome;
    for (Listener* listener : std::vector(handlers)) {
        outcome.Join(CallHandler([&] { return handle(*listener); }));
    }
    return outcome;
}

void Expected::RaiseContact(std::uint64_t window, Event event) {
    RaiseAt(window, [&](const Ref<Controller>& controller, const DialState& dial) {
        const auto contact = dial.contact ? platform_.Make<Contact>(*dial.contact) : nullptr;
        return CallEach(controller->handlers[event],
                        [&](Listener&) { return library_.OnContact(event, contact); });
    });
}

Outcome Expected::ChooseItem(const Ref<Controller>& controller, std::uint64_t place) {
    const auto list = controller->menu->items->list;
    if (place >= list.size() || !list[place]) {
        return {kOutOfBounds, std::nullopt};
    }
    const Ref<MenuItem> item = list[place];
    controller->menu->SelectItem(item);
    return CallEach(item->handlers, [&](Listener& listener) { return library_.OnInvoked(listener, *item); });
}

void Expected::RaiseEvent(const Operation& operation) {
    switch (operation.act) {
        case Act::Turn:
            RaiseAt(operation.window, [&](const Ref<Controller>& controller, const DialState& dial) {
                const Rotation rotation{dial, dial.contact ? platform_.Make<Contact>(*dial.contact) : nullptr,
                                        operation.degrees};
                return CallEach(controller->handlers[kRotated], [&](Listener& listener) {
                    return library_.OnRotation(listener, *controller, rotation);
                });
            });
            break;
        case Act::Click:
            RaiseAt(operation.window, [&](const Ref<Controller>& controller, const DialState& dial) {
                const auto contact = dial.contact ? platform_.Make<Contact>(*dial.contact) : nullptr;
                return CallEach(controller->handlers[kClicked], [&](Listener& listener) {
                    return library_.OnClick(listener, *controller, contact);
                });
            });
            break;
        case Act::Touch:
        case Act::Move:
            platform_.dial.contact = {operation.x, operation.y, operation.width, operation.height};
            RaiseContact(operation.window, operation.act == Act::Touch ? kStarted : kContinued);
            break;
        case Act::Lift:
            platform_.dial.contact.reset();
            RaiseContact(operation.window, kEnded);
            break;
        case Act::Acquire:
            RaiseContact(operation.window, kAcquired);
            break;
        case Act::Lose:
            RaiseContact(operation.window, kLost);
            break;
        case Act::Choose:
            RaiseAt(operation.window, [&](const Ref<Controller>& controller, const DialState&) {
                return ChooseItem(controller, operation.number);
            });
            break;
        case Act::Complete:
            WriteOutcome(platform_.Complete(operation.number, std::nullopt));
            break;
        case Act::CompleteAs:
            WriteOutcome(platform_.Complete(operation.number, static_cast<Status>(operation.code)));
            break;
        default:
            WriteOutcome(platform_.CompleteAll());
    }
}

// --- changes of the platform

void Expected::ChangePlatform(const Operation& operation) {
    switch (operation.act) {
        case Act::Hold:
            platform_.dial.button_down = operation.flag;
            break;
        case Act::Haptics:
            platform_.dial.has_haptics = operation.flag;
            platform_.dial.waveforms.clear();
            for (std::uint32_t round = 0; round < operation.times; ++round) {
                platform_.dial.waveforms.insert(platform_.dial.waveforms.end(), operation.kinds.begin(),
                                                operation.kinds.end());
            }
            break;
        case Act::Append:
            AppendItem(operation);
            break;
        case Act::Shrink:
            if (const auto controller = platform_.NewestOf(operation.window)) {
                MenuItems& items = *controller->menu->items;
                if (operation.number > 0) {
                    items.calls_until_shrinking = static_cast<std::uint32_t>(operation.number);
                } else if (!items.list.empty()) {
                    items.list.pop_back();
                }
            }
            break;
        case Act::Wait:
            platform_.clock += virtual_clock() ? operation.number : 0;
            break;
        case Act::SetClock:
            platform_.clock = operation.number;
            break;
        case Act::Async:
            platform_.async_held = operation.flag;
            break;
        case Act::AddDevice:
            AddDevices(operation);
            break;
        case Act::RemoveDevices:
            platform_.devices.clear();
            break;
        case Act::FailDevices:
            platform_.devices_failure = operation.code;
            break;
        case Act::Packaged:
            platform_.packaged = operation.flag;
            break;
        case Act::PutSetting: {
            const bool is_text = operation.text2 == "String";
            const bool is_number = operation.text2 == "Int32";
            const Setting setting{operation.text2, is_text ? Wide(operation.text3) : WideText(),
                                  is_number ? std::stoi(operation.text3) : 0,
                                  is_text || is_number ? "" : operation.text3};
            platform_.PutSetting(operation.number != 0 ? platform_.local : platform_.roaming,
                                 Wide(operation.text), setting);
            break;
        }
        case Act::PutCredential:
            platform_.PutCredential(Wide(operation.text), Wide(operation.text2), Wide(operation.text3));
            break;
        default:
            platform_.type_present = false;
    }
}

void Expected::AddDevices(const Operation& operation) {
    for (std::uint32_t i = 0; i < operation.times; ++i) {
        platform_.devices.push_back({operation.null_list ? std::nullopt : std::optional(operation.text),
                                     operation.flag && operation.text2.empty()});
    }
}

void Expected::AppendItem(const Operation& operation) {
    const auto controller = platform_.NewestOf(operation.window);
    if (!controller) {
        return;
    }
    if (operation.text.empty()) {
        controller->menu->items->list.push_back(nullptr);
        return;
    }
    const auto item = platform_.Make<MenuItem>("appended", "no picture");
    if (operation.text != "none") {
        item->tag = platform_.Make<Tag>(operation.text == "UInt32"   ? Tag::Kind::Number
                                        : operation.text == "String" ? Tag::Kind::Other
                                                                     : Tag::Kind::NoValue,
                                        static_cast<std::uint32_t>(operation.number));
    }
    controller->menu->items->list.push_back(item);
}

}  // namespace model
