// A font file with a path of the system's maximum length, 4095 characters, which is its own short path.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "support/menu_items.h"
#include "support/recording_host.h"
#include "support/simulator_fixture.h"

namespace brindle {
namespace {

// Nested folders with short names, and a file in the innermost one; the destructor deletes them.
class DeepFile {
public:
    DeepFile() {
        std::string path = "/tmp/dXXXXXX";
        folders_.emplace_back(mkdtemp(path.data()));
        while (path.size() < kLongestPath - 20) {
            path += "/folder";
            mkdir(path.c_str(), S_IRWXU);
            folders_.push_back(path);
        }
        path_ = path + "/font.ttf";
        std::fclose(std::fopen(path_.c_str(), "wb"));
    }
    DeepFile(const DeepFile&) = delete;
    DeepFile& operator=(const DeepFile&) = delete;
    ~DeepFile() {
        std::remove(path_.c_str());
        for (; !folders_.empty(); folders_.pop_back()) {
            rmdir(folders_.back().c_str());
        }
    }

    const std::string& path() const { return path_; }

private:
    static constexpr std::size_t kLongestPath = 4095;

    std::vector<std::string> folders_;
    std::string path_;
};

using LongPath = SimulatorTest;

TEST_F(LongPath, OfAFontFileIsPassedOnCompletely) {
    const DeepFile font;
    ASSERT_GT(font.path().size(), 4050u);
    const WideText path(font.path().begin(), font.path().end());
    ASSERT_EQ(initialize(), 0);
    RecordingHost host(kWindow);
    ASSERT_TRUE(init_dial_listener(&host));
    EXPECT_TRUE(SetMenu(kWindow, {CustomFont(1, path.c_str())}));
    EXPECT_EQ(dialsim_calls(("IUriRuntimeClassFactory::CreateUri(" + font.path() + ")").c_str()), 1u);
    EXPECT_NE(MenuText(kWindow).find("glyph B of font file file://" + font.path()), std::string::npos);
    uninit();
}

}  // namespace
}  // namespace brindle
