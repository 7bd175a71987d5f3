// dialsim-run: starts a program with a simulated dial, controlled by the user or a script.
#include <windows.h>
// after windows.h
#include <shellapi.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kUsageError = 2;
constexpr int kNotStarted = 125;

constexpr char kHelp[] =
    "usage: dialsim-run [--script FILE.dial] [--] PROGRAM.exe [ARGUMENT...]\n"
    "\n"
    "Starts a program that uses the platform's dial and draws a simulated one beside its\n"
    "window: the mouse wheel over the dial turns it, a click presses it, and holding it\n"
    "down opens the menu. Keys do the same: the arrows, space, M for the menu, Esc.\n"
    "Waits for the program, and ends with its status.\n"
    "\n"
    "  --script FILE.dial   plays the script to the program's window, then closes it\n"
    "\n"
    "It registers dialsim.dll, which lies beside it, as the server of the dial's classes:\n"
    "under Wine, for the whole prefix. On Windows itself these classes are the system's,\n"
    "and nothing is replaced there: dialsim-run starts nothing, and ends with 125.\n";

struct Options {
    bool help = false;
    std::wstring script;
    std::vector<std::wstring> command;
};

// Without a command after a usage error.
Options ParseArguments(const std::vector<std::wstring>& words) {
    Options options;
    std::size_t i = 1;
    for (; i < words.size() && words[i].starts_with(L"--"); ++i) {
        if (words[i] == L"--help") {
            options.help = true;
        } else if (words[i] == L"--script" && i + 1 < words.size()) {
            options.script = words[++i];
        } else if (words[i] == L"--") {
            ++i;
            break;
        } else {
            return options;
        }
    }
    options.command.assign(words.begin() + static_cast<std::ptrdiff_t>(i), words.end());
    return options;
}

std::vector<std::wstring> CommandLineArguments() {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> words(arguments, arguments + count);
    LocalFree(arguments);
    return words;
}

// Quotes an argument as command-line parsers expect: backslashes are escaped only before a quotation mark.
std::wstring Quoted(const std::wstring& word) {
    if (!word.empty() && word.find_first_of(L" \t\"") == std::wstring::npos) {
        return word;
    }
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"') {
            quoted.append(backslashes + 1, L'\\');
        }
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(backslashes, L'\\') + L'"';
}

bool RegisterSimulator() {
    wchar_t path[MAX_PATH];
    std::wstring library(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
    library = library.substr(0, library.find_last_of(L'\\') + 1) + L"dialsim.dll";
    const HMODULE module = LoadLibraryW(library.c_str());
    if (module == nullptr) {
        std::fprintf(stderr, "dialsim-run: no dialsim.dll in its folder\n");
        return false;
    }
    const auto do_register = reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(module, "DllRegisterServer")));
    const HRESULT code = do_register();
    if (code < 0) {
        std::fprintf(stderr,
                     "dialsim-run: the simulator cannot be registered (%lx); on Windows itself it never is\n",
                     static_cast<unsigned long>(code));
    }
    return code >= 0;
}

int Run(const Options& options) {
    std::wstring line;
    for (const std::wstring& word : options.command) {
        line += (line.empty() ? L"" : L" ") + Quoted(word);
    }
    SetEnvironmentVariableW(L"DIALSIM_WINDOW", L"1");
    if (!options.script.empty()) {
        SetEnvironmentVariableW(L"DIALSIM_SCRIPT", options.script.c_str());
        SetEnvironmentVariableW(L"DIALSIM_CLOSE", L"1");
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process)) {
        std::fprintf(stderr, "dialsim-run: %ls cannot be started (error %lu)\n", options.command[0].c_str(),
                     GetLastError());
        return kNotStarted;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(status);
}

}  // namespace

int main() {
    const Options options = ParseArguments(CommandLineArguments());
    if (options.help || options.command.empty()) {
        std::fputs(kHelp, options.help ? stdout : stderr);
        return options.help ? 0 : kUsageError;
    }
    return RegisterSimulator() ? Run(options) : kNotStarted;
}
