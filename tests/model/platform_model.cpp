#include "platform_model.h"

#include <algorithm>
#include <cstdio>

namespace model {

namespace {

constexpr const char* kSystemItems[] = {"Scroll", "Zoom", "UndoRedo", "Volume", "NextPreviousTrack"};

std::string InOneLine(std::string text) {
    for (char& c : text) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
            c = ' ';
        }
    }
    return text;
}

std::string ShownTag(const Ref<Tag>& tag) {
    return !tag ? "-" : tag->kind == Tag::Kind::Number ? std::to_string(tag->number) : "not a number";
}

std::string ShownItem(const Ref<MenuItem>& item) {
    return !item ? "no item"
                 : "\"" + InOneLine(item->label) + "\" " + InOneLine(item->source) + ", tag " +
                       ShownTag(item->tag);
}

std::string SystemItemName(std::int32_t kind) {
    return kind >= 0 && kind < 5 ? kSystemItems[kind] : std::to_string(kind);
}

bool IsWellFormed(const WideText& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool high = text[i] >= 0xD800 && text[i] < 0xDC00;
        const bool low = text[i] >= 0xDC00 && text[i] < 0xE000;
        if (low || (high && (i + 1 == text.size() || text[i + 1] < 0xDC00 || text[i + 1] >= 0xE000))) {
            return false;
        }
        i += high;
    }
    return true;
}

std::string Escaped(char c) {
    switch (c) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\b':
            return "\\b";
        case '\f':
            return "\\f";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            break;
    }
    char code[8];
    std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(c));
    return static_cast<unsigned char>(c) < 0x20 ? code : std::string(1, c);
}

// As JSON; a text that is not well-formed becomes the list of its units.
std::string Quoted(const WideText& text) {
    std::string json;
    if (!IsWellFormed(text)) {
        for (const BrindleChar unit : text) {
            json += (json.empty() ? "" : ",") + std::to_string(static_cast<unsigned>(unit));
        }
        return "[" + json + "]";
    }
    for (const char c : Utf8(text)) {
        json += Escaped(c);
    }
    return "\"" + json + "\"";
}

}  // namespace

std::string Hex(Code code) {
    char text[16];
    std::snprintf(text, sizeof text, "%x", static_cast<unsigned>(code));
    return text;
}

std::string PlatformError::What() const {
    return code == kOutOfMemory ? "std::bad_alloc" : "platform error " + Hex(code);
}

void Outcome::Join(const Outcome& other) {
    if (code >= 0 && !raised) {
        *this = other;
    }
}

Outcome CallHandler(const std::function<Code()>& handler) {
    try {
        return {handler(), std::nullopt};
    } catch (const PlatformError& error) {
        return {0, error};
    }
}

// --- objects

bool Menu::Contains(const Ref<MenuItem>& item) const {
    return item && std::find(items->list.begin(), items->list.end(), item) != items->list.end();
}

void Menu::SelectItem(const Ref<MenuItem>& item) { previous = std::exchange(selected, item); }

Controller::Controller(Platform& on, std::uint64_t for_window)
    : Object("Windows.UI.Input.RadialController"), platform(on), window(for_window) {}

Controller::~Controller() { platform.Note("end of RadialController(" + std::to_string(window) + ")"); }

Code AsyncOperation::Results(Ref<Object>& into) const {
    switch (status) {
        case kStatusStarted:
            return kIllegalCall;
        case kStatusCanceled:
            return kCanceled;
        case kStatusError:
            return code < 0 ? code : kFail;
        default:
            into = code < 0 ? nullptr : result;
            return code < 0 ? code : 0;
    }
}

// --- calls

Platform::Platform(const Files& with_files, Reach& reach, std::function<void(const std::string&)> at_call)
    : files(with_files), reach_(reach), at_call_(std::move(at_call)) {}

Code Platform::Call(const std::string& operation, const std::string& arguments, const Body& body) {
    const std::string call = operation + "(" + arguments + ")";
    std::optional<Fault> fault;
    if (const Fault* triggered = Trigger(operation, call)) {
        fault = *triggered;
        ++reach_.faults[static_cast<int>(fault->kind)];
    }
    const std::size_t line = lines_.size();
    lines_.push_back({call, 0});
    at_call_(call);
    Code code = fault ? fault->code : 0;
    if (body && (!fault || fault->kind == Fault::Kind::FailLate)) {
        const Code own = body();
        code = fault ? code : own;
    }
    lines_[line].code = code;
    return code;
}

