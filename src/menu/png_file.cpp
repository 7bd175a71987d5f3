// FilePNG items: a PNG file that the platform opens asynchronously.
#include <string_view>
#include <vector>

#include "frame/diagnostics/steps.h"
#include "menu/dial_menu.h"
#include "platform/activation.h"
#include "platform/delegate.h"
#include "platform/error_to_code.h"
#include "platform/errors.h"
#include "platform/interfaces/storage_streams.h"

namespace brindle {

// Does not wait for the file. The completion handler holds a plain pointer to the listener, which must
// outlive the load, and deliberately no haptic setting: the item's entry records false, as brindle.h tells
// hosts (PictureFile.HasNoHapticSettingOfItsOwn).
HRESULT DialMenu::AddMenuItemFromFilePNG(const MenuEntry& entry, HSTRING path) {
    using OpenOperation = abi::IAsyncOperation<abi::StorageFile>;
    using Handler = abi::AsyncOperationCompletedHandler<abi::StorageFile>;

    ComPtr<abi::IStorageFileStatics> files;
    RETURN_IF_STEP_FAILS(586, GetFactory<abi::StorageFile>(files));
    ComPtr<OpenOperation> opening;
    RETURN_IF_STEP_FAILS(589, files->GetFileFromPathAsync(path, opening.Put()));
    if (!opening) {
        return E_NOINTERFACE;
    }

    // The label and its terminator in a vector: a std::basic_string would link the errors that
    // windows_runtime.cpp replaces.
    const std::basic_string_view<WCHAR> text(LabelOf(entry));
    const auto handler = MakeDelegate<Handler>(
        [this, label = std::vector<WCHAR>(text.data(), text.data() + text.size() + 1),
         item_id = entry.item_id](OpenOperation* operation, abi::AsyncStatus status) noexcept {
            try {
                return OnImageFileOpened(operation, status, label.data(), item_id);
            } catch (...) {
                return ErrorToCode();
            }
        });
    if (!handler) {
        throw std::bad_alloc();
    }
    // The code is deliberately ignored: a second attempt of the step would start a second load
    // (PictureFile.WhoseHandlerCannotBeAttachedIsStillASuccess).
    opening->put_Completed(handler.Get());
    return S_OK;
}

// Runs on the platform's thread. Loads complete in any order, and their items appear in that order.
HRESULT DialMenu::OnImageFileOpened(abi::IAsyncOperation<abi::StorageFile>* operation,
                                    abi::AsyncStatus status, const WCHAR* label, std::uint32_t item_id) {
    if (status != abi::AsyncStatus::Completed && status != abi::AsyncStatus::Error) {
        return S_FALSE;
    }
    ComPtr<abi::IStorageFile> file;
    if (const HRESULT code = operation->GetResults(file.Put()); !file) {
        return code;
    }
    ComPtr<abi::IRandomAccessStreamReferenceStatics> references;
    RETURN_IF_STEP_FAILS(627, GetFactory<abi::RandomAccessStreamReference>(references));
    ComPtr<abi::IRandomAccessStreamReference> picture;
    RETURN_IF_STEP_FAILS(630, references->CreateFromFile(file.Get(), picture.Put()));
    ComPtr<abi::IRadialControllerMenuItemStatics> statics;
    RETURN_IF_STEP_FAILS(639, GetFactory<abi::RadialControllerMenuItem>(statics));

    const TextReference shown(label);
    ComPtr<abi::IRadialControllerMenuItem> item;
    RETURN_IF_STEP_FAILS(642, statics->CreateFromIcon(shown.Get(), picture.Get(), item.Put()));
    MenuEntry entry = MakeEntry(label, item_id, false);
    RETURN_IF_STEP_FAILS(649, AddItemToMenu(item.Get(), entry));
    entries_.push_back(std::move(entry));
    return S_OK;
}

}  // namespace brindle
