// A small paint program for mouse and dial: the mouse paints, and the dial changes the tool that is selected
// in its menu (the brush's size, hue, opacity or petals) or undoes strokes. A click of the dial shows or
// hides a grid.
//
// The file has, in this order: the tools and their settings; the host object, which sends the dial's events
// to the window as messages; the menu; the window, which uses no other part of the dial; and WinMain.
#include <brindle.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <string>

#include "drawing.h"
#include "painting.h"

namespace {

// --- tools

// The identifiers of the menu's items; a turn reports 0 when none of them is selected.
enum Tool : uint32_t { kSize = 1, kHue, kOpacity, kPetals, kUndo };

struct Scale {
    const wchar_t* name;
    const wchar_t* unit;
    int least;
    int most;
    int start;
    double per_degree;
};

// Indexed by tool; undo has no scale.
constexpr Scale kScales[] = {{},
                             {L"Size", L" px", 1, 120, 18, 0.4},
                             {L"Hue", L"\u00B0", 0, 359, 210, 1.0},
                             {L"Opacity", L" %", 5, 100, 80, 0.5},
                             {L"Petals", L"", 1, 24, 1, 0.05},
                             {L"Undo", L" strokes", 0, 0, 0, 0.05}};

// --- settings

constexpr wchar_t kResource[] = L"Brindle canvas";

// The vault stores a key for one resource only: these keys contain the program's name.
std::wstring KeyOf(const std::wstring& setting) { return std::wstring(kResource) + L'/' + setting; }

// Numbers are stored as texts: a program without package identity can store nothing else.
void SaveSetting(const std::wstring& setting, const std::wstring& value) {
    set_string_in_storage(kResource, KeyOf(setting).c_str(), value.c_str());
}

int LoadSetting(const std::wstring& setting, int least, int most, int otherwise) {
    const int32_t value = get_int_from_storage(kResource, KeyOf(setting).c_str());
    return value < least || value > most ? otherwise : value;
}

uint32_t LoadTool() {
    wchar_t* name = get_string_from_storage(kResource, KeyOf(L"Tool").c_str());
    const auto* scale = std::find_if(std::begin(kScales) + kSize, std::end(kScales), [&](const Scale& one) {
        return name != nullptr && std::wstring(one.name) == name;
    });
    brindle_free(name);
    return scale == std::end(kScales) ? kSize : static_cast<uint32_t>(scale - kScales);
}

// --- the host object

constexpr UINT kDialTurned = WM_APP;  // WPARAM: the selected tool; LPARAM: hundredths of a degree
constexpr UINT kDialClicked = WM_APP + 1;

// Callbacks run on any thread: they only post messages to the window.
class DialHost final : public IDialHost {
public:
    explicit DialHost(HWND window) : window_(window) {}

    uint64_t GetWindowHandle() override { return reinterpret_cast<uint64_t>(window_); }

    void OnRotation(void* /*sender*/, const DialRotationInfo* turn) override {
        const double before = angle_;
        angle_ += turn->deltaDegrees;
        if (std::floor(before / kDetent) != std::floor(angle_ / kDetent)) {
            turn->hapticRequest = &kBuzz;
        }
        PostMessageW(window_, kDialTurned, turn->selectedItemTag,
                     std::lround(turn->deltaDegrees * turn->acceleration * 100));
    }

    void OnButtonClicked(void* /*sender*/, const DialContactRect* /*rect*/) override {
        PostMessageW(window_, kDialClicked, 0, 0);
    }

private:
    static constexpr double kDetent = 90;  // degrees
    static constexpr uint32_t kBuzz = 1;

