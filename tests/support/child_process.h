// A child process whose output can be read and which can be killed.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

class ChildProcess {
public:
    static constexpr int kKilled = -1;

    // The program of this name in the folder of the running one. Arguments contain no quotation mark and do
    // not end with a backslash.
    ChildProcess(const std::string& name, const std::vector<std::string>& arguments) {
        Start(Beside(name), arguments);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

#ifdef _WIN32
    ~ChildProcess() {
        Kill();
        CloseHandle(output_);
        CloseHandle(process_);
    }

    // Waits for a byte of its standard output; false when it has ended.
    bool ReadByte() {
        char mark = 0;
        DWORD count = 0;
        return ReadFile(output_, &mark, 1, &count, nullptr) && count == 1;
    }
    // Kills the process at any point; returns when it has ended.
    void Kill() {
        TerminateProcess(process_, static_cast<UINT>(kKilled));
        Wait();
    }
    // Its exit code, or kKilled.
    int Wait() {
        WaitForSingleObject(process_, INFINITE);
        DWORD code = 0;
        GetExitCodeProcess(process_, &code);
        return static_cast<int>(code);
    }

private:
    static std::string Beside(const std::string& name) {
        char path[MAX_PATH];
        const std::string self(path, GetModuleFileNameA(nullptr, path, sizeof path));
        return self.substr(0, self.rfind('\\') + 1) + name + ".exe";
    }
    void Start(const std::string& program, const std::vector<std::string>& arguments) {
        std::string line = '"' + program + '"';
        for (const std::string& argument : arguments) {
            line += " \"" + argument + '"';
        }
        SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        HANDLE its_output = nullptr;
        CreatePipe(&output_, &its_output, &inherited, 0);
        SetHandleInformation(output_, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = its_output;
        startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
        PROCESS_INFORMATION started{};
        CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &started);
        CloseHandle(its_output);
        CloseHandle(started.hThread);
        process_ = started.hProcess;
    }

    HANDLE process_ = nullptr;
    HANDLE output_ = nullptr;
#else
    ~ChildProcess() {
        Kill();
        close(output_);
    }

    bool ReadByte() {
        char mark = 0;
        return read(output_, &mark, 1) == 1;
    }
    void Kill() {
        if (process_ > 0) {
            kill(process_, SIGKILL);
            Wait();
        }
    }
    int Wait() {
        int status = 0;
        waitpid(process_, &status, 0);
        process_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : kKilled;
    }

private:
    static std::string Beside(const std::string& name) {
        char path[4096];
        const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
        const std::string self(path, static_cast<std::size_t>(length));
        return self.substr(0, self.rfind('/') + 1) + name;
    }
    void Start(std::string program, std::vector<std::string> arguments) {
        int ends[2] = {-1, -1};
        if (pipe2(ends, O_CLOEXEC) != 0) {
            return;
        }
        std::vector<char*> words{program.data()};
        for (std::string& argument : arguments) {
            words.push_back(argument.data());
        }
        words.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        posix_spawn(&process_, program.c_str(), &actions, nullptr, words.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        output_ = ends[0];
    }

    pid_t process_ = 0;
    int output_ = -1;
#endif
};
