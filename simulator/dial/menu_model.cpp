#include "simulator/dial/menu_model.h"

#include <cmath>
#include <cstdio>
#include <optional>
#include <vector>

#include "simulator/classes/configuration.h"
#include "simulator/classes/controller.h"
#include "simulator/classes/controllers.h"
#include "simulator/classes/property_value.h"

namespace dialsim {

namespace {

// Replaces control characters with spaces.
std::string SingleLine(std::string text) {
    for (char& c : text) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
            c = ' ';
        }
    }
    return text;
}

std::string LabelOf(abi::IRadialControllerMenuItem& item) {
    HSTRING label = nullptr;
    return item.get_DisplayText(&label) < 0 ? std::string() : SingleLine(TakeText(label));
}

std::string TagOf(abi::IRadialControllerMenuItem& item) {
    abi::IInspectable* result = nullptr;
    item.get_Tag(&result);
    const auto tag = Ref<abi::IInspectable>::Attach(result);
    if (!tag) {
        return "-";
    }
    const auto number = UnboxUInt32(*tag.get());
    return number ? std::to_string(*number) : "not a number";
}

// Other implementations of the interface have no accessible picture.
Picture PictureOf(abi::IRadialControllerMenuItem& item) {
    const auto* ours = OwnObject<MenuItem>(&item);
    return ours == nullptr ? Picture{"unknown picture"} : ours->picture();
}

std::string HapticsText(const MenuModel& menu) {
    return std::string("automatic haptics: ") + (menu.automatic_haptics ? "on" : "off");
}

}  // namespace

std::optional<MenuModel> ReadMenu(std::uint64_t window) {
    const auto controller = NewestControllerOf(window);
    if (!controller) {
        return {};
    }
    const JournalPause no_journal;
    MenuModel menu{controller->window()};
    const auto selected = controller->menu().Selected();
    for (const auto& item : controller->menu().items().Snapshot()) {
        if (item) {
            menu.items.push_back({true, item.get() == selected.get(), LabelOf(*item.get()),
                                  PictureOf(*item.get()), TagOf(*item.get())});
        } else {
            menu.items.emplace_back();
        }
    }
    menu.system_items = SystemItems(menu.window);
    menu.automatic_haptics = controller->automatic_haptics();
    return menu;
}

std::string MenuText(std::uint64_t window) {
    const auto menu = ReadMenu(window);
    if (!menu) {
        return {};
    }
    std::string text;
    for (std::size_t i = 0; i < menu->items.size(); ++i) {
        const MenuModelItem& item = menu->items[i];
        text += std::to_string(i) + (item.selected ? " * " : "   ");
        text += item.present
                    ? "\"" + item.label + "\" " + SingleLine(item.picture.source) + ", tag " + item.tag
                    : "no item";
        text += "\n";
    }
    std::string system;
    for (const std::int32_t kind : menu->system_items) {
        system += (system.empty() ? "" : ", ") + SystemItemName(kind);
    }
    return text + "system items: " + (system.empty() ? "none" : system) + "\n" + HapticsText(*menu) + "\n";
}

namespace {

constexpr double kWidth = 900;
constexpr double kHeight = 720;
constexpr double kRingRadius = 250;
// In Unicode characters.
constexpr std::size_t kMaxTextCharacters = 30;
constexpr std::size_t kMaxCenterCharacters = 16;

// Escapes text for XML. U+FFFE and U+FFFF are not allowed there and become U+FFFD.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool disallowed =
            text.compare(i, 3, "\xEF\xBF\xBE") == 0 || text.compare(i, 3, "\xEF\xBF\xBF") == 0;
        if (disallowed) {
            escaped += "\xEF\xBF\xBD";
            i += 2;
            continue;
        }
        switch (text[i]) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += text[i];
        }
    }
    return escaped;
}

// Truncates a longer text to `max_characters` characters and adds an ellipsis.
std::string Abbreviated(const std::string& text, std::size_t max_characters) {
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool starts_character = (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80;
        if (starts_character && ++characters > max_characters) {
            return text.substr(0, i) + "\xE2\x80\xA6";
        }
    }
    return text;
}

std::string Number(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", number);
    return text;
}

struct Point {
    double x;
    double y;
};

