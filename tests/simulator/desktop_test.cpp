// The simulator's desktop windows under user input, and the canvas with a dial. Needs a display.
#include <gtest/gtest.h>
#include <windows.h>
// after windows.h
#include <gdiplus.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "simulator/desktop/gdiplus_session.h"
#include "simulator/dialsim.h"
#include "support/child_process.h"
#include "support/menu_items.h"
#include "support/pictures.h"
#include "support/recording_host.h"
#include "support/stores_folder.h"

// For EXPECT_EQ.
inline bool operator==(POINT a, POINT b) { return a.x == b.x && a.y == b.y; }

namespace {

constexpr UINT_PTR kHoldTimer = 1;
constexpr UINT_PTR kFollowTimer = 2;

// The knob at 100 %, in the dial's window.
constexpr POINT kMiddle = {110, 114};
constexpr LONG kRadius = 88;
constexpr COLORREF kHighlight = RGB(0x1F, 0x6F, 0xEB);

POINT FromMiddle(LONG x, LONG y) { return {kMiddle.x + x, kMiddle.y + y}; }

RECT RectOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}
LONG WidthOf(const RECT& rect) { return rect.right - rect.left; }
LONG HeightOf(const RECT& rect) { return rect.bottom - rect.top; }

// Waits for what other threads and processes do.
template <class Condition>
bool BecomesTrue(Condition condition) {
    for (int i = 0; i < 250; ++i) {
        if (condition()) {
            return true;
        }
        Sleep(20);
    }
    return false;
}

