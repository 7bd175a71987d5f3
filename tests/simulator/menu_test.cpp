// The simulator's menu and what its items are made of, as a program that uses the platform directly meets
// them.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "event_recorder.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/stream.h"
#include "platform/interfaces/ui_input_menu.h"
#include "platform/text.h"
#include "support/pictures.h"

namespace brindle {
namespace {

// The beginnings of two pictures; nothing behind them is looked at.
const std::string kPng32("\x89PNG\r\n\x1a\n\0\0\0\x0DIHDR\0\0\0\x20\0\0\0\x20\x08\x06\0\0\0\x73\x7A\x7A\xF4",
                         33);
const std::string kPng16("\x89PNG\r\n\x1a\n\0\0\0\x0DIHDR\0\0\0\x10\0\0\0\x10\x08\x06\0\0\0\x1F\xF3\xFF\x61",
                         33);

std::string Of(std::uint64_t window, std::size_t (*copy_out)(std::uint64_t, char*, std::size_t)) {
    std::string text(copy_out(window, nullptr, 0), '\0');
    copy_out(window, text.data(), text.size());
    text.pop_back();  // the terminator
    return text;
}

std::string MenuOf(std::uint64_t window) { return Of(window, dialsim_menu); }
std::string PictureOf(std::uint64_t window) { return Of(window, dialsim_menu_svg); }

std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

class SimulatedMenu : public SimulatorApartmentTest {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        controller_ = MakeController(kWindow);
        ASSERT_EQ(controller_->get_Menu(menu_.Put()), S_OK);
        ASSERT_EQ(menu_->get_Items(items_.Put()), S_OK);
        dialsim_clear_journal();
    }
    void TearDown() override {
        ReleaseController();
        SimulatorApartmentTest::TearDown();
    }

    void ReleaseController() {
        items_.Reset();
        menu_.Reset();
        controller_.Reset();
    }

    template <class Class, class Factory>
    static ComPtr<Factory> FactoryOf() {
        ComPtr<Factory> factory;
        EXPECT_EQ(GetFactory<Class>(factory), S_OK);
        return factory;
    }
    static auto ItemStatics() {
        return FactoryOf<abi::RadialControllerMenuItem, abi::IRadialControllerMenuItemStatics>();
    }
    void AddKnownIcon(const char* label, int icon, std::uint32_t tag) {
        ComPtr<abi::IRadialControllerMenuItem> item;
        EXPECT_EQ(ItemStatics()->CreateFromKnownIcon(ToPlatformString(label).Get(),
                                                     static_cast<abi::RadialControllerMenuKnownIcon>(icon),
                                                     item.Put()),
                  S_OK);
        ComPtr<abi::IInspectable> value;
        const auto values = FactoryOf<abi::PropertyValue, abi::IPropertyValueStatics>();
        EXPECT_EQ(values->CreateUInt32(tag, value.Put()), S_OK);
        EXPECT_EQ(item->put_Tag(value.Get()), S_OK);
        EXPECT_EQ(items_->Append(item.Get()), S_OK);
    }

