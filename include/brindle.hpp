/*
 * brindle.hpp - the dial in C++17, over the functions of brindle.h
 *
 * Optional and header-only: objects start and stop the library, own the texts and free them; callbacks are
 * lambdas. The library is linked, or loaded while the program runs. A program that loads it also runs where
 * brindle.dll or the Windows Runtime is missing: the same calls then find no dial and store nothing.
 *
 *
 * A complete host
 * ---------------
 *
 *     #include <brindle.hpp>
 *     #include <windows.h>
 *
 *     // On the thread that owns the window and handles its messages.
 *     void RunWithDial(HWND window) {
 *         double level = 0.0;
 *         brindle_dial::Session session(brindle_dial::loaded_library());
 *         const auto turn = [&](const DialRotationInfo& info) {
 *             level += info.deltaDegrees * info.acceleration;
 *             if (level > 100.0) {
 *                 level = 100.0;
 *                 brindle_dial::play_haptics(info);          // haptic feedback at the end of the scale
 *             }
 *         };
 *         const auto click = [&](const DialContactRect&) { level = 0.0; };
 *         const brindle_dial::Dial dial = session.listen(window, turn, click);
 *         dial.set_menu({brindle_dial::known_icon(L"Volume", 1, brindle_dial::Icon::Volume)});
 *         dial.select(1);
 *
 *         const brindle_dial::Settings settings = session.settings(L"Example Paint");
 *         const std::wstring brush = settings.text(L"Example Paint/brush").value_or(L"round");
 *         settings.set_text(L"Example Paint/brush", brush);
 *
 *         MSG message;
 *         while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
 *     }
 *
 *
 * Conventions
 * -----------
 *
 * Order      Create one Session in a process. Dials and settings come from it and must not be used after it.
 *
 * Threads    Create and destroy the Session on one thread, which owns the windows, handles their messages and
 *            makes all other calls. Callbacks run on the thread that raises the dial's events. On the
 *            Session's thread a callback may make every call except those that create or destroy a Session;
 * on another thread it may make none except play_haptics. brindle.h says what may run concurrently.
 *
 * Results    Each function names the function of brindle.h that it calls; the result means what brindle.h
 * says. Without the library, and after StartResult::NoRuntime, it is false, absent or kNotAvailable.
 *
 * Texts      UTF-16, copied or borrowed for the call; a text ends at its first NUL. A returned text is yours.
 *
 * Errors     Nothing is thrown here but by the standard library, when memory runs out. The exceptions of
 *            brindle.h pass through a host of the DLL's own compiler; others should treat them as fatal. A
 *            callback that throws ends the program, with std::terminate. The header also compiles without
 *            exceptions and without run-time type information.
 *
 * Ownership  The Session owns the callbacks, from listen to its end. It holds those of a displaced listener
 *            until the process ends, but does not call them.
 *
 * Names      All are in the namespace brindle_dial, beside those of brindle.h. There are no macros.
 *
 * Since      0.1, all names.
 */
#ifndef BRINDLE_HPP
#define BRINDLE_HPP

#include <brindle.h>

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>
#ifndef _WIN32
#include <dlfcn.h>
#include <unistd.h>
#endif

