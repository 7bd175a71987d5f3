// Hooks in modules of the process, and what dialsim-run says when the system refuses.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <utility>

#include "simulator/dialsim.h"
#include "simulator/launcher/windows/refusal.h"

namespace {

using dialsim::RefusalToEnter;
using dialsim::RefusalToInitialize;
using dialsim::RefusalToLoad;
using dialsim::RefusalToStart;

// The entry of a module's import table for a function.
void** ImportOf(HMODULE module, const char* library, const char* function) {
    const auto* base = reinterpret_cast<const char*>(module);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(
        base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const DWORD imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto* entry = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports); entry->Name != 0;
         ++entry) {
        if (_stricmp(base + entry->Name, library) != 0) {
            continue;
        }
        auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + entry->OriginalFirstThunk);
        auto* addresses = reinterpret_cast<void**>(const_cast<char*>(base) + entry->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++addresses) {
            const auto* name = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (std::strcmp(name->Name, function) == 0) {
                return addresses;
            }
        }
    }
    return nullptr;
}

void* KernelFunction(const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), name));
}

class LoadedLibrary : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(GetModuleHandleA("brindle.dll"), nullptr);
        ASSERT_TRUE(dialsim_start());
    }
    void TearDown() override { FreeLibrary(library_); }

    HMODULE library_ = nullptr;
};

TEST_F(LoadedLibrary, IsHookedAtItsLoad) {
    library_ = LoadLibraryA("brindle.dll");
    ASSERT_NE(library_, nullptr);
    EXPECT_NE(*ImportOf(library_, "kernel32.dll", "Sleep"), KernelFunction("Sleep"));
    EXPECT_EQ(*ImportOf(library_, "kernel32.dll", "CloseHandle"), KernelFunction("CloseHandle"));
}

TEST_F(LoadedLibrary, IsHookedOnce) {
    library_ = LoadLibraryA("brindle.dll");
    void* const hook = *ImportOf(library_, "kernel32.dll", "Sleep");
    EXPECT_TRUE(dialsim_start());
    EXPECT_TRUE(dialsim_watch("brindle.dll"));
    EXPECT_EQ(*ImportOf(library_, "kernel32.dll", "Sleep"), hook);
}

TEST_F(LoadedLibrary, KeepsTheProtectionOfAReadOnlyImportTable) {
    library_ = LoadLibraryA("brindle.dll");
    void** const entry = ImportOf(library_, "kernel32.dll", "Sleep");
    DWORD protection = 0;
    ASSERT_TRUE(VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &protection));
    void* const hook = std::exchange(*entry, KernelFunction("Sleep"));
    ASSERT_TRUE(VirtualProtect(entry, sizeof *entry, PAGE_READONLY, &protection));
    EXPECT_TRUE(dialsim_watch("brindle.dll"));
    EXPECT_EQ(*entry, hook);
    MEMORY_BASIC_INFORMATION page{};
    VirtualQuery(entry, &page, sizeof page);
    EXPECT_EQ(page.Protect, static_cast<DWORD>(PAGE_READONLY));
}

// Such a module's functions cannot be called, and hooks in it would be overwritten when it is bound.
TEST_F(LoadedLibrary, IsNotHookedBeforeItsImportsAreBound) {
    library_ = LoadLibraryExA("brindle.dll", nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(library_, nullptr);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(dialsim_watch("brindle.dll"));
    EXPECT_FALSE(dialsim_start());
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "dialsim: a brindle.dll is not simulated: its imports are not bound\n");
    FreeLibrary(library_);
    library_ = nullptr;
    EXPECT_TRUE(dialsim_start());
}

TEST(Refusal, ToStartHasAStatusForEachReason) {
    EXPECT_EQ(RefusalToStart(740).status, dialsim::kRefused);  // ERROR_ELEVATION_REQUIRED
    EXPECT_EQ(RefusalToStart(740).reason, "it needs administrator rights; start dialsim-run with them");
    EXPECT_EQ(RefusalToStart(ERROR_ACCESS_DENIED).status, dialsim::kRefused);
    EXPECT_EQ(RefusalToStart(225).status, dialsim::kRefused);   // ERROR_VIRUS_INFECTED
    EXPECT_EQ(RefusalToStart(4551).status, dialsim::kRefused);  // ERROR_SYSTEM_INTEGRITY_POLICY_VIOLATION
    EXPECT_EQ(RefusalToStart(ERROR_BAD_EXE_FORMAT).status, dialsim::kNot64Bit);
    EXPECT_EQ(RefusalToStart(ERROR_FILE_NOT_FOUND).status, dialsim::kNotStarted);
    EXPECT_EQ(RefusalToStart(ERROR_NOT_ENOUGH_MEMORY).reason, "it cannot be started (error 8)");
}

TEST(Refusal, ToEnterNamesProtectedProgramsAndPolicies) {
    EXPECT_EQ(RefusalToEnter(ERROR_ACCESS_DENIED).status, dialsim::kRefused);
    EXPECT_EQ(RefusalToLoad(true, false).reason, "its policy allows only signed libraries");
    EXPECT_EQ(RefusalToLoad(false, true).status, dialsim::kRefused);
    EXPECT_EQ(RefusalToLoad(false, false).reason, "it could not load dialsim.dll");
}

TEST(Refusal, OfTheLoaderNamesTheMissingPart) {
    EXPECT_EQ(RefusalToInitialize(0xC0000135).reason, "a DLL that it needs is not found");
    EXPECT_EQ(RefusalToInitialize(0xC0000139).reason, "a DLL that it needs lacks a function");
    EXPECT_EQ(RefusalToInitialize(3).status, dialsim::kNotStarted);
}

}  // namespace
