// Why the system does not let dialsim-run start a program or enter it.
#pragma once

#include <windows.h>

#include <string>

#include "simulator/launcher/statuses.h"

namespace dialsim {

struct Refusal {
    Status status;
    std::string reason;
};

// Errors that the compiler's headers lack.
constexpr DWORD kElevationRequired = 740;
constexpr DWORD kVirusInfected = 225;
constexpr DWORD kIntegrityPolicyViolation = 4551;

// CreateProcess failed with this error.
inline Refusal RefusalToStart(DWORD error) {
    switch (error) {
        case kElevationRequired:
            return {kRefused, "it needs administrator rights; start dialsim-run with them"};
        case ERROR_ACCESS_DENIED:
            return {kRefused, "the system denies access, as it does for packaged and for protected programs"};
        case kVirusInfected:
        case kIntegrityPolicyViolation:
            return {kRefused, "the security software of this computer blocks it"};
        case ERROR_BAD_EXE_FORMAT:
        case ERROR_EXE_MACHINE_TYPE_MISMATCH:
            return {kNot64Bit, "it is not a 64-bit program for x64"};
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return {kNotStarted, "there is no such file"};
        default:
            return {kNotStarted, "it cannot be started (error " + std::to_string(error) + ")"};
    }
}

// The process exists, and an operation on it failed with this error.
inline Refusal RefusalToEnter(DWORD error) {
    if (error == ERROR_ACCESS_DENIED) {
        return {kRefused, "the system denies access to it, as it does for protected programs"};
    }
    return {kRefused, "the simulator cannot enter it (error " + std::to_string(error) + ")"};
}

// The process did not load dialsim.dll.
inline Refusal RefusalToLoad(bool signed_only, bool local_only) {
    if (signed_only) {
        return {kRefused, "its policy allows only signed libraries"};
    }
    if (local_only) {
        return {kRefused, "its policy allows no libraries from a network drive, where dialsim.dll is"};
    }
    return {kRefused, "it could not load dialsim.dll"};
}

// The process ended while the loader initialised it, with this status.
inline Refusal RefusalToInitialize(DWORD status) {
    constexpr DWORD kDllNotFound = 0xC0000135;
    constexpr DWORD kEntryPointNotFound = 0xC0000139;
    if (status == kDllNotFound) {
        return {kNotStarted, "a DLL that it needs is not found"};
    }
    if (status == kEntryPointNotFound) {
        return {kNotStarted, "a DLL that it needs lacks a function"};
    }
    return {kNotStarted, "it ended while its DLLs were loaded, with status " + std::to_string(status)};
}

}  // namespace dialsim
