#include "simulator/stores/store_files.h"

#include <sddl.h>
#include <windows.h>

#include <cstdio>

#include "simulator/system/text.h"

namespace dialsim {

namespace {

HRESULT LastCode() { return HRESULT_FROM_WIN32(GetLastError()); }

class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (*this) {
            CloseHandle(handle_);
        }
    }
    HANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }

private:
    const HANDLE handle_;
};

// Virus scanners, indexers and backups open files that have just been written, for a moment and without
// sharing them: a failed attempt is repeated for one second.
template <class Attempt>
bool Persist(Attempt attempt) {
    constexpr DWORD kPauseMs = 10;
    int pauses_left = 100;
    while (!attempt()) {
        const DWORD error = GetLastError();
        const bool is_in_use = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!is_in_use || pauses_left-- == 0) {
            return false;
        }
        Sleep(kPauseMs);
    }
    return true;
}

HANDLE OpenFile(const WideString& path, DWORD access, DWORD disposition,
                SECURITY_ATTRIBUTES* protection = nullptr) {
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    HANDLE file = INVALID_HANDLE_VALUE;
    Persist([&] {
        file = CreateFileW(path.c_str(), access, kShared, protection, disposition, FILE_ATTRIBUTE_NORMAL,
                           nullptr);
        return file != INVALID_HANDLE_VALUE;
    });
    return file;
}

bool MakeOneFolder(const WideString& folder) {
    return CreateDirectoryW(folder.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS;
}

HRESULT MakeFolder(const WideString& folder) {
    if (MakeOneFolder(folder)) {
        return S_OK;
    }
    const std::size_t parent = folder.find_last_of(L"\\/");
    if (GetLastError() != ERROR_PATH_NOT_FOUND || parent == WideString::npos || parent == 0) {
        return LastCode();
    }
    if (const HRESULT code = MakeFolder(folder.substr(0, parent)); code < 0) {
        return code;
    }
    return MakeOneFolder(folder) ? S_OK : LastCode();
}

// Creates a file with this security descriptor from the beginning, in SDDL.
HANDLE CreateProtected(const WideString& path, const WCHAR* description) {
    SECURITY_ATTRIBUTES protection{sizeof protection, nullptr, FALSE};
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(description, SDDL_REVISION_1,
                                                              &protection.lpSecurityDescriptor, nullptr)) {
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE file = OpenFile(path, GENERIC_WRITE, CREATE_NEW, &protection);
    const DWORD error = GetLastError();
    LocalFree(protection.lpSecurityDescriptor);
    SetLastError(error);
    return file;
}

// Grants rights to the owner only, without inheritance. Wine extends rights that are granted to a user to the
// user's group, but not rights of OWNER RIGHTS (OW), which it honours only when OW is also the owner. Windows
// refuses that owner and does not need it.
HANDLE CreateForOwner(const WideString& path) {
    const HANDLE file = CreateProtected(path, L"O:OWD:P(A;;FRFWSD;;;OW)");
    const bool refused = file == INVALID_HANDLE_VALUE && GetLastError() == ERROR_INVALID_OWNER;
    return refused ? CreateProtected(path, L"D:P(A;;FRFWSD;;;OW)") : file;
}

WideString NewName(const WideString& path) { return path + L".new"; }

bool RemoveOne(const WideString& path) {
    return Persist([&] { return DeleteFileW(path.c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND; });
}

// Creates a new file, which has this protection from the beginning.
HRESULT WriteNewFile(const WideString& path, const std::string& content, Readers readers) {
    if (!RemoveOne(path)) {
        return LastCode();
    }
    const Handle file(readers == Readers::OwnerOnly ? CreateForOwner(path)
                                                    : OpenFile(path, GENERIC_WRITE, CREATE_NEW));
    DWORD written = 0;
    const bool whole = file && ::WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()),
                                           &written, nullptr);
    return whole ? S_OK : LastCode();
}

}  // namespace

std::string Environment(const char* variable) {
    const WideString name = Widen(variable);
    WideString value(GetEnvironmentVariableW(name.c_str(), nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name.c_str(), value.data(), static_cast<DWORD>(value.size())));
    return Narrow(value);
}

std::string UserDataFolder() {
    const std::string data = Environment("LOCALAPPDATA");
    return data.empty() ? "" : data + "\\dialsim";
}

FolderLock::FolderLock(const std::string& folder) : file_(0), code_(MakeFolder(Widen(folder))) {
    if (code_ < 0) {
        return;
    }
    const HANDLE file = OpenFile(Widen(folder) + L"\\lock", GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
    OVERLAPPED from_start{};
    const bool locked =
        file != INVALID_HANDLE_VALUE && LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &from_start);
    code_ = locked ? S_OK : LastCode();
    file_ = reinterpret_cast<std::intptr_t>(file);
}

FolderLock::~FolderLock() { const Handle last(reinterpret_cast<HANDLE>(file_)); }

HRESULT ReadStoreFile(const std::string& path, std::optional<std::string>& content) {
    content.reset();
    const Handle file(OpenFile(Widen(path), GENERIC_READ, OPEN_EXISTING));
    if (!file) {
        return GetLastError() == ERROR_FILE_NOT_FOUND ? S_OK : LastCode();
    }
    content.emplace();
    char bytes[4096];
    DWORD count = 0;
    do {
        if (!::ReadFile(file.get(), bytes, sizeof bytes, &count, nullptr)) {
            return LastCode();
        }
        content->append(bytes, count);
    } while (count > 0);
    return S_OK;
}

HRESULT ReplaceStoreFile(const std::string& path, const std::string& content, Readers readers) {
    const WideString target = Widen(path);
    if (const HRESULT code = WriteNewFile(NewName(target), content, readers); code < 0) {
        return code;
    }
    const DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    const bool moved =
        Persist([&] { return MoveFileExW(NewName(target).c_str(), target.c_str(), how) != FALSE; });
    return moved ? S_OK : LastCode();
}

HRESULT RemoveStoreFile(const std::string& path) {
    const WideString target = Widen(path);
    return RemoveOne(target) && RemoveOne(NewName(target)) ? S_OK : LastCode();
}

}  // namespace dialsim
