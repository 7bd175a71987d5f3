// dialsim-run: starts a program with a simulated dial, controlled by the user or a script.
#include <windows.h>
// after windows.h
#include <shellapi.h>

#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

#include "brindle.h"
#include "simulator/launcher/statuses.h"
#include "simulator/launcher/windows/module_path.h"
#include "simulator/launcher/windows/refusal.h"
#include "simulator/launcher/windows/target.h"
#include "simulator/launcher/windows/version.h"

namespace {

using namespace dialsim;

constexpr char kHelp[] =
    "usage: dialsim-run [--script FILE.dial] [--record FILE.dial] [--] PROGRAM.exe [ARGUMENT...]\n"
    "       dialsim-run --real --record FILE.dial [--] PROGRAM.exe [ARGUMENT...]\n"
    "\n"
    "Starts a program that uses the platform's dial and draws a simulated one beside its\n"
    "window. Dragging the knob or the mouse wheel turns it, a click presses it, and holding\n"
    "it down opens the menu; dragging beside the knob moves it. Keys do the same: the four\n"
    "arrows, space or enter, M for the menu and Esc to close it.\n"
    "Waits for the program, and ends with its status.\n"
    "\n"
    "  --script FILE.dial   plays the script to the program's window, then closes it; ends a\n"
    "                       program that uses no dial for 30 seconds (or the number in\n"
    "                       DIALSIM_START_SECONDS)\n"
    "  --record FILE.dial   records what the dial does as a script\n"
    "  --real               records the real dial of this computer and simulates nothing\n"
    "\n"
    "dialsim.dll, which lies beside dialsim-run, answers the platform calls of brindle.dll\n"
    "inside the program's process, on Windows and under Wine. Nothing is installed or\n"
    "registered, and other processes are not concerned.\n"
    "\n"
    "exit status: the program's own, or\n"
    "    2  usage error\n"
    "  118  the program did not close after the script and was ended\n"
    "  119  a line of the script failed, or the script cannot be read\n"
    "  120  the program loaded a brindle.dll that does not match this simulator\n"
    "  121  the program ended without loading brindle.dll\n"
    "  122  Windows does not let dialsim-run enter the program: it is elevated, packaged or\n"
    "       protected, or its policy allows only signed libraries\n"
    "  123  dialsim.dll is missing beside dialsim-run, or has another version\n"
    "  124  the program is not a 64-bit program\n"
    "  125  the program cannot be started\n";

struct Options {
    bool help = false;
    bool real = false;
    std::wstring script;
    std::wstring recording;
    std::vector<std::wstring> command;
};

// Without a command after a usage error.
Options ParseArguments(const std::vector<std::wstring>& words) {
    Options options;
    std::size_t i = 1;
    for (; i < words.size() && words[i].starts_with(L"--"); ++i) {
        if (words[i] == L"--help") {
            options.help = true;
        } else if (words[i] == L"--real") {
            options.real = true;
        } else if (words[i] == L"--script" && i + 1 < words.size()) {
            options.script = words[++i];
        } else if (words[i] == L"--record" && i + 1 < words.size()) {
            options.recording = words[++i];
        } else if (words[i] == L"--") {
            ++i;
            break;
        } else {
            return options;
        }
    }
    // The real dial is recorded; a script cannot turn it.
    if (!options.real || (options.script.empty() && !options.recording.empty())) {
        options.command.assign(words.begin() + static_cast<std::ptrdiff_t>(i), words.end());
    }
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

// A line on standard error: UTF-8, or Unicode on a console.
void PrintError(const std::wstring& subject, const std::string& what) {
    const std::wstring line =
        L"dialsim-run: " + subject + L": " + std::wstring(what.begin(), what.end()) + L"\n";
    const HANDLE output = GetStdHandle(STD_ERROR_HANDLE);
    DWORD written = 0;
    if (WriteConsoleW(output, line.data(), static_cast<DWORD>(line.size()), &written, nullptr) != FALSE) {
        return;
    }
    std::string bytes(line.size() * 3, '\0');  // at most three bytes a unit
    const int size = WideCharToMultiByte(CP_UTF8, 0, line.data(), static_cast<int>(line.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
    WriteFile(output, bytes.data(), static_cast<DWORD>(size), &written, nullptr);
}

// As a shell finds it: first in the current folder, then where CreateProcess searches.
std::wstring FindProgram(const std::wstring& name) {
    for (const wchar_t* extension : {L"", L".exe"}) {
        const std::wstring here = name + extension;
        if (const DWORD attributes = GetFileAttributesW(here.c_str());
            attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            std::wstring path(kLongestPath, L'\0');
            path.resize(GetFullPathNameW(here.c_str(), kLongestPath, path.data(), nullptr));
            return path;
        }
    }
    return name;
}

// dialsim.dll from the folder of this program. It is loaded here too: an offset in it is the same in the
// other process.
HMODULE LoadSimulator() {
    const std::wstring program = PathOf(nullptr);
    const std::wstring path = program.substr(0, program.find_last_of(L'\\') + 1) + L"dialsim.dll";
    const HMODULE module = LoadLibraryW(path.c_str());
    if (module == nullptr) {
        PrintError(path, "cannot be loaded (error " + std::to_string(GetLastError()) + ")");
    } else if (VersionOf(module).Text() != BRINDLE_VERSION_TEXT) {
        PrintError(path,
                   "has version " + VersionOf(module).Text() + ", and dialsim-run " BRINDLE_VERSION_TEXT);
        return nullptr;
    }
    return module;
}

// Creates the file, which stays empty until the program creates its first controller.
bool CreateEmptyFile(const std::wstring& path) {
    std::FILE* const file = _wfopen(path.c_str(), L"wb");
    return file != nullptr && std::fclose(file) == 0;
}

void SetSession(const Options& options) {
    SetEnvironmentVariableW(L"DIALSIM_REAL", options.real ? options.recording.c_str() : nullptr);
    if (options.real) {
        return;
    }
    if (!options.recording.empty()) {
        SetEnvironmentVariableW(L"DIALSIM_RECORD", options.recording.c_str());
    }
    SetEnvironmentVariableW(L"DIALSIM_WINDOW", L"1");
    if (!options.script.empty()) {
        SetEnvironmentVariableW(L"DIALSIM_SCRIPT", options.script.c_str());
        SetEnvironmentVariableW(L"DIALSIM_CLOSE", L"1");
    }
}

DWORD StartSeconds() {
    constexpr DWORD kDefault = 30;
    wchar_t text[16] = L"";
    const DWORD length = GetEnvironmentVariableW(L"DIALSIM_START_SECONDS", text, 16);
    return length > 0 && length < 16 ? std::wcstoul(text, nullptr, 10) : kDefault;
}

// The program has used no dial until its end or for the time, after which it is ended.
Status ReportUnplayed(const Target& target, const std::wstring& program) {
    const bool loaded = target.LoadedLibrary();
    const std::string what = loaded ? "used no dial" : "loaded no brindle.dll";
    PrintError(program,
               what +
                   (target.IsRunning() ? " for " + std::to_string(StartSeconds()) + " s and was ended"
                                       : " until its end") +
                   "; the script was not played");
    return loaded ? kScriptFailed : kNoLibrary;
}

int Run(const Options& options, HMODULE simulator) {
    const std::wstring& program = options.command[0];
    const std::wstring path = FindProgram(program);
    std::wstring line = Quoted(path);
    for (auto word = options.command.begin() + 1; word != options.command.end(); ++word) {
        line += L" " + Quoted(*word);
    }
    SetSession(options);
    try {
        Target target(path, line);
        target.Attach(simulator);
        target.Resume();
        if (!options.script.empty() && !target.WaitForDial(StartSeconds() * 1000)) {
            return ReportUnplayed(target, program);
        }
        const DWORD status = target.WaitForEnd();
        if (!target.LoadedLibrary()) {
            PrintError(program, "ended without loading brindle.dll, with status " + std::to_string(status));
            return kNoLibrary;
        }
        return static_cast<int>(status);
    } catch (const Refusal& refusal) {
        PrintError(program, refusal.reason);
        return refusal.status;
    }
}

// The program decides about Ctrl+C, which its process gets too.
BOOL WINAPI IgnoreInterrupt(DWORD event) {
    return event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT ? TRUE : FALSE;
}

}  // namespace

int main() {
    const Options options = ParseArguments(CommandLineArguments());
    if (options.help || options.command.empty()) {
        std::fputs(kHelp, options.help ? stdout : stderr);
        return options.help ? 0 : kUsageError;
    }
    if (!options.recording.empty() && !CreateEmptyFile(options.recording)) {
        PrintError(options.recording, "cannot be written");
        return kUsageError;
    }
    SetConsoleCtrlHandler(IgnoreInterrupt, TRUE);
    const HMODULE simulator = LoadSimulator();
    return simulator == nullptr ? kNoSimulator : Run(options, simulator);
}
