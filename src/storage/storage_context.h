// The three stores of a setting, and the steps that read and write one store.
//
//   store                      texts                       numbers
//   roaming settings           key -> String               key -> Int32
//   the user's vault           (resource, key) -> password  never written
//   local settings             key -> String               key -> Int32
//
// A context lives for one call, on the host's thread, and caches nothing. Each step gets its platform objects
// anew and catches platform failures: a read then finds nothing; a write ignores a failure to read or remove
// the old value, stops at any other failure, and undoes nothing. A platform that is out of memory
// (0x8007000E) makes a step throw std::bad_alloc.
#pragma once

#include <cstdint>

#include "storage/host_text.h"

namespace brindle {

enum class Container { Roaming, Local };

// Also a number that can be stored, deliberately indistinguishable from an absent one: hosts use INT32_MIN as
// the marker that brindle.h names (NumberSettings.TheSmallestNumberGivesWayToTheVaultAndTheLocalContainer).
inline constexpr std::int32_t kAbsentNumber = INT32_MIN;

class StorageContext {
public:
    // `resource` is the host's text and must outlive the context.
    explicit StorageContext(const WCHAR* resource) : resource_(resource) {}

    // settings.cpp
    HostText GetStringFromSettings(Container container, const WCHAR* key) const;
    void SetStringInSettings(Container container, const WCHAR* key, const WCHAR* value) const;
    std::int32_t GetIntFromSettings(Container container, const WCHAR* key) const;
    void SetIntInSettings(Container container, const WCHAR* key, std::int32_t value) const;

    // vault.cpp
    HostText GetStringFromVault(const WCHAR* key) const;
    void SetStringInVault(const WCHAR* key, const WCHAR* value) const;

private:
    const WCHAR* resource_;
};

}  // namespace brindle
