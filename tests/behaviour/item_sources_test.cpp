// Items from glyphs, picture files and resources.
#include <string>
#include <vector>

#include "menu.h"
#include "support/edges.h"
#include "support/file_uri.h"
#include "support/pictures.h"

namespace {

constexpr char kUris[] = "RoGetActivationFactory(Windows.Foundation.Uri)";
constexpr char kFiles[] = "RoGetActivationFactory(Windows.Storage.StorageFile)";
constexpr char kReferences[] = "RoGetActivationFactory(Windows.Storage.Streams.RandomAccessStreamReference)";
constexpr char kOpen[] = "IStorageFileStatics::GetFileFromPathAsync";
constexpr char kCreateFromIcon[] = "IRadialControllerMenuItemStatics::CreateFromIcon";

class ItemSource : public ListeningTest {
protected:
    static bool Shows(const std::string& item) { return MenuText(kWindow).find(item) != std::string::npos; }
    static std::string Line(int line, const char* code = "80004005") {
        return "failed with " + std::string(code) + " at line " + std::to_string(line) + "\n";
    }
    static std::string NamedLine(const char* step, int line, const char* code = "80004005") {
        return std::string(step) + " " + Line(line, code);
    }
};

// A text of `length` units whose last one shows truncation, and its printed form.
WideText LongText(std::size_t length) {
    WideText text(length, 'x');
    if (length > 0) {
        text.back() = 0x9F8D;  // its top bit is set
    }
    return text;
}
std::string LongUtf8(std::size_t length) {
    return length == 0 ? "" : std::string(length - 1, 'x') + "\xE9\xBE\x8D";
}

class FontFile : public ItemSource {
protected:
    // The content does not matter: the library only reads the short name.
    const TemporaryFile font_{"a font with a long name.ttf", SmallPng()};

    // The item's text when the font file is shown through its short name. On Windows the volume decides that
    // name, and some volumes have none.
    static std::string ShownAs(const TemporaryFile& font, [[maybe_unused]] const char* native_short_name) {
#ifdef _WIN32
        wchar_t path[MAX_PATH];
        const DWORD length = GetShortPathNameW(font.Path(), path, MAX_PATH);
        const std::string short_path = TemporaryFolder::Utf8Of({path, length});
#else
        const std::string short_path = font.folder().PathOf(native_short_name);
#endif
        return "\"Own glyph\" glyph B of font file " + FileUriOf(short_path) + ", tag 5\n";
    }
};

constexpr const char* kIconNames[] = {"Scroll", "Zoom",     "UndoRedo",     "Volume", "NextPreviousTrack",
                                      "Ruler",  "InkColor", "InkThickness", "PenType"};

using KnownIcons = ItemSource;

TEST_F(KnownIcons, AreThePlatformsNineWhateverTheUpperHalfOfTheirSource) {
    for (const std::uint64_t upper :
         {std::uint64_t{0}, std::uint64_t{1} << 32, std::uint64_t{0xFFFFFFFF} << 32}) {
        for (std::uint32_t icon = 0; icon < std::size(kIconNames); ++icon) {
            MenuItemDescription item = KnownIcon(1);
            item.source.number = upper | icon;
            EXPECT_TRUE(SetMenu(kWindow, {item}));
            EXPECT_TRUE(Shows("known icon " + std::string(kIconNames[icon]) + ", tag 1")) << upper;
        }
    }
}

class UnknownIcon : public ItemSource, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(UnknownIcon, IsPassedOnUnchangedAndThePlatformsToJudge) {
    EXPECT_TRUE(SetMenu(kWindow, {KnownIcon(1, GetParam()), KnownIcon(2)}));
    const std::string call =
        "IRadialControllerMenuItemStatics::CreateFromKnownIcon(" + std::to_string(GetParam()) + ")";
    EXPECT_EQ(dialsim_calls(call.c_str()), 6u);
    EXPECT_EQ(Printed(), Line(515, "80070057") + Line(515, "80070057") +
                             NamedLine("AddMenuItemFromKnownIcon", 152, "80070057"));
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
}

INSTANTIATE_TEST_SUITE_P(AtTheEdges, UnknownIcon,
                         testing::Values(9, 0x100, 0x10003, 0x7FFFFFFF, 0x80000000, 0x80000003, 0xFFFFFFFF));

TEST_F(ItemSource, AGlyphOfAnInstalledFontIsShown) {
    EXPECT_TRUE(SetMenu(kWindow, {SystemFont(4)}));
    EXPECT_TRUE(Shows("\"Glyph\" glyph A of Symbols, tag 4"));
}

TEST_F(FontFile, AGlyphOfAFontFileIsShownThroughItsShortName) {
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font_.Path())}));
    EXPECT_TRUE(Shows(ShownAs(font_, "AFONTW~1.TTF"))) << MenuText(kWindow);
    EXPECT_EQ(dialsim_calls("IUriRuntimeClass::get_AbsoluteUri"), 1u);
    EXPECT_EQ(dialsim_calls("IRadialControllerMenuItem::get_DisplayText"), 1u);
}