    const HWND window_;
    double angle_ = 0;
};

// --- the menu

std::wstring InProgramFolder(const wchar_t* file) {
    wchar_t path[MAX_PATH];
    const std::wstring program(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
    return program.substr(0, program.find_last_of(L'\\') + 1) + file;
}

// An item of each kind, and the system's volume entry. The picture file is the last record: its item is added
// after the call.
bool FillMenu(HWND window) {
    const std::wstring picture = InProgramFolder(L"opacity.png");
    const std::wstring font = InProgramFolder(L"DejaVuSans.ttf");
    const MenuItemDescription items[] = {
        {MenuItemKind::SystemFont, L"Size", kSize, 1, {L"\u25CF"}, {L"Segoe UI Symbol"}, {}},
        {MenuItemKind::ResourcePNG,
         L"Hue",
         kHue,
         1,
         {.module = GetModuleHandleW(nullptr)},
         {.number = 101},
         {}},
        {MenuItemKind::CustomFont, L"Petals", kPetals, 1, {L"\u273F"}, {L"DejaVu Sans"}, {font.c_str()}},
        {MenuItemKind::KnownIcon, L"Undo", kUndo, 1, {.number = 2}, {}, {}},
        {MenuItemKind::FilePNG, L"Opacity", kOpacity, 0, {picture.c_str()}, {}, {}},
    };
    const int32_t system_items[] = {3};
    const auto handle = reinterpret_cast<uint64_t>(window);
    return add_custom_menu(handle, items, static_cast<uint32_t>(std::size(items))) &&
           set_default_menu(handle, system_items, 1);
}

// --- the window

constexpr int kPaperWidth = 720;
constexpr int kPaperHeight = 480;
constexpr int kMargin = 20;
constexpr int kBarHeight = 60;
constexpr int kCellWidth = 104;
constexpr int kGridStep = 40;
constexpr UINT_PTR kSelectionTimer = 1;

constexpr COLORREF kDesk = RGB(228, 231, 236);
constexpr COLORREF kBar = RGB(255, 255, 255);
constexpr COLORREF kGrid = RGB(205, 213, 224);
constexpr COLORREF kAccent = RGB(31, 111, 235);
constexpr COLORREF kText = RGB(28, 33, 40);
constexpr COLORREF kFaint = RGB(110, 118, 129);
constexpr Color kPaper = 0xFFFFFF;
constexpr Color kPresent = 0x2DA44E;
constexpr Color kAbsent = 0xB0B8C1;

class Canvas {
public:
    explicit Canvas(HWND window) : window_(window) {
        for (uint32_t tool = kSize; tool <= kPetals; ++tool) {
            const Scale& scale = kScales[tool];
            values_[tool] = LoadSetting(scale.name, scale.least, scale.most, scale.start);
        }
        tool_ = LoadTool();
        CheckForDial();
        SetTimer(window_, kSelectionTimer, 50, nullptr);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        DeleteObject(label_font_);
        DeleteObject(value_font_);
    }

    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
        switch (message) {
            case kDialTurned:
                OnTurn(static_cast<uint32_t>(wparam), static_cast<double>(lparam) / 100);
                return 0;
            case kDialClicked:
                grid_ = !grid_;
                Redraw();
                return 0;
            case WM_DEVICECHANGE:
                CheckForDial();
                return TRUE;
            case WM_TIMER:
                SelectTool();
                return 0;
            case WM_LBUTTONDOWN:
                SetCapture(window_);
                painting_.Begin(OurBrush(), OnPaper(lparam));
                Redraw();
                return 0;
            case WM_MOUSEMOVE:
                // The pointer itself may move while a script paints, without the button.
                if ((wparam & MK_LBUTTON) != 0 && painting_.InStroke()) {
                    painting_.LineTo(OnPaper(lparam));
                    Redraw();
                }
                return 0;
            case WM_LBUTTONUP:
                ReleaseCapture();
                return 0;
            case WM_CAPTURECHANGED:
                painting_.End();
                Redraw();
                return 0;
            case WM_ERASEBKGND:
                return 1;  // WM_PAINT paints the whole client area
            case WM_PAINT:
                PaintWindow(window_, [this](HDC context, const RECT& client) { DrawAll(context, client); });
                return 0;
            case WM_DESTROY:
                SaveSettings();
                PostQuitMessage(0);
                return 0;
            default:
                return DefWindowProcW(window_, message, wparam, lparam);
        }
    }

private:
    void Redraw() { InvalidateRect(window_, nullptr, FALSE); }

    void OnTurn(uint32_t selected, double degrees) {
        if (selected < kSize || selected > kUndo) {
            return;  // a system entry is selected
        }
        KillTimer(window_, kSelectionTimer);
        tool_ = selected;
        const Scale& scale = kScales[tool_];
        if (tool_ == kUndo) {
            StepThroughHistory(degrees * scale.per_degree);
        } else {
            const double value = values_[tool_] + degrees * scale.per_degree;
            const double circle = scale.most + 1;
            values_[tool_] = tool_ == kHue ? value - circle * std::floor(value / circle)
                                           : std::clamp<double>(value, scale.least, scale.most);
        }
        Redraw();
    }

    // A turn to the left undoes strokes, a turn to the right redoes them.
    void StepThroughHistory(double strokes) {
        undoing_ += strokes;
        for (; undoing_ <= -1; undoing_ += 1) {
            painting_.Undo();
        }
        for (; undoing_ >= 1; undoing_ -= 1) {
            painting_.Redo();
        }
    }

    // Selects the tool of the last run in the menu. The item of a picture file can be selected when it has
    // been added, which may be never: the user's first turn ends the attempts.
    void SelectTool() {
        if (set_current_custom_menu(reinterpret_cast<uint64_t>(window_), tool_)) {
            KillTimer(window_, kSelectionTimer);
        }
    }

    void CheckForDial() {
        dial_present_ = is_dial_present(reinterpret_cast<uint64_t>(window_));
        Redraw();
    }

    void SaveSettings() const {
        for (uint32_t tool = kSize; tool <= kPetals; ++tool) {
            SaveSetting(kScales[tool].name, std::to_wstring(Value(tool)));
        }
        SaveSetting(L"Tool", kScales[tool_].name);
    }

    int Value(uint32_t tool) const {
        return tool == kUndo ? static_cast<int>(painting_.Strokes()) : static_cast<int>(values_[tool]);
    }

    Brush OurBrush() const {
        return {FromHsv(Value(kHue), 0.85, 0.92), static_cast<double>(Value(kSize)), Value(kOpacity) / 100.0,
                Value(kPetals)};
    }

    // The paper is in the middle of the area that the bar leaves.
    POINT PaperCorner() const {
        RECT client;
        GetClientRect(window_, &client);
        return {(client.right - kPaperWidth) / 2, (client.bottom - kBarHeight - kPaperHeight) / 2};
    }

    Point OnPaper(LPARAM place) const {
        const POINT corner = PaperCorner();
        const POINTS mouse = MAKEPOINTS(place);
        return {static_cast<double>(mouse.x - corner.x), static_cast<double>(mouse.y - corner.y)};
    }

    void DrawAll(HDC context, const RECT& client) const {
        Fill(context, client, kDesk);
        DrawPaper(context);
        const RECT bar{0, client.bottom - kBarHeight, client.right, client.bottom};
        Fill(context, bar, kBar);
        ShowDot(context, OurBrush(), kBarHeight, kMargin, bar.top);
        for (uint32_t tool = kSize; tool <= kUndo; ++tool) {
            DrawCell(context, tool, kMargin + kBarHeight + static_cast<int>(tool - kSize) * kCellWidth,
                     bar.top);
        }
        DrawPresence(context, bar);
    }

    void DrawPaper(HDC context) const {
        const POINT corner = PaperCorner();
        Show(context, painting_, corner.x, corner.y);
        for (int x = kGridStep; grid_ && x < kPaperWidth; x += kGridStep) {
            Fill(context, {corner.x + x, corner.y, corner.x + x + 1, corner.y + kPaperHeight}, kGrid);
        }
        for (int y = kGridStep; grid_ && y < kPaperHeight; y += kGridStep) {
            Fill(context, {corner.x, corner.y + y, corner.x + kPaperWidth, corner.y + y + 1}, kGrid);
        }
    }

    void DrawCell(HDC context, uint32_t tool, int left, int top) const {
        const bool current = tool == tool_;
        if (current) {
            Fill(context, {left, top, left + kCellWidth, top + 3}, kAccent);
        }
        const Scale& scale = kScales[tool];
        const std::wstring value = std::to_wstring(Value(tool)) + scale.unit;
        Write(context, scale.name, label_font_, current ? kAccent : kFaint,
              {left + 12, top + 10, left + kCellWidth, top + 30}, DT_LEFT);
        Write(context, value, value_font_, kText, {left + 12, top + 28, left + kCellWidth, top + 58},
              DT_LEFT);
    }

    void DrawPresence(HDC context, const RECT& bar) const {
        const int dot = 14;
        Write(context, dial_present_ ? L"Dial present" : L"No dial", label_font_, kFaint,
              {bar.left, bar.top, bar.right - kMargin - dot - 8, bar.bottom}, DT_RIGHT);
        ShowDot(context, {dial_present_ ? kPresent : kAbsent, dot - 4.0, 1, 1}, dot,
                bar.right - kMargin - dot, (bar.top + bar.bottom - dot) / 2);
    }

    const HWND window_;
    const HFONT label_font_ = MakeFont(13, FW_NORMAL);
    const HFONT value_font_ = MakeFont(17, FW_SEMIBOLD);
    Painting painting_{kPaperWidth, kPaperHeight, kPaper};
    std::array<double, kUndo> values_{};
    uint32_t tool_ = kSize;
    double undoing_ = 0;
    bool grid_ = false;
    bool dial_present_ = false;
};

// The canvas of the window procedure.
Canvas* canvas_of_window = nullptr;

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return canvas_of_window == nullptr ? DefWindowProcW(window, message, wparam, lparam)
                                       : canvas_of_window->OnMessage(message, wparam, lparam);
}

HWND MakeWindow(HINSTANCE program) {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = OnMessage;
    window_class.hInstance = program;
    window_class.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32515));  // IDC_CROSS
    window_class.lpszClassName = L"BrindleCanvas";
    RegisterClassW(&window_class);
    RECT area{0, 0, kPaperWidth + 2 * kMargin, kPaperHeight + 2 * kMargin + kBarHeight};
    AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, FALSE);
    return CreateWindowExW(0, window_class.lpszClassName, L"Canvas", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                           CW_USEDEFAULT, area.right - area.left, area.bottom - area.top, nullptr, nullptr,
                           program, nullptr);
}

void RunMessageLoop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE program, HINSTANCE /*former*/, LPSTR /*arguments*/, int show) {
    const HWND window = MakeWindow(program);
    if (window == nullptr || initialize() == 1) {
        return 1;
    }
    // Without a dial the mouse still paints, and the window shows that the dial is absent.
    DialHost host(window);
    if (init_dial_listener(&host)) {
        FillMenu(window);
    }
    Canvas canvas(window);
    canvas_of_window = &canvas;
    ShowWindow(window, show);
    RunMessageLoop();
    // A turn may still be running on another thread; uninit must not run concurrently.
    Sleep(300);
    uninit();
    return 0;
}
