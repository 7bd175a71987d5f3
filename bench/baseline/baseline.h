// The baseline: the same platform calls in the same order, written by hand with plain pointers; the least
// code that keeps the library's contract. It tests each code and each null result to which brindle.h or
// docs/guarantees.md gives a meaning, releases every reference after a failure, and keeps the labels and
// entries. It leaves out what runs only where a step fails: its second and third attempt, and their lines.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "brindle.h"
#include "platform/functions.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/stream.h"
#include "platform/interfaces/ui_input.h"

namespace baseline {

namespace abi = brindle::abi;

class Dial {
public:
    explicit Dial(IDialHost& host);
    Dial(const Dial&) = delete;
    Dial& operator=(const Dial&) = delete;
    ~Dial();

    HRESULT FillMenu(const MenuItemDescription* items, std::uint32_t count);
    HRESULT Select(std::uint32_t item_id);

    HRESULT OnRotation(abi::IRadialController* sender, abi::IRadialControllerRotationChangedEventArgs* args);
    HRESULT OnClick(abi::IRadialController* sender, abi::IRadialControllerButtonClickedEventArgs* args);

private:
    // The label has an allocation of its own, so that moving the entry leaves it alone.
    struct Entry {
        HSTRING* label;
        std::uint32_t item_id;
        std::int64_t invoked_token;
        bool haptic_feedback;
    };
    class FileHandler;

    // menu.cpp
    static Entry MakeEntry(const WCHAR* label, std::uint32_t item_id, bool haptic_feedback);
    // An entry that has been kept has no label any more.
    static void Free(const Entry& entry) {
        if (entry.label != nullptr) {
            FreeLabel(entry.label);
        }
    }
    static void FreeLabel(HSTRING* label);
    void Keep(Entry& entry) {
        entries_.push_back(entry);
        entry.label = nullptr;
    }
    HRESULT AddToMenu(abi::IRadialControllerMenuItem* item, Entry& entry);

    // menu_items.cpp. A negative code of AddItem ends the call.
    HRESULT AddItem(const MenuItemDescription& description);
    HRESULT AddKnownIcon(Entry& entry, abi::RadialControllerMenuKnownIcon icon);
    HRESULT AddSystemFont(Entry& entry, HSTRING glyph, HSTRING font_family);
    void AddCustomFont(Entry& entry, const MenuItemDescription& description);
    HRESULT AddFontFile(Entry& entry, HSTRING glyph, HSTRING font_family, HSTRING path);
    HRESULT AddFile(const Entry& entry, HSTRING path);
    HRESULT OnFileOpened(abi::IAsyncOperation<abi::StorageFile>* operation, const WCHAR* label,
                         std::uint32_t item_id);
    HRESULT AddResource(Entry& entry, HMODULE module, std::uint32_t resource);
    HRESULT AddStream(Entry& entry, abi::IStream* bytes, HGLOBAL& block);

    // A listener handles its events without a host, too.
    IDialHost* const host_;
    abi::IRadialController* controller_ = nullptr;
    abi::IRadialControllerMenu* menu_ = nullptr;
    abi::IRadialControllerMenuItemStatics* items_ = nullptr;
    std::vector<Entry> entries_;
};

// The dials of several windows.
class Windows {
public:
    void Add(IDialHost& host);
    HRESULT Select(std::uint64_t window, std::uint32_t item_id);

private:
    std::map<std::uint64_t, std::unique_ptr<Dial>> dials_;
};

// Settings: the baselines of the four settings functions.
std::int32_t SetText(const WCHAR* resource, const WCHAR* key, const WCHAR* value);
WCHAR* GetText(const WCHAR* resource, const WCHAR* key);
std::int32_t SetNumber(const WCHAR* key, std::int32_t value);
std::int32_t GetNumber(const WCHAR* resource, const WCHAR* key);

// Enumerates devices; the completion wakes the caller.
bool IsDialPresent();

}  // namespace baseline
