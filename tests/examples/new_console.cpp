// Starts a program in a console of its own, as a double click does, and presses a key when it waits for one.
// Prints whether it waited, and its status.
//
//   new_console COMMAND
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

constexpr DWORD kProgramMs = 5'000;  // longer than the program runs without a key
constexpr DWORD kEndMs = 30'000;

bool PressEnter(DWORD process) {
    FreeConsole();
    AttachConsole(process);
    const HANDLE input = CreateFileA("CONIN$", GENERIC_READ | GENERIC_WRITE,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    INPUT_RECORD key{};
    key.EventType = KEY_EVENT;
    key.Event.KeyEvent.bKeyDown = TRUE;
    key.Event.KeyEvent.wRepeatCount = 1;
    key.Event.KeyEvent.wVirtualKeyCode = VK_RETURN;
    key.Event.KeyEvent.uChar.UnicodeChar = L'\r';
    DWORD written = 0;
    return WriteConsoleInputW(input, &key, 1, &written) && written == 1;
}

}  // namespace

int main(int argc, char** argv) {
    std::string command = argc == 2 ? argv[1] : "";
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NEW_CONSOLE, nullptr,
                        nullptr, &startup, &started)) {
        return 1;
    }
    const bool waits = WaitForSingleObject(started.hProcess, kProgramMs) == WAIT_TIMEOUT;
    const bool ended = waits && PressEnter(started.dwProcessId) &&
                       WaitForSingleObject(started.hProcess, kEndMs) == WAIT_OBJECT_0;
    TerminateProcess(started.hProcess, 1);
    DWORD status = 0;
    GetExitCodeProcess(started.hProcess, &status);
    std::printf("waits %d, ends after a key %d, status %lu\n", waits, ended, status);
    return 0;
}