namespace brindle_dial {

/* A text in UTF-16: std::wstring on Windows. */
using Text = std::basic_string<BrindleChar>;

/* The path of a file: UTF-16 on Windows, bytes in the native test build. */
#ifdef _WIN32
using Path = std::wstring;
#else
using Path = std::string;
#endif

/* ---------------------------------------------------------------------------------------------------------
 * The library
 * ------------------------------------------------------------------------------------------------------ */

/* What initialize returned. */
enum class StartResult : std::int32_t {
    /* The library is ready. */
    Ready = 0,
    /* The Windows Runtime cannot be initialised, for instance because the thread is already in a
     * multithreaded apartment. */
    NoRuntime = 1,
    /* This Windows is too old, or the check failed: expect the other functions to fail. */
    SystemTooOld = 2,
    /* The library is not loaded. */
    NoLibrary = 3,
};

/* The code of a setter without the library: ERROR_MOD_NOT_FOUND as an HRESULT. */
inline constexpr std::int32_t kNotAvailable = static_cast<std::int32_t>(0x8007007E);

/* The functions of brindle.h. The default is a library that is missing. */
struct Library {
    decltype(&::initialize) initialize = [] { return static_cast<std::int32_t>(StartResult::NoLibrary); };
    decltype(&::uninit) uninit = [] {};
    decltype(&::init_dial_listener) init_dial_listener = [](IDialHost*) { return false; };
    decltype(&::add_custom_menu) add_custom_menu = [](std::uint64_t, const MenuItemDescription*,
                                                      std::uint32_t) { return false; };
    decltype(&::set_default_menu) set_default_menu = [](std::uint64_t, const std::int32_t*, std::uint32_t) {
        return false;
    };
    decltype(&::set_current_custom_menu) set_current_custom_menu = [](std::uint64_t, std::uint32_t) {
        return false;
    };
    decltype(&::is_dial_present) is_dial_present = [](std::uint64_t) { return false; };
    decltype(&::set_string_in_storage) set_string_in_storage =
        [](const BrindleChar*, const BrindleChar*, const BrindleChar*) { return kNotAvailable; };
    decltype(&::get_string_from_storage) get_string_from_storage =
        [](const BrindleChar*, const BrindleChar*) -> BrindleChar* { return nullptr; };
    decltype(&::set_int_in_storage) set_int_in_storage = [](const BrindleChar*, const BrindleChar*,
                                                            std::int32_t) { return kNotAvailable; };
    decltype(&::get_int_from_storage) get_int_from_storage = [](const BrindleChar*, const BrindleChar*) {
        return INT32_MIN;
    };
};

/* The library that the program is linked to. A program that calls this function needs the import library, and
 * does not start without brindle.dll. */
inline Library linked_library() {
    return {&::initialize,
            &::uninit,
            &::init_dial_listener,
            &::add_custom_menu,
            &::set_default_menu,
            &::set_current_custom_menu,
            &::is_dial_present,
            &::set_string_in_storage,
            &::get_string_from_storage,
            &::set_int_in_storage,
            &::get_int_from_storage};
}

namespace detail {

#ifdef _WIN32

extern "C" {

/* The declarations of windows.h. */
__declspec(dllimport) unsigned long GetModuleFileNameW(BrindleModule module, wchar_t* path,
                                                       unsigned long size);
__declspec(dllimport) BrindleModule LoadLibraryExW(const wchar_t* path, void* reserved, unsigned long flags);
__declspec(dllimport) long long (*GetProcAddress(BrindleModule module, const char* name))();

}  // extern "C"

using Module = BrindleModule;

inline bool is_absolute(const Path& path) { return path.find(L":\\") == 1 || path.find(L"\\\\") == 0; }

inline Path library_beside_program() {
    Path path(260, L'\0');
    for (;;) {
        const auto size = static_cast<unsigned long>(path.size());
        const unsigned long length = GetModuleFileNameW(nullptr, path.data(), size);
        if (length < size) {
            path.resize(length);
            return path.substr(0, path.find_last_of(L'\\') + 1) + L"brindle.dll";
        }
        path.resize(2 * path.size());
    }
}

/* Libraries that the DLL imports come from the system's folder only. */
inline Module open(const Path& path) {
    constexpr unsigned long kSearchSystem32 = 0x800;
    return LoadLibraryExW(path.c_str(), nullptr, kSearchSystem32);
}

template <class Function>
bool find(Module module, const char* name, Function& function) {
    using AnyFunction = void (*)();
    function = reinterpret_cast<Function>(reinterpret_cast<AnyFunction>(GetProcAddress(module, name)));
    return function != nullptr;
}

#else

using Module = void*;

inline bool is_absolute(const Path& path) { return path.find('/') == 0; }

inline Path library_beside_program() {
    Path path(256, '\0');
    for (;;) {
        const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
        if (length < static_cast<ssize_t>(path.size())) {
            path.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
            return path.substr(0, path.find_last_of('/') + 1) + "libbrindle.so";
        }
        path.resize(2 * path.size());
    }
}

inline Module open(const Path& path) { return ::dlopen(path.c_str(), RTLD_NOW); }

template <class Function>
bool find(Module module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(module, name));
    return function != nullptr;
}

#endif

}  // namespace detail

/*
 * Loads the library of this path. It stays loaded until the process ends, because events may still run in it.
 *
 *   Parameters
 *     path     absolute, on Windows with backslashes. The current folder is never searched: a relative path
 * is a missing library
 *
 *   Returns
 *     the functions, or those of a missing library: when the file does not exist, cannot be loaded or lacks
 * one of the functions
 */
