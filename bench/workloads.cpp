#include "bench/workloads.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <random>

#include "bench/baseline/baseline.h"
#include "bench/host.h"
#include "bench/stub/platform.h"
#include "brindle.h"

namespace bench {

namespace {

// Enough that the figure of one item has little of the call's.
constexpr std::uint32_t kMenuItems = 100;

constexpr char16_t kResource[] = u"Example Paint";
constexpr char16_t kKey[] = u"Example Paint/last brush";

// The library with the interface of baseline.h.
class LibraryDial {
public:
    explicit LibraryDial(IDialHost& host) {
        initialize();
        init_dial_listener(&host);
    }
    LibraryDial(const LibraryDial&) = delete;
    LibraryDial& operator=(const LibraryDial&) = delete;
    ~LibraryDial() { uninit(); }

    HRESULT FillMenu(const MenuItemDescription* items, std::uint32_t count) {
        return add_custom_menu(kWindow, items, count) ? S_OK : E_FAIL;
    }
    HRESULT Select(std::uint32_t item_id) {
        return set_current_custom_menu(kWindow, item_id) ? S_OK : E_FAIL;
    }
};

MenuItemDescription Describe(MenuItemKind kind) {
    MenuItemDescription item{};
    item.kind = kind;
    item.display_text = u"Brush size";
    switch (kind) {
        case MenuItemKind::KnownIcon:
            item.source.number = 7;
            break;
        case MenuItemKind::CustomFont:
            item.source3.text = u"C:\\Fonts\\DIAL.TTF";
            [[fallthrough]];
        case MenuItemKind::SystemFont:
            item.source.text = u"B";
            item.source2.text = u"Dial Symbols";
            break;
        case MenuItemKind::FilePNG:
            item.source.text = u"C:\\Pictures\\brush.png";
            break;
        case MenuItemKind::ResourcePNG:
            item.source2.number = 101;
            break;
    }
    return item;
}

std::vector<MenuItemDescription> Items(MenuItemKind kind, std::uint32_t count) {
    std::vector<MenuItemDescription> items(count, Describe(kind));
    for (std::uint32_t i = 0; i < count; ++i) {
        items[i].item_id = i + 1;
    }
    return items;
}

std::vector<MenuItemDescription> KnownIcons(std::uint32_t count) {
    return Items(MenuItemKind::KnownIcon, count);
}

struct Turn {
    std::uint32_t menu_items = 0;
    bool contact = false;
    bool plays_haptics = false;
};

template <class Dial>
class Rotation final : public Workload {
public:
    explicit Rotation(const Turn& turn)
        : host_(kWindow, turn.plays_haptics), event_{turn.contact}, dial_(host_) {
        if (turn.menu_items > 0) {
            const auto items = KnownIcons(turn.menu_items);
            dial_.FillMenu(items.data(), turn.menu_items);
            dial_.Select(turn.menu_items);
        }
    }
    std::int64_t Run() override {
        stub::RaiseRotation(event_);
        return host_.checksum();
    }

private:
    Host host_;
    stub::Event event_;
    Dial dial_;
};

template <class Dial>
class Click final : public Workload {
public:
    Click() : dial_(host_) {}
    std::int64_t Run() override {
        stub::RaiseClick({.contact = true});
        return host_.checksum();
    }

private:
    Host host_;
    Dial dial_;
};

template <class Dial>
class Filling final : public Workload {
public:
    Filling(MenuItemKind kind, std::uint32_t count) : items_(Items(kind, count)), dial_(host_) {}
    std::int64_t Run() override {
        return dial_.FillMenu(items_.data(), static_cast<std::uint32_t>(items_.size()));
    }

private:
    std::vector<MenuItemDescription> items_;
    Host host_;
    Dial dial_;
};

template <class Dial>
class Selecting final : public Workload {
public:
    explicit Selecting(std::uint32_t count) : last_(count), dial_(host_) {
        const auto items = KnownIcons(count);
        dial_.FillMenu(items.data(), count);
    }
    std::int64_t Run() override { return dial_.Select(last_); }

private:
    std::uint32_t last_;
    Host host_;
    Dial dial_;
};

// Windows without a listener, each between two with one, shuffled.
std::vector<std::uint64_t> UnknownWindows(std::size_t count) {
    std::vector<std::uint64_t> windows(count);
    std::iota(windows.begin(), windows.end(), 0);
    std::shuffle(windows.begin(), windows.end(), std::minstd_rand());
    for (auto& window : windows) {
        window = kWindow + 4 * window + 2;
    }
    return windows;
}

class LookUp : public Workload {
public:
    explicit LookUp(std::size_t count) : unknown_(UnknownWindows(count)) {
        for (std::size_t i = 0; i < count; ++i) {
            hosts_.push_back(std::make_unique<Host>(kWindow + 4 * i));
        }
    }

protected:
    const std::vector<std::unique_ptr<Host>>& hosts() const { return hosts_; }
    std::uint64_t NextUnknown() {
        next_ = next_ + 1 == unknown_.size() ? 0 : next_ + 1;
        return unknown_[next_];
    }

private:
    const std::vector<std::uint64_t> unknown_;
    std::size_t next_ = 0;
    std::vector<std::unique_ptr<Host>> hosts_;
};

// For a window without a listener an export only searches the registry.
class LibraryLookUp final : public LookUp {
public:
    explicit LibraryLookUp(std::size_t count) : LookUp(count) {
        for (const auto& host : hosts()) {
            init_dial_listener(host.get());
        }
    }
    ~LibraryLookUp() override { uninit(); }
    std::int64_t Run() override { return set_current_custom_menu(NextUnknown(), 0); }
};

class MapLookUp final : public LookUp {
public:
    explicit MapLookUp(std::size_t count) : LookUp(count) {
        for (const auto& host : hosts()) {
            windows_.Add(*host);
        }
    }
    std::int64_t Run() override { return windows_.Select(NextUnknown(), 0) >= 0; }

private:
    baseline::Windows windows_;
};

struct LibraryStores {
    static std::int32_t SetText(const char16_t* text) { return set_string_in_storage(kResource, kKey, text); }
    static char16_t* GetText() { return get_string_from_storage(kResource, kKey); }
    static std::int32_t SetNumber(std::int32_t number) { return set_int_in_storage(kResource, kKey, number); }
    static std::int32_t GetNumber() { return get_int_from_storage(kResource, kKey); }
};

struct BaselineStores {
    static std::int32_t SetText(const char16_t* text) { return baseline::SetText(kResource, kKey, text); }
    static char16_t* GetText() { return baseline::GetText(kResource, kKey); }
    static std::int32_t SetNumber(std::int32_t number) { return baseline::SetNumber(kKey, number); }
    static std::int32_t GetNumber() { return baseline::GetNumber(kResource, kKey); }
};

// Alternates between two texts of one length, or writes the same one again.
template <class Stores>
class TextSetting final : public Workload {
public:
    TextSetting(bool changes, bool package_identity) : changes_(changes) {
        stub::ClearStores(package_identity);
        Stores::SetText(u"charcoal");
    }
    std::int64_t Run() override {
        second_ = changes_ && !second_;
        return Stores::SetText(second_ ? u"airbrush" : u"charcoal");
    }

private:
    const bool changes_;
    bool second_ = false;
};

template <class Stores>
class NumberSetting final : public Workload {
public:
    explicit NumberSetting(bool changes) : changes_(changes) {
        stub::ClearStores(true);
        Stores::SetNumber(7);
    }
    std::int64_t Run() override {
        number_ += changes_ ? 1 : 0;
        return Stores::SetNumber(number_);
    }

private:
    const bool changes_;
    std::int32_t number_ = 7;
};

// Reads from the roaming settings, or without package identity from the vault.
template <class Stores>
class TextReading final : public Workload {
public:
    explicit TextReading(bool package_identity) {
        stub::ClearStores(package_identity);
        Stores::SetText(u"charcoal");
    }
    std::int64_t Run() override {
        char16_t* text = Stores::GetText();
        const std::int64_t first = text[0];
        std::free(text);
        return first;
    }
};

template <class Stores>
class NumberReading final : public Workload {
public:
    explicit NumberReading(bool package_identity) {
        stub::ClearStores(package_identity);
        if (package_identity) {
            Stores::SetNumber(7);
        } else {
            Stores::SetText(u"7");
        }
    }
    std::int64_t Run() override { return Stores::GetNumber(); }
};

class LibraryPresence {
public:
    bool IsDialPresent() { return is_dial_present(kWindow); }

private:
    Host host_;
    LibraryDial dial_{host_};
};

class BaselinePresence {
public:
    bool IsDialPresent() { return baseline::IsDialPresent(); }
};

template <class Side>
class Presence final : public Workload {
public:
    explicit Presence(int milliseconds) { stub::SetEnumerationTime(std::chrono::milliseconds(milliseconds)); }
    std::int64_t Run() override {
        const bool present = side_.IsDialPresent();
        stub::WaitForEnumeration();
        return present;
    }

private:
    Side side_;
};

template <class Library, class Baseline, class... Arguments>
Comparison MakeComparison(std::string name, std::int64_t runs, Arguments... arguments) {
    return {std::move(name), runs, [=] { return std::make_unique<Library>(arguments...); },
            [=] { return std::make_unique<Baseline>(arguments...); }};
}

template <template <class> class Measured, class... Arguments>
Comparison OfDials(std::string name, std::int64_t runs, Arguments... arguments) {
    return MakeComparison<Measured<LibraryDial>, Measured<baseline::Dial>>(std::move(name), runs,
                                                                           arguments...);
}

template <template <class> class Measured, class... Arguments>
Comparison OfStores(std::string name, Arguments... arguments) {
    return MakeComparison<Measured<LibraryStores>, Measured<BaselineStores>>(std::move(name), 0,
                                                                             arguments...);
}

Comparison OfLookUps(std::size_t windows) {
    Comparison pair =
        MakeComparison<LibraryLookUp, MapLookUp>("lookup/" + std::to_string(windows), 0, windows);
    pair.makes_calls = false;
    return pair;
}

}  // namespace

std::vector<Comparison> Comparisons() {
    return {
        OfDials<Rotation>("rotation/no menu", 0, Turn{}),
        OfDials<Rotation>("rotation/menu and selection", 0, Turn{.menu_items = 7}),
        OfDials<Rotation>("rotation/contact", 0, Turn{.contact = true}),
        OfDials<Rotation>("rotation/menu, selection and contact", 0, Turn{.menu_items = 7, .contact = true}),
        OfDials<Rotation>("rotation/haptics", 0, Turn{.plays_haptics = true}),
        OfDials<Click>("click", 0),
        OfDials<Filling>("menu/known icon", 300, MenuItemKind::KnownIcon, kMenuItems),
        OfDials<Filling>("menu/system font", 300, MenuItemKind::SystemFont, kMenuItems),
        OfDials<Filling>("menu/custom font", 300, MenuItemKind::CustomFont, kMenuItems),
        OfDials<Filling>("menu/picture file", 300, MenuItemKind::FilePNG, kMenuItems),
        OfDials<Filling>("menu/picture resource", 300, MenuItemKind::ResourcePNG, kMenuItems),
        OfDials<Selecting>("select/7", 0, 7U),
        OfDials<Selecting>("select/1000", 0, 1'000U),
        OfLookUps(1),
        OfLookUps(100),
        OfLookUps(10'000),
        OfStores<TextSetting>("set_string/unchanged", false, true),
        OfStores<TextSetting>("set_string/changed", true, true),
        OfStores<TextSetting>("set_string/unchanged, in the vault", false, false),
        OfStores<TextSetting>("set_string/changed, in the vault", true, false),
        OfStores<NumberSetting>("set_int/unchanged", false),
        OfStores<NumberSetting>("set_int/changed", true),
        OfStores<TextReading>("get_string/settings", true),
        OfStores<TextReading>("get_string/vault", false),
        OfStores<NumberReading>("get_int/settings", true),
        OfStores<NumberReading>("get_int/vault", false),
        MakeComparison<Presence<LibraryPresence>, Presence<BaselinePresence>>("presence/at once", 0, 0),
        MakeComparison<Presence<LibraryPresence>, Presence<BaselinePresence>>("presence/after 5 ms", 2, 5),
    };
}

}  // namespace bench
