// The simulator's menu, used through the platform's interfaces without the library.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "event_recorder.h"
#include "platform/interfaces/property_value.h"
#include "simulated_menu.h"
#include "support/pictures.h"

namespace brindle {
namespace {

std::string PictureOf(std::uint64_t window) {
    std::string text(dialsim_menu_svg(window, nullptr, 0), '\0');
    dialsim_menu_svg(window, text.data(), text.size());
    text.pop_back();  // the terminator
    return text;
}

TEST_F(SimulatedMenu, IsEmptyAtTheStartButForTheSystemsItems) {
    EXPECT_EQ(MenuText(kWindow),
              "system items: Scroll, Zoom, UndoRedo, Volume, NextPreviousTrack\nautomatic haptics: on\n");
}

TEST_F(SimulatedMenu, IsShownInOrderWithTheSelectedItemMarked) {
    AddKnownIcon("Louder", 3, 7);
    AddKnownIcon("Bigger", 1, 4294967295);
    EXPECT_EQ(dialsim_choose(kWindow, 1), S_OK);
    EXPECT_EQ(controller_->put_UseAutomaticHapticFeedback(0), S_OK);
    EXPECT_EQ(MenuText(0),
              "0   \"Louder\" known icon Volume, tag 7\n1 * \"Bigger\" known icon Zoom, tag 4294967295\n"
              "system items: Scroll, Zoom, UndoRedo, Volume, NextPreviousTrack\nautomatic haptics: off\n");
}

TEST_F(SimulatedMenu, OfAWindowWithoutAControllerIsNothing) { EXPECT_EQ(MenuText(kWindow + 1), ""); }

TEST_F(SimulatedMenu, ShowsItemsThatTheLibraryDoesNotCreate) {
    EXPECT_TRUE(dialsim_append_null_item(kWindow));
    EXPECT_TRUE(dialsim_append_item(kWindow, "none", 1));
    EXPECT_TRUE(dialsim_append_item(kWindow, "String", 2));
    EXPECT_TRUE(dialsim_append_item(kWindow, "object", 3));
    EXPECT_TRUE(dialsim_append_item(kWindow, "UInt32", 4));
    EXPECT_FALSE(dialsim_append_item(kWindow, "Sint32", 5));
    EXPECT_FALSE(dialsim_append_null_item(kWindow + 1));
    EXPECT_EQ(
        MenuText(kWindow).substr(0, MenuText(kWindow).find("system")),
        "0   no item\n1   \"appended\" no picture, tag -\n2   \"appended\" no picture, tag not a number\n"
        "3   \"appended\" no picture, tag not a number\n4   \"appended\" no picture, tag 4\n");
    EXPECT_EQ(Journal(), "");
    EXPECT_EQ(dialsim_choose(kWindow, 0), Code(0x8000000B));
    EXPECT_EQ(dialsim_choose(kWindow, 2), S_OK);
}

TEST_F(SimulatedMenu, WhileItIsOpenTurnsGoRoundTheRingAndAClickChooses) {
    ReleaseController();  // it has an empty menu
    EventRecorder recorder(kWindow);
    for (const std::uint32_t tag : {1U, 2U, 3U}) {
        dialsim_append_item(kWindow, "UInt32", tag);
    }
    const auto choose_by = [&](double degrees) {
        EXPECT_TRUE(dialsim_open_menu(kWindow));
        EXPECT_EQ(dialsim_turn(kWindow, degrees), S_OK);
        EXPECT_EQ(dialsim_click(kWindow), S_OK);
        const std::string menu = MenuText(kWindow);
        return menu[menu.find(" * ") - 1];
    };
    EXPECT_EQ(choose_by(10), '1') << "from the first one: none is selected";
    EXPECT_EQ(choose_by(4), '1');
    EXPECT_EQ(choose_by(20), '0');
    EXPECT_EQ(choose_by(-10), '2');
    EXPECT_EQ(choose_by(-40), '1');
    EXPECT_EQ(recorder.TakeEvents(), "");
    dialsim_turn(kWindow, 10);
    dialsim_click(kWindow);
    EXPECT_EQ(recorder.TakeEvents(), "turn 10; click; ");
}

TEST_F(SimulatedMenu, WhileItIsOpenFineTurnsAddUp) {
    ReleaseController();  // it has an empty menu
    EventRecorder recorder(kWindow);
    for (const std::uint32_t tag : {1U, 2U, 3U}) {
        dialsim_append_item(kWindow, "UInt32", tag);
    }
    EXPECT_TRUE(dialsim_open_menu(kWindow));
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(dialsim_turn(kWindow, 2.5), S_OK);
    }
    EXPECT_EQ(dialsim_click(kWindow), S_OK);
    EXPECT_NE(MenuText(kWindow).find("2 * "), std::string::npos);
    // The menu begins anew when it opens.
    EXPECT_TRUE(dialsim_open_menu(kWindow));
    dialsim_turn(kWindow, 4);
    dialsim_close_menu();
    EXPECT_TRUE(dialsim_open_menu(kWindow));
    dialsim_turn(kWindow, 4);
    dialsim_click(kWindow);
    EXPECT_NE(MenuText(kWindow).find("2 * "), std::string::npos);
}

TEST_F(SimulatedMenu, IsClosedWithoutAChoice) {
    EventRecorder recorder(kWindow);
    dialsim_append_item(kWindow, "UInt32", 1);
    EXPECT_TRUE(dialsim_open_menu(0));
    dialsim_close_menu();
    dialsim_click(kWindow);
    EXPECT_EQ(recorder.TakeEvents(), "click; ");
    EXPECT_EQ(MenuText(kWindow).find(" * "), std::string::npos);
}

TEST_F(SimulatedMenu, DoesNotOpenWithoutItems) {
    EXPECT_FALSE(dialsim_open_menu(kWindow));
    EXPECT_FALSE(dialsim_open_menu(kWindow + 1));
}

TEST_F(SimulatedMenu, ClosesWhenItsItemsAreGone) {
    EventRecorder recorder(kWindow);
    dialsim_append_item(kWindow, "UInt32", 1);
    EXPECT_TRUE(dialsim_open_menu(kWindow));
    dialsim_shrink_menu_after(kWindow, 0);
    dialsim_turn(kWindow, 10);
    EXPECT_EQ(recorder.TakeEvents(), "turn 10; ");
}

TEST_F(SimulatedMenu, TagsThatAreNoNumbersFailInTheirOwnWays) {
    dialsim_append_item(kWindow, "String", 7);
    dialsim_append_item(kWindow, "object", 7);
    const auto tag_at = [&](std::uint32_t index) {
        ComPtr<abi::IRadialControllerMenuItem> item;
        EXPECT_EQ(items_->GetAt(index, item.Put()), S_OK);
        ComPtr<abi::IInspectable> tag;
        EXPECT_EQ(item->get_Tag(tag.Put()), S_OK);
        return tag;
    };
    ComPtr<abi::IPropertyValue> value;
    ASSERT_EQ(Query(tag_at(0).Get(), value), S_OK);
    std::uint32_t number = 0;
    EXPECT_EQ(value->GetUInt32(&number), Code(0x80028CA0));
    EXPECT_EQ(Query(tag_at(1).Get(), value), E_NOINTERFACE);
}

TEST_F(SimulatedMenu, MayShrinkWhileItIsSearched) {
    for (std::uint32_t i = 0; i < 3; ++i) {
        dialsim_append_item(kWindow, "UInt32", i);
    }
    EXPECT_TRUE(dialsim_shrink_menu_after(kWindow, 2));
    std::vector<std::uint32_t> sizes;
    for (std::uint32_t i = 0; i < 3; ++i) {
        ComPtr<abi::IRadialControllerMenuItem> item;
        EXPECT_EQ(items_->GetAt(i, item.Put()), i < 2 ? S_OK : Code(0x8000000B));
        EXPECT_EQ(items_->get_Size(&sizes.emplace_back()), S_OK);
    }
    EXPECT_EQ(sizes, (std::vector<std::uint32_t>{3, 2, 2}));
    EXPECT_TRUE(dialsim_shrink_menu_after(kWindow, 0));
    EXPECT_EQ(items_->get_Size(&sizes[0]), S_OK);
    EXPECT_EQ(sizes[0], 1u);
    EXPECT_FALSE(dialsim_shrink_menu_after(kWindow + 1, 0));
}

TEST_F(SimulatedMenu, IsDrawnAsWellFormedXml) {
    AddKnownIcon("<Louder> & \"louder\" \x01\xEF\xBF\xBF", 3, 7);
    AddKnownIcon("A label that is by far too long to be shown as it is in a ring", 3, 8);
    dialsim_append_null_item(kWindow);
    dialsim_choose(kWindow, 0);
    const std::string picture = PictureOf(kWindow);
    EXPECT_EQ(picture.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg ", 0), 0u);
    EXPECT_NE(picture.find("&lt;Louder&gt; &amp; &quot;louder&quot;  \xEF\xBF\xBD<"), std::string::npos)
        << picture;
    EXPECT_NE(picture.find("A label that is by far too lon\xE2\x80\xA6<"), std::string::npos);
    EXPECT_NE(picture.find("no item"), std::string::npos);
    EXPECT_NE(picture.find("NextPreviousTrack"), std::string::npos);
    EXPECT_EQ(picture.find("\x01"), std::string::npos);
    EXPECT_EQ(dialsim_menu_svg(kWindow + 1, nullptr, 0), 1u);
}

// Sets the current folder for the lifetime of the object.
class CurrentFolder {
public:
    explicit CurrentFolder(const TemporaryFolder& folder) {
        std::filesystem::current_path(std::filesystem::path(folder.wide_path()));
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { std::filesystem::current_path(former_); }

private:
    const std::filesystem::path former_ = std::filesystem::current_path();
};

// The file is in the current folder: a path in a script must not contain blanks.
TEST_F(SimulatedMenu, IsDrawnIntoAFileByAScript) {
    AddKnownIcon("Louder", 3, 7);
    const TemporaryFile file("menu.svg", std::string());
    const CurrentFolder current(file.folder());
    char error[100] = "";
    EXPECT_TRUE(dialsim_play("draw menu menu.svg", 0, error, sizeof error)) << error;
    EXPECT_EQ(file.folder().Read(file.name()), PictureOf(0));
    EXPECT_FALSE(dialsim_play("draw journal x", 0, error, sizeof error));
    EXPECT_STREQ(error, "line 1: cannot draw 'journal'");
}

TEST_F(SimulatedMenu, IsPrintedByAScript) {
    testing::internal::CaptureStdout();
    EXPECT_TRUE(dialsim_play("show menu", 0, nullptr, 0));
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), MenuText(0));
}

}  // namespace
}  // namespace brindle