TEST_F(FontFile, AFontFileMayHaveALongName) {
    const TemporaryFile font(std::string(100, 'f') + ".ttf", SmallPng());
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font.Path())}));
    EXPECT_TRUE(Shows(ShownAs(font, "FFFFFF~1.TTF"))) << MenuText(kWindow);
}

TEST_F(FontFile, TheBufferForAShortNameIsAsLongAsThePlatformSays) {
    dialsim_fail("GetShortPathNameW", kVeryMany, 1, 1);
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font_.Path())}));
    const std::string call =
        "GetShortPathNameW(" + font_.NarrowPath() + ", " + std::to_string(kVeryMany) + ")";
    EXPECT_EQ(dialsim_calls(call.c_str()), 1u);
    EXPECT_TRUE(Shows("font file file:///"));
}

// The platform reports a written name and has written none.
TEST_F(FontFile, AnEmptyShortNameIsThePlatformsToJudge) {
    dialsim_fail("GetShortPathNameW", 7, 2, 1);
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font_.Path())}));
    EXPECT_EQ(dialsim_calls("IUriRuntimeClassFactory::CreateUri()"), 6u);
    EXPECT_EQ(Printed(), Line(556, "80070057") + Line(556, "80070057") +
                             NamedLine("AddMenuItemFromCustomFont", 189, "80070057"));
}

TEST_F(FontFile, AnEmptyPathThatExistsIsAskedForItsShortName) {
    dialsim_fail("PathFileExistsW", 1, 1, 1);
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, UTF16(""))}));
    EXPECT_EQ(dialsim_calls("GetShortPathNameW"), 1u);
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

TEST_F(FontFile, AFontFileThatDoesNotExistIsSkippedSilently) {
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, UTF16("/no/such.ttf"))}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
    EXPECT_EQ(dialsim_strings(), 0u);
    EXPECT_EQ(dialsim_calls("GetShortPathNameW"), 0u);
}

TEST_F(FontFile, AnUnavailableShortNameIsSkippedSilently) {
    for (const std::uint32_t call : {1u, 2u}) {
        dialsim_yield_null("GetShortPathNameW", call, 1);
        EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font_.Path())}));
        EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
        EXPECT_EQ(dialsim_strings(), 0u);
    }
}

TEST_F(FontFile, AShortNameThatNoLongerFitsIsSkippedSilently) {
    dialsim_fail("GetShortPathNameW", 3, 1, 1);
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font_.Path())}));
    EXPECT_EQ(dialsim_calls("GetShortPathNameW"), 2u);
    EXPECT_EQ(dialsim_calls("IUriRuntimeClassFactory::CreateUri"), 0u);
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
    EXPECT_EQ(dialsim_strings(), 0u);
}

