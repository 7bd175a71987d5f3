// Arbitrary menu descriptions and user actions, compared with a model of the menu.
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fuzz.h"
#include "support/menu_items.h"
#include "support/pictures.h"
#include "support/recording_host.h"
#include "unicode.h"

namespace {

constexpr const char* kIcons[] = {"Scroll", "Zoom",     "UndoRedo",     "Volume", "NextPreviousTrack",
                                  "Ruler",  "InkColor", "InkThickness", "PenType"};
constexpr std::size_t kSystemItems = 5;

// A fourth identifier has no resource.
enum Resource : std::uint16_t { kPicture = 101, kEmpty = 102, kNoPicture = 103 };

constexpr char kFontFile[] = "/dev/null";

const TemporaryFile& PictureFile() {
    static const TemporaryFile file("fuzz_menu.png", SmallPng());
    return file;
}
const TemporaryFile& DamagedFile() {
    static const TemporaryFile file("fuzz_menu.txt", std::string("PNG"));
    return file;
}

struct Item {
    WideText label;
    std::string source;
    std::optional<std::uint32_t> tag;  // empty unless it is a number
    std::string shown_tag;
    bool listens;  // created by the library, which handles its invocation
};

// An item's haptic setting, recorded under its identifier and never removed.
struct Setting {
    std::uint32_t item_id;
    bool haptics;
};

// Null is an entry without an item.
using ItemRef = std::shared_ptr<const Item>;

struct Menu {
    std::vector<ItemRef> items;
    std::vector<ItemRef> loading;
    ItemRef selected;
    std::vector<std::int32_t> system_items = {0, 1, 2, 3, 4};
    std::vector<Setting> settings;
    bool automatic_haptics = true;
    bool loads_are_held = false;
    bool was_set = false;  // by the host; until then, turns report no item

    void Clear() {
        items.clear();
        was_set = true;
    }
    void Add(WideText label, std::string source, std::uint32_t item_id) {
        items.push_back(std::make_shared<Item>(
            Item{std::move(label), std::move(source), item_id, std::to_string(item_id), true}));
    }
    void Load(const WideText& label, const std::string& source, std::uint32_t item_id) {
        loading.push_back(
            std::make_shared<Item>(Item{label, source, item_id, std::to_string(item_id), true}));
        if (!loads_are_held) {
            CompleteLoads();
        }
    }
    // Items loaded for a replaced menu are added, too.
    void CompleteLoads() {
        for (const ItemRef& item : loading) {
            items.push_back(item);
            settings.push_back({*item->tag, false});
        }
        loading.clear();
    }
    void Select(ItemRef item) { selected = std::move(item); }
    void Choose(const ItemRef& item) {
        Select(item);
        const auto setting = std::find_if(settings.begin(), settings.end(), [&](const Setting& recorded) {
            return recorded.item_id == item->tag.value_or(0);
        });
        if (item->listens && setting != settings.end()) {
            automatic_haptics = setting->haptics;
        }
    }
    // The expected tag of a turn.
    std::uint32_t SelectedTag() const {
        const bool exists = selected && std::find(items.begin(), items.end(), selected) != items.end();
        return was_set && exists ? selected->tag.value_or(0) : 0;
    }
    // A tag that is not a number ends the search.
    ItemRef WithTag(std::uint32_t item_id) const {
        for (const ItemRef& item : items) {
            if (item && item->shown_tag == "not a number") {
                return nullptr;
            }
            if (item && item->tag == item_id) {
                return item;
            }
        }
        return nullptr;
    }

