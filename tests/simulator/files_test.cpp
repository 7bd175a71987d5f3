// Asynchronous file opens: time, thread and status of a completion.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

#include "files.h"

namespace brindle {
namespace {

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

}  // namespace
}  // namespace brindle
