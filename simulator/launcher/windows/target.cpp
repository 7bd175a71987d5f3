#include "simulator/launcher/windows/target.h"
// after windows.h
#include <psapi.h>

#include <algorithm>
#include <vector>

#include "simulator/launcher/windows/attachment.h"
#include "simulator/launcher/windows/module_path.h"
#include "simulator/launcher/windows/refusal.h"

namespace dialsim {

namespace {

void* FunctionOf(HMODULE module, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(module, name));
}

// The module of a process from this file; null when there is none. A thread's result is only half of its
// address.
char* FindModule(HANDLE process, const std::wstring& path) {
    std::vector<HMODULE> modules(1024);
    DWORD size = 0;
    EnumProcessModules(process, modules.data(), static_cast<DWORD>(modules.size() * sizeof(HMODULE)), &size);
    modules.resize(std::min(modules.size(), size / sizeof(HMODULE)));
    for (const HMODULE module : modules) {
        std::wstring name(kLongestPath, L'\0');
        name.resize(GetModuleFileNameExW(process, module, name.data(), kLongestPath));
        if (CompareStringOrdinal(name.c_str(), -1, path.c_str(), -1, TRUE) == CSTR_EQUAL) {
            return reinterpret_cast<char*>(module);
        }
    }
    return nullptr;
}

// From the file's header, unknown for other files: the system's functions do not tell a native program of
// another processor from an x64 one.
WORD MachineOf(const std::wstring& path) {
    const Handle file(CreateFileW(path.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, 0, nullptr));
    IMAGE_DOS_HEADER start{};
    IMAGE_NT_HEADERS64 headers{};
    DWORD read = 0;
    ReadFile(file.Get(), &start, sizeof start, &read, nullptr);
    SetFilePointer(file.Get(), start.e_lfanew, nullptr, FILE_BEGIN);
    ReadFile(file.Get(), &headers, sizeof headers, &read, nullptr);
    return start.e_magic == IMAGE_DOS_SIGNATURE && headers.Signature == IMAGE_NT_SIGNATURE
               ? headers.FileHeader.Machine
               : IMAGE_FILE_MACHINE_UNKNOWN;
}

std::wstring PathOf(HANDLE process) {
    std::wstring path(kLongestPath, L'\0');
    auto length = kLongestPath;
    QueryFullProcessImageNameW(process, 0, path.data(), &length);
    path.resize(length);
    return path;
}

bool IsForAnotherProcessor(const std::wstring& path) {
    const WORD machine = MachineOf(path);
    return machine != IMAGE_FILE_MACHINE_UNKNOWN && machine != IMAGE_FILE_MACHINE_AMD64;
}

Refusal ReasonNotToLoad(HANDLE process) {
    // A process that the loader ends takes a moment.
    constexpr DWORD kMoment = 1000;
    if (WaitForSingleObject(process, kMoment) == WAIT_OBJECT_0) {
        DWORD status = 0;
        GetExitCodeProcess(process, &status);
        return RefusalToInitialize(status);
    }
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

Target::Target(const std::wstring& program, std::wstring command_line) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    // A program of the subsystem "windows" gets them only in this way.
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    // Inherited: a program that cannot be loaded ends, without a message box that nobody may close.
    const UINT mode = SetErrorMode(SEM_FAILCRITICALERRORS);
    const BOOL created = CreateProcessW(nullptr, command_line.data(), nullptr, nullptr, TRUE,
                                        CREATE_SUSPENDED, nullptr, nullptr, &startup, &started);
    const DWORD error = GetLastError();
    SetErrorMode(mode);
    if (created == FALSE) {
        // The error for such a program depends on what the system can run beside x64 programs.
        throw RefusalToStart(IsForAnotherProcessor(program) ? ERROR_EXE_MACHINE_TYPE_MISMATCH : error);
    }
    process_ = Handle(started.hProcess);
    thread_ = Handle(started.hThread);
    job_ = JobOf(process_.Get());
}

Target::~Target() { TerminateProcess(process_.Get(), static_cast<UINT>(kNotStarted)); }

void Target::RequireX64() const {
    if (MachineOf(PathOf(process_.Get())) != IMAGE_FILE_MACHINE_AMD64) {
        throw RefusalToStart(ERROR_EXE_MACHINE_TYPE_MISMATCH);
    }
}

void Target::Attach(HMODULE simulator) {
    RequireX64();
    char* const loaded = Load(PathOf(simulator));
    const auto offset =
        static_cast<char*>(FunctionOf(simulator, "DialsimAttach")) - reinterpret_cast<char*>(simulator);
    const Attachment events = {Duplicate(library_loaded_), Duplicate(dial_in_use_)};
    if (Call(loaded + offset, Copy(&events, sizeof events)) != 0) {
        throw Refusal{kRefused, "this system does not announce the loading of libraries"};
    }
}

bool Target::WaitForDial(DWORD milliseconds) const {
    const HANDLE awaited[] = {dial_in_use_.Get(), process_.Get()};
    return WaitForMultipleObjects(2, awaited, FALSE, milliseconds) == WAIT_OBJECT_0;
}

DWORD Target::WaitForEnd() const {
    WaitForSingleObject(process_.Get(), INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process_.Get(), &status);
    return status;
}

bool Target::IsRunning() const { return WaitForSingleObject(process_.Get(), 0) == WAIT_TIMEOUT; }

bool Target::LoadedLibrary() const { return WaitForSingleObject(library_loaded_.Get(), 0) == WAIT_OBJECT_0; }

// The event for the other process, which owns the new handle.
HANDLE Target::Duplicate(const Handle& event) const {
    HANDLE duplicate = nullptr;
    if (DuplicateHandle(GetCurrentProcess(), event.Get(), process_.Get(), &duplicate, EVENT_MODIFY_STATE,
                        FALSE, 0) == FALSE) {
        throw RefusalToEnter(GetLastError());
    }
    return duplicate;
}

// Copies to the memory of the other process, which keeps it.
void* Target::Copy(const void* bytes, std::size_t size) const {
    void* const there =
        VirtualAllocEx(process_.Get(), nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (there == nullptr || WriteProcessMemory(process_.Get(), there, bytes, size, nullptr) == FALSE) {
        throw RefusalToEnter(GetLastError());
    }
    return there;
}

// Returns the address of the module there. System libraries have one address in all processes.
char* Target::Load(const std::wstring& path) const {
    void* const there = Copy(path.c_str(), (path.size() + 1) * sizeof(wchar_t));
    Call(FunctionOf(GetModuleHandleW(L"kernel32.dll"), "LoadLibraryW"), there);
    char* const module = FindModule(process_.Get(), path);
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