bool Platform::AnswerHandle(const std::string& operation, const std::string& arguments, bool there) {
    bool answer = false;
    const Code code = Call(operation, arguments, [&] {
        answer = there;
        return 0;
    });
    return code >= 0 && answer;
}

// Every fault counts every call that it matches, also where an earlier one triggers.
const Fault* Platform::Trigger(const std::string& operation, const std::string& call) {
    const Fault* first = nullptr;
    for (SetFaultState& set : faults_) {
        if (set.fault.call != operation && set.fault.call != call) {
            continue;
        }
        ++set.seen;
        const bool triggers = set.seen >= set.fault.from &&
                              (set.fault.times == 0 || set.seen - set.fault.from < set.fault.times);
        first = triggers && first == nullptr ? &set.fault : first;
    }
    return first;
}

void Platform::SetFault(Fault fault) {
    fault.call = files.WithPath(std::move(fault.call));
    faults_.push_back({std::move(fault)});
}

std::string Platform::TakeJournal() {
    std::string text;
    for (const Line& line : lines_) {
        text += line.call + (line.code == 0 ? "" : " = " + Hex(line.code)) + "\n";
    }
    lines_.clear();
    return text;
}

// --- leak tracking

Ref<Controller> Platform::MakeController(std::uint64_t window) {
    auto controller = Make<Controller>(*this, window);
    controller->menu = Make<Menu>();
    controller->menu->items = Make<MenuItems>();
    controllers_.push_back(controller);
    return controller;
}

std::size_t Platform::ObjectsOf(const std::string& class_name) {
    return static_cast<std::size_t>(std::count_if(objects_.begin(), objects_.end(), [&](const auto& weak) {
        const auto object = weak.lock();
        return object && object->class_name == class_name;
    }));
}

std::string Platform::Outstanding() {
    std::erase_if(objects_, [](const auto& weak) { return weak.expired(); });
    std::map<std::string, std::pair<std::size_t, long>> classes;
    for (const auto& weak : objects_) {
        auto& [objects, references] = classes[weak.lock()->class_name];
        ++objects;
        references += weak.use_count();
    }
    std::string text;
    for (const auto& [name, counts] : classes) {
        text += name + ": " + std::to_string(counts.first) + " objects, " + std::to_string(counts.second) +
                " references\n";
    }
    const std::size_t handlers = Handlers();
    return text + (strings == 0 ? "" : "strings: " + std::to_string(strings) + "\n") +
           (handlers == 0 ? "" : "handlers: " + std::to_string(handlers) + "\n");
}

std::size_t Platform::Handlers() {
    std::size_t count = 0;
    for (const auto& weak : objects_) {
        const auto object = weak.lock();
        if (const auto* controller = dynamic_cast<Controller*>(object.get())) {
            for (const auto& handlers : controller->handlers) {
                count += handlers.size();
            }
        } else if (const auto* item = dynamic_cast<MenuItem*>(object.get())) {
            count += item->handlers.size();
        } else if (const auto* operation = dynamic_cast<AsyncOperation*>(object.get())) {
            count += static_cast<bool>(operation->handler);
        }
    }
    return count;
}

// --- events and completions

std::uint64_t Platform::Resolve(std::uint64_t window) const {
    for (auto weak = controllers_.rbegin(); window == 0 && weak != controllers_.rend(); ++weak) {
        if (const auto controller = weak->lock()) {
            return controller->window;
        }
    }
    return window;
}

std::vector<Ref<Controller>> Platform::ControllersOf(std::uint64_t window) {
    const std::uint64_t resolved = Resolve(window);
    std::vector<Ref<Controller>> found;
    for (const auto& weak : controllers_) {
        if (auto controller = weak.lock(); controller && controller->window == resolved) {
            found.push_back(std::move(controller));
        }
    }
    return found;
}

Ref<Controller> Platform::NewestOf(std::uint64_t window) {
    const auto controllers = ControllersOf(window);
    return controllers.empty() ? nullptr : controllers.back();
}

Ref<AsyncOperation> Platform::StartAsync(const char* name, const char* of, Code failure, Ref<Object> result) {
    const auto operation = Make<AsyncOperation>(name, of, failure, std::move(result));
    operation->completed = !async_held;
    operation->status = async_held ? kStatusStarted : operation->OwnStatus();
    operations_.push_back({operation, nullptr, operation->completed});
    return operation;
}

