// Whether there is a file, and who may read it.
#pragma once

#include <string>

#ifdef _WIN32
#include <aclapi.h>
#include <windows.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

#ifdef _WIN32

inline bool Exists(const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The system and its administrators may read everything anyway.
inline bool IsOwnerOrSystem(PSID sid, PSID owner) {
    return EqualSid(sid, owner) || IsWellKnownSid(sid, WinLocalSystemSid) ||
           IsWellKnownSid(sid, WinBuiltinAdministratorsSid);
}

inline bool MayOthersRead(const std::string& path) {
    PSID owner = nullptr;
    ACL* list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    GetNamedSecurityInfoA(path.c_str(), SE_FILE_OBJECT,
                          OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION, &owner, nullptr, &list,
                          nullptr, &descriptor);
    bool others = list == nullptr;  // no list at all lets everybody in
    for (DWORD i = 0; list != nullptr && i < list->AceCount; ++i) {
        void* entry = nullptr;
        GetAce(list, i, &entry);
        auto* allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
        others =
            others || (allowed->Header.AceType == ACCESS_ALLOWED_ACE_TYPE &&
                       (allowed->Mask & FILE_READ_DATA) != 0 && !IsOwnerOrSystem(&allowed->SidStart, owner));
    }
    LocalFree(descriptor);
    return others;
}

#else

inline bool Exists(const std::string& path) { return access(path.c_str(), F_OK) == 0; }

inline bool MayOthersRead(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) != 0 || (status.st_mode & (S_IRWXG | S_IRWXO)) != 0;
}

#endif
