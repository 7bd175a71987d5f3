// Published names of interfaces, for the journal.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace dialsim {

namespace detail {

template <class T>
constexpr std::string_view CompilerName() {
    constexpr std::string_view function = __PRETTY_FUNCTION__;
    constexpr std::size_t start = function.find("T = ") + 4;
    return function.substr(start, function.find_first_of(";]", start) - start);
}

struct PublishedName {
    std::array<char, 128> text{};
    std::size_t length = 0;
};

struct NameMapping {
    std::string_view from;
    std::string_view to;
};

// The first match applies.
constexpr NameMapping kNameMappings[] = {
    {"HSTRING__ *", "String"},
    {"HSTRING__*", "String"},
    {"brindle::abi::IInspectable", "Object"},
    {"brindle::abi::", ""},
};

consteval PublishedName Published(std::string_view name) {
    PublishedName result;
    while (!name.empty()) {
        NameMapping mapping{name.substr(0, 1), name.substr(0, 1)};
        for (const NameMapping& known : kNameMappings) {
            if (name.starts_with(known.from)) {
                mapping = known;
                break;
            }
        }
        for (const char c : mapping.to) {
            result.text[result.length++] = c;
        }
        name.remove_prefix(mapping.from.size());
    }
    return result;
}

template <class T>
inline constexpr PublishedName kPublishedName = Published(CompilerName<T>());

}  // namespace detail

// "IVectorView<SimpleHapticsControllerFeedback>", derived from the compiler's name for the type.
template <class T>
constexpr std::string_view TypeName() {
    return {detail::kPublishedName<T>.text.data(), detail::kPublishedName<T>.length};
}

// "IRadialController::get_Menu"
template <class Interface>
std::string MethodName(std::string_view method) {
    constexpr std::string_view type = TypeName<Interface>();
    std::string name;
    name.reserve(type.size() + method.size() + 2);
    name.append(type).append("::").append(method);
    return name;
}

}  // namespace dialsim