TEST_F(FontFile, ALongShortNameThatNoLongerFitsIsSkippedSilentlyToo) {
    dialsim_fail("GetShortPathNameW", kVeryMany, 1, 2);
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font_.Path())}));
    EXPECT_EQ(dialsim_calls("GetShortPathNameW"), 2u);
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

struct SourceStep {
    const char* operation;
    int line;
};

void PrintTo(const SourceStep& step, std::ostream* stream) { *stream << "line " << step.line; }

class FontFileStep : public FontFile, public testing::WithParamInterface<SourceStep> {};

TEST_P(FontFileStep, ThatFailsIsTriedSixTimesAndTheEntryRecorded) {
    dialsim_fail(GetParam().operation, kFail, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font_.Path())}));
    EXPECT_EQ(dialsim_calls(GetParam().operation), 6u);
    EXPECT_EQ(Printed(),
              Line(GetParam().line) + Line(GetParam().line) + NamedLine("AddMenuItemFromCustomFont", 189));
    EXPECT_EQ(dialsim_strings(), 1u);
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

INSTANTIATE_TEST_SUITE_P(
    All, FontFileStep,
    testing::Values(SourceStep{kItemStatics, 543}, SourceStep{kUris, 552},
                    SourceStep{"IUriRuntimeClassFactory::CreateUri", 556},
                    SourceStep{"IUriRuntimeClass::get_AbsoluteUri", 562},
                    SourceStep{"IRadialControllerMenuItemStatics2::CreateFromFontGlyphWithUri", 567},
                    SourceStep{"IRadialControllerMenuItem::get_DisplayText", 573}),
    [](const auto& step_info) { return "Line" + std::to_string(step_info.param.line); });

TEST_F(FontFile, AUriOrAnItemThatIsYieldedAsNullIsNoInterface) {
    for (const char* operation : {"IUriRuntimeClassFactory::CreateUri",
                                  "IRadialControllerMenuItemStatics2::CreateFromFontGlyphWithUri"}) {
        dialsim_yield_null(operation, 1, 2);
        EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font_.Path())}));
        EXPECT_EQ(Printed(), NamedLine("AddMenuItemFromCustomFont", 189, "80004002")) << operation;
    }
}

TEST_F(FontFile, ATagThatAlwaysFailsIsPrintedByTheAddingStep) {
    dialsim_fail(kPutTag, kFail, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(5, font_.Path())}));
    const std::string builder = Line(760) + Line(760) + Line(575) + Line(760);
    EXPECT_EQ(Printed(), builder + builder + NamedLine("AddMenuItemFromCustomFont", 189));
}

class GlyphLength : public FontFile, public testing::WithParamInterface<std::size_t> {};

TEST_P(GlyphLength, OfEitherSourceAndOfTheFontsNameIsNotLimited) {
    const WideText text = LongText(GetParam());
    const std::string expected = LongUtf8(GetParam());
    MenuItemDescription installed = SystemFont(1);
    MenuItemDescription own = CustomFont(2, font_.Path());
    installed.source.text = own.source.text = text.c_str();
    installed.source2.text = own.source2.text = text.c_str();
    EXPECT_TRUE(SetMenu(kWindow, {installed, own}));
    EXPECT_TRUE(Shows("glyph " + expected + " of " + expected + ", tag 1"));
    EXPECT_TRUE(Shows("glyph " + expected + " of font file file:///"));
}

INSTANTIATE_TEST_SUITE_P(All, GlyphLength, testing::Values(0, 1, 2, 255, 256, kVeryMany, 65'536));

class PictureFile : public ItemSource {
protected:
    void SetUp() override {
        ItemSource::SetUp();
        dialsim_async(DIALSIM_HELD);
    }
    const TemporaryFile picture_{"brindle-picture.png", SmallPng()};
};

TEST_F(PictureFile, AppearsOnlyAfterTheCall) {
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(6, picture_.Path())}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
    EXPECT_EQ(dialsim_strings(), 0u);
    EXPECT_EQ(dialsim_complete_all(), 0);
    EXPECT_TRUE(Shows("\"File\" PNG file 2x3, tag 6"));
    EXPECT_EQ(dialsim_strings(), 1u);
}

TEST_F(PictureFile, MayHaveBeenOpenedBeforeTheHandlerIsAttached) {
    dialsim_async(DIALSIM_AT_ONCE);
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(6, picture_.Path())}));
    EXPECT_TRUE(Shows("PNG file 2x3"));
}

