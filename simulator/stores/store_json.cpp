#include "simulator/stores/store_json.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace dialsim {

namespace {

using Json = nlohmann::json;

constexpr char kSettings[] = "settings";
constexpr char kCredentials[] = "credentials";
constexpr char kComposite[] = "composite";
constexpr int kIndent = 2;

class CorruptStore : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Platform strings may be ill-formed UTF-16; these are written as lists of units.
Json WriteText(WideView text) {
    std::string utf8 = Narrow(text);
    if (Widen(utf8) == text) {
        return utf8;
    }
    Json units = Json::array();
    for (const WCHAR unit : text) {
        units.push_back(static_cast<std::uint16_t>(unit));
    }
    return units;
}

// The parser accepts an unsigned number as an integer, which would wrap around as a signed one.
template <class Number>
Number ReadNumber(const Json& json) {
    const bool fits = json.is_number_unsigned()
                          ? std::in_range<Number>(json.get<std::uint64_t>())
                          : json.is_number_integer() && std::in_range<Number>(json.get<std::int64_t>());
    if (!fits) {
        throw CorruptStore("expected a number of its type");
    }
    return json.get<Number>();
}

WideString ReadText(const Json& json) {
    if (json.is_string()) {
        return Widen(json.get_ref<const std::string&>());
    }
    if (!json.is_array()) {
        throw CorruptStore("expected a text");
    }
    WideString text;
    for (const Json& unit : json) {
        text += static_cast<WCHAR>(ReadNumber<std::uint16_t>(unit));
    }
    return text;
}

bool ReadBoolean(const Json& json) {
    if (!json.is_boolean()) {
        throw CorruptStore("expected true or false");
    }
    return json.get<bool>();
}

struct Type {
    const char* name;
    Scalar (*read)(const Json& json);
};

template <class Number>
Scalar ReadScalar(const Json& json) {
    return ReadNumber<Number>(json);
}

// In the order of the alternatives of Scalar.
constexpr Type kTypes[] = {
    {"UInt8", ReadScalar<std::uint8_t>},
    {"Int16", ReadScalar<std::int16_t>},
    {"UInt16", ReadScalar<std::uint16_t>},
    {"Int32", ReadScalar<std::int32_t>},
    {"UInt32", ReadScalar<std::uint32_t>},
    {"Int64", ReadScalar<std::int64_t>},
    {"UInt64", ReadScalar<std::uint64_t>},
    {"Boolean", [](const Json& json) -> Scalar { return ReadBoolean(json); }},
    {"String", [](const Json& json) -> Scalar { return ReadText(json); }},
};
static_assert(std::size(kTypes) == std::variant_size_v<Scalar>);

std::string TypeOf(const Setting& setting) { return setting ? kTypes[setting->index()].name : kComposite; }

Setting ReadSetting(std::string_view type, const Json& value) {
    if (type == kComposite) {
        return value.is_null() ? Setting() : throw CorruptStore("expected no value");
    }
    const auto* known = std::find_if(std::begin(kTypes), std::end(kTypes),
                                     [&](const Type& candidate) { return type == candidate.name; });
    if (known == std::end(kTypes)) {
        throw CorruptStore("unknown type");
    }
    return known->read(value);
}

Json WriteValue(const Setting& setting) {
    const auto write = [](const auto& value) -> Json {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, WideString>) {
            return WriteText(value);
        } else {
            return value;
        }
    };
    return setting ? std::visit(write, *setting) : Json();
}

const Json& Member(const Json& object, const char* name) {
    const auto member = object.find(name);
    if (member == object.end()) {
        throw CorruptStore(std::string("missing \"") + name + "\"");
    }
    return *member;
}

