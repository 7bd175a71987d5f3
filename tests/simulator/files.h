// Asynchronous file opens, and the arguments of their completion handlers.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/delegate.h"
#include "platform/interfaces/storage.h"
#include "simulated_menu.h"
#include "support/pictures.h"

namespace brindle {

// A PNG header; the content behind it is not read.
inline const std::string kPng32(
    "\x89PNG\r\n\x1a\n\0\0\0\x0DIHDR\0\0\0\x20\0\0\0\x20\x08\x06\0\0\0\x73\x7A\x7A\xF4", 33);

// The arguments of a completion handler.
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

}  // namespace brindle
