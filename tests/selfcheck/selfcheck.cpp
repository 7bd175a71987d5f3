// The self-check: runs the test programs beside it on this Windows, first with everything simulated, then
// with only the dial simulated, then dialcheck. Prints a summary, and leaves one text file with everything.
//
// The exit status is 0 when every check has passed. What dialcheck finds is reported, and no check.
#include <windows.h>
// after windows.h
#include <winternl.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "brindle.h"

namespace {

constexpr wchar_t kReportName[] = L"brindle-selfcheck.txt";

std::wstring ModulePath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

std::wstring FolderOf(const std::wstring& path) { return path.substr(0, path.find_last_of(L"\\/")); }

std::wstring TemporaryFolder() {
    wchar_t folder[MAX_PATH + 1] = L"";
    return {folder, GetTempPathW(MAX_PATH + 1, folder)};
}

std::string Encoded(const std::wstring& text, UINT code_page) {
    std::string bytes(text.size() * 4, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(code_page, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

// A console's own; UTF-8 for a file or a pipe.
UINT CodePageOfOutput() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) != FALSE ? GetConsoleOutputCP() : CP_UTF8;
}

std::string Utf8(const std::wstring& text) { return Encoded(text, CP_UTF8); }

// --- the system

template <class Function>
Function NtFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)));
}

// GetVersionEx answers what the program's manifest knows; this is the system's own version.
std::string WindowsVersion() {
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    NtFunction<LONG(NTAPI*)(OSVERSIONINFOW*)>("RtlGetVersion")(&version);
    DWORD revision = 0;
    DWORD size = sizeof revision;
    RegGetValueW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion", L"UBR",
                 RRF_RT_REG_DWORD, nullptr, &revision, &size);
    return std::to_string(version.dwMajorVersion) + '.' + std::to_string(version.dwMinorVersion) + '.' +
           std::to_string(version.dwBuildNumber) + '.' + std::to_string(revision);
}

std::string WineVersion() {
    const auto version = NtFunction<const char*(CDECL*)()>("wine_get_version");
    return version == nullptr ? "" : std::string(", Wine ") + version();
}

std::string DescribeSystem() {
    return "Windows " + WindowsVersion() + WineVersion() + ", code page " + std::to_string(GetACP()) +
           ", language " + std::to_string(GetUserDefaultUILanguage());
}

// --- the report

