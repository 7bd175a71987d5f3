// Sources of menu items: font glyphs, picture files and streams.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "files.h"
#include "platform/interfaces/stream.h"
#include "platform/interfaces/uri.h"
#include "simulated_menu.h"

namespace brindle {
namespace {

const std::string kPng16("\x89PNG\r\n\x1a\n\0\0\0\x0DIHDR\0\0\0\x10\0\0\0\x10\x08\x06\0\0\0\x1F\xF3\xFF\x61",
                         33);

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
    EXPECT_EQ(MenuText(kWindow).substr(0, MenuText(kWindow).find("system")),
              "0   \"Brush\" glyph A of Symbols, tag -\n"
              "1   \"Brush\" glyph A of font file file:///C:/SYMBOL~1.TTF, tag -\n");
}

class Pictures : public Files {
protected:
    // The menu's line of the item.
    std::string Shown(abi::IRandomAccessStreamReference* icon) {
        ComPtr<abi::IRadialControllerMenuItem> item;
        EXPECT_EQ(ItemStatics()->CreateFromIcon(ToPlatformString("Icon").Get(), icon, item.Put()), S_OK);
        EXPECT_EQ(items_->Append(item.Get()), S_OK);
        return FirstLine(MenuText(kWindow));
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

    // Creates a memory block and writes the content through a stream over it.
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

TEST_F(Pictures, OfDeletedFilesAreBroken) {
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

TEST_F(Pictures, OfStreamsAreReadOnceAndTheirBlockMayBeFreed) {
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
    EXPECT_EQ(FirstLine(MenuText(kWindow)), "0   \"Icon\" PNG image 16x16, tag -");
}

TEST_F(Pictures, NeedASource) {
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

}  // namespace
}  // namespace brindle