    ComPtr<abi::IRadialController> controller_;
    ComPtr<abi::IRadialControllerMenu> menu_;
    ComPtr<abi::IVector<abi::RadialControllerMenuItem>> items_;
};

TEST_F(SimulatedMenu, IsEmptyAtTheStartButForTheSystemsItems) {
    EXPECT_EQ(MenuOf(kWindow),
              "system items: Scroll, Zoom, UndoRedo, Volume, NextPreviousTrack\nautomatic haptics: on\n");
}

TEST_F(SimulatedMenu, IsShownInOrderWithTheSelectedItemMarked) {
    AddKnownIcon("Louder", 3, 7);
    AddKnownIcon("Bigger", 1, 4294967295);
    EXPECT_EQ(dialsim_choose(kWindow, 1), S_OK);
    EXPECT_EQ(controller_->put_UseAutomaticHapticFeedback(0), S_OK);
    EXPECT_EQ(MenuOf(0),
              "0   \"Louder\" known icon Volume, tag 7\n1 * \"Bigger\" known icon Zoom, tag 4294967295\n"
              "system items: Scroll, Zoom, UndoRedo, Volume, NextPreviousTrack\nautomatic haptics: off\n");
}

TEST_F(SimulatedMenu, OfAWindowWithoutAControllerIsNothing) { EXPECT_EQ(MenuOf(kWindow + 1), ""); }

TEST_F(SimulatedMenu, ShowsWhatItsOwnerWouldNotPutThere) {
    EXPECT_TRUE(dialsim_append_null_item(kWindow));
    EXPECT_TRUE(dialsim_append_item(kWindow, "none", 1));
    EXPECT_TRUE(dialsim_append_item(kWindow, "String", 2));
    EXPECT_TRUE(dialsim_append_item(kWindow, "object", 3));
    EXPECT_TRUE(dialsim_append_item(kWindow, "UInt32", 4));
    EXPECT_FALSE(dialsim_append_item(kWindow, "Sint32", 5));
    EXPECT_FALSE(dialsim_append_null_item(kWindow + 1));
    EXPECT_EQ(
        MenuOf(kWindow).substr(0, MenuOf(kWindow).find("system")),
        "0   no item\n1   \"appended\" no picture, tag -\n2   \"appended\" no picture, tag not a number\n"
        "3   \"appended\" no picture, tag not a number\n4   \"appended\" no picture, tag 4\n");
    EXPECT_EQ(Journal(), "");
    EXPECT_EQ(dialsim_choose(kWindow, 0), Code(0x8000000B));
    EXPECT_EQ(dialsim_choose(kWindow, 2), S_OK);
}

TEST_F(SimulatedMenu, WhileItIsOpenTurnsGoRoundTheRingAndAClickChooses) {
    ReleaseController();  // which has an empty menu
    EventRecorder recorder(kWindow);
    for (const std::uint32_t tag : {1U, 2U, 3U}) {
        dialsim_append_item(kWindow, "UInt32", tag);
    }
    const auto choose_by = [&](double degrees) {
        EXPECT_TRUE(dialsim_open_menu(kWindow));
        EXPECT_EQ(dialsim_turn(kWindow, degrees), S_OK);
        EXPECT_EQ(dialsim_click(kWindow), S_OK);
        const std::string menu = MenuOf(kWindow);
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

TEST_F(SimulatedMenu, IsClosedWithoutAChoice) {
    EventRecorder recorder(kWindow);
    dialsim_append_item(kWindow, "UInt32", 1);
    EXPECT_TRUE(dialsim_open_menu(0));
    dialsim_close_menu();
    dialsim_click(kWindow);
    EXPECT_EQ(recorder.TakeEvents(), "click; ");
    EXPECT_EQ(MenuOf(kWindow).find(" * "), std::string::npos);
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

TEST_F(SimulatedMenu, IsDrawnIntoAFileByAScript) {
    AddKnownIcon("Louder", 3, 7);
    const TemporaryFile file("menu.svg", std::string());
    char error[100] = "";
    EXPECT_TRUE(dialsim_play(("draw menu " + file.NarrowPath()).c_str(), 0, error, sizeof error)) << error;
    std::string drawn(20000, '\0');
    std::FILE* again = std::fopen(file.NarrowPath().c_str(), "rb");
    ASSERT_NE(again, nullptr);
    drawn.resize(std::fread(drawn.data(), 1, drawn.size(), again));
    std::fclose(again);
    EXPECT_EQ(drawn, PictureOf(0));
    EXPECT_FALSE(dialsim_play("draw journal x", 0, error, sizeof error));
    EXPECT_STREQ(error, "line 1: 'journal' cannot be drawn");
}

TEST_F(SimulatedMenu, IsPrintedByAScript) {
    testing::internal::CaptureStdout();
    EXPECT_TRUE(dialsim_play("show menu", 0, nullptr, 0));
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), MenuOf(0));
}

class Fonts : public SimulatedMenu {
protected:
    static HRESULT UriCode(const char* text, std::string* absolute = nullptr) {
        const auto factory = FactoryOf<abi::Uri, abi::IUriRuntimeClassFactory>();
        ComPtr<abi::IUriRuntimeClass> uri;
        const HRESULT code = factory->CreateUri(ToPlatformString(text).Get(), uri.Put());
        if (code >= 0 && absolute != nullptr) {
            HSTRING string = nullptr;
            EXPECT_EQ(uri->get_AbsoluteUri(&string), S_OK);
            const WideText wide = CharactersOf(string);
            absolute->assign(wide.begin(), wide.end());
            WindowsDeleteString(string);
        }
        return code;
    }
    static std::string Absolute(const char* text) {
        std::string absolute;
        EXPECT_EQ(UriCode(text, &absolute), S_OK) << text;
        return absolute;
    }
};

TEST_F(Fonts, UrisAreAbsoluteOrDosPaths) {
    EXPECT_EQ(Absolute("C:\\x\\y.ttf"), "file:///C:/x/y.ttf");
    EXPECT_EQ(Absolute("C:/x/y z#1.ttf"), "file:///C:/x/y%20z%231.ttf");
    EXPECT_EQ(Absolute("\\\\server\\share\\y.ttf"), "file://server/share/y.ttf");
    EXPECT_EQ(Absolute("https://example.org/a?b=c#d"), "https://example.org/a?b=c#d");
    EXPECT_EQ(Absolute("C:\\\xC3\xA9.ttf"), "file:///C:/%C3%A9.ttf");
}

TEST_F(Fonts, OtherTextsAreNoUris) {
    for (const char* text : {"", "y.ttf", "x\\y.ttf", "C:", "C:y.ttf", ":x", "a b://c", "scheme:"}) {
        EXPECT_EQ(UriCode(text), E_INVALIDARG) << text;
    }
}

TEST_F(Fonts, GlyphsComeFromFamiliesAndFiles) {
    const auto items = FactoryOf<abi::RadialControllerMenuItem, abi::IRadialControllerMenuItemStatics2>();
    const auto uris = FactoryOf<abi::Uri, abi::IUriRuntimeClassFactory>();
    const String label = ToPlatformString("Brush");
    const String glyph = ToPlatformString("A");
    const String family = ToPlatformString("Symbols");
    ComPtr<abi::IRadialControllerMenuItem> item;
    EXPECT_EQ(items->CreateFromFontGlyph(label.Get(), glyph.Get(), family.Get(), item.Put()), S_OK);
    EXPECT_EQ(items_->Append(item.Get()), S_OK);
    ComPtr<abi::IUriRuntimeClass> uri;
    EXPECT_EQ(uris->CreateUri(ToPlatformString("C:\\SYMBOL~1.TTF").Get(), uri.Put()), S_OK);
    EXPECT_EQ(
        items->CreateFromFontGlyphWithUri(label.Get(), glyph.Get(), family.Get(), uri.Get(), item.Put()),
        S_OK);
    EXPECT_EQ(items_->Append(item.Get()), S_OK);
    EXPECT_EQ(items->CreateFromFontGlyphWithUri(label.Get(), glyph.Get(), family.Get(), nullptr, item.Put()),
              E_INVALIDARG);
    EXPECT_EQ(MenuOf(kWindow).substr(0, MenuOf(kWindow).find("system")),
              "0   \"Brush\" glyph A of Symbols, tag -\n"
              "1   \"Brush\" glyph A of font file file:///C:/SYMBOL~1.TTF, tag -\n");
}

// What a completion handler completion.
struct Completion {
    int calls = 0;
    abi::AsyncStatus status{};
    HRESULT results = 0;
    bool file = false;
    std::uint64_t thread = 0;
};

class Files : public SimulatedMenu {
protected:
    using Operation = abi::IAsyncOperation<abi::StorageFile>;
    using Handler = abi::AsyncOperationCompletedHandler<abi::StorageFile>;

    static ComPtr<Operation> Open(const std::string& path) {
        ComPtr<Operation> operation;
        const auto files = FactoryOf<abi::StorageFile, abi::IStorageFileStatics>();
        EXPECT_EQ(files->GetFileFromPathAsync(ToPlatformString(path).Get(), operation.Put()), S_OK);
        return operation;
    }
    static ComPtr<Handler> Listener(Completion& completion, HRESULT answer = S_OK) {
        return MakeDelegate<Handler>([&completion, answer](Operation* operation, abi::AsyncStatus status) {
            ++completion.calls;
            completion.status = status;
            ComPtr<abi::IStorageFile> file;
            completion.results = operation->GetResults(file.Put());
            completion.file = static_cast<bool>(file);
            return answer;
        });
    }
    void Listen(const ComPtr<Operation>& operation, Completion& completion, HRESULT answer = S_OK) {
        EXPECT_EQ(operation->put_Completed(Listener(completion, answer).Get()), S_OK);
    }
    static abi::AsyncStatus StatusOf(const ComPtr<Operation>& operation) {
        ComPtr<abi::IAsyncInfo> info;
        EXPECT_EQ(Query(operation.Get(), info), S_OK);
        abi::AsyncStatus status{};
        EXPECT_EQ(info->get_Status(&status), S_OK);
        return status;
    }

    const TemporaryFile png_{"picture.png", kPng32};
};

TEST_F(Files, CompleteOnAThreadOfTheirOwn) {
    Completion completion;
    Listen(Open(png_.NarrowPath()), completion, Code(0x80000003));
    dialsim_wait_for_async();
    EXPECT_EQ(completion.calls, 1);
    EXPECT_EQ(completion.status, abi::AsyncStatus::Completed);
    EXPECT_EQ(completion.results, S_OK);
    EXPECT_TRUE(completion.file);
    EXPECT_EQ(dialsim_completion_code(0), Code(0x80000003));
    EXPECT_NE(Journal().find("AsyncOperationCompletedHandler<StorageFile>::Invoke(1) = 80000003\n"),
              std::string::npos);
    EXPECT_EQ(dialsim_pending(), 0u);
    EXPECT_EQ(dialsim_handlers(), 0u);
}

TEST_F(Files, CanActivateClassesWhereTheyComplete) {
    HRESULT code = E_FAIL;
    const auto handler = MakeDelegate<Handler>([&](auto*, auto) {
        ComPtr<abi::IRandomAccessStreamReferenceStatics> references;
        code = GetFactory<abi::RandomAccessStreamReference>(references);
        return S_OK;
    });
    EXPECT_EQ(Open(png_.NarrowPath())->put_Completed(handler.Get()), S_OK);
    dialsim_wait_for_async();
    EXPECT_EQ(code, S_OK);
}

TEST_F(Files, CompleteAtOnceInsideTheAttachment) {
    dialsim_async(DIALSIM_AT_ONCE);
    const auto operation = Open(png_.NarrowPath());
    EXPECT_EQ(StatusOf(operation), abi::AsyncStatus::Completed);
    Completion completion;
    Listen(operation, completion);
    EXPECT_EQ(completion.calls, 1);
    EXPECT_TRUE(completion.file);
    EXPECT_EQ(dialsim_completion_code(0), S_OK);
}

TEST_F(Files, ThatAreNotThereFail) {
    dialsim_async(DIALSIM_AT_ONCE);
    for (const auto& [path, code] :
         {std::pair(png_.NarrowPath() + ".none", Code(0x80070002)),
          std::pair(testing::TempDir(), Code(0x80070002)),
          std::pair(std::string("picture.png"), E_INVALIDARG), std::pair(std::string(), E_INVALIDARG)}) {
        Completion completion;
        Listen(Open(path), completion);
        EXPECT_EQ(completion.status, abi::AsyncStatus::Error) << path;
        EXPECT_EQ(completion.results, code) << path;
        EXPECT_FALSE(completion.file) << path;
    }
}

TEST_F(Files, HeldOnesCompleteInAnyOrder) {
    dialsim_async(DIALSIM_HELD);
    Completion first;
    Completion second;
    Listen(Open(png_.NarrowPath()), first);
    Listen(Open(png_.NarrowPath()), second, Code(0x80000003));
    EXPECT_EQ(dialsim_pending(), 2u);
    EXPECT_EQ(dialsim_completion_code(1), Code(0x8000000A));
    EXPECT_EQ(dialsim_complete(1), Code(0x80000003));
    EXPECT_EQ(first.calls, 0);
    EXPECT_EQ(second.calls, 1);
    EXPECT_EQ(dialsim_complete(1), Code(0x8000000B));
    EXPECT_EQ(dialsim_complete_all(), S_OK);
    EXPECT_EQ(first.calls, 1);
    EXPECT_EQ(dialsim_pending(), 0u);
    EXPECT_EQ(dialsim_complete(2), Code(0x8000000B));
    EXPECT_EQ(dialsim_completion_code(2), Code(0x8000000B));
}

TEST_F(Files, ThatCompleteBeforeAHandlerIsAttachedCallItLater) {
    dialsim_async(DIALSIM_HELD);
    const auto operation = Open(png_.NarrowPath());
    EXPECT_EQ(StatusOf(operation), abi::AsyncStatus::Started);
    ComPtr<abi::IStorageFile> file;
    EXPECT_EQ(operation->GetResults(file.Put()), Code(0x8000000E));
    EXPECT_EQ(dialsim_complete(0), S_OK);
    Completion completion;
    Listen(operation, completion);
    EXPECT_EQ(completion.calls, 1);
    EXPECT_TRUE(completion.file);
}

TEST_F(Files, MayCompleteWithAnyStatus) {
    dialsim_async(DIALSIM_HELD);
    const std::pair<int, HRESULT> rows[] = {
        {0, Code(0x8000000E)}, {1, S_OK}, {2, Code(0x800704C7)}, {3, E_FAIL}};
    for (const auto& [status, results] : rows) {
        Completion completion;
        Listen(Open(png_.NarrowPath()), completion);
        EXPECT_EQ(dialsim_complete_as(static_cast<std::uint32_t>(status), status), S_OK);
        EXPECT_EQ(completion.calls, 1);
        EXPECT_EQ(static_cast<int>(completion.status), status);
        EXPECT_EQ(completion.results, results);
        EXPECT_EQ(completion.file, status == 1);
    }
}

TEST_F(Files, TakeOneHandlerOnly) {
    dialsim_async(DIALSIM_AT_ONCE);
    const auto operation = Open(png_.NarrowPath());
    Completion completion;
    EXPECT_EQ(operation->put_Completed(nullptr), E_INVALIDARG);
    Listen(operation, completion);
    EXPECT_EQ(operation->put_Completed(Listener(completion).Get()), Code(0x80000018));
    EXPECT_EQ(completion.calls, 1);
}

TEST_F(Files, ThatNeverCompleteAreReleased) {
    dialsim_async(DIALSIM_HELD);
    Completion completion;
    Listen(Open(png_.NarrowPath()), completion);
    EXPECT_EQ(dialsim_handlers(), 1u);
    EXPECT_EQ(dialsim_objects("IAsyncOperation<StorageFile>"), 1u);
    dialsim_abandon_pending();
    EXPECT_EQ(dialsim_handlers(), 0u);
    EXPECT_EQ(dialsim_objects("IAsyncOperation<StorageFile>"), 0u);
    EXPECT_EQ(dialsim_pending(), 0u);
    EXPECT_EQ(completion.calls, 0);
}

TEST_F(Files, WhoseHandlerCouldNotBeAttachedEndWithTheirLastReference) {
    dialsim_async(DIALSIM_HELD);
    dialsim_fail("IAsyncOperation<StorageFile>::put_Completed", E_FAIL, 1, 1);
    Completion completion;
    EXPECT_EQ(Open(png_.NarrowPath())->put_Completed(Listener(completion).Get()), E_FAIL);
    EXPECT_EQ(dialsim_pending(), 0u);
    EXPECT_EQ(dialsim_complete_all(), S_OK);
    EXPECT_EQ(completion.calls, 0);
}

TEST_F(Files, OperationsOfBeforeAResetNoLongerTakePart) {
    dialsim_async(DIALSIM_HELD);
    Completion completion;
    const auto operation = Open(png_.NarrowPath());
    dialsim_reset();
    Listen(operation, completion);
    EXPECT_EQ(dialsim_complete_all(), S_OK);
    EXPECT_EQ(completion.calls, 0);
}

TEST_F(Files, AScriptHoldsAndCompletesThem) {
    char error[100] = "";
    EXPECT_TRUE(dialsim_play("async held", 0, error, sizeof error)) << error;
    Completion first;
    Completion second;
    Listen(Open(png_.NarrowPath()), first);
    Listen(Open(png_.NarrowPath()), second);
    EXPECT_TRUE(dialsim_play("complete 1", 0, error, sizeof error)) << error;
    EXPECT_EQ(second.calls, 1);
    EXPECT_TRUE(dialsim_play("complete all\nasync own-thread\nsettle", 0, error, sizeof error)) << error;
    EXPECT_EQ(first.calls, 1);
}

class Pictures : public Files {
protected:
    // The item's line in the menu.
    std::string Shown(abi::IRandomAccessStreamReference* icon) {
        ComPtr<abi::IRadialControllerMenuItem> item;
        EXPECT_EQ(ItemStatics()->CreateFromIcon(ToPlatformString("Icon").Get(), icon, item.Put()), S_OK);
        EXPECT_EQ(items_->Append(item.Get()), S_OK);
        return FirstLine(MenuOf(kWindow));
    }
    static auto References() {
        return FactoryOf<abi::RandomAccessStreamReference, abi::IRandomAccessStreamReferenceStatics>();
    }
    std::string ShownFile(const std::string& content) {
        dialsim_async(DIALSIM_AT_ONCE);
        const TemporaryFile file("picture.png", content);
        ComPtr<abi::IStorageFile> opened;
        EXPECT_EQ(Open(file.NarrowPath())->GetResults(opened.Put()), S_OK);
        ComPtr<abi::IRandomAccessStreamReference> icon;
        EXPECT_EQ(References()->CreateFromFile(opened.Get(), icon.Put()), S_OK);
        return Shown(icon.Get());
    }

    // A block with the content and a stream over it, which the content was written through.
    HGLOBAL MakeStream(const std::string& content, ComPtr<abi::IStream>& stream) {
        const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, content.size());
        EXPECT_NE(block, nullptr);
        EXPECT_NE(GlobalLock(block), nullptr);
        EXPECT_EQ(CreateStreamOnHGlobal(block, 0, reinterpret_cast<::IStream**>(stream.Put())), S_OK);
        std::uint32_t written = 0;
        EXPECT_EQ(stream->Write(content.data(), static_cast<std::uint32_t>(content.size()), &written), S_OK);
        EXPECT_EQ(written, content.size());
        EXPECT_EQ(stream->Commit(abi::kCommitDefault), S_OK);
        EXPECT_EQ(stream->Seek(0, abi::kSeekFromStart, nullptr), S_OK);
        EXPECT_EQ(GlobalUnlock(block), 0);
        return block;
    }
    static HRESULT Wrap(abi::IStream* stream, ComPtr<abi::IRandomAccessStream>& wrapped) {
        return CreateRandomAccessStreamOverStream(reinterpret_cast<::IStream*>(stream), BSOS_DEFAULT,
                                                  abi::IRandomAccessStream::Iid,
                                                  reinterpret_cast<void**>(wrapped.Put()));
    }
};

TEST_F(Pictures, OfFilesAreRead) { EXPECT_EQ(ShownFile(kPng32), "0   \"Icon\" PNG file 32x32, tag -"); }

TEST_F(Pictures, ThatAreNoPngsAreBroken) {
    std::string damaged = kPng32;
    damaged[19] = 33;
    for (const std::string& content : {std::string(), std::string("GIF89a"), kPng32.substr(0, 32), damaged}) {
        EXPECT_EQ(ShownFile(content), "0   \"Icon\" broken picture, tag -");
        EXPECT_EQ(items_->Clear(), S_OK);
    }
}

TEST_F(Pictures, OfFilesThatWentAwayAreBroken) {
    dialsim_async(DIALSIM_AT_ONCE);
    ComPtr<abi::IStorageFile> opened;
    {
        const TemporaryFile file("picture.png", kPng32);
        EXPECT_EQ(Open(file.NarrowPath())->GetResults(opened.Put()), S_OK);
    }
    ComPtr<abi::IRandomAccessStreamReference> icon;
    EXPECT_EQ(References()->CreateFromFile(opened.Get(), icon.Put()), S_OK);
    EXPECT_EQ(Shown(icon.Get()), "0   \"Icon\" broken picture, tag -");
}

TEST_F(Pictures, OfStreamsAreReadOnceAndTheirBlockMayGo) {
    ComPtr<abi::IStream> stream;
    const HGLOBAL block = MakeStream(kPng16, stream);
    EXPECT_EQ(dialsim_blocks(), 1u);
    EXPECT_NE(LeakReport().find("blocks: 1\n"), std::string::npos);
    ComPtr<abi::IRandomAccessStream> wrapped;
    EXPECT_EQ(Wrap(stream.Get(), wrapped), S_OK);
    ComPtr<abi::IRandomAccessStreamReference> icon;
    EXPECT_EQ(References()->CreateFromStream(wrapped.Get(), icon.Put()), S_OK);
    EXPECT_EQ(Shown(icon.Get()), "0   \"Icon\" PNG image 16x16, tag -");
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(dialsim_blocks(), 0u);
    EXPECT_EQ(FirstLine(MenuOf(kWindow)), "0   \"Icon\" PNG image 16x16, tag -");
}

TEST_F(Pictures, NeedSomethingToBeReadFrom) {
    ComPtr<abi::IRadialControllerMenuItem> item;
    EXPECT_EQ(ItemStatics()->CreateFromIcon(nullptr, nullptr, item.Put()), E_INVALIDARG);
    ComPtr<abi::IRandomAccessStreamReference> icon;
    EXPECT_EQ(References()->CreateFromFile(nullptr, icon.Put()), E_INVALIDARG);
    EXPECT_EQ(References()->CreateFromStream(nullptr, icon.Put()), E_INVALIDARG);
    EXPECT_EQ(References()->CreateFromUri(nullptr, icon.Put()), E_NOTIMPL);
    ComPtr<abi::IRandomAccessStream> wrapped;
    EXPECT_EQ(Wrap(nullptr, wrapped), E_INVALIDARG);
}

TEST_F(Pictures, StreamsAreJournaledAndOpenToFaults) {
    dialsim_clear_journal();
    ComPtr<abi::IStream> stream;
    const HGLOBAL block = MakeStream("12345", stream);
    EXPECT_EQ(Journal(),
              "GlobalAlloc(2, 5)\nGlobalLock()\nCreateStreamOnHGlobal(0)\nIStream::Write(5)\n"
              "IStream::Commit(0)\nIStream::Seek(0, 0)\nGlobalUnlock()\n");
    EXPECT_EQ(dialsim_objects("IStream"), 1u);
    std::uint32_t written = 7;
    dialsim_yield_null("IStream::Write", 1, 1);
    EXPECT_EQ(stream->Write("ab", 2, &written), S_OK);
    EXPECT_EQ(written, 0u);
    dialsim_fail("IStream::Write", E_FAIL, 1, 1);
    EXPECT_EQ(stream->Write("ab", 2, nullptr), E_FAIL);
    dialsim_fail("IStream::Commit", E_FAIL, 1, 1);
    EXPECT_EQ(stream->Commit(abi::kCommitDefault), E_FAIL);
    dialsim_fail("IStream::Seek", E_FAIL, 1, 1);
    EXPECT_EQ(stream->Seek(1, abi::kSeekFromStart, nullptr), E_FAIL);
    char bytes[6] = "";
    std::uint32_t read = 0;
    EXPECT_EQ(stream->Read(bytes, 5, &read), S_OK);
    EXPECT_EQ(std::string(bytes, read), "12345");
    stream.Reset();
    GlobalFree(block);
}

TEST_F(Pictures, AStreamOverAStreamKnowsItsSizeAndPlace) {
    ComPtr<abi::IStream> stream;
    const HGLOBAL block = MakeStream("12345678", stream);
    {
        ComPtr<abi::IRandomAccessStream> wrapped;
        ASSERT_EQ(Wrap(stream.Get(), wrapped), S_OK);
        EXPECT_EQ(wrapped->Seek(3), S_OK);
        std::uint64_t size = 0;
        std::uint64_t position = 0;
        EXPECT_EQ(wrapped->get_Size(&size), S_OK);
        EXPECT_EQ(wrapped->get_Position(&position), S_OK);
        EXPECT_GE(size, 8u);
        EXPECT_EQ(position, 3u);
    }
    stream.Reset();
    GlobalFree(block);
}

using FlatFunctions = Files;

TEST_F(FlatFunctions, WithoutACodeReturnNothingUnderAFault) {
    const WideText path(png_.NarrowPath().begin(), png_.NarrowPath().end());
    for (const char* operation : {"PathFileExistsW", "GetShortPathNameW", "FindResourceW", "SizeofResource",
                                  "LoadResource", "LockResource", "GlobalAlloc", "GlobalLock"}) {
        EXPECT_TRUE(dialsim_fail(operation, E_FAIL, 1, 1)) << operation;
    }
    EXPECT_FALSE(PathFileExistsW(path.c_str()));
    EXPECT_EQ(GetShortPathNameW(path.c_str(), nullptr, 0), 0u);
    EXPECT_EQ(FindResourceW(nullptr, UTF16("x"), UTF16("PNG")), nullptr);
    EXPECT_EQ(SizeofResource(nullptr, nullptr), 0u);
    EXPECT_EQ(LoadResource(nullptr, nullptr), nullptr);
    EXPECT_EQ(LockResource(nullptr), nullptr);
    EXPECT_EQ(GlobalAlloc(GMEM_MOVEABLE, 1), nullptr);
    EXPECT_EQ(GlobalLock(nullptr), nullptr);
    EXPECT_TRUE(PathFileExistsW(path.c_str()));
}

TEST_F(FlatFunctions, AnswerTheNumberOfAFaultThatIsPositive) {
    const WideText path(png_.NarrowPath().begin(), png_.NarrowPath().end());
    const DWORD needed = GetShortPathNameW(path.c_str(), nullptr, 0);
    EXPECT_TRUE(dialsim_fail("GetShortPathNameW", 2, 1, 1));
    EXPECT_EQ(GetShortPathNameW(path.c_str(), nullptr, 0), 2u);
    EXPECT_EQ(GetShortPathNameW(path.c_str(), nullptr, 0), needed);
}

TEST_F(FlatFunctions, AreJournaledWithEmptyTextsInTheirPlace) {
    dialsim_clear_journal();
    _wcsnicmp(UTF16(""), UTF16("a"), 1);
    EXPECT_EQ(Journal(), "_wcsnicmp(, a, 1)\n");
}

TEST_F(FlatFunctions, BlocksStayOutWhenTheyCannotBeFreed) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 4);
    dialsim_fail("GlobalFree", E_FAIL, 1, 1);
    EXPECT_EQ(GlobalFree(block), block);
    EXPECT_EQ(dialsim_blocks(), 1u);
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(dialsim_blocks(), 0u);
}