inline Library loaded_library(const Path& path) {
    const detail::Module module = detail::is_absolute(path) ? detail::open(path) : nullptr;
    Library library;
    const bool found = module != nullptr && detail::find(module, "initialize", library.initialize) &&
                       detail::find(module, "uninit", library.uninit) &&
                       detail::find(module, "init_dial_listener", library.init_dial_listener) &&
                       detail::find(module, "add_custom_menu", library.add_custom_menu) &&
                       detail::find(module, "set_default_menu", library.set_default_menu) &&
                       detail::find(module, "set_current_custom_menu", library.set_current_custom_menu) &&
                       detail::find(module, "is_dial_present", library.is_dial_present) &&
                       detail::find(module, "set_string_in_storage", library.set_string_in_storage) &&
                       detail::find(module, "get_string_from_storage", library.get_string_from_storage) &&
                       detail::find(module, "set_int_in_storage", library.set_int_in_storage) &&
                       detail::find(module, "get_int_from_storage", library.get_int_from_storage);
    return found ? library : Library{};
}

/* Loads brindle.dll (natively libbrindle.so) of the program's folder. */
inline Library loaded_library() { return loaded_library(detail::library_beside_program()); }

/* ---------------------------------------------------------------------------------------------------------
 * Events
 * ------------------------------------------------------------------------------------------------------ */

/* Called for each turn; the record is valid during the call. */
using OnTurn = std::function<void(const DialRotationInfo&)>;
/* Called for each click with the place of the dial on the screen; it is valid during the call. */
using OnClick = std::function<void(const DialContactRect&)>;

/* Requests the dial's haptic feedback for the turn of this callback. */
inline void play_haptics(const DialRotationInfo& turn) {
    static constexpr std::uint32_t kPlay = 1;
    turn.hapticRequest = &kPlay;
}

namespace detail {

/* The host object of a window. Muted when another listener has displaced its own, which still calls it. */
class Host final : public IDialHost {
public:
    Host(std::uint64_t window, OnTurn on_turn, OnClick on_click)
        : window_(window), on_turn_(std::move(on_turn)), on_click_(std::move(on_click)) {}

    std::uint64_t GetWindowHandle() noexcept override { return window_; }
    void OnRotation(void*, const DialRotationInfo* info) noexcept override {
        if (on_turn_ && !muted_) {
            on_turn_(*info);
        }
    }
    void OnButtonClicked(void*, const DialContactRect* rect) noexcept override {
        if (on_click_ && !muted_) {
            on_click_(*rect);
        }
    }
    void mute() { muted_ = true; }

private:
    const std::uint64_t window_;
    const OnTurn on_turn_;
    const OnClick on_click_;
    bool muted_ = false;
};

}  // namespace detail

/* ---------------------------------------------------------------------------------------------------------
 * The menu
 * ------------------------------------------------------------------------------------------------------ */

/* The platform's icons for menu items. */
enum class Icon : std::int32_t {
    Scroll = 0,
    Zoom = 1,
    UndoRedo = 2,
    Volume = 3,
    NextPreviousTrack = 4,
    Ruler = 5,
    InkColor = 6,
    InkThickness = 7,
    PenType = 8,
};

/* The system's own entries of the menu. */
enum class SystemItem : std::int32_t {
    Scroll = 0,
    Zoom = 1,
    UndoRedo = 2,
    Volume = 3,
    NextPreviousTrack = 4
};

/* The dial's automatic haptic feedback while an item is chosen. */
enum class HapticFeedback : std::uint8_t { Off = 0, On = 1 };

/* A menu item, which owns its texts. The functions below create it; an item_id of 0 is indistinguishable from
 * no selection. */
struct MenuItem {
    MenuItemKind kind;
    Text label;
    std::uint32_t item_id;
    HapticFeedback haptic_feedback;
    /* The sources of brindle.h: the texts, or for a PNG resource module and number, for an icon number. */
    Text text, text2, text3;
    const void* module;
    std::uint64_t number;

