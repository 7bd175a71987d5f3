// Published names of interfaces, for the journal.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace dialsim {

namespace detail {

template <class T>
constexpr std::string_view CompilersName() {
    constexpr std::string_view function = __PRETTY_FUNCTION__;
    constexpr std::size_t start = function.find("T = ") + 4;
    return function.substr(start, function.find_first_of(";]", start) - start);
}

struct ShortName {
    std::array<char, 128> text{};
    std::size_t length = 0;
};

struct Spelling {
    std::string_view compilers;
    std::string_view published;
};

// The first that fits counts.
constexpr Spelling kSpellings[] = {
    {"HSTRING__ *", "String"},
    {"HSTRING__*", "String"},
    {"brindle::abi::IInspectable", "Object"},
    {"brindle::abi::", ""},
};

consteval ShortName Published(std::string_view name) {
    ShortName result;
    while (!name.empty()) {
        Spelling spelling{name.substr(0, 1), name.substr(0, 1)};
        for (const Spelling& known : kSpellings) {
            if (name.starts_with(known.compilers)) {
                spelling = known;
                break;
            }
        }
        for (const char c : spelling.published) {
            result.text[result.length++] = c;
        }
        name.remove_prefix(spelling.compilers.size());
    }
    return result;
}

template <class T>
inline constexpr ShortName kShortName = Published(CompilersName<T>());

}  // namespace detail

// "IVectorView<SimpleHapticsControllerFeedback>", taken from the compiler's name for the type.
template <class T>
constexpr std::string_view TypeName() {
    return {detail::kShortName<T>.text.data(), detail::kShortName<T>.length};
}

// "IRadialController::get_Menu"
template <class Interface>
std::string MethodName(std::string_view method) {
    return std::string(TypeName<Interface>()).append("::").append(method);
}

}  // namespace dialsim
