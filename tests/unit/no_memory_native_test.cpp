// Without memory: operator new for those who take a null for an answer, and calloc, give nothing while a test
// says so. The test program is linked with --wrap for both.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <new>

#include "brindle.h"
#include "menu/kind_sequence.h"
#include "simulator/dialsim.h"
#include "tests/support/dialsim_text.h"
#include "tests/support/menu_items.h"
#include "tests/support/pictures.h"
#include "tests/support/recording_host.h"
#include "tests/support/stores_folder.h"

namespace {

bool no_memory = false;

class NoMemory {
public:
    NoMemory() { no_memory = true; }
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;
    ~NoMemory() { no_memory = false; }
};

}  // namespace

// operator new(std::size_t, const std::nothrow_t&)
extern "C" void* __real__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag) noexcept;
extern "C" void* __wrap__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag) noexcept {
    return no_memory ? nullptr : __real__ZnwmRKSt9nothrow_t(size, tag);
}

extern "C" void* __real_calloc(std::size_t count, std::size_t size);
extern "C" void* __wrap_calloc(std::size_t count, std::size_t size) {
    return no_memory ? nullptr : __real_calloc(count, size);
}

namespace brindle {
namespace {

constexpr std::uint64_t kWindow = 3;

class WithoutMemory : public testing::Test {
protected:
    void SetUp() override {
        dialsim_reset();
        ASSERT_EQ(initialize(), 0);
    }
    void TearDown() override {
        uninit();
        EXPECT_EQ(OpenAccounts(), "");
        dialsim_reset();
    }
    void Listen() { ASSERT_TRUE(init_dial_listener(&host_)); }

    RecordingHost host_{kWindow};
};

TEST_F(WithoutMemory, AHandlerThatCannotBeMadeFailsTheRegistration) {
    testing::internal::CaptureStdout();
    bool listening = true;
    {
        const NoMemory none;
        listening = init_dial_listener(&host_);
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "failed with 8007000e at line 467\nregister failed with 8007000e at line 110\n");
    EXPECT_FALSE(listening);
    EXPECT_EQ(dialsim_calls("IRadialController::add_ScreenContactContinued"), 0u);
}

TEST_F(WithoutMemory, AnItemWhoseHandlerCannotBeMadeIsAnAllocationFailure) {
    Listen();
    const NoMemory none;
    EXPECT_THROW(SetMenu(kWindow, {KnownIcon(1)}), std::bad_alloc);
    EXPECT_EQ(dialsim_calls("IRadialControllerMenuItem::add_Invoked"), 0u);
}

TEST_F(WithoutMemory, AFileWhoseHandlerCannotBeMadeIsAnAllocationFailure) {
    const TemporaryFile picture("brindle-picture.png", SmallPng());
    Listen();
    const NoMemory none;
    EXPECT_THROW(SetMenu(kWindow, {FilePNG(1, picture.Path())}), std::bad_alloc);
    EXPECT_EQ(dialsim_calls("IAsyncOperation<StorageFile>::put_Completed"), 0u);
}

TEST_F(WithoutMemory, AQueryWhoseHandlerCannotBeMadeIsAnAllocationFailure) {
    Listen();
    const NoMemory none;
    EXPECT_THROW(is_dial_present(kWindow), std::bad_alloc);
    EXPECT_EQ(dialsim_calls("Sleep(1)"), 0u);
}

TEST_F(WithoutMemory, ATextThatCannotBeCopiedIsAnAllocationFailure) {
    const StoresFolder stores;
    ASSERT_EQ(set_string_in_storage(u"host", u"key", u"text"), 0);
    const NoMemory none;
    EXPECT_THROW(get_string_from_storage(u"host", u"key"), std::bad_alloc);
}

TEST_F(WithoutMemory, AnIteratorThatCannotBeMadeHoldsNoReference) {
    const auto sequence = ComPtr<KindSequence>::Own(new KindSequence({SystemItemKind::Scroll}));
    auto* iterator = reinterpret_cast<abi::IIterator<SystemItemKind>*>(&no_memory);
    {
        const NoMemory none;
        EXPECT_EQ(sequence->First(&iterator), E_OUTOFMEMORY);
    }
    EXPECT_EQ(iterator, nullptr);
    sequence->AddRef();
    EXPECT_EQ(sequence->Release(), 1u);
}

}  // namespace
}  // namespace brindle
