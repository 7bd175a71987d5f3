// Prints a sequence as C++ code.
#include <cmath>
#include <cstdio>

#include "files.h"

namespace model {

namespace {

constexpr std::size_t kLongest = 60;

std::string Number(std::uint64_t number) {
    char text[24];
    std::snprintf(text, sizeof text, number < 0x10000 ? "%llu" : "0x%llX",
                  static_cast<unsigned long long>(number));
    return text;
}

std::string Number(double number) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", number);
    const std::string digits = text;
    return std::isnan(number)                                ? "NAN"
           : std::isinf(number)                              ? (number < 0 ? "-INFINITY" : "INFINITY")
           : digits.find_first_of(".e") == std::string::npos ? digits + ".0"
                                                             : digits;
}
std::string Number(float number) {
    char text[40];
    std::snprintf(text, sizeof text, "%.9g", static_cast<double>(number));
    const std::string digits = text;
    return std::isnan(number)                                ? "NAN"
           : digits.find_first_of(".e") == std::string::npos ? digits + ".0F"
                                                             : digits + "F";
}

std::string Unit(unsigned unit) {
    char text[16];
    std::snprintf(text, sizeof text, "\\x%04X\" \"", unit);
    const bool plain = unit >= 0x20 && unit < 0x7F && unit != '"' && unit != '\\';
    return plain ? std::string(1, static_cast<char>(unit)) : text;
}

std::string Text(const WideText& text) {
    if (text.size() > kLongest && text.find_first_not_of(text[0]) == WideText::npos) {
        return "Repeated('" + std::string(1, static_cast<char>(text[0])) + "', " +
               std::to_string(text.size()) + ")";
    }
    std::string literal;
    for (const BrindleChar unit : text) {
        literal += Unit(static_cast<unsigned>(unit));
    }
    return "UTF16(\"" + literal + "\")";
}

std::string Text(const std::string& text) { return "R\"(" + text + ")\""; }
const char* Flag(bool flag) { return flag ? "true" : "false"; }

// Prints a call of `name` with these arguments.
template <class... Arguments>
std::string Made(const std::string& name, const Arguments&... arguments) {
    std::string list;
    ((list += (list.empty() ? "" : ", ") + std::string(arguments)), ...);
    return name + "(" + list + ")";
}

template <class T, class Write>
std::string List(const std::vector<T>& list, Write write) {
    std::string text;
    for (const T& element : list) {
        text += (text.empty() ? "" : ", ") + write(element);
    }
    return "{" + text + "}";
}

std::string Kind(std::int32_t kind) { return kind == INT32_MIN ? "INT32_MIN" : std::to_string(kind); }
std::string Kinds(const std::vector<std::int32_t>& kinds) { return List(kinds, Kind); }

const char* FileName(File file) {
    constexpr const char* kNames[] = {"LongFont", "ShortFont", "Folder",   "Picture", "LargePicture",
                                      "Damaged",  "Missing",   "Relative", "Empty"};
    return kNames[static_cast<int>(file)];
}

std::string CodeOf(const Item& item) {
    const std::string id = Number(std::uint64_t{item.id});
    const std::string file = std::string("File::") + FileName(item.file);
    const std::string rest = Text(item.label) + ", " + std::to_string(item.haptics);
    switch (item.kind) {
        case 0:
            return Made("PictureFile", id, file, rest);
        case 1:
            return Made("PictureResource", id, Number(item.number), rest);
        case 2:
            return Made("Icon", id, Number(item.number), rest);
        case 3:
            return Made("Glyph", id, Text(item.glyph), Text(item.family), rest);
        case 4:
            return Made("FontGlyph", id, file, Text(item.glyph), Text(item.family), rest);
        default:
            return Made("UnknownItem", Kind(item.kind), Text(item.label));
    }
}

std::string CodeOf(const Fault& fault) {
    const std::string when = std::to_string(fault.from) + ", " + std::to_string(fault.times);
    const std::string code = Number(std::uint64_t{static_cast<std::uint32_t>(fault.code)});
    const std::string call = "\"" + fault.call + "\"";
    return fault.kind == Fault::Kind::YieldNull ? Made("YieldsNull", call, when)
           : fault.kind == Fault::Kind::Fail    ? Made("Fails", call, code, when)
                                                : Made("FailsLate", call, code, when);
}

std::string OfMenu(const Operation& operation) {
    const std::string window = Number(operation.window);
    const std::string times = std::to_string(operation.times);
    switch (operation.act) {
        case Act::AddMenu:
            return operation.null_list
                       ? Made("AddNullMenu", window, Number(operation.number))
                       : Made("AddMenu", window,
                              List(operation.items, [](const Item& item) { return CodeOf(item); }), times);
        case Act::DefaultMenu:
            return operation.null_list ? Made("NullDefaultMenu", window, Number(operation.number))
                                       : Made("DefaultMenu", window, Kinds(operation.kinds));
        default:
            return operation.null_list
                       ? "ListenWithoutHost()"
                       : Made("Listen", window, List(operation.later_windows, [](std::uint64_t later) {
                                  return Number(later);
                              }));
    }
}

std::string OfSettings(const Operation& operation) {
    const std::string names = Text(operation.resource) + ", " + Text(operation.key);
    switch (operation.act) {
        case Act::SetText:
            return Made("SetText", names, Text(operation.value));
        case Act::GetText:
            return Made("GetText", names);
        case Act::SetNumber:
            return Made("SetNumber", names, Kind(operation.code));
        case Act::GetNumber:
            return Made("GetNumber", names);
        case Act::PutSetting:
            return Made("PutSetting", Text(std::string(operation.number != 0 ? "local" : "roaming")),
                        Text(operation.text), Text(operation.text2), Text(operation.text3));
        default:
            return Made("PutCredential", Text(operation.text), Text(operation.text2), Text(operation.text3));
    }
}

std::string OfDevice(const Operation& operation) {
    return operation.null_list        ? "AddNullDevice()"
           : !operation.text2.empty() ? Made("AddOtherDevice", Text(operation.text))
                                      : Made("AddDevice", Text(operation.text), Flag(operation.flag),
                                             std::to_string(operation.times));
}

std::string OfContact(const char* name, const Operation& operation) {
    return Made(name, Number(operation.window), Number(operation.x), Number(operation.y),
                Number(operation.width), Number(operation.height));
}

std::string OfHaptics(const Operation& operation) {
    return Made("Haptics", Flag(operation.flag), Kinds(operation.kinds), std::to_string(operation.times));
}

std::string BareCodeOf(const Operation& operation) {
    const std::string window = Number(operation.window);
    const std::string number = Number(operation.number);
    switch (operation.act) {
        case Act::Initialize:
            return "Initialize()";
        case Act::Listen:
        case Act::AddMenu:
        case Act::DefaultMenu:
            return OfMenu(operation);
        case Act::Select:
            return Made("Select", window, number);
        case Act::Present:
            return Made("Present", window);
        case Act::Turn:
            return Made("Turn", window, Number(operation.degrees));
        case Act::Click:
            return Made("Click", window);
        case Act::Touch:
            return OfContact("Touch", operation);
        case Act::Move:
            return OfContact("Move", operation);
        case Act::Lift:
            return Made("Lift", window);
        case Act::Acquire:
            return Made("Acquire", window);
        case Act::Lose:
            return Made("Lose", window);
        case Act::Choose:
            return Made("Choose", window, number);
        case Act::Complete:
            return Made("Complete", number);
        case Act::CompleteAs:
            return Made("CompleteAs", number, Kind(operation.code));
        case Act::CompleteAll:
            return "CompleteAll()";
        case Act::Hold:
            return Made("Hold", Flag(operation.flag));
        case Act::Haptics:
            return OfHaptics(operation);
        case Act::Append:
            return Made("Append", window, Text(operation.text), number);
        case Act::Shrink:
            return Made("Shrink", window, number);
        case Act::Wait:
            return Made("Wait", number);
        case Act::SetClock:
            return Made("SetClock", number);
        case Act::Async:
            return Made("Async", Flag(operation.flag));
        case Act::AddDevice:
            return OfDevice(operation);
        case Act::RemoveDevices:
            return "RemoveDevices()";
        case Act::FailDevices:
            return Made("FailDevices", Number(std::uint64_t{static_cast<std::uint32_t>(operation.code)}));
        case Act::Packaged:
            return Made("Packaged", Flag(operation.flag));
        case Act::HideType:
            return "HideType()";
        default:
            return OfSettings(operation);
    }
}

std::string CodeOf(const Operation& operation);

std::string CodeOf(const Inside& inside) {
    return "{" + std::to_string(inside.call) + ", " + CodeOf(inside.operation) + "}";
}

std::string CodeOf(const Operation& operation) {
    std::string code = BareCodeOf(operation);
    const auto add = [&code](const char* name, const auto& list) {
        if (!list.empty()) {
            code += Made(name, List(list, [](const auto& element) { return CodeOf(element); }));
        }
    };
    add(".Failing", operation.faults);
    add(".With", operation.inside);
    add(".Reacting", operation.reactions);
    if (operation.haptic_request) {
        code += ".Requesting(" + Number(std::uint64_t{*operation.haptic_request}) + ")";
    }
    return code;
}

}  // namespace

std::string CodeOf(const Sequence& sequence) {
    std::string code;
    for (const Operation& operation : sequence) {
        code += "     " + CodeOf(operation) + ",\n";
    }
    return code;
}

}  // namespace model
