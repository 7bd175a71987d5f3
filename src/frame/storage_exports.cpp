// The four settings functions: which places are asked, and in which order. Roaming settings come before the
// vault, the vault before local settings.
#include "brindle.h"
#include "platform/errors.h"
#include "storage/storage_context.h"

using namespace brindle;

// Every step swallows its own failures; the handlers here are for what would escape one all the same.

int32_t set_string_in_storage(const BrindleChar* resource, const BrindleChar* key, const BrindleChar* value) {
    try {
        const StorageContext storage(resource);
        storage.SetStringInSettings(Container::Roaming, key, value);
        storage.SetStringInVault(key, value);
        storage.SetStringInSettings(Container::Local, key, value);
        return S_OK;
    } catch (const hresult_error& error) {
        return error.code();
    }
}

BrindleChar* get_string_from_storage(const BrindleChar* resource, const BrindleChar* key) {
    try {
        const StorageContext storage(resource);
        HostText text = storage.GetStringFromSettings(Container::Roaming, key);
        if (!text) {
            text = storage.GetStringFromVault(key);
        }
        if (!text) {
            text = storage.GetStringFromSettings(Container::Local, key);
        }
        return text.release();
    } catch (const hresult_error&) {
        return nullptr;
    }
}

int32_t set_int_in_storage(const BrindleChar* resource, const BrindleChar* key, int32_t value) {
    try {
        const StorageContext storage(resource);
        storage.SetIntInSettings(Container::Roaming, key, value);
        storage.SetIntInSettings(Container::Local, key, value);
        return S_OK;
    } catch (const hresult_error& error) {
        return error.code();
    }
}

int32_t get_int_from_storage(const BrindleChar* resource, const BrindleChar* key) {
    try {
        const StorageContext storage(resource);
        int32_t number = storage.GetIntFromSettings(Container::Roaming, key);
        if (number == kAbsentNumber) {
            // A text counts as the number that it begins with, and as 0 when it begins with none: intended.
            if (HostText text = storage.GetStringFromVault(key)) {
                number = wcstol(text.get(), nullptr, 10);
                Wipe(std::move(text));
            }
        }
        if (number == kAbsentNumber) {
            number = storage.GetIntFromSettings(Container::Local, key);
        }
        return number;
    } catch (const hresult_error&) {
        return kAbsentNumber;
    }
}