TEST_F(PictureFile, MayBeOpenedOnAnotherThread) {
    dialsim_async(DIALSIM_OWN_THREAD);
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(6, picture_.Path())}));
    dialsim_wait_for_async();
    EXPECT_TRUE(Shows("PNG file 2x3"));
}

TEST_F(PictureFile, SeveralAppearInTheOrderOfTheirOpening) {
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path()), FilePNG(2, picture_.Path())}));
    EXPECT_EQ(dialsim_complete(1), 0);
    EXPECT_EQ(dialsim_complete(0), 0);
    EXPECT_LT(MenuText(kWindow).find("tag 2"), MenuText(kWindow).find("tag 1"));
}

TEST_F(PictureFile, MayNeverBeOpened) {
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    dialsim_abandon_pending();
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

TEST_F(PictureFile, ThatDoesNotExistAppearsNowhereAndPrintsNothing) {
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, UTF16("/no/such.png"))}));
    EXPECT_LT(dialsim_complete(0), 0);
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
    EXPECT_EQ(dialsim_strings(), 0u);
}

TEST_F(PictureFile, MayBeLarge) {
    std::vector<std::uint8_t> bytes = SmallPng();
    bytes.resize(3'000'001);
    const TemporaryFile large("large.png", bytes);
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, large.Path())}));
    EXPECT_EQ(dialsim_complete_all(), 0);
    EXPECT_TRUE(Shows("\"File\" PNG file 2x3, tag 1"));
}

TEST_F(PictureFile, MayBeOneOfAHundredOpenedBackwards) {
    constexpr std::uint32_t kPictures = 100;
    std::vector<MenuItemDescription> items;
    std::vector<std::string> expected;
    for (std::uint32_t i = 0; i < kPictures; ++i) {
        items.push_back(FilePNG(i, picture_.Path()));
    }
    EXPECT_TRUE(SetMenu(kWindow, items));
    for (std::uint32_t i = kPictures; i-- > 0;) {
        EXPECT_EQ(dialsim_complete(i), 0);
        expected.push_back("tag " + std::to_string(i));
    }
    const std::vector<std::string> lines = LinesOf(MenuText(kWindow));
    ASSERT_GT(lines.size(), kPictures);
    for (std::uint32_t i = 0; i < kPictures; ++i) {
        EXPECT_TRUE(lines[i].ends_with(expected[i])) << lines[i];
    }
}

TEST_F(PictureFile, MayHaveAPathOfAnyLengthForThePlatformToJudge) {
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{1}, std::size_t{5000}, std::size_t{65'536}}) {
        const WideText path = LongText(length);
        EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, path.c_str())}));
        EXPECT_EQ(dialsim_calls((kOpen + ("(" + LongUtf8(length) + ")")).c_str()), 1u) << length;
        EXPECT_LT(dialsim_complete_all(), 0) << length;
    }
}

TEST_F(PictureFile, WhoseOpeningStartsOrIsCanceledDoesNothing) {
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path()), FilePNG(2, picture_.Path())}));
    EXPECT_EQ(dialsim_complete_as(0, 0), 1);
    EXPECT_EQ(dialsim_complete_as(1, 2), 1);
    EXPECT_EQ(dialsim_calls("IAsyncOperation<StorageFile>::GetResults"), 0u);
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

TEST_F(PictureFile, WhoseOpeningReportsAnErrorIsUsedIfItIsThere) {
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    dialsim_fail_late("IAsyncOperation<StorageFile>::GetResults", kFail, 1, 1);
    EXPECT_EQ(dialsim_complete(0), 0);
    EXPECT_TRUE(Shows("PNG file 2x3"));
}

