// The baseline: the same platform calls in the same order, written by hand with plain pointers. Only what the
// benchmarks measure, for one window, with minimal error handling.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "brindle.h"
#include "platform/functions.h"
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

    void OnRotation(abi::IRadialController* sender, abi::IRadialControllerRotationChangedEventArgs* args);
    void OnClick(abi::IRadialController* sender, abi::IRadialControllerButtonClickedEventArgs* args);

private:
    struct Entry {
        HSTRING label;
        std::uint32_t item_id;
        std::int64_t invoked_token;
        bool haptic_feedback;
    };

    HRESULT AddItem(const MenuItemDescription& description);
    HRESULT AddToMenu(abi::IRadialControllerMenuItem* item, Entry& entry);

    IDialHost& host_;
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
