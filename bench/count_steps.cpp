// Counts the instructions that a program executes in user mode between two markers, undefined instructions:
// runs it step by step. A call of the kernel counts as one. Usage: count_steps PROGRAM [ARGUMENT...]
#include <sys/ptrace.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr unsigned long long kMarkerLength = 2;  // bytes of ud2

[[noreturn]] void Fail(const char* what) {
    std::perror(what);
    std::exit(1);
}

// Continues the program until it stops again; returns the signal that stops it, or 0 at its end.
int Resume(pid_t program, bool single_step, int signal) {
    if (ptrace(single_step ? PTRACE_SINGLESTEP : PTRACE_CONT, program, nullptr, static_cast<long>(signal)) <
        0) {
        Fail("ptrace");
    }
    int status = 0;
    if (waitpid(program, &status, 0) < 0) {
        Fail("waitpid");
    }
    return WIFSTOPPED(status) ? WSTOPSIG(status) : 0;
}

// Every other signal is the program's own.
int ToDeliver(int signal) { return signal == SIGTRAP ? 0 : signal; }

void SkipMarker(pid_t program) {
    user_regs_struct registers{};
    if (ptrace(PTRACE_GETREGS, program, nullptr, &registers) < 0) {
        Fail("ptrace");
    }
    registers.rip += kMarkerLength;
    if (ptrace(PTRACE_SETREGS, program, nullptr, &registers) < 0) {
        Fail("ptrace");
    }
}

void RunToMarker(pid_t program) {
    int signal = SIGTRAP;  // of its start
    do {
        signal = Resume(program, false, ToDeliver(signal));
        if (signal == 0) {
            std::fputs("The program ended before its marker.\n", stderr);
            std::exit(1);
        }
    } while (signal != SIGILL);
    SkipMarker(program);
}

long long CountToMarker(pid_t program) {
    long long count = 0;
    int signal = SIGTRAP;
    while ((signal = Resume(program, true, ToDeliver(signal))) != SIGILL) {
        if (signal == 0) {
            std::fputs("The program ended before its second marker.\n", stderr);
            std::exit(1);
        }
        ++count;
    }
    SkipMarker(program);
    return count;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        return 2;
    }
    const pid_t program = fork();
    if (program == 0) {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        execvp(argv[1], argv + 1);
        Fail(argv[1]);
    }
    int status = 0;
    if (program < 0 || waitpid(program, &status, 0) < 0) {
        Fail("fork");
    }
    RunToMarker(program);
    std::printf("%lld\n", CountToMarker(program));
    while (Resume(program, false, 0) != 0) {
    }
    return 0;
}