TEST_F(PictureFile, HasNoHapticSettingOfItsOwn) {
    EXPECT_TRUE(SetMenu(kWindow, {WithHaptics(FilePNG(1, picture_.Path()))}));
    EXPECT_EQ(dialsim_complete_all(), 0);
    EXPECT_EQ(dialsim_choose(kWindow, 0), 0);
    EXPECT_EQ(dialsim_calls("IRadialController::put_UseAutomaticHapticFeedback(0)"), 1u);
}

TEST_F(PictureFile, WhoseHandlerCannotBeAttachedIsStillASuccess) {
    dialsim_fail("IAsyncOperation<StorageFile>::put_Completed", kFail, 1, 1);
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    EXPECT_EQ(dialsim_calls(kOpen), 1u);
    dialsim_abandon_pending();
}

TEST_F(PictureFile, ThatCannotBeOpenedIsTriedSixTimes) {
    dialsim_fail(kOpen, kFail, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    EXPECT_EQ(dialsim_calls(kOpen), 6u);
    EXPECT_EQ(Printed(), Line(589) + Line(589) + NamedLine("AddMenuItemFromFilePNG", 199));
}

TEST_F(PictureFile, WhoseOpeningIsYieldedAsNullIsNoInterface) {
    dialsim_yield_null(kOpen, 1, 2);
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    EXPECT_EQ(dialsim_calls(kOpen), 2u);
    EXPECT_EQ(Printed(), NamedLine("AddMenuItemFromFilePNG", 199, "80004002"));
}

TEST_F(PictureFile, OfAPlatformWithoutFilesIsTriedSixTimes) {
    dialsim_fail(kFiles, kFail, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    EXPECT_EQ(Printed(), Line(586) + Line(586) + NamedLine("AddMenuItemFromFilePNG", 199));
}

// The second attempt of the source starts a second load.
TEST_F(PictureFile, WhoseFirstAttemptFailsIsLoadedByTheSecond) {
    dialsim_fail_late(kOpen, kFail, 1, 3);
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    EXPECT_EQ(dialsim_calls(kOpen), 4u);
    EXPECT_EQ(Printed(), Line(589) + NamedLine("AddMenuItemFromFilePNG", 199, "0"));
    EXPECT_EQ(dialsim_pending(), 1u);
    EXPECT_EQ(dialsim_complete_all(), 0);
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
}

class CompletionStep : public PictureFile, public testing::WithParamInterface<SourceStep> {};

TEST_P(CompletionStep, ThatFailsIsTriedThreeTimesAndItsCodeGoesToThePlatform) {
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    dialsim_clear_journal();
    dialsim_fail(GetParam().operation, kAccessDenied, 1, 0);
    EXPECT_EQ(dialsim_complete(0), kAccessDenied);
    EXPECT_EQ(dialsim_calls(GetParam().operation), 3u);
    EXPECT_EQ(Printed(), Line(GetParam().line, "80070005"));
    EXPECT_EQ(dialsim_strings(), 0u);
}

INSTANTIATE_TEST_SUITE_P(All, CompletionStep,
                         testing::Values(SourceStep{kReferences, 627},
                                         SourceStep{"IRandomAccessStreamReferenceStatics::CreateFromFile",
                                                    630},
                                         SourceStep{kItemStatics, 639}, SourceStep{kCreateFromIcon, 642}),
                         [](const auto& step_info) { return "Line" + std::to_string(step_info.param.line); });

TEST_F(PictureFile, WhoseTagAlwaysFailsIsInTheMenuButNotRecorded) {
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    dialsim_fail(kPutTag, kFail, 1, 0);
    EXPECT_EQ(dialsim_complete(0), kFail);
    EXPECT_EQ(Printed(), Line(760) + Line(760) + Line(649) + Line(760));
    EXPECT_EQ(dialsim_objects(kMenuItems), 1u);
    EXPECT_EQ(dialsim_strings(), 0u);
}

// The completion handler converts an error to a code. The window's menu was not available meanwhile, so that
// the item has no menu.
TEST_F(PictureFile, ThatComesWhenTheWindowHasNoMenuIsAFailure) {
    for (const bool fails : {true, false}) {
        ASSERT_TRUE(SetMenu(kWindow, {FilePNG(6, picture_.Path())}));
        ASSERT_TRUE(fails ? dialsim_fail(kGetMenu, kFail, 1, 3) : dialsim_yield_null(kGetMenu, 1, 1));
        EXPECT_FALSE(SetMenu(kWindow, {}));
        EXPECT_EQ(Printed(), fails ? Line(124) : "");
        EXPECT_EQ(dialsim_complete_all(), kNoInterface);
        EXPECT_EQ(Printed(), Line(649, "80004002"));
    }
    EXPECT_EQ(dialsim_calls(kAddInvoked), 0u);
    EXPECT_EQ(dialsim_strings(), 0u);
}

TEST_F(PictureFile, WhoseLabelIsRefusedInTheCompletionAnswersTheCode) {
    EXPECT_TRUE(SetMenu(kWindow, {FilePNG(1, picture_.Path())}));
    dialsim_fail("WindowsDuplicateString", kOutOfMemory, 1, 1);
    EXPECT_EQ(dialsim_complete(0), kOutOfMemory);
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

using PictureResource = ItemSource;

TEST_F(PictureResource, IsShownAndRecorded) {
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(7, ModuleWithPng(), kPngResource)}));
    EXPECT_TRUE(Shows("\"Resource\" PNG image 2x3, tag 7"));
    EXPECT_EQ(dialsim_strings(), 1u);
    EXPECT_EQ(dialsim_blocks(), 0u);
}