    /* Borrows the item's texts. */
    MenuItemDescription description() const {
        MenuItemDescription record = {};
        record.kind = kind;
        record.display_text = label.c_str();
        record.item_id = item_id;
        record.haptic_feedback = static_cast<std::uint8_t>(haptic_feedback);
        if (kind == MenuItemKind::KnownIcon) {
            record.source.number = number;
        } else if (kind == MenuItemKind::ResourcePNG) {
            record.source.module = module;
            record.source2.number = number;
        } else {
            record.source.text = text.c_str();
            record.source2.text = text2.c_str();
            record.source3.text = text3.c_str();
        }
        return record;
    }
};

/* An item with an icon of the platform. */
inline MenuItem known_icon(Text label, std::uint32_t item_id, Icon icon,
                           HapticFeedback haptic_feedback = HapticFeedback::Off) {
    return {MenuItemKind::KnownIcon,         std::move(label), item_id, haptic_feedback, {}, {}, {}, nullptr,
            static_cast<std::uint64_t>(icon)};
}

/* An item with a glyph of an installed font. */
inline MenuItem system_font_glyph(Text label, std::uint32_t item_id, Text glyph, Text family,
                                  HapticFeedback haptic_feedback = HapticFeedback::Off) {
    return {MenuItemKind::SystemFont,
            std::move(label),
            item_id,
            haptic_feedback,
            std::move(glyph),
            std::move(family),
            {},
            nullptr,
            0};
}

/* An item with a glyph of a font file. The path is absolute. */
inline MenuItem font_file_glyph(Text label, std::uint32_t item_id, Text glyph, Text family, Text path,
                                HapticFeedback haptic_feedback = HapticFeedback::Off) {
    return {MenuItemKind::CustomFont, std::move(label), item_id,
            haptic_feedback,          std::move(glyph), std::move(family),
            std::move(path),          nullptr,          0};
}

/* An item with a "PNG" resource of a module (an HMODULE). */
inline MenuItem png_resource(Text label, std::uint32_t item_id, const void* module, std::uint16_t resource,
                             HapticFeedback haptic_feedback = HapticFeedback::Off) {
    return {
        MenuItemKind::ResourcePNG, std::move(label), item_id, haptic_feedback, {}, {}, {}, module, resource};
}

/* An item with a picture file. The path is absolute. The item is added when the platform has opened the file;
 * use at most one, as the last item, where that happens on another thread. Its automatic haptic feedback is
 * off. */
inline MenuItem png_file(Text label, std::uint32_t item_id, Text path) {
    return {MenuItemKind::FilePNG,
            std::move(label),
            item_id,
            HapticFeedback::Off,
            std::move(path),
            {},
            {},
            nullptr,
            0};
}

/* ---------------------------------------------------------------------------------------------------------
 * The dial of a window
 * ------------------------------------------------------------------------------------------------------ */

/* The dial of a window, from Session::listen. A copy stands for the same dial. */
class Dial {
public:
    /* Whether the callbacks are registered: the result of init_dial_listener. */
    bool is_listening() const { return listening_; }

    /* Replaces the custom items of the menu (add_custom_menu). No items clear it. */
    bool set_menu(const std::vector<MenuItem>& items) const {
        std::vector<MenuItemDescription> records;
        records.reserve(items.size());
        for (const MenuItem& item : items) {
            records.push_back(item.description());
        }
        return library_->add_custom_menu(window_, records.data(), static_cast<std::uint32_t>(records.size()));
    }

    /* Sets which of the system's entries remain in the menu, in this order (set_default_menu). */
    bool set_system_items(const std::vector<SystemItem>& items) const {
        std::vector<std::int32_t> kinds;
        kinds.reserve(items.size());
        for (const SystemItem item : items) {
            kinds.push_back(static_cast<std::int32_t>(item));
        }
        const std::int32_t none = 0;  // the library refuses a null list
        return library_->set_default_menu(window_, kinds.empty() ? &none : kinds.data(),
                                          static_cast<std::uint32_t>(kinds.size()));
    }

    /* Selects the first custom item with this item_id (set_current_custom_menu). */
    bool select(std::uint32_t item_id) const { return library_->set_current_custom_menu(window_, item_id); }

    /* Whether the dial is present (is_dial_present): blocks, usually for a few milliseconds. */
    bool is_present() const { return library_->is_dial_present(window_); }

private:
    friend class Session;
    Dial(const Library* library, std::uint64_t window, bool listening)
        : library_(library), window_(window), listening_(listening) {}