TEST_F(FlatFunctions, ThatReturnAHandleCannotFailLate) {
    EXPECT_FALSE(dialsim_fail_late("GlobalAlloc", E_FAIL, 1, 0));
    EXPECT_FALSE(dialsim_fail_late("LoadResource", E_FAIL, 1, 0));
    EXPECT_TRUE(dialsim_fail_late("CreateStreamOnHGlobal", E_FAIL, 5, 0));
}

TEST_F(FlatFunctions, ACopyOfAStringIsOneMoreToRelease) {
    const String original = ToPlatformString("text");
    HSTRING copy = nullptr;
    EXPECT_EQ(WindowsDuplicateString(original.Get(), &copy), S_OK);
    EXPECT_EQ(dialsim_strings(), 2u);
    EXPECT_EQ(CharactersOf(copy), UTF16("text"));
    EXPECT_EQ(WindowsDeleteString(copy), S_OK);
    StringReference reference;
    EXPECT_EQ(reference.Create(UTF16("borrowed")), S_OK);
    EXPECT_EQ(WindowsDuplicateString(reference.Get(), &copy), S_OK);
    EXPECT_NE(copy, reference.Get());
    EXPECT_EQ(CharactersOf(copy), UTF16("borrowed"));
    EXPECT_EQ(WindowsDeleteString(copy), S_OK);
    EXPECT_EQ(WindowsDuplicateString(nullptr, &copy), S_OK);
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(dialsim_strings(), 1u);
}