// The pixels that a window shows.
struct WindowPicture {
    explicit WindowPicture(HWND window) {
        RECT client{};
        GetClientRect(window, &client);
        width = client.right;
        height = client.bottom;
        pixels.resize(static_cast<std::size_t>(width * height));
        const BITMAPINFO format{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
        const HDC source = GetDC(window);
        const HDC copy = CreateCompatibleDC(source);
        const HBITMAP bitmap = CreateCompatibleBitmap(source, width, height);
        const HGDIOBJ old_bitmap = SelectObject(copy, bitmap);
        BitBlt(copy, 0, 0, width, height, source, 0, 0, SRCCOPY);
        SelectObject(copy, old_bitmap);
        GetDIBits(source, bitmap, 0, static_cast<UINT>(height), pixels.data(),
                  const_cast<BITMAPINFO*>(&format), DIB_RGB_COLORS);
        // The fourth byte of a pixel is not defined.
        for (std::uint32_t& pixel : pixels) {
            pixel &= 0xFFFFFF;
        }
        DeleteObject(bitmap);
        DeleteDC(copy);
        ReleaseDC(window, source);
    }

    COLORREF At(LONG x, LONG y) const {
        const std::uint32_t pixel = pixels.at(static_cast<std::size_t>(y * width + x));
        return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    }
    // The largest difference of green between neighbours in a row.
    int SharpestEdge() const {
        int sharpest = 0;
        for (LONG y = 0; y < height; ++y) {
            for (LONG x = 1; x < width; ++x) {
                sharpest = std::max(sharpest, std::abs(GetGValue(At(x, y)) - GetGValue(At(x - 1, y))));
            }
        }
        return sharpest;
    }
    // Whether the picture consists of squares of four equal pixels: an enlarged picture of half the size.
    bool IsEnlarged() const {
        for (LONG y = 0; y + 1 < height; y += 2) {
            for (LONG x = 0; x + 1 < width; x += 2) {
                if (At(x, y) != At(x + 1, y) || At(x, y) != At(x, y + 1) || At(x, y) != At(x + 1, y + 1)) {
                    return false;
                }
            }
        }
        return true;
    }

    LONG width = 0;
    LONG height = 0;
    std::vector<std::uint32_t> pixels;
};

// Another program with a window.
class OtherProgram {
public:
    OtherProgram() {
        char line[] = "notepad.exe";
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        CreateProcessA(nullptr, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process_);
        BecomesTrue([this] { return IsWindowVisible(window()) != FALSE; });
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram() {
        TerminateProcess(process_.hProcess, 0);
        WaitForSingleObject(process_.hProcess, INFINITE);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }

    HWND window() const { return FindWindowA("Notepad", nullptr); }

private:
    PROCESS_INFORMATION process_{};
};

bool IsAbove(HWND upper, HWND lower) {
    HWND window = upper;
    while (window != nullptr && window != lower) {
        window = GetWindow(window, GW_HWNDNEXT);
    }
    return upper != lower && window == lower;
}

// A host with a dial. The window and the dial exist once per process.
class DrawnDial : public testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(dialsim_start());
        // A host that knows nothing of scaling.
        const DPI_AWARENESS_CONTEXT own = SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_UNAWARE);
        window = CreateWindowExA(0, "STATIC", "Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 500,
                                 nullptr, nullptr, nullptr, nullptr);
        SetThreadDpiAwarenessContext(own);
        ASSERT_NE(window, nullptr);
        SetEnvironmentVariableA("DIALSIM_WINDOW", "1");
    }
    static void TearDownTestSuite() { DestroyWindow(window); }

    void SetUp() override {
        dialsim_reset();
        ASSERT_EQ(initialize(), 0);
        ASSERT_TRUE(init_dial_listener(&host_));
        const MenuItemDescription items[] = {KnownIcon(7), SystemFont(8), KnownIcon(9, 2)};
        ASSERT_TRUE(add_custom_menu(Handle(), items, 3));
        ASSERT_TRUE(set_current_custom_menu(Handle(), 8));
        dial_ = FindWindowA("DialsimDial", nullptr);
        ASSERT_NE(dial_, nullptr);
        ASSERT_EQ(RingWindow(), nullptr);
        // Shows the dial beside its host.
        SendMessageA(dial_, WM_TIMER, kFollowTimer, 0);
        SendMessageA(dial_, WM_PAINT, 0, 0);
    }
    void TearDown() override { uninit(); }

    static std::uint64_t Handle() { return reinterpret_cast<std::uint64_t>(window); }

    void WheelBy(int delta) const {
        SendMessageA(dial_, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
    }
    void Wheel(int notches) const { WheelBy(notches * WHEEL_DELTA); }
    void Press(POINT point = kMiddle) const {
        SendMessageA(dial_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    }
    void MoveTo(POINT point) const {
        SendMessageA(dial_, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    }
    void ReleaseButton() const { SendMessageA(dial_, WM_LBUTTONUP, 0, 0); }
    void Click() const {
        Press();
        ReleaseButton();
    }
    void EndHoldTime() const { SendMessageA(dial_, WM_TIMER, kHoldTimer, 0); }
    // Waits without a time limit.
    void Hold() const {
        Press();
        EndHoldTime();
        ReleaseButton();
    }
    void Key(WPARAM key) const {
        SendMessageA(dial_, WM_KEYDOWN, key, 0);
        SendMessageA(dial_, WM_KEYUP, key, 0);
    }
    // The system suggests a place that is nearer to the left by `shift`.
    static void ChangeDpi(HWND of, WORD dpi, int shift = 0) {
        RECT suggested = RectOf(of);
        OffsetRect(&suggested, -shift, 0);
        SendMessageA(of, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
    }
    static HWND RingWindow() { return FindWindowA("DialsimRing", nullptr); }
    static bool RingShows() { return IsWindowVisible(RingWindow()) != FALSE; }
    // The selected item, as the next turn reports it.
    std::uint32_t SelectedItem() {
        Wheel(1);
        return host_.LastRotation().selectedItemTag;
    }
    double TurnedDegrees() const {
        double sum = 0;
        for (const DialRotationInfo& rotation : host_.rotations) {
            sum += rotation.deltaDegrees;
        }
        return sum;
    }
    std::vector<std::uint32_t> Pixels() const { return WindowPicture(dial_).pixels; }
    // The dial is drawn soon after a turn, on its own thread.
    bool Shows(const std::vector<std::uint32_t>& pixels) const {
        return BecomesTrue([&] { return Pixels() == pixels; });
    }
    bool IsTopmost() const { return (GetWindowLongA(dial_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }
    static RECT WorkArea() {
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
        return monitor.rcWork;
    }
    // As the system does for a drag at a title bar.
    void DragWindowTo(int x, int y, UINT last_message = WM_EXITSIZEMOVE) const {
        SendMessageA(dial_, WM_ENTERSIZEMOVE, 0, 0);
        SetWindowPos(dial_, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        SendMessageA(dial_, WM_TIMER, kFollowTimer, 0);
        SendMessageA(dial_, last_message, 0, 0);
    }
    // The place of the dial when it has followed its host.
    POINT Place() const {
        SendMessageA(dial_, WM_TIMER, kFollowTimer, 0);
        return {RectOf(dial_).left, RectOf(dial_).top};
    }
    static void MoveHostTo(int x, int y) {
        SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    static HWND window;
    RecordingHost host_{Handle()};
    HWND dial_ = nullptr;
};

HWND DrawnDial::window = nullptr;

TEST_F(DrawnDial, IsTurnedByTheWheel) {
    Wheel(1);
    Wheel(-2);
    ASSERT_EQ(host_.rotations.size(), 2U);
    EXPECT_EQ(host_.rotations[0].deltaDegrees, 10.0);
    EXPECT_EQ(host_.rotations[1].deltaDegrees, -20.0);
    EXPECT_FALSE(host_.rotations[1].buttonPressed);
}

TEST_F(DrawnDial, IsTurnedByFractionsOfANotch) {
    WheelBy(WHEEL_DELTA / 4);
    WheelBy(-WHEEL_DELTA / 8);
    WheelBy(1);
    ASSERT_EQ(host_.rotations.size(), 3U);
    EXPECT_EQ(host_.rotations[0].deltaDegrees, 2.5);
    EXPECT_EQ(host_.rotations[1].deltaDegrees, -1.25);
    EXPECT_NEAR(host_.rotations[2].deltaDegrees, 10.0 / WHEEL_DELTA, 1e-12);
}

TEST_F(DrawnDial, IsClicked) {
    Click();
    EXPECT_EQ(host_.clicks.size(), 1U);
    EXPECT_TRUE(host_.rotations.empty());
}

TEST_F(DrawnDial, ATurnWhilePressedIsNoClick) {
    Press();
    Wheel(1);
    ReleaseButton();
    EXPECT_TRUE(host_.LastRotation().buttonPressed);
    EXPECT_TRUE(host_.clicks.empty());
    Wheel(1);
    EXPECT_FALSE(host_.LastRotation().buttonPressed);
}

TEST_F(DrawnDial, IsUsedByKeys) {
    for (const WPARAM key : std::vector<WPARAM>{VK_RIGHT, VK_UP, VK_LEFT, VK_DOWN, VK_SPACE, VK_RETURN}) {
        Key(key);
    }
    ASSERT_EQ(host_.rotations.size(), 4U);
    EXPECT_EQ(host_.rotations[0].deltaDegrees, 10.0);
    EXPECT_EQ(host_.rotations[1].deltaDegrees, 10.0);
    EXPECT_EQ(host_.rotations[2].deltaDegrees, -10.0);
    EXPECT_EQ(host_.rotations[3].deltaDegrees, -10.0);
    EXPECT_EQ(host_.clicks.size(), 2U);
}

TEST_F(DrawnDial, OtherKeysDoNotReleaseIt) {
    SendMessageA(dial_, WM_KEYDOWN, VK_SPACE, 0);
    Key(VK_SHIFT);
    EXPECT_TRUE(host_.clicks.empty());
    SendMessageA(dial_, WM_KEYUP, VK_SPACE, 0);
    EXPECT_EQ(host_.clicks.size(), 1U);
}

TEST_F(DrawnDial, ADragTurnsItByThePointersAngle) {
    Press(FromMiddle(60, 0));
    MoveTo(FromMiddle(50, 50));
    ASSERT_EQ(host_.rotations.size(), 1U);
    EXPECT_NEAR(host_.rotations[0].deltaDegrees, 45, 1e-9);
    MoveTo(FromMiddle(0, 200));  // beside the knob, beneath the window
    EXPECT_NEAR(host_.LastRotation().deltaDegrees, 45, 1e-9);
    MoveTo(FromMiddle(60, 0));
    EXPECT_NEAR(host_.LastRotation().deltaDegrees, -90, 1e-9);
    ReleaseButton();
    MoveTo(FromMiddle(0, 60));
    EXPECT_EQ(host_.rotations.size(), 3U);
}

TEST_F(DrawnDial, ADragGoesRoundTheKnob) {
    constexpr LONG kSteps[][2] = {{-50, 50}, {-60, 0}, {-50, -50}, {0, -60},
                                  {50, -50}, {60, 0},  {50, 50},   {0, 60}};
    Press(FromMiddle(0, 60));
    for (const auto& step : kSteps) {
        MoveTo(FromMiddle(step[0], step[1]));
        EXPECT_NEAR(host_.LastRotation().deltaDegrees, 45, 1e-9);
    }
    ReleaseButton();
    EXPECT_NEAR(TurnedDegrees(), 360, 1e-9);
}

TEST_F(DrawnDial, ADragIsNoPressOfTheButton) {
    Press(FromMiddle(60, 0));
    dialsim_turn(Handle(), 1);
    EXPECT_TRUE(host_.LastRotation().buttonPressed);
    MoveTo(FromMiddle(50, 50));
    EXPECT_FALSE(host_.LastRotation().buttonPressed);
    EndHoldTime();
    EXPECT_FALSE(RingShows());
    ReleaseButton();
    EXPECT_TRUE(host_.clicks.empty());
}

TEST_F(DrawnDial, AMovementWithinTheDragThresholdIsAClick) {
    const int threshold = GetSystemMetrics(SM_CXDRAG);
    Press(FromMiddle(0, 60));
    MoveTo(FromMiddle(threshold, 60));
    ReleaseButton();
    EXPECT_EQ(host_.clicks.size(), 1U);
    EXPECT_TRUE(host_.rotations.empty());
    Press(FromMiddle(0, 60));
    MoveTo(FromMiddle(threshold + 1, 60));
    ReleaseButton();
    EXPECT_EQ(host_.clicks.size(), 1U);
    EXPECT_LT(TurnedDegrees(), 0);
    Press(FromMiddle(60, 0));
    MoveTo(FromMiddle(60, GetSystemMetrics(SM_CYDRAG) + 1));
    ReleaseButton();
    EXPECT_EQ(host_.clicks.size(), 1U);
}

TEST_F(DrawnDial, CapturesTheMouseWhileItIsPressed) {
    const auto capture = [this] {
        GUITHREADINFO thread{};
        thread.cbSize = sizeof thread;
        GetGUIThreadInfo(GetWindowThreadProcessId(dial_, nullptr), &thread);
        return thread.hwndCapture;
    };
    Press();
    EXPECT_EQ(capture(), dial_);
    ReleaseButton();
    EXPECT_EQ(capture(), nullptr);
}

// Without a button the pointer only moves over the dial.
TEST_F(DrawnDial, AMovementWithoutTheButtonIsNoDrag) {
    Press(FromMiddle(60, 0));
    SendMessageA(dial_, WM_MOUSEMOVE, 0, MAKELPARAM(kMiddle.x, kMiddle.y + 60));
    ReleaseButton();
    EXPECT_TRUE(host_.rotations.empty());
    EXPECT_EQ(host_.clicks.size(), 1U);
}

TEST_F(DrawnDial, HoldingItOpensTheMenuAndIsNoClick) {
    EXPECT_FALSE(RingShows());
    Hold();
    EXPECT_TRUE(RingShows());
    EXPECT_TRUE(host_.clicks.empty());
    Hold();
    EXPECT_FALSE(RingShows());
}

TEST_F(DrawnDial, InTheMenuTurnsAndClicksChooseAnItem) {
    Hold();
    Wheel(1);
    Click();
    EXPECT_FALSE(RingShows());
    EXPECT_TRUE(host_.rotations.empty());
    EXPECT_TRUE(host_.clicks.empty());
    EXPECT_EQ(SelectedItem(), 9U);
}

TEST_F(DrawnDial, TheMenuIsARing) {
    Key('M');
    Wheel(2);
    Click();
    EXPECT_EQ(SelectedItem(), 7U);
    Key('M');
    Wheel(-1);
    Click();
    EXPECT_EQ(SelectedItem(), 9U);
}

TEST_F(DrawnDial, InTheMenuFineTurnsAddUp) {
    Key('M');
    for (int i = 0; i < 4; ++i) {
        WheelBy(WHEEL_DELTA / 4);
    }
    Click();
    EXPECT_EQ(SelectedItem(), 9U);
}

TEST_F(DrawnDial, TheMenuIsLeftWithoutAChoice) {
    Key('M');
    EXPECT_TRUE(RingShows());
    Wheel(1);
    Key(VK_ESCAPE);
    EXPECT_FALSE(RingShows());
    EXPECT_EQ(SelectedItem(), 8U);
}

TEST_F(DrawnDial, AMenuWithoutItemsDoesNotOpen) {
    ASSERT_TRUE(add_custom_menu(Handle(), nullptr, 0));
    Hold();
    EXPECT_FALSE(RingShows());
}

TEST_F(DrawnDial, TheRingShowsTheHighlightedItem) {
    // Points in the sectors of the first two of eight items, the system's included.
    const auto colors = [] {
        const WindowPicture picture(RingWindow());
        return std::vector<COLORREF>{picture.At(180, 80), picture.At(251, 109)};
    };
    Key('M');
    EXPECT_NE(colors()[0], kHighlight);
    EXPECT_EQ(colors()[1], kHighlight);
    Wheel(-1);
    EXPECT_EQ(colors()[0], kHighlight);
    EXPECT_NE(colors()[1], kHighlight);
    Key(VK_ESCAPE);
}

// A file with a PNG header and no picture leaves the item without a picture, not with a black square.
TEST_F(DrawnDial, TheRingShowsNoPictureWhereThereIsNone) {
    const TemporaryFile file("no picture.png", SmallPng());
    const MenuItemDescription item = FilePNG(5, file.Path());
    ASSERT_TRUE(add_custom_menu(Handle(), &item, 1));
    dialsim_wait_for_async();
    Key('M');
    const WindowPicture picture(RingWindow());
    Key(VK_ESCAPE);
    int black = 0;
    for (int y = -150; y <= 150; ++y) {
        for (int x = -150; x <= 150; ++x) {
            const bool among_items = x * x + y * y < 150 * 150;
            black += among_items && picture.At(180 + x, 180 + y) == RGB(0, 0, 0) ? 1 : 0;
        }
    }
    EXPECT_EQ(black, 0);
}

TEST_F(DrawnDial, ShowsWhenItsButtonIsDown) {
    const auto released = Pixels();
    dialsim_hold(true);
    EXPECT_TRUE(BecomesTrue([&] { return Pixels() != released; }));
    const auto pressed = Pixels();
    dialsim_hold(false);
    EXPECT_TRUE(Shows(released));
    Press();
    EXPECT_TRUE(Shows(pressed));
    ReleaseButton();
    EXPECT_TRUE(Shows(released));
    SendMessageA(dial_, WM_KEYDOWN, VK_SPACE, 0);
    EXPECT_TRUE(Shows(pressed));
    SendMessageA(dial_, WM_KEYUP, VK_SPACE, 0);
    EXPECT_TRUE(Shows(released));
}

TEST_F(DrawnDial, AResetShowsTheInitialState) {
    const auto initial = Pixels();
    dialsim_hold(true);
    dialsim_turn(Handle(), 30);
    EXPECT_TRUE(BecomesTrue([&] { return Pixels() != initial; }));
    dialsim_reset();
    EXPECT_TRUE(Shows(initial));
}

TEST_F(DrawnDial, ShowsForAMomentThatHapticsPlay) {
    const auto quiet = Pixels();
    constexpr std::uint32_t kAnyFeedback = 1;
    host_.haptic_request = &kAnyFeedback;
    // There and back: without a pulse the dial looks as before. A machine under load may look too late.
    const auto pulses = [&] {
        dialsim_turn(Handle(), 10);
        dialsim_turn(Handle(), -10);
        return Pixels() != quiet;
    };
    EXPECT_TRUE(BecomesTrue(pulses));
    EXPECT_TRUE(BecomesTrue([&] { return Pixels() == quiet; }));
    host_.haptic_request = nullptr;
    EXPECT_FALSE(pulses());
}

TEST_F(DrawnDial, AtTwiceTheResolutionItIsTwiceAsLarge) {
    const RECT before = RectOf(dial_);
    const WindowPicture normal(dial_);
    ChangeDpi(dial_, 192, 10);
    EXPECT_EQ(RectOf(dial_).left, before.left - 10);
    const WindowPicture large(dial_);
    EXPECT_EQ(WidthOf(RectOf(dial_)), 2 * WidthOf(before));
    EXPECT_EQ(HeightOf(RectOf(dial_)), 2 * HeightOf(before));
    EXPECT_FALSE(large.IsEnlarged());
    EXPECT_GE(large.SharpestEdge(), normal.SharpestEdge() - 16);
    // The top of the knob, the panel, and the pointer of the knob.
    for (const POINT point : {kMiddle, FromMiddle(-100, 95), FromMiddle(0, -73)}) {
        const COLORREF expected = normal.At(point.x, point.y);
        const COLORREF color = large.At(2 * point.x, 2 * point.y);
        EXPECT_NEAR(GetRValue(color), GetRValue(expected), 8);
        EXPECT_NEAR(GetGValue(color), GetGValue(expected), 8);
        EXPECT_NEAR(GetBValue(color), GetBValue(expected), 8);
    }
    // The knob takes the pointer at its new place.
    Press({2 * kMiddle.x + 120, 2 * kMiddle.y});
    MoveTo({2 * kMiddle.x, 2 * kMiddle.y + 120});
    ReleaseButton();
    EXPECT_NEAR(TurnedDegrees(), 90, 1e-9);
    ChangeDpi(dial_, 96, -10);
    EXPECT_EQ(WidthOf(RectOf(dial_)), WidthOf(before));
    EXPECT_EQ(Pixels().size(), normal.pixels.size());
}

TEST_F(DrawnDial, AtTwiceTheResolutionTheRingIsTwiceAsLarge) {
    Key('M');
    const WindowPicture normal(RingWindow());
    ChangeDpi(RingWindow(), 192);
    EXPECT_TRUE(RingShows());
    const WindowPicture large(RingWindow());
    EXPECT_EQ(large.width, 2 * normal.width);
    EXPECT_EQ(large.height, 2 * normal.height);
    EXPECT_EQ(large.At(2 * 251, 2 * 109), kHighlight);
    EXPECT_NE(large.At(2 * 180, 2 * 80), kHighlight);
    EXPECT_FALSE(large.IsEnlarged());
    EXPECT_TRUE(AreDpiAwarenessContextsEqual(GetWindowDpiAwarenessContext(RingWindow()),
                                             GetWindowDpiAwarenessContext(dial_)));
    Key(VK_ESCAPE);
}

TEST_F(DrawnDial, CallbacksRunWithTheDpiAwarenessOfTheHostsWindow) {
    int with_its_own = 0;
    const auto compare = [&](const auto&) {
        with_its_own += AreDpiAwarenessContextsEqual(GetThreadDpiAwarenessContext(),
                                                     GetWindowDpiAwarenessContext(window));
    };
    host_.on_rotation = compare;
    host_.on_click = compare;
    ASSERT_FALSE(AreDpiAwarenessContextsEqual(GetWindowDpiAwarenessContext(dial_),
                                              GetWindowDpiAwarenessContext(window)));
    Wheel(1);
    Click();
    EXPECT_EQ(with_its_own, 2);
}

TEST_F(DrawnDial, IsAboveOtherWindowsOnlyWhileItsHostIsInFront) {
    SetForegroundWindow(window);
    EXPECT_TRUE(BecomesTrue([this] { return IsTopmost(); }));
    Key('M');
    const OtherProgram other;
    SetForegroundWindow(other.window());
    EXPECT_TRUE(BecomesTrue([this] { return !IsTopmost(); }));
    EXPECT_TRUE(BecomesTrue([&] { return IsAbove(other.window(), dial_); }));
    EXPECT_TRUE(BecomesTrue([&] { return IsAbove(other.window(), RingWindow()); }));
    EXPECT_TRUE(IsAbove(dial_, window));
    EXPECT_TRUE(IsAbove(RingWindow(), window));
    SetForegroundWindow(window);
    EXPECT_TRUE(BecomesTrue([&] { return IsTopmost() && IsAbove(dial_, other.window()); }));
    EXPECT_TRUE(BecomesTrue([&] { return IsAbove(RingWindow(), other.window()); }));
    Key(VK_ESCAPE);
}

TEST_F(DrawnDial, IsTakenAtTheKnobAndMovedBesideIt) {
    const auto hit = [this](POINT point) {
        ClientToScreen(dial_, &point);
        return SendMessageA(dial_, WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y));
    };
    EXPECT_EQ(hit(kMiddle), HTCLIENT);
    EXPECT_EQ(hit(FromMiddle(kRadius - 1, 0)), HTCLIENT);
    EXPECT_EQ(hit(FromMiddle(kRadius + 2, 0)), HTCAPTION);
    EXPECT_EQ(hit({5, 5}), HTCAPTION);
}

TEST_F(DrawnDial, IsMovedByTheUserAndThenWithItsHost) {
    for (const UINT end : std::vector<UINT>{WM_EXITSIZEMOVE, WM_CAPTURECHANGED}) {
        DragWindowTo(700, 300, end);
        EXPECT_EQ(Place(), (POINT{700, 300}));
        MoveHostTo(30, 20);
        EXPECT_EQ(Place(), (POINT{730, 320}));
        MoveHostTo(0, 0);
        EXPECT_EQ(Place(), (POINT{700, 300}));
        DragWindowTo(650, 100);
    }
}

TEST_F(DrawnDial, StaysWhereTheUserMovesItWhileTheHostMoves) {
    SendMessageA(dial_, WM_ENTERSIZEMOVE, 0, 0);
    const POINT before = Place();
    MoveHostTo(30, 20);
    EXPECT_EQ(Place(), before);
    SendMessageA(dial_, WM_EXITSIZEMOVE, 0, 0);
    MoveHostTo(0, 0);
    EXPECT_EQ(Place(), (POINT{before.x - 30, before.y - 20}));
}

TEST_F(DrawnDial, StaysOnTheScreen) {
    const RECT area = WorkArea();
    DragWindowTo(area.right - 100, area.bottom - 50);
    EXPECT_EQ(RectOf(dial_).right, area.right);
    EXPECT_EQ(RectOf(dial_).bottom, area.bottom);
    DragWindowTo(area.left - 5, area.top - 50);
    EXPECT_EQ(Place(), (POINT{area.left, area.top}));
    DragWindowTo(700, 100);
    MoveHostTo(area.right - 100, 0);
    EXPECT_EQ(Place().x, area.right - WidthOf(RectOf(dial_)));
    MoveHostTo(0, 0);
    EXPECT_EQ(Place(), (POINT{700, 100}));
    SetWindowPos(dial_, nullptr, area.right, 100, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    SendMessageA(dial_, WM_DISPLAYCHANGE, 32, 0);
    EXPECT_EQ(Place(), (POINT{700, 100}));
}

// --- programs started with a dial

class LaunchedProgram : public testing::Test {
protected:
    void SetUp() override {
        GetCurrentDirectoryA(sizeof former_, former_);
        SetCurrentDirectoryA(folder_.path().c_str());
        SetEnvironmentVariableA("DIALSIM_STORES", folder_.path().c_str());
    }
    void TearDown() override {
        SetCurrentDirectoryA(former_);
        SetEnvironmentVariableA("DIALSIM_STORES", nullptr);
        for (const char* shot : {"canvas.png", "canvas-menu.png", "canvas-grid.png", "again.png"}) {
            folder_.Remove(shot);
        }
        folder_.Remove("own.dial");
        folder_.Remove("recorded.dial");
    }

    static int StatusOf(const std::vector<std::string>& arguments) {
        return ChildProcess("dialsim-run", arguments).Wait();
    }
    static std::string Beside(const char* file) {
        char path[MAX_PATH];
        const std::string self(path, GetModuleFileNameA(nullptr, path, sizeof path));
        return self.substr(0, self.rfind('\\') + 1) + file;
    }

    StoresFolder folder_;

private:
    char former_[MAX_PATH] = "";
};

struct Shown {
    const char* what;
    int x;
    int y;
    std::uint32_t color;
};

// Each point of a screenshot has its expected colour, within a tolerance.
void ExpectColors(const std::string& path, const std::vector<Shown>& places) {
    const dialsim::GdiplusSession session;
    Gdiplus::Bitmap picture(std::wstring(path.begin(), path.end()).c_str());
    EXPECT_EQ(picture.GetLastStatus(), Gdiplus::Ok) << path;
    for (const Shown& place : places) {
        Gdiplus::Color color;
        picture.GetPixel(place.x, place.y, &color);
        const auto alike = [](int a, std::uint32_t b) {
            return std::abs(a - static_cast<int>(b & 0xFF)) <= 8;
        };
        EXPECT_TRUE(alike(color.GetR(), place.color >> 16) && alike(color.GetG(), place.color >> 8) &&
                    alike(color.GetB(), place.color))
            << place.what << " is " << std::hex << color.GetValue();
    }
}

TEST_F(LaunchedProgram, TheCanvasPaintsTheStrokesOfItsScript) {
    ASSERT_EQ(StatusOf({"--script", CANVAS_SCRIPT, Beside("canvas.exe")}), 0);
    const Shown flower[] = {{"paper", 60, 60, 0xFFFFFF},
                            {"a blue leaf's tip", 404, 62, 0x4C9CF0},
                            {"a pink leaf's tip", 340, 126, 0xF04C93},
                            {"a dot", 322, 88, 0xF3DB70},
                            {"the heart", 404, 245, 0xF3DB70},
                            {"the middle", 404, 284, 0xFFFFFF},
                            {"what was taken back", 144, 114, 0xFFFFFF}};
    ExpectColors(folder_.PathOf("canvas.png"), {std::begin(flower), std::end(flower)});
    ExpectColors(folder_.PathOf("canvas-menu.png"), {{"the highlighted item", 540, 210, 0x1F6FEB},
                                                     {"the paper beside the ring", 60, 60, 0xFFFFFF}});
    ExpectColors(folder_.PathOf("canvas-grid.png"), {{"a line down", 84, 60, 0xCDD5E0},
                                                     {"a line across", 60, 84, 0xCDD5E0},
                                                     {"between", 60, 60, 0xFFFFFF}});
    // The last tool in use is Undo: the hue was chosen after it, but not turned.
    const std::string vault = folder_.Read("vault.json").value_or("");
    EXPECT_NE(vault.find("\"Brindle canvas/Petals\""), std::string::npos) << vault;
    EXPECT_NE(vault.find("\"password\": \"8\""), std::string::npos) << vault;
    EXPECT_NE(vault.find("\"password\": \"Undo\""), std::string::npos) << vault;
}

Gdiplus::ARGB PixelOf(Gdiplus::Bitmap& picture, UINT x, UINT y) {
    Gdiplus::Color color;
    picture.GetPixel(static_cast<INT>(x), static_cast<INT>(y), &color);
    return color.GetValue();
}

void ExpectSamePicture(const std::string& one, const std::string& other) {
    const dialsim::GdiplusSession session;
    Gdiplus::Bitmap a(std::wstring(one.begin(), one.end()).c_str());
    Gdiplus::Bitmap b(std::wstring(other.begin(), other.end()).c_str());
    ASSERT_GT(a.GetWidth() * a.GetHeight(), 0U) << one;
    ASSERT_EQ(a.GetWidth(), b.GetWidth());
    ASSERT_EQ(a.GetHeight(), b.GetHeight());
    std::size_t differences = 0;
    for (UINT y = 0; y < a.GetHeight(); ++y) {
        for (UINT x = 0; x < a.GetWidth(); ++x) {
            differences += PixelOf(a, x, y) != PixelOf(b, x, y) ? 1U : 0U;
        }
    }
    EXPECT_EQ(differences, 0U) << "points";
}

TEST_F(LaunchedProgram, ARecordedSessionPaintsTheSamePictureAgain) {
    SetEnvironmentVariableA("DIALSIM_RECORD", folder_.PathOf("recorded.dial").c_str());
    EXPECT_EQ(StatusOf({"--script", CANVAS_SCRIPT, Beside("canvas.exe")}), 0);
    SetEnvironmentVariableA("DIALSIM_RECORD", nullptr);

    folder_.Remove("vault.json");  // the replay starts with the session's initial stores
    folder_.Write("own.dial", folder_.Read("recorded.dial").value_or("") + "wait 300\nshot again.png\n");
    EXPECT_EQ(StatusOf({"--script", "own.dial", Beside("canvas.exe")}), 0);
    ExpectSamePicture(folder_.PathOf("canvas-grid.png"), folder_.PathOf("again.png"));
}

// The pointer itself moves over the canvas while a script paints.
TEST_F(LaunchedProgram, ThePointerPaintsNothingWithoutItsButton) {
    folder_.Write("own.dial", "mouse 100 100 down\nwait 500\nmouse 100 100 up\nwait 300\nshot again.png\n");
    ChildProcess program("dialsim-run", {"--script", "own.dial", Beside("canvas.exe")});
    const auto canvas = [] { return FindWindowA("BrindleCanvas", nullptr); };
    ASSERT_TRUE(BecomesTrue([&] { return canvas() != nullptr; }));
    while (canvas() != nullptr) {
        PostMessageA(canvas(), WM_MOUSEMOVE, 0, MAKELPARAM(500, 400));
        Sleep(10);
    }
    EXPECT_EQ(program.Wait(), 0);
    ExpectColors(folder_.PathOf("again.png"),
                 {{"the dot", 124, 124, 0x4C9CF0}, {"the paper on the way", 324, 274, 0xFFFFFF}});
}

TEST_F(LaunchedProgram, AScriptThatDoesNotParseEndsTheProgram) {
    folder_.Write("own.dial", "turn around\n");
    EXPECT_EQ(StatusOf({"--script", "own.dial", Beside("canvas.exe")}), 119);
}

}  // namespace
