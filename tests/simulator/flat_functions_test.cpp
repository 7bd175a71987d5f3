// The flat functions: faults, journal lines and acquired resources.
#include <gtest/gtest.h>

#include <string>

#include "platform/functions.h"
#include "platform/text.h"
#include "support/pictures.h"
#include "support/simulator_fixture.h"

namespace brindle {
namespace {

class FlatFunctions : public SimulatorApartmentTest {
protected:
    const TemporaryFile file_{"picture.png", SmallPng()};
};

TEST_F(FlatFunctions, WithoutACodeReturnNothingUnderAFault) {
    for (const char* operation : {"PathFileExistsW", "GetShortPathNameW", "FindResourceW", "SizeofResource",
                                  "LoadResource", "LockResource", "GlobalAlloc", "GlobalLock"}) {
        EXPECT_TRUE(dialsim_fail(operation, E_FAIL, 1, 1)) << operation;
    }
    EXPECT_FALSE(PathFileExistsW(file_.Path()));
    EXPECT_EQ(GetShortPathNameW(file_.Path(), nullptr, 0), 0u);
    EXPECT_EQ(FindResourceW(nullptr, UTF16("x"), UTF16("PNG")), nullptr);
    EXPECT_EQ(SizeofResource(nullptr, nullptr), 0u);
    EXPECT_EQ(LoadResource(nullptr, nullptr), nullptr);
    EXPECT_EQ(LockResource(nullptr), nullptr);
    EXPECT_EQ(GlobalAlloc(GMEM_MOVEABLE, 1), nullptr);
    EXPECT_EQ(GlobalLock(nullptr), nullptr);
    EXPECT_TRUE(PathFileExistsW(file_.Path()));
}

TEST_F(FlatFunctions, AnswerTheNumberOfAFaultThatIsPositive) {
    const DWORD needed = GetShortPathNameW(file_.Path(), nullptr, 0);
    EXPECT_TRUE(dialsim_fail("GetShortPathNameW", 2, 1, 1));
    EXPECT_EQ(GetShortPathNameW(file_.Path(), nullptr, 0), 2u);
    EXPECT_EQ(GetShortPathNameW(file_.Path(), nullptr, 0), needed);
}

TEST_F(FlatFunctions, AreJournaledWithEmptyTexts) {
    dialsim_clear_journal();
    _wcsnicmp(UTF16(""), UTF16("a"), 1);
    EXPECT_EQ(Journal(), "_wcsnicmp(, a, 1)\n");
}

TEST_F(FlatFunctions, BlocksThatCannotBeFreedAreLeaked) {
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

TEST_F(FlatFunctions, ACopyOfAStringIsAnotherReference) {
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

TEST_F(FlatFunctions, AStringsCharactersAreEmptyUnderAFaultButNeverNull) {
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

}  // namespace
}  // namespace brindle