// The platform may still hold the stream over the memory.
TEST_F(PictureResource, IsFreedAsSoonAsItsItemIsAdded) {
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(7, ModuleWithPng(), kPngResource)}));
    const std::string journal = Journal();
    EXPECT_LT(journal.find(kPutTag), journal.find("GlobalFree"));
    EXPECT_NE(journal.find("GlobalFree"), std::string::npos);
}

class ResourceIdentifier : public ItemSource, public testing::WithParamInterface<std::uint64_t> {};

TEST_P(ResourceIdentifier, CountsModulo65536) {
    const auto low = static_cast<std::uint16_t>(GetParam());
    MenuItemDescription item = ResourcePNG(7, ModuleWithPng(low), 0);
    item.source2.number = GetParam();
    EXPECT_TRUE(SetMenu(kWindow, {item}));
    EXPECT_TRUE(Shows("\"Resource\" PNG image 2x3, tag 7"));
    const std::string search = "FindResourceW(" + std::to_string(low) + ", PNG)";
    EXPECT_EQ(dialsim_calls(search.c_str()), 1u);
}

INSTANTIATE_TEST_SUITE_P(AtTheEdges, ResourceIdentifier,
                         testing::Values(1, 255, 256, 0x7FFF, 0x8000, 0xFFFF, 0x10001, 0x1FFFF, 0x80000001,
                                         0xFFFFFFFF, 0x100000001, 0xFFFFFFFF00008000, UINT64_MAX));

TEST_F(PictureResource, ThatIsNotThereIsAFailureWithOneLine) {
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(7, ModuleWithPng(), 9999)}));
    EXPECT_EQ(dialsim_calls("FindResourceW"), 2u);
    EXPECT_EQ(Printed(), NamedLine("AddMenuItemFromResourcePNG", 203));
    EXPECT_EQ(dialsim_strings(), 0u);
}

