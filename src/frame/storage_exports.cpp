// The four settings exports and the order of the stores: roaming settings, vault, local settings.
#include "brindle.h"
#include "platform/errors.h"
#include "storage/storage_context.h"

using namespace brindle;

// Every step catches its own platform failures; the handlers here catch what a step throws all the same.

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
            // No check of the parse: hosts rely on a text without digits reading as 0 and on trailing text
            // being ignored (NumberSettings.ATextWithoutDigitsIsZero).
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