// "line 3, column 7" of the byte that an error names, counted from 1.
std::string Position(const std::string& text, std::size_t byte) {
    const std::string before = text.substr(0, byte - std::min<std::size_t>(byte, 1));
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t column = before.size() - (before.rfind('\n') + 1) + 1;
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

// Rejects duplicate members: the parser would keep one, and the next change would lose the others.
Json ParseRejectingDuplicates(const std::string& text) {
    std::vector<std::set<std::string>> names;  // of the members so far, for each object that is open
    return Json::parse(text, [&names](int, Json::parse_event_t event, const Json& parsed) {
        if (event == Json::parse_event_t::object_start) {
            names.emplace_back();
        } else if (event == Json::parse_event_t::object_end) {
            names.pop_back();
        } else if (event == Json::parse_event_t::key && !names.back().insert(parsed).second) {
            throw CorruptStore("duplicate member");
        }
        return true;
    });
}

// The parser's own messages quote the text, which may contain passwords.
Json Parse(const std::string& text) {
    try {
        return ParseRejectingDuplicates(text);
    } catch (const Json::parse_error& error) {
        throw CorruptStore(Position(text, error.byte) + ": invalid or incomplete JSON");
    } catch (const Json::exception&) {
        throw CorruptStore("number out of range");
    }
}

// Requires exactly these members: a change would lose any others.
void ExpectMembers(const Json& object, std::size_t count) {
    if (!object.is_object() || object.size() != count) {
        throw CorruptStore("expected " + std::to_string(count) + " members");
    }
}

template <class Handle>
void ForEachEntry(const std::string& text, const char* list, Handle handle) {
    const Json file = Parse(text);
    ExpectMembers(file, 1);
    const Json& entries = Member(file, list);
    if (!entries.is_array()) {
        throw CorruptStore(std::string("\"") + list + "\" is not an array");
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        try {
            ExpectMembers(entries[i], 3);
            if (!handle(entries[i])) {
                throw CorruptStore("duplicate entry");
            }
        } catch (const CorruptStore& reason) {
            throw CorruptStore("entry " + std::to_string(i + 1) + ": " + reason.what());
        }
    }
}

std::string Serialize(const char* list, Json entries) {
    Json file;
    file[list] = std::move(entries);
    return file.dump(kIndent) + "\n";
}

}  // namespace

std::string ToJson(const Settings& settings) {
    Json entries = Json::array();
    for (const auto& [key, setting] : settings) {
        entries.push_back(
            {{"key", WriteText(key)}, {"type", TypeOf(setting)}, {"value", WriteValue(setting)}});
    }
    return Serialize(kSettings, std::move(entries));
}

std::string ToJson(const Vault& vault) {
    Json entries = Json::array();
    for (const auto& [names, password] : vault) {
        entries.push_back({{"resource", WriteText(names.first)},
                           {"user", WriteText(names.second)},
                           {"password", WriteText(password)}});
    }
    return Serialize(kCredentials, std::move(entries));
}

Settings SettingsFrom(const std::string& json) {
    Settings settings;
    ForEachEntry(json, kSettings, [&](const Json& entry) {
        const std::string type = Narrow(ReadText(Member(entry, "type")));
        return settings.emplace(ReadText(Member(entry, "key")), ReadSetting(type, Member(entry, "value")))
            .second;
    });
    return settings;
}

Vault VaultFrom(const std::string& json) {
    Vault vault;
    ForEachEntry(json, kCredentials, [&](const Json& entry) {
        std::pair names(ReadText(Member(entry, "resource")), ReadText(Member(entry, "user")));
        return vault.emplace(std::move(names), ReadText(Member(entry, "password"))).second;
    });
    return vault;
}

std::string Listing(const Settings& settings) {
    std::string text;
    for (const auto& [key, setting] : settings) {
        text += WriteText(key).dump() + " " + TypeOf(setting);
        if (setting) {
            text.append(" ").append(WriteValue(setting).dump());
        }
        text += "\n";
    }
    return text;
}

std::string Listing(const Vault& vault) {
    std::string text;
    for (const auto& [names, password] : vault) {
        text += WriteText(names.first).dump() + " " + WriteText(names.second).dump() + " " +
                WriteText(password).dump() + "\n";
    }
    return text;
}

bool ParseSetting(std::string_view type, const std::string& value, Setting& setting) {
    try {
        const bool text = type == "String";
        const bool composite = type == kComposite;
        setting = ReadSetting(type, text ? Json(value) : composite ? Json() : Parse(value));
        return true;
    } catch (const CorruptStore&) {
        return false;
    }
}

}  // namespace dialsim