TEST_F(PictureResource, ThatCannotBeLoadedIsAFailureWithoutALeak) {
    for (const char* operation : {"SizeofResource", "LoadResource", "LockResource", "GlobalAlloc",
                                  "GlobalLock", "CreateStreamOnHGlobal", "IStream::Write"}) {
        ASSERT_TRUE(dialsim_yield_null(operation, 1, 2)) << operation;
        EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(7, ModuleWithPng(), kPngResource)}));
        EXPECT_EQ(Printed(), NamedLine("AddMenuItemFromResourcePNG", 203)) << operation;
        EXPECT_EQ(dialsim_blocks(), 0u) << operation;
        EXPECT_EQ(dialsim_objects(kMenuItems), 0u) << operation;
    }
}

TEST_F(PictureResource, WhoseStreamFailsLateIsAFailureThatReleasesTheStream) {
    ASSERT_TRUE(dialsim_fail_late("CreateStreamOnHGlobal", kAccessDenied, 1, 2));
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(7, ModuleWithPng(), kPngResource)}));
    EXPECT_EQ(Printed(), NamedLine("AddMenuItemFromResourcePNG", 203));
    EXPECT_EQ(dialsim_calls("IStream::Write"), 0u);
    EXPECT_EQ(dialsim_blocks(), 0u);
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
}

class ResourceStep : public ItemSource, public testing::WithParamInterface<SourceStep> {};

TEST_P(ResourceStep, ThatFailsIsTriedSixTimesAndNothingRecorded) {
    dialsim_fail(GetParam().operation, kFail, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(7, ModuleWithPng(), kPngResource)}));
    EXPECT_EQ(dialsim_calls(GetParam().operation), 6u);
    EXPECT_EQ(Printed(),
              Line(GetParam().line) + Line(GetParam().line) + NamedLine("AddMenuItemFromResourcePNG", 203));
    EXPECT_EQ(dialsim_strings(), 0u);
    EXPECT_EQ(dialsim_blocks(), 0u);
}

INSTANTIATE_TEST_SUITE_P(All, ResourceStep,
                         testing::Values(SourceStep{kReferences, 671}, SourceStep{kItemStatics, 676},
                                         SourceStep{"CreateRandomAccessStreamOverStream", 700},
                                         SourceStep{"IRandomAccessStreamReferenceStatics::CreateFromStream",
                                                    706}),
                         [](const auto& step_info) { return "Line" + std::to_string(step_info.param.line); });

TEST_F(PictureResource, WhoseReferenceIsYieldedAsNullAddsNothingSilently) {
    dialsim_yield_null("IRandomAccessStreamReferenceStatics::CreateFromStream", 1, 1);
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(7, ModuleWithPng(), kPngResource)}));
    EXPECT_EQ(dialsim_objects(kMenuItems), 0u);
    EXPECT_EQ(dialsim_strings(), 0u);
}

// Each of the source's two attempts evaluates these two steps once, unlike all other steps.
TEST_F(PictureResource, WhoseItemCannotBeMadeIsNamedWithItsStep) {
    dialsim_fail(kCreateFromIcon, kFail, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(7, ModuleWithPng(), kPngResource)}));
    EXPECT_EQ(dialsim_calls(kCreateFromIcon), 2u);
    EXPECT_EQ(Printed(), NamedLine("CreateFromIcon", 715) + NamedLine("CreateFromIcon", 715) +
                             NamedLine("AddMenuItemFromResourcePNG", 203));
    EXPECT_EQ(dialsim_blocks(), 0u);
}

TEST_F(PictureResource, WhoseTagAlwaysFailsIsInTheMenuButNotRecorded) {
    dialsim_fail(kPutTag, kFail, 1, 0);
    EXPECT_TRUE(SetMenu(kWindow, {ResourcePNG(7, ModuleWithPng(), kPngResource)}));
    EXPECT_EQ(dialsim_calls(kPutTag), 6u);
    const std::string builder = Line(760) + Line(727);
    EXPECT_EQ(Printed(), builder + builder + NamedLine("AddMenuItemFromResourcePNG", 203));
    EXPECT_EQ(dialsim_objects(kMenuItems), 2u);
    EXPECT_EQ(dialsim_strings(), 0u);
}

