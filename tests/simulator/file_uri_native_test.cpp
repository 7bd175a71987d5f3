// Paths of file URIs.
#include "simulator/system/files.h"

#include <gtest/gtest.h>

namespace dialsim {
namespace {

TEST(PathOfAFileUri, HasTheEscapedCharacters) {
    EXPECT_EQ(PathOfFileUri("file:///C:/Users/J%C3%BCrgen/a%20font%25.ttf"),
              "C:\\Users\\J\xC3\xBCrgen\\a font%.ttf");
}

TEST(PathOfAFileUri, MayBeOnAShare) {
    EXPECT_EQ(PathOfFileUri("file://server/share/font.ttf"), "\\\\server\\share\\font.ttf");
}

TEST(PathOfAFileUri, HasAPercentSignThatIsNoEscape) {
    EXPECT_EQ(PathOfFileUri("file:///C:/%zz%4"), "C:\\%zz%4");
    EXPECT_EQ(PathOfFileUri("file:///C:/%"), "C:\\%");
}

TEST(PathOfAFileUri, IsEmptyForAnotherScheme) {
    EXPECT_EQ(PathOfFileUri("http://server/font.ttf"), "");
    EXPECT_EQ(PathOfFileUri(""), "");
}

}  // namespace
}  // namespace dialsim