    static std::string InOneLine(const WideText& text) {
        std::string line = Utf8Of(text);
        for (char& c : line) {
            c = (c >= 0 && c < ' ') || c == 0x7F ? ' ' : c;
        }
        return line;
    }
    std::string Text() const {
        std::string text;
        for (std::size_t i = 0; i < items.size(); ++i) {
            text += std::to_string(i) + (items[i] && items[i] == selected ? " * " : "   ");
            text += items[i] ? "\"" + InOneLine(items[i]->label) + "\" " + items[i]->source + ", tag " +
                                   items[i]->shown_tag
                             : "no item";
            text += "\n";
        }
        std::string system;
        for (const std::int32_t kind : system_items) {
            system += (system.empty() ? "" : ", ") + std::string(kIcons[kind]);
        }
        return text + "system items: " + (system.empty() ? "none" : system) +
               "\nautomatic haptics: " + (automatic_haptics ? "on" : "off") + "\n";
    }
};

// A host and a user that change the menu; `expected_` models it.
class Session {
public:
    explicit Session(Input& input) : input_(input) {
        Check(init_dial_listener(&host_), "the window is registered");
        expected_.loads_are_held = input_.Flag();
        dialsim_async(expected_.loads_are_held ? DIALSIM_HELD : DIALSIM_AT_ONCE);
        dialsim_add_resource(kModule, kPicture, "PNG", SmallPng().data(),
                             static_cast<std::uint32_t>(SmallPng().size()));
        dialsim_add_resource(kModule, kEmpty, "PNG", "", 0);
        dialsim_add_resource(kModule, kNoPicture, "PNG", "no picture", 10);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() { dialsim_complete_all(); }

    void RunAction() {
        using Action = void (Session::*)();
        constexpr Action kActions[] = {&Session::SetMenu,        &Session::SetMenu, &Session::SetDefaultMenu,
                                       &Session::SetCurrentItem, &Session::Choose,  &Session::Turn,
                                       &Session::CompleteLoads,  &Session::Append,  &Session::Shrink,
                                       &Session::ClearMenu};
        (this->*kActions[input_.Below(std::size(kActions))])();
        Compare();
    }

private:
    void Compare() const {
        std::string text(dialsim_menu(kWindow, nullptr, 0), '\0');
        dialsim_menu(kWindow, text.data(), text.size());
        text.pop_back();  // the terminator
        CheckSame(text, expected_.Text(), "the menu");
    }

    void SetMenu() {
        const std::size_t count = input_.Below(8);
        expected_.Clear();
        std::vector<MenuItemDescription> items;
        for (std::size_t i = 0; i < count; ++i) {
            items.push_back(Describe());
            Expect(items.back());
        }
        Check(::SetMenu(kWindow, items), "the menu is replaced");
        Check(!::SetMenu(kWindow + 1, items), "a window without a listener has no menu");
        texts_.clear();
    }

    MenuItemDescription Describe() {
        const std::uint8_t kind = input_.Byte();
        MenuItemDescription item{};
        // One in eight has an unknown kind.
        item.kind = static_cast<MenuItemKind>((kind & 7) < 7 ? (kind & 7) % 5 : input_.Number());
        item.display_text = TakeText();
        item.item_id = input_.SmallOrAnyNumber();
        item.haptic_feedback = kind & 0x40 ? input_.Byte() : std::uint8_t{0};
        switch (item.kind) {
            case MenuItemKind::FilePNG:
                item.source.text = TakePath();
                break;
            case MenuItemKind::ResourcePNG:
                item.source.number = input_.Flag() ? kModule : input_.Number();
                item.source2.number = kPicture + input_.Below(4);
                item.source2.number += std::uint64_t{input_.Byte()} << 16;
                break;
            case MenuItemKind::KnownIcon:
                item.source.number = input_.SmallOrAnyNumber();
                break;
            case MenuItemKind::CustomFont:
                item.source3.text = input_.Flag() ? Store(Utf16Of(kFontFile)) : TakeMissingPath();
                [[fallthrough]];
            case MenuItemKind::SystemFont:
                item.source.text = TakeText();
                item.source2.text = TakeText();
                break;
            default:
                item.source.number = input_.Number();
        }
        return item;
    }

    // Items of unknown kinds and items whose creation fails are skipped.
    void Expect(const MenuItemDescription& item) {
        const WideText label = item.display_text;
        switch (item.kind) {
            case MenuItemKind::FilePNG:
                if (const std::string source = SourceOfFile(item.source.text); !source.empty()) {
                    expected_.Load(label, source, item.item_id);
                }
                break;
            case MenuItemKind::ResourcePNG:
                if (const std::string source = SourceOfResource(item); !source.empty()) {
                    expected_.Add(label, source, item.item_id);
                    Record(item);
                }
                break;
            case MenuItemKind::KnownIcon:
                if (item.source.number < std::size(kIcons)) {
                    expected_.Add(label, std::string("known icon ") + kIcons[item.source.number],
                                  item.item_id);
                }
                Record(item);
                break;
            case MenuItemKind::SystemFont:
                expected_.Add(label, Glyph(item) + Menu::InOneLine(item.source2.text), item.item_id);
                Record(item);
                break;
            case MenuItemKind::CustomFont:
                if (item.source3.text == Utf16Of(kFontFile)) {
                    expected_.Add(label, Glyph(item) + "font file file://" + kFontFile, item.item_id);
                    Record(item);
                }
                break;
            default:
                break;
        }
    }
    void Record(const MenuItemDescription& item) {
        expected_.settings.push_back({item.item_id, item.haptic_feedback != 0});
    }
    static std::string Glyph(const MenuItemDescription& item) {
        return "glyph " + Menu::InOneLine(item.source.text) + " of ";
    }
    static std::string SourceOfFile(const WideText& path) {
        return path == PictureFile().Path()   ? "PNG file 2x3"
               : path == DamagedFile().Path() ? "broken picture"
                                              : "";
    }
    static std::string SourceOfResource(const MenuItemDescription& item) {
        const auto resource = static_cast<std::uint16_t>(item.source2.number);
        return item.source.number != kModule ? ""
               : resource == kPicture        ? "PNG image 2x3"
               : resource == kNoPicture      ? "broken picture"
                                             : "";
    }

    void SetDefaultMenu() {
        std::vector<std::int32_t> kinds;
        for (std::size_t count = input_.Below(8); count > 0; --count) {
            kinds.push_back(static_cast<std::int32_t>(input_.SmallOrAnyNumber()));
        }
        const bool known = std::all_of(kinds.begin(), kinds.end(), [](std::int32_t kind) {
            return kind >= 0 && kind < static_cast<std::int32_t>(kSystemItems);
        });
        const std::int32_t none = 0;  // a valid empty list
        const auto count = static_cast<std::uint32_t>(kinds.size());
        CheckSame(set_default_menu(kWindow, kinds.empty() ? &none : kinds.data(), count), known,
                  "set_default_menu");
        CheckSame(set_default_menu(kWindow, nullptr, count), false, "set_default_menu without a list");
        if (known) {
            expected_.system_items = kinds;
        }
    }

    void SetCurrentItem() {
        const std::uint32_t item_id = input_.SmallOrAnyNumber();
        const ItemRef item = expected_.WithTag(item_id);
        CheckSame(set_current_custom_menu(kWindow, item_id), item != nullptr, "set_current_custom_menu");
        if (item) {
            expected_.Select(item);
        }
    }

    void Choose() {
        const std::uint32_t place = input_.SmallOrAnyNumber();
        const bool exists = place < expected_.items.size() && expected_.items[place];
        CheckSame(dialsim_choose(kWindow, place), exists ? 0 : kOutOfBounds, "choosing");
        if (exists) {
            expected_.Choose(expected_.items[place]);
        }
    }

    void Turn() {
        CheckSame(dialsim_turn(kWindow, 1.0), 0, "a turn");
        CheckSame(host_.LastRotation().selectedItemTag, expected_.SelectedTag(), "the selected item's tag");
    }

    void CompleteLoads() {
        dialsim_complete_all();
        expected_.CompleteLoads();
    }

    // Changes of the menu by other code.
    void Append() {
        constexpr const char* kTags[] = {"UInt32", "String", "object", "none"};
        const std::size_t kind = input_.Below(std::size(kTags) + 1);
        const std::uint32_t tag = input_.SmallOrAnyNumber();
        if (kind == std::size(kTags)) {
            dialsim_append_null_item(kWindow);
            expected_.items.emplace_back();
            return;
        }
        dialsim_append_item(kWindow, kTags[kind], tag);
        const bool number = kind == 0;
        const bool none = kTags[kind] == std::string("none");
        expected_.items.push_back(std::make_shared<Item>(Item{Utf16Of("appended"), "no picture",
                                                              number ? std::optional(tag) : std::nullopt,
                                                              number ? std::to_string(tag)
                                                              : none ? "-"
                                                                     : "not a number",
                                                              false}));
    }

    void Shrink() {
        dialsim_shrink_menu_after(kWindow, 0);
        if (!expected_.items.empty()) {
            expected_.items.pop_back();
        }
    }

    void ClearMenu() {
        Check(add_custom_menu(kWindow, nullptr, input_.Byte()), "the menu is cleared");
        expected_.Clear();
    }

    const BrindleChar* Store(WideText text) { return texts_.emplace_back(std::move(text)).c_str(); }
    const BrindleChar* TakeText() { return Store(input_.Text()); }
    const BrindleChar* TakeMissingPath() { return Store(Utf16Of("/no such folder/") + input_.Text()); }
    const BrindleChar* TakePath() {
        switch (input_.Below(4)) {
            case 0:
                return TakeMissingPath();
            case 1:
                return DamagedFile().Path();
            default:
                return PictureFile().Path();
        }
    }

    Input& input_;
    RecordingHost host_{kWindow};
    const InitializedLibrary started_;
    Menu expected_;
    std::deque<WideText> texts_;  // stable addresses: descriptions point into them
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Run run;
    Input input(bytes, size);
    Session session(input);
    for (int actions = 0; actions < 32 && !input.Empty(); ++actions) {
        session.RunAction();
    }
    return 0;
}