void Platform::Attach(const Ref<AsyncOperation>& operation,
                      std::function<Code(const Ref<AsyncOperation>&, Status)> handler) {
    operation->handler = std::move(handler);
    if (operation->completed) {
        CallCompleted(operation);
        return;
    }
    for (Slot& slot : operations_) {
        if (slot.operation.lock() == operation && !slot.completed) {
            slot.kept = operation;
        }
    }
}

std::optional<Outcome> Platform::CallCompleted(const Ref<AsyncOperation>& operation) {
    const auto handler = std::exchange(operation->handler, nullptr);
    if (!handler) {
        return std::nullopt;
    }
    const std::size_t line = lines_.size();
    const Status status = operation->status;
    const std::string call = std::string("AsyncOperationCompletedHandler<") + operation->result_type +
                             ">::Invoke(" + std::to_string(status) + ")";
    lines_.push_back({call, 0});
    at_call_(call);
    const Outcome outcome = CallHandler([&] { return handler(operation, status); });
    lines_[line].code = CodeOf(outcome);
    return outcome;
}

Code Platform::Complete(std::size_t index, std::optional<Status> status) {
    if (index >= operations_.size() || operations_[index].completed) {
        return kOutOfBounds;
    }
    const Ref<AsyncOperation> operation = operations_[index].operation.lock();
    if (!operation) {
        return kOutOfBounds;
    }
    operations_[index].completed = true;
    operations_[index].kept = nullptr;
    operation->completed = true;
    operation->status = status.value_or(operation->OwnStatus());
    const auto outcome = CallCompleted(operation);
    return outcome ? CodeOf(*outcome) : 0;
}

Code Platform::CompleteAll() {
    Code first_failure = 0;
    const std::size_t count = operations_.size();
    for (std::size_t index = 0; index < count; ++index) {
        const Code code = Complete(index, std::nullopt);
        if (first_failure >= 0 && code < 0 && code != kOutOfBounds) {
            first_failure = code;
        }
    }
    return first_failure;
}

Code Platform::CodeOf(const Outcome& outcome) {
    if (outcome.raised) {
        last_raised = outcome.raised->What();
        return static_cast<Code>(0xA0000001);
    }
    return outcome.code;
}

// --- printing

std::string Platform::ShowMenu(std::uint64_t window) {
    const Ref<Controller> controller = NewestOf(window);
    if (!controller) {
        return {};
    }
    std::string text;
    const Menu& menu = *controller->menu;
    for (std::size_t i = 0; i < menu.items->list.size(); ++i) {
        const Ref<MenuItem>& item = menu.items->list[i];
        text += std::to_string(i) + (item && item == menu.selected ? " * " : "   ") + ShownItem(item) + "\n";
    }
    std::string system;
    const auto set = system_items.find(controller->window);
    for (const std::int32_t kind :
         set == system_items.end() ? std::vector<std::int32_t>{0, 1, 2, 3, 4} : set->second) {
        system += (system.empty() ? "" : ", ") + SystemItemName(kind);
    }
    return text + "system items: " + (system.empty() ? "none" : system) +
           "\nautomatic haptics: " + (controller->automatic_haptics ? "on" : "off") + "\n";
}

std::string Platform::ShowStore(const std::string& name) const {
    std::string text;
    if (name == "vault") {
        for (const auto& [names, password] : vault) {
            text += Quoted(names.first) + " " + Quoted(names.second) + " " + Quoted(password) + "\n";
        }
        return text;
    }
    for (const auto& [key, setting] : name == "roaming" ? roaming : local) {
        const std::string value = setting.type == "String"  ? Quoted(setting.text)
                                  : setting.type == "Int32" ? std::to_string(setting.number)
                                                            : setting.shown;
        text += Quoted(key) + " " + setting.type + (value.empty() ? "" : " " + value) + "\n";
    }
    return text;
}

Code Platform::PutSetting(Settings& store, const WideText& key, const Setting& setting) {
    if (key.size() > 255) {
        return kNameTooLong;
    }
    if (setting.text.size() * sizeof(BrindleChar) > 8192) {
        return kValueTooLong;
    }
    store[key] = setting;
    return 0;
}

Code Platform::PutCredential(const WideText& resource, const WideText& user, const WideText& password) {
    if (resource.empty() || user.empty() || password.empty()) {
        return kInvalidArgument;
    }
    vault[{resource, user}] = password;
    return 0;
}

}  // namespace model
