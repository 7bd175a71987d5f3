// The menu's behaviour in the native simulator only: resources, short paths, the root folder, exceptions of
// completion handlers.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>

#include "event_recorder.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/uri.h"
#include "platform/text.h"
#include "simulator/system/text.h"

namespace brindle {
namespace {

const WCHAR* Id(std::uint16_t id) { return reinterpret_cast<const WCHAR*>(static_cast<std::uintptr_t>(id)); }
HMODULE Module(std::uint64_t number) { return reinterpret_cast<HMODULE>(number); }

using Resources = SimulatorTest;

TEST_F(Resources, AreFoundByModuleNumberAndType) {
    EXPECT_TRUE(dialsim_add_resource(7, 101, "PNG", "abc", 3));
    EXPECT_TRUE(dialsim_add_resource(7, 102, "PNG", "", 0));
    const HRSRC found = FindResourceW(Module(7), Id(101), u"PNG");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(SizeofResource(Module(7), found), 3u);
    const HGLOBAL loaded = LoadResource(Module(7), found);
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(std::string(static_cast<const char*>(LockResource(loaded)), 3), "abc");
    EXPECT_EQ(FreeResource(loaded), 0);
    EXPECT_EQ(SizeofResource(Module(7), FindResourceW(Module(7), Id(102), u"PNG")), 0u);
    EXPECT_EQ(FindResourceW(Module(8), Id(101), u"PNG"), nullptr);
    EXPECT_EQ(FindResourceW(Module(7), Id(103), u"PNG"), nullptr);
    EXPECT_EQ(FindResourceW(Module(7), Id(101), u"GIF"), nullptr);
    EXPECT_EQ(FindResourceW(Module(7), Id(101), Id(10)), nullptr);
    EXPECT_EQ(FindResourceW(Module(7), u"name", u"PNG"), nullptr);
    EXPECT_EQ(dialsim_calls("FindResourceW(101, PNG)"), 2u);
}

TEST_F(Resources, AreRemovedByAReset) {
    dialsim_add_resource(7, 101, "PNG", "abc", 3);
    dialsim_reset();
    EXPECT_EQ(FindResourceW(Module(7), Id(101), u"PNG"), nullptr);
}

// A folder with a file in it; the destructor deletes both.
class ShortPaths : public SimulatorApartmentTest {
protected:
    ShortPaths() {
        std::string name = testing::TempDir() + "A long Folder name XXXXXX";
        EXPECT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
    }
    ~ShortPaths() override { std::filesystem::remove_all(folder_); }

    std::string File(const std::string& name, const std::string& content = "content") {
        const std::string path = folder_ + "/" + name;
        std::FILE* file = std::fopen(path.c_str(), "wb");
        EXPECT_NE(file, nullptr);
        EXPECT_EQ(std::fwrite(content.data(), 1, content.size(), file), content.size());
        std::fclose(file);
        return path;
    }
    static std::string Short(const std::string& path) {
        const std::u16string wide = dialsim::Widen(path);
        const DWORD needed = GetShortPathNameW(wide.c_str(), nullptr, 0);
        std::u16string result(needed, u'?');
        const DWORD length = GetShortPathNameW(wide.c_str(), result.data(), needed);
        EXPECT_EQ(length + 1, needed);
        EXPECT_EQ(result.back(), 0);
        result.pop_back();
        return dialsim::Narrow(result);
    }
    static std::string NameIn(const std::string& path) { return path.substr(path.rfind('/') + 1); }
    static bool Exists(const std::string& path) { return PathFileExistsW(dialsim::Widen(path).c_str()) != 0; }