    const Library* library_;
    std::uint64_t window_;
    bool listening_;
};

/* ---------------------------------------------------------------------------------------------------------
 * Settings
 * ------------------------------------------------------------------------------------------------------ */

/* The settings under one resource, from Session::settings. brindle.h says which stores have them: a program
 * without package identity stores texts only. */
class Settings {
public:
    /* The text of the key; absent when no store has one (get_string_from_storage). */
    std::optional<Text> text(const Text& key) const {
        const std::unique_ptr<BrindleChar, decltype(&brindle_free)> found(
            library_->get_string_from_storage(resource_.c_str(), key.c_str()), &brindle_free);
        return found ? std::optional<Text>(found.get()) : std::nullopt;
    }

    /* The number of the key, which may be stored as a text; absent when no store has one
     * (get_int_from_storage). */
    std::optional<std::int32_t> number(const Text& key) const {
        const std::int32_t found = library_->get_int_from_storage(resource_.c_str(), key.c_str());
        return found == INT32_MIN ? std::nullopt : std::optional<std::int32_t>(found);
    }

    /* Stores a text (set_string_in_storage). Returns 0, also when no store took it, or a negative HRESULT. */
    std::int32_t set_text(const Text& key, const Text& value) const {
        return library_->set_string_in_storage(resource_.c_str(), key.c_str(), value.c_str());
    }

    /* Stores a number (set_int_in_storage); INT32_MIN reads as absent. Returns as set_text. */
    std::int32_t set_number(const Text& key, std::int32_t value) const {
        return library_->set_int_in_storage(resource_.c_str(), key.c_str(), value);
    }

private:
    friend class Session;
    Settings(const Library* library, Text resource) : library_(library), resource_(std::move(resource)) {}

    const Library* library_;
    Text resource_;
};

/* ---------------------------------------------------------------------------------------------------------
 * The session
 * ------------------------------------------------------------------------------------------------------ */

/* Starts the library and stops it at the end. */
class Session {
public:
    /* Calls initialize. */
    explicit Session(const Library& library)
        : library_(library), start_result_(static_cast<StartResult>(library.initialize())) {
        if (start_result_ == StartResult::NoRuntime) {
            library_ = Library{};  // nothing more may be called, uninit included
        }
    }
    /* Calls uninit, unless initialize returned 1. No event may be running on another thread, and no picture
     * file may be loading. */
    ~Session() { library_.uninit(); }

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    StartResult start_result() const { return start_result_; }

    /*
     * Registers callbacks for the dial's events of a window (init_dial_listener).
     *
     *   Parameters
     *     window     the window's handle
     *     on_turn    may be empty; owned by the session
     *     on_click   may be empty; owned by the session
     *
     *   Returns
     *     the window's dial. Dial::is_listening tells whether the callbacks are registered
     *
     * A second call for a window replaces its callbacks, when it succeeds.
     */
    Dial listen(std::uint64_t window, OnTurn on_turn, OnClick on_click) {
        std::list<std::unique_ptr<detail::Host>> added;
        added.push_back(std::make_unique<detail::Host>(window, std::move(on_turn), std::move(on_click)));
        const bool listening = library_.init_dial_listener(added.front().get());
        if (listening) {
            displace(window);
            hosts_.splice(hosts_.end(), added);
        }
        return {&library_, window, listening};
    }
    /* The same for an HWND. */
    Dial listen(const void* window, OnTurn on_turn, OnClick on_click) {
        return listen(reinterpret_cast<std::uint64_t>(window), std::move(on_turn), std::move(on_click));
    }

    /* The settings under this resource, such as the program's name. */
    Settings settings(Text resource) const { return {&library_, std::move(resource)}; }

private:
    /* The host of a displaced listener is leaked: the platform may call it until the process ends. */
    void displace(std::uint64_t window) {
        for (auto host = hosts_.begin(); host != hosts_.end(); ++host) {
            if ((*host)->GetWindowHandle() == window) {
                (*host)->mute();
                static_cast<void>(host->release());
                hosts_.erase(host);
                return;
            }
        }
    }

    Library library_;
    const StartResult start_result_;
    std::list<std::unique_ptr<detail::Host>> hosts_;
};

}  // namespace brindle_dial

#endif /* BRINDLE_HPP */