// A menu with one item of each source.
class EverySource : public FontFile {
protected:
    std::vector<MenuItemDescription> Items(std::uint32_t item_id) {
        return {KnownIcon(item_id), SystemFont(item_id), CustomFont(item_id, font_.Path()),
                ResourcePNG(item_id, ModuleWithPng(), kPngResource), FilePNG(item_id, picture_.Path())};
    }
    // The menu's lines, one for each item.
    static std::vector<std::string> RecordedCall(const std::vector<MenuItemDescription>& items) {
        dialsim_async(DIALSIM_AT_ONCE);
        EXPECT_TRUE(SetMenu(kWindow, items));
        std::vector<std::string> lines = LinesOf(MenuText(kWindow));
        EXPECT_EQ(lines.size(), items.size() + 2) << "the items and the two system lines";
        lines.resize(items.size());
        return lines;
    }

    const TemporaryFile picture_{"picture.png", SmallPng()};
};

TEST_F(EverySource, HasItsSettingAfterFiveThousandItems) {
    EXPECT_TRUE(SetMenu(kWindow, std::vector<MenuItemDescription>(kVeryMany, KnownIcon(0))));
    std::vector<MenuItemDescription> items = Items(0);
    for (MenuItemDescription& item : items) {
        item = WithHaptics(item);
        item.item_id = static_cast<std::uint32_t>(&item - items.data()) + 1;
    }
    RecordedCall(items);
    for (std::uint32_t item = 0; item < items.size(); ++item) {
        EXPECT_EQ(dialsim_choose(kWindow, item), 0);
    }
    EXPECT_EQ(dialsim_calls("IRadialController::put_UseAutomaticHapticFeedback(1)"), 4u);
    EXPECT_EQ(dialsim_calls("IRadialController::put_UseAutomaticHapticFeedback(0)"), 1u)
        << "the picture file's";
}

class IdentifierOfEverySource : public EverySource, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(IdentifierOfEverySource, IsTheItemsTagAndFindsItsSetting) {
    for (const std::string& line : RecordedCall(Items(GetParam()))) {
        EXPECT_TRUE(line.ends_with(", tag " + std::to_string(GetParam()))) << line;
    }
    for (std::uint32_t item = 0; item < 5; ++item) {
        EXPECT_EQ(dialsim_choose(kWindow, item), 0);
        EXPECT_EQ(dialsim_turn(kWindow, 1.0), 0);
        EXPECT_EQ(host.LastRotation().selectedItemTag, GetParam());
    }
    EXPECT_EQ(dialsim_calls("IRadialController::put_UseAutomaticHapticFeedback(0)"), 5u);
}

INSTANTIATE_TEST_SUITE_P(AtTheEdges, IdentifierOfEverySource, testing::ValuesIn(kNumbersAtTheEdges));

class LabelOfEverySource : public EverySource, public testing::WithParamInterface<std::size_t> {};

TEST_P(LabelOfEverySource, IsShownCompletelyAndMayBeChosen) {
    const WideText label = LongText(GetParam());
    std::vector<MenuItemDescription> items = Items(1);
    for (MenuItemDescription& item : items) {
        item.display_text = label.c_str();
    }
    for (const std::string& line : RecordedCall(items)) {
        EXPECT_TRUE(line.ends_with(", tag 1"));
        EXPECT_NE(line.find(" \"" + LongUtf8(GetParam()) + "\" "), std::string::npos) << line.substr(0, 100);
    }
    for (std::uint32_t item = 0; item < 5; ++item) {
        EXPECT_EQ(dialsim_choose(kWindow, item), 0);
    }
}

// Around the limit of 2000 characters of the informational line, and far above it.
INSTANTIATE_TEST_SUITE_P(All, LabelOfEverySource,
                         testing::Values(0, 1, 1980, 1990, 2000, 2010, kVeryMany, 65'535, 65'536, 100'000));

}  // namespace