TEST_F(FlatFunctions, AStringsCharactersCanBeMissingButNeverNull) {
    const String text = ToPlatformString("text");
    dialsim_clear_journal();
    dialsim_fail("WindowsGetStringRawBuffer", E_FAIL, 2, 1);
    UINT length = 0;
    EXPECT_EQ(WideText(WindowsGetStringRawBuffer(text.Get(), &length)), UTF16("text"));
    EXPECT_EQ(length, 4u);
    EXPECT_EQ(WideText(WindowsGetStringRawBuffer(text.Get(), &length)), WideText());
    EXPECT_EQ(length, 0u);
    EXPECT_EQ(WideText(WindowsGetStringRawBuffer(text.Get(), nullptr)), UTF16("text"));
    EXPECT_EQ(dialsim_calls("WindowsGetStringRawBuffer(text)"), 3u);
}

// A sequence of kinds whose owner may take it away.
class KindList final : public abi::IIterable<abi::RadialControllerSystemMenuItemKind>,
                       public abi::IIterator<abi::RadialControllerSystemMenuItemKind> {
    using Kind = abi::RadialControllerSystemMenuItemKind;

public:
    explicit KindList(std::vector<int> kinds) : kinds_(std::move(kinds)) {}

    HRESULT QueryInterface(const GUID&, void** object) noexcept override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    std::uint32_t AddRef() noexcept override { return ++references; }
    std::uint32_t Release() noexcept override { return --references; }
    HRESULT GetIids(std::uint32_t*, GUID**) noexcept override { return E_NOTIMPL; }
    HRESULT GetRuntimeClassName(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT GetTrustLevel(abi::TrustLevel*) noexcept override { return E_NOTIMPL; }
    HRESULT First(abi::IIterator<Kind>** result) noexcept override {
        *result = nullptr;
        if (code >= 0 && gives_iterator) {
            at_ = 0;
            AddRef();
            *result = this;
        }
        return code;
    }
    HRESULT get_Current(Kind* result) noexcept override {
        *result = static_cast<Kind>(at_ < kinds_.size() ? kinds_[at_] : 0);
        return code;
    }
    HRESULT get_HasCurrent(abi::boolean* result) noexcept override {
        *result = at_ < kinds_.size();
        return code;
    }
    HRESULT MoveNext(abi::boolean* result) noexcept override {
        ++at_;
        return get_HasCurrent(result);
    }
    HRESULT GetMany(std::uint32_t, Kind*, std::uint32_t*) noexcept override {
        return code < 0 ? code : E_NOTIMPL;
    }

    std::uint32_t references = 1;
    HRESULT code = S_OK;
    bool gives_iterator = true;

private:
    const std::vector<int> kinds_;
    std::size_t at_ = 0;
};

class SystemItems : public SimulatedMenu {
protected:
    static ComPtr<abi::IRadialControllerConfiguration> ConfigurationOf(std::uint64_t window) {
        const auto factory = FactoryOf<abi::RadialControllerConfiguration, abi::IActivationFactory>();
        ComPtr<abi::IRadialControllerConfigurationInterop> interop;
        EXPECT_EQ(Query(factory.Get(), interop), S_OK);
        ComPtr<abi::IRadialControllerConfiguration> configuration;
        EXPECT_EQ(
            interop->GetForWindow(reinterpret_cast<HWND>(window), abi::IRadialControllerConfiguration::Iid,
                                  reinterpret_cast<void**>(configuration.Put())),
            S_OK);
        return configuration;
    }
    static HRESULT Set(KindList& kinds) { return ConfigurationOf(kWindow)->SetDefaultMenuItems(&kinds); }
    static std::vector<int> Shown(std::uint64_t window = kWindow) {
        std::vector<std::int32_t> kinds(dialsim_system_items(window, nullptr, 0));
        dialsim_system_items(window, kinds.data(), static_cast<std::uint32_t>(kinds.size()));
        return {kinds.begin(), kinds.end()};
    }

    const std::vector<int> all_ = {0, 1, 2, 3, 4};
};

TEST_F(SystemItems, AreAllThereAtTheStart) {
    EXPECT_EQ(Shown(), all_);
    EXPECT_EQ(Shown(0), all_);
}

TEST_F(SystemItems, AreTheWindowsOwnAndStayInTheirOrder) {
    KindList kinds({3, 0, 3});
    EXPECT_EQ(Set(kinds), S_OK);
    EXPECT_EQ(kinds.references, 1u);
    EXPECT_EQ(Shown(), (std::vector<int>{3, 0, 3}));
    EXPECT_EQ(Shown(kWindow + 1), all_);
    EXPECT_EQ(FirstLine(MenuOf(kWindow)), "system items: Volume, Scroll, Volume");
    std::int32_t two[] = {-1, -1};
    EXPECT_EQ(dialsim_system_items(kWindow, two, 1), 3u);
    EXPECT_EQ(two[0], 3);
    EXPECT_EQ(two[1], -1);
}

TEST_F(SystemItems, MayBeNone) {
    KindList kinds({});
    EXPECT_EQ(Set(kinds), S_OK);
    EXPECT_EQ(FirstLine(MenuOf(kWindow)), "system items: none");
    EXPECT_EQ(ConfigurationOf(kWindow)->ResetToDefaultMenuItems(), S_OK);
    EXPECT_EQ(Shown(), all_);
}

TEST_F(SystemItems, ThatDoNotExistAreRefused) {
    KindList kinds({0, 7});
    EXPECT_EQ(Set(kinds), E_INVALIDARG);
    EXPECT_EQ(dialsim_calls("system items(0, 7)"), 1u);
    KindList negative({-1});
    EXPECT_EQ(Set(negative), E_INVALIDARG);
    EXPECT_EQ(Shown(), all_);
}

TEST_F(SystemItems, OfABrokenSequenceAreNotTaken) {
    EXPECT_EQ(ConfigurationOf(kWindow)->SetDefaultMenuItems(nullptr), E_INVALIDARG);
    KindList broken({0});
    broken.code = Code(0x80000003);
    EXPECT_EQ(Set(broken), Code(0x80000003));
    KindList empty_handed({0});
    empty_handed.gives_iterator = false;
    EXPECT_EQ(Set(empty_handed), Code(0x8000FFFF));
    EXPECT_EQ(Shown(), all_);
}

TEST_F(SystemItems, CanBeSelectedWhileTheyAreThere) {
    KindList kinds({3});
    EXPECT_EQ(Set(kinds), S_OK);
    const auto configuration = ConfigurationOf(kWindow);
    abi::boolean selected = 2;
    const auto select = [&](int kind) {
        EXPECT_EQ(configuration->TrySelectDefaultMenuItem(
                      static_cast<abi::RadialControllerSystemMenuItemKind>(kind), &selected),
                  S_OK);
        return selected;
    };
    EXPECT_EQ(select(3), 1);
    EXPECT_EQ(select(0), 0);
}

TEST_F(SystemItems, HaveOneConfigurationAWindow) {
    const auto first = ConfigurationOf(kWindow);
    EXPECT_EQ(ConfigurationOf(kWindow).Get(), first.Get());
    EXPECT_NE(ConfigurationOf(kWindow + 1).Get(), first.Get());
    ComPtr<abi::IInspectable> instance;
    const auto factory = FactoryOf<abi::RadialControllerConfiguration, abi::IActivationFactory>();
    EXPECT_EQ(factory->ActivateInstance(instance.Put()), E_NOTIMPL);
}

TEST_F(SystemItems, TheirSequenceMayBeKeptAndUsedOnceMore) {
    KindList kinds({3});
    EXPECT_EQ(dialsim_use_kept_sequence(), S_FALSE);
    dialsim_keep_sequences(true);
    EXPECT_EQ(Set(kinds), S_OK);
    EXPECT_EQ(kinds.references, 3u);
    EXPECT_EQ(dialsim_use_kept_sequence(), S_OK);
    EXPECT_EQ(kinds.references, 1u);
    EXPECT_EQ(Set(kinds), S_OK);
    kinds.code = Code(0x80000013);
    EXPECT_EQ(dialsim_use_kept_sequence(), Code(0x80000013));
    kinds.code = S_OK;
    EXPECT_EQ(Set(kinds), S_OK);
    dialsim_reset();
    EXPECT_EQ(kinds.references, 1u);
    EXPECT_EQ(Shown(), all_);
}

}  // namespace
}  // namespace brindle