    std::string folder_;
};

TEST_F(ShortPaths, AreEightCharactersAndThree) {
    const std::string path = Short(File("Some symbols.font"));
    EXPECT_EQ(NameIn(path), "SOMESY~1.FON");
    EXPECT_EQ(NameIn(path.substr(0, path.rfind('/'))), "ALONGF~1");
    EXPECT_EQ(NameIn(Short(File("short.ttf"))), "short.ttf");
    EXPECT_EQ(NameIn(Short(File("\xC3\xA9.ttf"))), "__~1.TTF");
    EXPECT_EQ(NameIn(Short(File("no extension at all"))), "NOEXTE~1");
}

TEST_F(ShortPaths, AreUniqueByNumberAndStayTheSame) {
    const std::string first = File("Some symbols.font");
    const std::string second = File("Some symptoms.font");
    EXPECT_EQ(NameIn(Short(first)), "SOMESY~1.FON");
    EXPECT_EQ(NameIn(Short(second)), "SOMESY~2.FON");
    EXPECT_EQ(NameIn(Short(first)), "SOMESY~1.FON");
}

TEST_F(ShortPaths, NameTheirFiles) {
    const std::string path = Short(File("Some symbols.font"));
    EXPECT_TRUE(Exists(path));
    EXPECT_EQ(Short(path), path);
    dialsim_reset();
    EXPECT_FALSE(Exists(path));
}

TEST_F(ShortPaths, OfNothingAreNone) {
    EXPECT_EQ(GetShortPathNameW(dialsim::Widen(folder_ + "/none").c_str(), nullptr, 0), 0u);
    EXPECT_EQ(GetShortPathNameW(nullptr, nullptr, 0), 0u);
    EXPECT_FALSE(Exists(folder_ + "/none"));
    EXPECT_TRUE(Exists(folder_));
    EXPECT_FALSE(PathFileExistsW(nullptr));
}

TEST_F(ShortPaths, WithoutRoomReturnTheirRequiredSize) {
    const std::string path = File("short.ttf");
    const std::u16string wide = dialsim::Widen(path);
    std::u16string buffer(300, u'?');
    const DWORD needed = GetShortPathNameW(wide.c_str(), nullptr, 0);
    EXPECT_EQ(GetShortPathNameW(wide.c_str(), buffer.data(), needed - 1), needed);
    EXPECT_EQ(buffer, std::u16string(300, u'?'));
    EXPECT_EQ(GetShortPathNameW(wide.c_str(), buffer.data(), needed), needed - 1);
}

TEST_F(ShortPaths, CanBeUris) {
    ComPtr<abi::IUriRuntimeClassFactory> uris;
    ASSERT_EQ(GetFactory<abi::Uri>(uris), S_OK);
    ComPtr<abi::IUriRuntimeClass> uri;
    ASSERT_EQ(uris->CreateUri(ToPlatformString("/tmp/SOMESY~1.FON").Get(), uri.Put()), S_OK);
    HSTRING string = nullptr;
    EXPECT_EQ(uri->get_AbsoluteUri(&string), S_OK);
    EXPECT_EQ(CharactersOf(string), u"file:///tmp/SOMESY~1.FON");
    WindowsDeleteString(string);
}

TEST_F(ShortPaths, OpenTheirFiles) {
    dialsim_async(DIALSIM_AT_ONCE);
    ComPtr<abi::IStorageFileStatics> files;
    ASSERT_EQ(GetFactory<abi::StorageFile>(files), S_OK);
    ComPtr<abi::IAsyncOperation<abi::StorageFile>> operation;
    const std::string path = Short(File("Some symbols.font"));
    ASSERT_EQ(files->GetFileFromPathAsync(ToPlatformString(path).Get(), operation.Put()), S_OK);
    ComPtr<abi::IStorageFile> file;
    EXPECT_EQ(operation->GetResults(file.Put()), S_OK);
    EXPECT_TRUE(file);
}

class Completions : public ShortPaths {
protected:
    using Operation = abi::IAsyncOperation<abi::StorageFile>;
    using Handler = abi::AsyncOperationCompletedHandler<abi::StorageFile>;

    template <class Action>
    void Load(Action action) {
        ComPtr<abi::IStorageFileStatics> files;
        ASSERT_EQ(GetFactory<abi::StorageFile>(files), S_OK);
        ComPtr<Operation> operation;
        ASSERT_EQ(files->GetFileFromPathAsync(ToPlatformString(File("x.png")).Get(), operation.Put()), S_OK);
        const auto handler = MakeDelegate<Handler>([action](Operation*, abi::AsyncStatus) {
            action();
            return S_OK;
        });
        ASSERT_EQ(operation->put_Completed(handler.Get()), S_OK);
    }
};

TEST_F(Completions, ThatRaiseAreReported) {
    Load([] { throw std::runtime_error("raised while completing"); });
    dialsim_wait_for_async();
    EXPECT_EQ(dialsim_completion_code(0), DIALSIM_RAISED);
    EXPECT_EQ(Raised(), "raised while completing");
    dialsim_async(DIALSIM_HELD);
    Load([] { throw 1; });
    EXPECT_EQ(dialsim_complete(1), DIALSIM_RAISED);
    dialsim_async(DIALSIM_AT_ONCE);
    Load([] { throw 2; });
    EXPECT_EQ(dialsim_completion_code(2), DIALSIM_RAISED);
}

TEST_F(Completions, RunOnTheThreadThatTheirModeSays) {
    std::thread::id at_once;
    std::thread::id held;
    std::thread::id held_own;
    std::thread::id own;
    dialsim_async(DIALSIM_AT_ONCE);
    Load([&] { at_once = std::this_thread::get_id(); });
    dialsim_async(DIALSIM_HELD);
    Load([&] { held = std::this_thread::get_id(); });
    dialsim_complete(1);
    Load([&] { held_own = std::this_thread::get_id(); });
    dialsim_raise_on_own_thread(true);
    dialsim_complete(2);
    dialsim_async(DIALSIM_OWN_THREAD);
    Load([&] { own = std::this_thread::get_id(); });
    dialsim_wait_for_async();
    EXPECT_EQ(at_once, std::this_thread::get_id());
    EXPECT_EQ(held, std::this_thread::get_id());
    EXPECT_NE(held_own, std::this_thread::get_id());
    EXPECT_NE(held_own, std::thread::id());
    EXPECT_NE(own, std::this_thread::get_id());
    EXPECT_NE(own, std::thread::id());
}

TEST_F(Completions, OneMayStartAnother) {
    int completed = 0;
    Load([&] {
        ++completed;
        Load([&] { ++completed; });
    });
    dialsim_wait_for_async();
    EXPECT_EQ(completed, 2);
}

TEST_F(Completions, AreWaitedForByAReset) {
    bool completed = false;
    Load([&] { completed = true; });
    dialsim_reset();
    EXPECT_TRUE(completed);
}

}  // namespace
}  // namespace brindle
