// The three places where a setting is kept, and the steps that read and write one place.
//
//   place                      texts                       numbers
//   roaming settings           key -> String               key -> Int32
//   the user's vault           (resource, key) -> password  never written
//   local settings             key -> String               key -> Int32
//
// Lives for one call, on the host's thread; keeps nothing. Each step gets its platform objects anew and
// swallows every failure of the platform: a read then finds nothing, a write goes on past a look at the old
// value that failed and stops at any other failure, and what it has done stays done. A platform that is out
// of memory (0x8007000E) is not swallowed: std::bad_alloc.
#pragma once

#include <cstdint>

#include "storage/host_text.h"

namespace brindle {

enum class Container { Roaming, Local };

// Also a number that can be stored; it cannot be told from a missing one, and that is kept.
inline constexpr std::int32_t kAbsentNumber = INT32_MIN;

class StorageContext {
public:
    // The text is the host's and has to live for the call.
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
