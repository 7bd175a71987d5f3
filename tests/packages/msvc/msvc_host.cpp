// A host from another compiler: clang's MSVC binary interface, linked without a run-time library against
// import libraries of the two DLLs. Every value across the boundary is checked twice: by the header's member
// and by its bytes at the published offset.
#include <brindle.h>

#include "simulator/dialsim.h"

extern "C" {

// The platform's declarations; its headers are not available for this target.
__declspec(dllimport) __declspec(noreturn) void ExitProcess(unsigned status);
__declspec(dllimport) uint32_t GetModuleFileNameW(void* module, wchar_t* path, uint32_t size);
__declspec(dllimport) void* GetModuleHandleA(const char* name);
__declspec(dllimport) void* GetStdHandle(uint32_t which);
__declspec(dllimport) int WriteFile(void* file, const void* bytes, uint32_t count, uint32_t* written,
                                    void* overlapped);

// Symbols that the compiler expects of a run-time library.
extern const int _fltused = 0;
void Start();

}  // extern "C"

namespace {

constexpr uint64_t kWindow = 42;
constexpr uint32_t kStandardOutput = static_cast<uint32_t>(-11);
constexpr int32_t kFail = static_cast<int32_t>(0x80004005);

template <uint32_t Size>
void Print(const char (&text)[Size]) {
    uint32_t written = 0;
    WriteFile(GetStdHandle(kStandardOutput), text, Size - 1, &written, nullptr);
}

#define TEXT_OF(line) #line
#define LINE_TEXT(line) TEXT_OF(line)
#define CHECK(...)                                                                \
    do {                                                                          \
        if (!(__VA_ARGS__)) {                                                     \
            Print("msvc_host: line " LINE_TEXT(__LINE__) ": " #__VA_ARGS__ "\n"); \
            ExitProcess(1);                                                       \
        }                                                                         \
    } while (0)

template <class T>
T At(const void* record, uint32_t offset) {
    T value;
    __builtin_memcpy(&value, static_cast<const char*>(record) + offset, sizeof(value));
    return value;
}

// A bool is returned in one byte, 0 or 1; the rest of the register is undefined.
template <class... Parameters>
uint8_t ByteOf(bool (*function)(Parameters...), Parameters... arguments) {
    return reinterpret_cast<uint8_t (*)(Parameters...)>(function)(arguments...);
}

bool SameText(const wchar_t* left, const wchar_t* right) {
    for (; *left != 0 && *left == *right; ++left)
        ++right;
    return *left == *right;
}

bool StartsWith(const char* text, const char* start) {
    for (; *start != 0 && *text == *start; ++text)
        ++start;
    return *start == 0;
}

bool MenuShows(const char* part) {
    static char menu[4096];
    CHECK(dialsim_menu(kWindow, menu, sizeof(menu)) <= sizeof(menu));
    for (const char* text = menu; *text != 0; ++text) {
        if (StartsWith(text, part))
            return true;
    }
    return false;
}

struct Turn {
    DialContactRect contact;
    bool pressed;
    double degrees;
    double acceleration;
    uint32_t tag;
};

class Host final : public IDialHost {
public:
    void OnRotation(void* sender, const DialRotationInfo* info) override {
        CHECK(sender != nullptr);
        CHECK(info->contact.left == expected.contact.left && At<int32_t>(info, 0) == expected.contact.left);
        CHECK(info->contact.top == expected.contact.top && At<int32_t>(info, 4) == expected.contact.top);
        CHECK(info->contact.right == expected.contact.right &&
              At<int32_t>(info, 8) == expected.contact.right);
        CHECK(info->contact.bottom == expected.contact.bottom &&
              At<int32_t>(info, 12) == expected.contact.bottom);
        CHECK(info->buttonPressed == expected.pressed && At<uint8_t>(info, 16) == (expected.pressed ? 1 : 0));
        CHECK(info->deltaDegrees == expected.degrees && At<double>(info, 24) == expected.degrees);
        CHECK(info->acceleration == expected.acceleration && At<double>(info, 32) == expected.acceleration);
        CHECK(info->selectedItemTag == expected.tag && At<uint32_t>(info, 40) == expected.tag);
        CHECK(info->hapticRequest == nullptr && At<const uint32_t*>(info, 48) == nullptr);
        info->hapticRequest = answer;
        CHECK(At<const uint32_t*>(info, 48) == answer);
        ++turns;
    }

    uint64_t GetWindowHandle() override { return kWindow; }

    void OnButtonClicked(void* sender, const DialContactRect* rect) override {
        CHECK(sender != nullptr);
        CHECK(rect->left == expected.contact.left && At<int32_t>(rect, 0) == expected.contact.left);
        CHECK(rect->top == expected.contact.top && At<int32_t>(rect, 4) == expected.contact.top);
        CHECK(rect->right == expected.contact.right && At<int32_t>(rect, 8) == expected.contact.right);
        CHECK(rect->bottom == expected.contact.bottom && At<int32_t>(rect, 12) == expected.contact.bottom);
        ++clicks;
    }

    Turn expected{{0, 0, 0, 0}, false, 0.0, 1.0, 0};
    const uint32_t* answer = nullptr;
    int turns = 0;
    int clicks = 0;
};

void CheckBytes(const MenuItemDescription& item) {
    CHECK(At<MenuItemKind>(&item, 0) == item.kind);
    CHECK(At<const wchar_t*>(&item, 8) == item.display_text);
    CHECK(At<uint32_t>(&item, 16) == item.item_id);
    CHECK(At<uint8_t>(&item, 20) == item.haptic_feedback);
    CHECK(At<uint64_t>(&item, 24) == item.source.number);
    CHECK(At<uint64_t>(&item, 32) == item.source2.number);
    CHECK(At<uint64_t>(&item, 40) == item.source3.number);
}

using Path = wchar_t[1024];

void GetProgramPath(Path& path) {
    const uint32_t units = sizeof(path) / sizeof(*path);
    const uint32_t length = GetModuleFileNameW(nullptr, path, units);
    CHECK(length > 0 && length < units);
}

// The path of a file in the program's folder.
template <uint32_t Size>
void GetPathBesideProgram(const wchar_t (&name)[Size], Path& path) {
    GetProgramPath(path);
    wchar_t* place = path;
    for (wchar_t* unit = path; *unit != 0; ++unit)
        place = *unit == L'\\' ? unit + 1 : place;
    CHECK(place + Size <= path + sizeof(path) / sizeof(*path));
    __builtin_memcpy(place, name, sizeof(name));
}

// The menu's text shows the kinds' numbers, the position of every source and the tags.
void FillTheMenu() {
    static Path program;
    static Path picture;
    GetProgramPath(program);
    GetPathBesideProgram(L"brush.png", picture);
    const void* const module = GetModuleHandleA(nullptr);
    const MenuItemDescription items[] = {
        {MenuItemKind::KnownIcon, L"Louder", 7, 0, {.number = 3}, {}, {}},
        {MenuItemKind::SystemFont, L"Glyph", 0xA1B2C3D4, 1, {.text = L"A"}, {.text = L"Symbols"}, {}},
        // The font file's content does not matter: only its name is used.
        {MenuItemKind::CustomFont, L"Own", 9, 1, {.text = L"B"}, {.text = L"Signs"}, {.text = program}},
        {MenuItemKind::ResourcePNG, L"Resource", 10, 0, {.module = module}, {.number = 101}, {}},
        {MenuItemKind::FilePNG, L"File", 11, 0, {.text = picture}, {}, {}},
    };
    for (const MenuItemDescription& item : items)
        CheckBytes(item);
    CHECK(ByteOf(add_custom_menu, kWindow, items, 5U) == 1);
    dialsim_wait_for_async();
    CHECK(MenuShows("\"Louder\" known icon Volume, tag 7\n"));
    CHECK(MenuShows("\"Glyph\" glyph A of Symbols, tag 2712847316\n"));
    CHECK(MenuShows("\"Own\" glyph B of font file file:///"));
    CHECK(MenuShows(", tag 9\n"));
    CHECK(MenuShows("\"Resource\" PNG image 2x3, tag 10\n"));
    CHECK(MenuShows("\"File\" PNG file 48x48, tag 11\n"));

    const int32_t kinds[] = {3, 0};
    CHECK(ByteOf(set_default_menu, kWindow, kinds, 2U) == 1);
    CHECK(MenuShows("system items: Volume, Scroll\n"));
    CHECK(ByteOf(set_current_custom_menu, kWindow, 10U) == 1);
    CHECK(ByteOf(set_current_custom_menu, kWindow, 12U) == 0);
    CHECK(dialsim_choose(kWindow, 0) == 0 && MenuShows("automatic haptics: off\n"));
    CHECK(dialsim_choose(kWindow, 1) == 0 && MenuShows("automatic haptics: on\n"));
}

void TurnTheDial(Host& host) {
    static const uint32_t kBuzz = 1;
    CHECK(dialsim_turn(kWindow, 0.0) == 0);

    // After a pause the sum of the degrees restarts, and sqrt(46 - 10) is 6.
    dialsim_wait(150);
    dialsim_hold(true);
    CHECK(dialsim_touch(kWindow, 10.5F, 20.5F, 30.5F, 40.5F) == 0);
    host.expected = {{10, 20, 41, 61}, true, -46.0, 6.0 / 2.07 + 1.0, 0};
    CHECK(dialsim_turn(kWindow, -46.0) == 0);

    host.expected = {{10, 20, 40, 60}, true, 0.0, 0.0, 0};
    CHECK(dialsim_click(kWindow) == 0);

    CHECK(dialsim_lift(kWindow) == 0);
    dialsim_hold(false);
    FillTheMenu();
    dialsim_wait(150);
    host.expected = {{0, 0, 0, 0}, false, 2.5, 1.0, 0xA1B2C3D4};
    host.answer = &kBuzz;
    CHECK(dialsim_turn(kWindow, 2.5) == 0);
    CHECK(dialsim_calls("ISimpleHapticsController::SendHapticFeedbackForPlayCount") == 1);
    CHECK(host.turns == 3 && host.clicks == 1);
}

// Exceptions unwind inside the library and stay there, or pass through this program to the platform.
void InjectFaults(Host& host) {
    CHECK(dialsim_fail("IRadialControllerMenu::get_Items", kFail, 1, 3));
    CHECK(ByteOf(add_custom_menu, kWindow, static_cast<const MenuItemDescription*>(nullptr), 0U) == 0);
    CHECK(ByteOf(init_dial_listener, static_cast<IDialHost*>(nullptr)) == 0);
    CHECK(dialsim_fail("IRadialControllerRotationChangedEventArgs2::get_IsButtonPressed", kFail, 1, 1));
    CHECK(dialsim_turn(kWindow, 2.5) == DIALSIM_RAISED);
    CHECK(host.turns == 3);
}

void QueryPresence() {
    CHECK(ByteOf(is_dial_present, kWindow) == 1);
    dialsim_remove_devices();
    CHECK(ByteOf(is_dial_present, kWindow) == 0);
}

void CheckAndFree(wchar_t* text) {
    CHECK(text != nullptr && SameText(text, L"Palette \x00E9"));
    brindle_free(text);
}

void WriteSettings() {
    dialsim_set_stores(DIALSIM_MEMORY);
    CHECK(dialsim_clear_stores());
    dialsim_set_packaged(true);
    CHECK(set_string_in_storage(L"msvc_host", L"brush", L"Palette \x00E9") == 0);
    CHECK(set_int_in_storage(L"msvc_host", L"size", -7) == 0);
    CheckAndFree(get_string_from_storage(L"msvc_host", L"brush"));
    CHECK(get_int_from_storage(L"msvc_host", L"size") == -7);
    CHECK(get_string_from_storage(L"msvc_host", L"none") == nullptr);
    CHECK(get_int_from_storage(L"msvc_host", L"none") == INT32_MIN);

    dialsim_set_packaged(false);
    CheckAndFree(get_string_from_storage(L"msvc_host", L"brush"));
    CHECK(dialsim_clear_stores());
}

}  // namespace

void Start() {
    Host host;
    CHECK(dialsim_start());
    // Otherwise the host would use the system's dial and the user's own vault.
    uninit();  // harmless before initialize
    CHECK(dialsim_calls("RoUninitialize") == 1);
    CHECK(initialize() == 0);
    CHECK(ByteOf(init_dial_listener, static_cast<IDialHost*>(&host)) == 1);
    TurnTheDial(host);
    InjectFaults(host);
    QueryPresence();
    WriteSettings();
    uninit();
    CHECK(dialsim_turn(kWindow, 1.0) == DIALSIM_NO_CONTROLLER);
    Print("msvc_host: every record is where it was published to be\n");
    ExitProcess(0);
}