class Report {
public:
    explicit Report(const std::wstring& folder) {
        // The folder of an archive may be read-only.
        for (const std::wstring& place : {folder + L"\\", TemporaryFolder()}) {
            path_ = place + kReportName;
            SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
            file_ =
                CreateFileW(path_.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
            if (file_ != INVALID_HANDLE_VALUE) {
                return;
            }
        }
    }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;
    ~Report() { CloseHandle(file_); }

    bool IsOpen() const { return file_ != INVALID_HANDLE_VALUE; }
    const std::wstring& Path() const { return path_; }
    // Programs inherit it as their output.
    HANDLE File() const { return file_; }

    void Write(const std::string& text) const {
        DWORD written = 0;
        SetFilePointer(file_, 0, nullptr, FILE_END);
        WriteFile(file_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    }
    DWORD Size() const { return GetFileSize(file_, nullptr); }
    std::string From(DWORD offset) const {
        std::string text(Size() - offset, '\0');
        DWORD count = 0;
        SetFilePointer(file_, static_cast<LONG>(offset), nullptr, FILE_BEGIN);
        ReadFile(file_, text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
        SetFilePointer(file_, 0, nullptr, FILE_END);
        return text;
    }

private:
    std::wstring path_;
    HANDLE file_ = INVALID_HANDLE_VALUE;
};

// A line on the console and in the report.
void Say(const Report& report, const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
    report.Write(line + "\r\n");
}

// --- programs

struct Check {
    std::string name;
    std::wstring command;             // a program beside this one, and its arguments
    DWORD limit;                      // seconds until the program is ended
    std::vector<int> statuses;        // that pass
    const wchar_t* script = nullptr;  // that turns the dial (DIALSIM_SCRIPT)
    bool concludes = false;           // the program's last line says what it has done
};

constexpr int kTooLong = -1;
constexpr int kNotStarted = -2;

// Runs the program with its output in the report; returns its status.
int Run(const Report& report, const std::wstring& folder, const Check& check) {
    SetEnvironmentVariableW(L"DIALSIM_SCRIPT", check.script);
    std::wstring line = L"\"" + folder + L"\\" + check.command;
    line.insert(line.find(L".exe", folder.size()) + 4, L"\"");
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = report.File();
    startup.hStdError = report.File();
    PROCESS_INFORMATION started{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, folder.c_str(), &startup,
                       &started) == FALSE) {
        report.Write("error " + std::to_string(GetLastError()) + "\r\n");
        return kNotStarted;
    }
    DWORD status = static_cast<DWORD>(kTooLong);
    if (WaitForSingleObject(started.hProcess, check.limit * 1000) == WAIT_OBJECT_0) {
        GetExitCodeProcess(started.hProcess, &status);
    } else {
        TerminateProcess(started.hProcess, status);
        WaitForSingleObject(started.hProcess, INFINITE);
    }
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return static_cast<int>(status);
}

std::string LastLine(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text.substr(text.find_last_of('\n') + 1);
}

std::string Outcome(const Check& check, int status) {
    if (status == kNotStarted) {
        return "FAILED, cannot be started";
    }
    if (status == kTooLong) {
        return "FAILED, ended after " + std::to_string(check.limit) + " s";
    }
    const bool passed =
        std::find(check.statuses.begin(), check.statuses.end(), status) != check.statuses.end();
    return passed ? "passed" : "FAILED, status " + std::to_string(status);
}

struct Result {
    std::string line;
    bool passed;
    std::string output;
};

Result Perform(const Report& report, const std::wstring& folder, const Check& check) {
    std::printf("  %-36s ", check.name.c_str());
    std::fflush(stdout);
    report.Write("\r\n=== " + check.name + ": " + Utf8(check.command) + "\r\n");
    const DWORD before = report.Size();
    const ULONGLONG start = GetTickCount64();
    const std::string outcome = Outcome(check, Run(report, folder, check));
    const auto seconds = static_cast<unsigned>((GetTickCount64() - start) / 1000);
    std::string output = report.From(before);
    const std::string result =
        outcome + ", " + std::to_string(seconds) + " s" + (check.concludes ? ": " + LastLine(output) : "");
    std::printf("%s\n", result.c_str());
    return {check.name + ": " + result, outcome == "passed", std::move(output)};
}

// --- the checks

const Check kSimulated[] = {
    {"behaviour tests", L"behaviour_tests.exe --gtest_brief=1", 900, {0}, nullptr, true},
    {"host in C", L"c_host.exe", 60, {0}},
    {"host with MSVC's binary interface", L"msvc_host.exe", 60, {0}},
    {"library loaded by the program",
     L"dialsim-run.exe launched_host.exe load brindle.dll",
     60,
     {7},
     L"turns.dial"},
    {"library loaded three times",
     L"dialsim-run.exe launched_host.exe reload brindle.dll",
     60,
     {7},
     L"turns.dial"},
    {"canvas painted by a script", L"dialsim-run.exe --script canvas.dial canvas.exe", 120, {0}},
};

const Check kOnlyDial[] = {
    {"the system's own classes", L"system_tests.exe", 300, {0}, nullptr, true},
};

const Check kDialcheck = {"dialcheck", L"dialcheck.exe --wait 1", 120, {0, 1, 2}, nullptr, true};

template <class Checks>
void PerformAll(const Report& report, const std::wstring& folder, const Checks& checks,
                std::vector<Result>& results) {
    for (const Check& check : checks) {
        results.push_back(Perform(report, folder, check));
    }
}

// What a dial does, so that it can be played where there is none.
void Record(const Report& report, const std::wstring& folder) {
    const std::wstring script = TemporaryFolder() + L"session.dial";
    Perform(report, folder,
            {"recording: turn the dial, then press it",
             L"dialsim-run.exe --real --record \"" + script + L"\" dialcheck.exe --session 30",
             120,
             {0, 1, 2}});
    report.Write("\r\n=== session.dial\r\n");
    if (std::FILE* file = _wfopen(script.c_str(), L"rb")) {
        char bytes[4096];
        while (const std::size_t count = std::fread(bytes, 1, sizeof bytes, file)) {
            report.Write({bytes, count});
        }
        std::fclose(file);
        DeleteFileW(script.c_str());
    }
}

bool RunAll(const Report& report, const std::wstring& folder) {
    // Memory: the checks leave nothing behind.
    SetEnvironmentVariableW(L"DIALSIM_STORES", L":memory:");
    std::vector<Result> results;
    std::puts("Round 1: everything is simulated");
    PerformAll(report, folder, kSimulated, results);
    std::puts("Round 2: only the dial is simulated");
    PerformAll(report, folder, kOnlyDial, results);
    std::puts("Without the simulator");
    const Result probe = Perform(report, folder, kDialcheck);
    if (probe.output.find("\ndial: present") != std::string::npos) {
        Record(report, folder);
    }
    report.Write("\r\n=== Summary\r\n");
    const auto passed = static_cast<std::size_t>(
        std::count_if(results.begin(), results.end(), [](const Result& result) { return result.passed; }));
    results.push_back(probe);
    for (const Result& result : results) {
        report.Write(result.line + "\r\n");
    }
    Say(report, passed + 1 == results.size() ? "all " + std::to_string(passed) + " checks passed"
                                             : std::to_string(results.size() - 1 - passed) + " of " +
                                                   std::to_string(results.size() - 1) + " checks FAILED");
    return passed + 1 == results.size();
}

// A double click opens a console that closes with the program.
void WaitForEnter() {
    DWORD mode = 0;
    if (GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != FALSE) {
        std::puts("Press Enter to close.");
        std::getchar();
    }
}

}  // namespace

int main() {
    const std::wstring programs = FolderOf(ModulePath());
    const Report report(FolderOf(programs));
    if (!report.IsOpen()) {
        std::fputs("selfcheck: the report cannot be written\n", stderr);
        return 2;
    }
    Say(report, "Brindle self-check " BRINDLE_VERSION_TEXT);
    Say(report, DescribeSystem());
    std::puts("About two minutes; a canvas opens and closes. Nothing is installed or changed.");
    const bool passed = RunAll(report, programs);
    std::printf("Everything is in %s\n", Encoded(report.Path(), CodePageOfOutput()).c_str());
    WaitForEnter();
    return passed ? 0 : 1;
}