Point PointOnRing(std::size_t index, std::size_t count) {
    const double angle = AngleInRing(index, count);
    return {kWidth / 2 + kRingRadius * 1.2 * std::cos(angle),
            kHeight / 2 - 20 + kRingRadius * std::sin(angle)};
}

std::string Text(Point point, double size, const char* color, const std::string& text) {
    return "<text x=\"" + Number(point.x) + "\" y=\"" + Number(point.y) + "\" font-size=\"" + Number(size) +
           "\" fill=\"" + color + "\">" + Escaped(Abbreviated(text, kMaxTextCharacters)) + "</text>\n";
}

std::string Circle(Point point, double radius, const char* fill, const char* stroke) {
    return "<circle cx=\"" + Number(point.x) + "\" cy=\"" + Number(point.y) + "\" r=\"" + Number(radius) +
           "\" fill=\"" + fill + "\" stroke=\"" + stroke + "\" stroke-width=\"3\"/>\n";
}

std::string ItemSvg(const MenuModelItem& item, Point point) {
    const char* fill = item.selected ? "#1f6feb" : item.present ? "#ffffff" : "#f4d6d6";
    const char* color = item.selected ? "#ffffff" : "#1c2128";
    std::string svg = "<g>\n" + Circle(point, 44, fill, item.selected ? "#0b3d91" : "#8b949e");
    if (!item.present) {
        return svg + Text({point.x, point.y + 5}, 13, color, "no item") + "</g>\n";
    }
    const std::string tag = item.tag == "-"              ? "no tag"
                            : item.tag == "not a number" ? "odd tag"
                                                         : "tag " + item.tag;
    svg += Text({point.x, point.y + 5}, 12, color, tag);
    svg += Text({point.x, point.y + 62}, 15, "#1c2128", item.label);
    svg += Text({point.x, point.y + 79}, 11, "#57606a", SingleLine(item.picture.source));
    return svg + "</g>\n";
}

std::string SystemItemSvg(const std::string& name, Point point) {
    return "<g>\n" + Circle(point, 30, "#eaeef2", "#c0c7cf") +
           Text({point.x, point.y + 4}, 12, "#57606a", "system") +
           Text({point.x, point.y + 48}, 13, "#57606a", name) + "</g>\n";
}

}  // namespace

double AngleInRing(std::size_t index, std::size_t count) {
    return 2 * std::acos(-1.0) * static_cast<double>(index) / static_cast<double>(count) - std::acos(0.0);
}

std::string MenuSvg(std::uint64_t window) {
    const auto menu = ReadMenu(window);
    if (!menu) {
        return {};
    }
    const std::string size = "width=\"" + Number(kWidth) + "\" height=\"" + Number(kHeight) + "\"";
    const Point middle{kWidth / 2, kHeight / 2 - 20};
    std::string svg =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" " + size +
        " viewBox=\"0 0 " + Number(kWidth) + " " + Number(kHeight) +
        "\" font-family=\"sans-serif\" text-anchor=\"middle\">\n<rect " + size + " fill=\"#f6f8fa\"/>\n";
    svg += "<ellipse cx=\"" + Number(middle.x) + "\" cy=\"" + Number(middle.y) + "\" rx=\"" +
           Number(kRingRadius * 1.2) + "\" ry=\"" + Number(kRingRadius) +
           "\" fill=\"none\" stroke=\"#d0d7de\" stroke-width=\"2\"/>\n";
    svg += Circle(middle, 90, "#24292f", "#57606a");
    std::string selected = "nothing chosen";
    const std::size_t count = menu->items.size() + menu->system_items.size();
    for (std::size_t i = 0; i < menu->items.size(); ++i) {
        svg += ItemSvg(menu->items[i], PointOnRing(i, count));
        if (menu->items[i].selected) {
            selected = Abbreviated(menu->items[i].label, kMaxCenterCharacters);
        }
    }
    for (std::size_t i = 0; i < menu->system_items.size(); ++i) {
        svg +=
            SystemItemSvg(SystemItemName(menu->system_items[i]), PointOnRing(menu->items.size() + i, count));
    }
    svg += Text({middle.x, middle.y}, 18, "#ffffff", selected);
    svg += Text({middle.x, middle.y + 24}, 12, "#c9d1d9", HapticsText(*menu));
    return svg + "</svg>\n";
}

}  // namespace dialsim
