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

consteval ShortName WithoutNamespace(std::string_view name) {
    constexpr std::string_view space = "brindle::abi::";
    ShortName result;
    while (!name.empty()) {
        if (name.starts_with(space)) {
            name.remove_prefix(space.size());
        } else {
            result.text[result.length++] = name.front();
            name.remove_prefix(1);
        }
    }
    return result;
}

template <class T>
inline constexpr ShortName kShortName = WithoutNamespace(CompilersName<T>());

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
