// Menu items with the system's boxes, URIs, files and streams.
#include <algorithm>
#include <vector>

#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/storage_streams.h"
#include "platform/interfaces/uri.h"
#include "support/menu_items.h"
#include "support/pictures.h"
#include "system/system.h"

namespace system_tests {
namespace {

std::wstring ShortPathOf(const TemporaryFile& file) {
    WCHAR path[MAX_PATH];
    return {path, GetShortPathNameW(file.Path(), path, MAX_PATH)};
}

// As the system writes it, in ASCII.
std::string SystemUriOf(const std::wstring& path) {
    ComPtr<abi::IUriRuntimeClassFactory> uris;
    EXPECT_GE(brindle::GetFactory<abi::Uri>(uris), 0);
    ComPtr<abi::IUriRuntimeClass> uri;
    EXPECT_GE(uris->CreateUri(Borrowed(path).Get(), uri.Put()), 0) << "no URI";
    brindle::String text;
    EXPECT_GE(uri->get_AbsoluteUri(text.Put()), 0);
    const std::wstring wide = TextOf(text);
    return {wide.begin(), wide.end()};
}

class MenuItems : public ListeningSystemTest {
protected:
    static std::string FirstItem() {
        const std::string text = MenuText(kWindow);
        return text.substr(0, text.find('\n'));
    }
    // The tag of the item that the menu marks as selected.
    static std::string SelectedTag() {
        for (const std::string& line : LinesOf(MenuText(kWindow))) {
            if (line.find(" * \"") != std::string::npos) {
                return line.substr(line.find(", tag ") + 6);
            }
        }
        return "none";
    }
    // Whether the menu gets the picture of a file. The load has ended when its last factory is released.
    static bool ShowsFile(const TemporaryFile& file, const std::string& picture) {
        return SetMenu(kWindow, {FilePNG(4, file.Path())}) &&
               WaitUntil([&] { return FirstItem() == "0   \"File\" " + picture + ", tag 4"; }) &&
               WaitUntil([] { return dialsim_objects("IRadialControllerMenuItemStatics") == 0; });
    }
};

TEST_F(MenuItems, TagsAreBoxedAndReadBackByTheSystem) {
    REQUIRE_CLASS(abi::PropertyValue);
    const std::vector<std::uint32_t> tags = {5, 4294967294, 0, 9};
    std::vector<MenuItemDescription> items;
    std::transform(tags.begin(), tags.end(), std::back_inserter(items),
                   [](std::uint32_t tag) { return KnownIcon(tag); });
    ASSERT_TRUE(SetMenu(kWindow, items));
    for (const std::uint32_t tag : tags) {
        EXPECT_TRUE(set_current_custom_menu(kWindow, tag)) << tag;
        EXPECT_EQ(SelectedTag(), std::to_string(tag));
        dialsim_turn(kWindow, 1.0);
        EXPECT_EQ(host.LastRotation().selectedItemTag, tag);
    }
    EXPECT_FALSE(set_current_custom_menu(kWindow, 6));
    EXPECT_EQ(dialsim_calls("IPropertyValueStatics::CreateUInt32"), 0u) << "the simulator's boxes";
}

TEST_F(MenuItems, AFontFileGoesThroughTheSystemsUri) {
    REQUIRE_CLASS(abi::PropertyValue);
    REQUIRE_CLASS(abi::Uri);
    const TemporaryFile font("font.ttf", std::string("a font"));
    ASSERT_TRUE(SetMenu(kWindow, {CustomFont(7, font.Path())}));
    EXPECT_EQ(FirstItem(),
              "0   \"Own glyph\" glyph B of font file " + SystemUriOf(ShortPathOf(font)) + ", tag 7");
    EXPECT_EQ(dialsim_calls("IUriRuntimeClassFactory::CreateUri"), 0u) << "the simulator's URI";
}

TEST_F(MenuItems, APngFileIsReadThroughTheSystemsStreams) {
    REQUIRE_CLASS(abi::PropertyValue);
    REQUIRE_CLASS(abi::StorageFile);
    REQUIRE_CLASS(abi::RandomAccessStreamReference);
    const TemporaryFile picture("picture.png", SmallPng());
    EXPECT_TRUE(ShowsFile(picture, "PNG picture 2x3")) << MenuText(kWindow);
}

TEST_F(MenuItems, AFileThatIsNoPictureIsBroken) {
    REQUIRE_CLASS(abi::PropertyValue);
    REQUIRE_CLASS(abi::StorageFile);
    REQUIRE_CLASS(abi::RandomAccessStreamReference);
    const TemporaryFile text("text.png", std::string("no picture"));
    EXPECT_TRUE(ShowsFile(text, "broken picture")) << MenuText(kWindow);
}

TEST_F(MenuItems, APngResourceIsReadThroughTheSystemsStreams) {
    REQUIRE_CLASS(abi::PropertyValue);
    REQUIRE_CLASS(abi::RandomAccessStreamReference);
    ASSERT_TRUE(SetMenu(kWindow, {ResourcePNG(3, ModuleWithPng(), kPngResource)}));
    EXPECT_EQ(FirstItem(), "0   \"Resource\" PNG picture 2x3, tag 3");
}

}  // namespace
}  // namespace system_tests
