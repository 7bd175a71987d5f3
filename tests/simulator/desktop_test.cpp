// The simulator's desktop windows under user input, and the canvas with a dial. Needs a display.
#include <gtest/gtest.h>
#include <windows.h>
// after windows.h
#include <gdiplus.h>

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

namespace {

constexpr UINT_PTR kHoldTimer = 1;

// A host with a dial. The window and the dial exist once per process.
class DrawnDial : public testing::Test {
protected:
    static void SetUpTestSuite() {
        window = CreateWindowExA(0, "STATIC", "Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 500,
                                 nullptr, nullptr, nullptr, nullptr);
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
        ring_ = FindWindowA("DialsimRing", nullptr);
        ASSERT_NE(dial_, nullptr);
        ASSERT_NE(ring_, nullptr);
    }
    void TearDown() override { uninit(); }

    static std::uint64_t Handle() { return reinterpret_cast<std::uint64_t>(window); }

    void Wheel(int notches) const {
        SendMessageA(dial_, WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA), 0);
    }
    void Press() const { SendMessageA(dial_, WM_LBUTTONDOWN, MK_LBUTTON, 0); }
    void ReleaseButton() const { SendMessageA(dial_, WM_LBUTTONUP, 0, 0); }
    void Click() const {
        Press();
        ReleaseButton();
    }
    // Waits without a time limit.
    void Hold() const {
        Press();
        SendMessageA(dial_, WM_TIMER, kHoldTimer, 0);
        ReleaseButton();
    }
    void Key(WPARAM key) const {
        SendMessageA(dial_, WM_KEYDOWN, key, 0);
        SendMessageA(dial_, WM_KEYUP, key, 0);
    }
    bool RingShows() const { return IsWindowVisible(ring_) != FALSE; }
    // The selected item, as the next turn reports it.
    std::uint32_t SelectedItem() {
        Wheel(1);
        return host_.LastRotation().selectedItemTag;
    }

    static HWND window;
    RecordingHost host_{Handle()};
    HWND dial_ = nullptr;
    HWND ring_ = nullptr;
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
    Key(VK_RIGHT);
    Key(VK_LEFT);
    Key(VK_SPACE);
    Key(VK_RETURN);
    ASSERT_EQ(host_.rotations.size(), 2U);
    EXPECT_EQ(host_.rotations[0].deltaDegrees, 10.0);
    EXPECT_EQ(host_.rotations[1].deltaDegrees, -10.0);
    EXPECT_EQ(host_.clicks.size(), 2U);
}

TEST_F(DrawnDial, OtherKeysDoNotReleaseIt) {
    SendMessageA(dial_, WM_KEYDOWN, VK_SPACE, 0);
    Key(VK_SHIFT);
    EXPECT_TRUE(host_.clicks.empty());
    SendMessageA(dial_, WM_KEYUP, VK_SPACE, 0);
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
    const auto colors = [this] {
        const HDC context = GetDC(ring_);
        const std::vector<COLORREF> found = {GetPixel(context, 180, 80), GetPixel(context, 251, 109)};
        ReleaseDC(ring_, context);
        return found;
    };
    constexpr COLORREF kAccent = RGB(0x1F, 0x6F, 0xEB);
    Key('M');
    EXPECT_NE(colors()[0], kAccent);
    EXPECT_EQ(colors()[1], kAccent);
    Wheel(-1);
    EXPECT_EQ(colors()[0], kAccent);
    EXPECT_NE(colors()[1], kAccent);
    Key(VK_ESCAPE);
}

// A file with a PNG header and no picture leaves the item without a picture, not with a black square.
TEST_F(DrawnDial, TheRingShowsNoPictureWhereThereIsNone) {
    const TemporaryFile file("no picture.png", SmallPng());
    const MenuItemDescription item = FilePNG(5, file.Path());
    ASSERT_TRUE(add_custom_menu(Handle(), &item, 1));
    dialsim_wait_for_async();
    Key('M');
    const HDC context = GetDC(ring_);
    int black = 0;
    for (int y = -150; y <= 150; ++y) {
        for (int x = -150; x <= 150; ++x) {
            const bool among_items = x * x + y * y < 150 * 150;
            black += among_items && GetPixel(context, 180 + x, 180 + y) == RGB(0, 0, 0) ? 1 : 0;
        }
    }
    ReleaseDC(ring_, context);
    Key(VK_ESCAPE);
    EXPECT_EQ(black, 0);
}

// --- programs started with a dial

class LaunchedProgram : public testing::Test {
protected:
    void SetUp() override {
        StoresFolder::MakeFolder(folder_.PathOf("build"));
        GetCurrentDirectoryA(sizeof former_, former_);
        SetCurrentDirectoryA(folder_.path().c_str());
        SetEnvironmentVariableA("DIALSIM_STORES", folder_.path().c_str());
    }
    void TearDown() override {
        SetCurrentDirectoryA(former_);
        SetEnvironmentVariableA("DIALSIM_STORES", nullptr);
        for (const char* shot : {"canvas.png", "canvas-menu.png", "canvas-grid.png", "again.png"}) {
            std::remove(folder_.PathOf(std::string("build/") + shot).c_str());
        }
        StoresFolder::RemoveFolder(folder_.PathOf("build"));
        std::remove(folder_.PathOf("own.dial").c_str());
        std::remove(folder_.PathOf("recorded.dial").c_str());
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
    ExpectColors(folder_.PathOf("build/canvas.png"), {std::begin(flower), std::end(flower)});
    ExpectColors(folder_.PathOf("build/canvas-menu.png"), {{"the highlighted item", 540, 210, 0x1F6FEB},
                                                           {"the paper beside the ring", 60, 60, 0xFFFFFF}});
    ExpectColors(folder_.PathOf("build/canvas-grid.png"), {{"a line down", 84, 60, 0xCDD5E0},
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

    std::remove(folder_.PathOf("vault.json").c_str());  // the replay starts with the session's initial stores
    folder_.Write("own.dial",
                  folder_.Read("recorded.dial").value_or("") + "wait 300\nshot build/again.png\n");
    EXPECT_EQ(StatusOf({"--script", "own.dial", Beside("canvas.exe")}), 0);
    ExpectSamePicture(folder_.PathOf("build/canvas-grid.png"), folder_.PathOf("build/again.png"));
}

TEST_F(LaunchedProgram, AProgramsStatusIsPassedOn) {
    EXPECT_EQ(StatusOf({"--", "cmd", "/c", "exit", "7"}), 7);
}

TEST_F(LaunchedProgram, AScriptThatDoesNotParseEndsTheProgram) {
    folder_.Write("own.dial", "turn around\n");
    EXPECT_EQ(StatusOf({"--script", "own.dial", Beside("canvas.exe")}), 2);
}

TEST_F(LaunchedProgram, LaunchAndUsageErrorsHaveTheirOwnStatus) {
    EXPECT_EQ(StatusOf({"no_such_program.exe"}), 125);
    EXPECT_EQ(StatusOf({}), 2);
    EXPECT_EQ(StatusOf({"--script"}), 2);
    EXPECT_EQ(StatusOf({"--nonsense", "cmd"}), 2);
    EXPECT_EQ(StatusOf({"--help"}), 0);
}

}  // namespace
