#include "simulator/launcher/windows/target.h"
// after windows.h
#include <psapi.h>

#include <vector>

#include "simulator/launcher/windows/refusal.h"

namespace dialsim {

namespace {

void* FunctionOf(HMODULE module, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(module, name));
}

std::wstring PathOf(HMODULE module) {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

// The module of a process whose address has these lower 32 bits; null when there is none. A thread returns no
// more of the address.
char* FindModule(HANDLE process, DWORD low_address) {
    std::vector<HMODULE> modules(1024);
    DWORD size = 0;
    EnumProcessModules(process, modules.data(), static_cast<DWORD>(modules.size() * sizeof(HMODULE)), &size);
    modules.resize(size / sizeof(HMODULE));
    for (const HMODULE module : modules) {
        if (static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(module)) == low_address) {
            return reinterpret_cast<char*>(module);
        }
    }
    return nullptr;
}

Refusal ReasonNotToLoad(HANDLE process) {
    PROCESS_MITIGATION_BINARY_SIGNATURE_POLICY signature{};
    PROCESS_MITIGATION_IMAGE_LOAD_POLICY load{};
    GetProcessMitigationPolicy(process, ProcessSignaturePolicy, &signature, sizeof signature);
    GetProcessMitigationPolicy(process, ProcessImageLoadPolicy, &load, sizeof load);
    return RefusalToLoad(signature.MicrosoftSignedOnly != 0 || signature.StoreSignedOnly != 0,
                         load.NoRemoteImages != 0);
}

// Ends the program when dialsim-run ends, also when that is killed. Its own children are free.
Handle JobOf(HANDLE process) {
    Handle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags =
        JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_SILENT_BREAKAWAY_OK;
    SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job.Get(), process);
    return job;
}

}  // namespace

Target::Target(std::wstring command_line) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    // A program of the subsystem "windows" gets them only in this way.
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    if (CreateProcessW(nullptr, command_line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                       nullptr, &startup, &started) == FALSE) {
        throw RefusalToStart(GetLastError());
    }
    process_ = Handle(started.hProcess);
    thread_ = Handle(started.hThread);
    job_ = JobOf(process_.Get());
    library_event_ = Handle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
}

Target::~Target() { TerminateProcess(process_.Get(), static_cast<UINT>(kNotStarted)); }

void Target::RequireX64() const {
    BOOL is_32_bit = FALSE;
    if (IsWow64Process(process_.Get(), &is_32_bit) != FALSE && is_32_bit != FALSE) {
        throw RefusalToStart(ERROR_EXE_MACHINE_TYPE_MISMATCH);
    }
}

void Target::Attach(HMODULE simulator) {
    RequireX64();
    char* const loaded = Load(PathOf(simulator));
    const auto offset =
        static_cast<char*>(FunctionOf(simulator, "DialsimAttach")) - reinterpret_cast<char*>(simulator);
    if (Call(loaded + offset, DuplicateEvent()) != 0) {
        throw Refusal{kRefused, "this system does not announce the loading of libraries"};
    }
}

DWORD Target::Run() {
    ResumeThread(thread_.Get());
    WaitForSingleObject(process_.Get(), INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process_.Get(), &status);
    return status;
}

bool Target::LoadedLibrary() const { return WaitForSingleObject(library_event_.Get(), 0) == WAIT_OBJECT_0; }

// The event for the other process, which owns the new handle.
HANDLE Target::DuplicateEvent() const {
    HANDLE duplicate = nullptr;
    if (DuplicateHandle(GetCurrentProcess(), library_event_.Get(), process_.Get(), &duplicate,
                        EVENT_MODIFY_STATE, FALSE, 0) == FALSE) {
        throw RefusalToEnter(GetLastError());
    }
    return duplicate;
}

// Returns the address of the module there. System libraries have one address in all processes.
char* Target::Load(const std::wstring& path) const {
    const std::size_t size = (path.size() + 1) * sizeof(wchar_t);
    void* const there =
        VirtualAllocEx(process_.Get(), nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (there == nullptr || WriteProcessMemory(process_.Get(), there, path.c_str(), size, nullptr) == FALSE) {
        throw RefusalToEnter(GetLastError());
    }
    const DWORD low_address = Call(FunctionOf(GetModuleHandleW(L"kernel32.dll"), "LoadLibraryW"), there);
    if (WaitForSingleObject(process_.Get(), 0) == WAIT_OBJECT_0) {
        DWORD status = 0;
        GetExitCodeProcess(process_.Get(), &status);
        throw RefusalToInitialize(status);
    }
    VirtualFreeEx(process_.Get(), there, 0, MEM_RELEASE);
    char* const module = low_address == 0 ? nullptr : FindModule(process_.Get(), low_address);
    if (module == nullptr) {
        throw ReasonNotToLoad(process_.Get());
    }
    return module;
}

// Calls a function on a new thread there. The first such thread initialises the process: the loader binds the
// DLLs that the program imports and runs their entry points.
DWORD Target::Call(void* function, void* argument) const {
    const Handle thread(CreateRemoteThread(process_.Get(), nullptr, 0,
                                           reinterpret_cast<LPTHREAD_START_ROUTINE>(function), argument, 0,
                                           nullptr));
    if (thread.Get() == nullptr) {
        throw RefusalToEnter(GetLastError());
    }
    const HANDLE ended[] = {thread.Get(), process_.Get()};
    WaitForMultipleObjects(2, ended, FALSE, INFINITE);
    DWORD result = 0;
    GetExitCodeThread(thread.Get(), &result);
    return result;
}

}  // namespace dialsim
