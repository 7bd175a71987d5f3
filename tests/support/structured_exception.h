// Structured exceptions end a process. Natively the simulator says so on standard error; on Windows this
// does.
#pragma once

#ifdef _WIN32

#include <windows.h>

#include <cstdio>
#include <cstdlib>

inline LONG WINAPI ReportStructuredException(EXCEPTION_POINTERS* pointers) {
    const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
    std::fprintf(stderr, "structured exception %lx, flags %lx, %lu arguments\n", record.ExceptionCode,
                 record.ExceptionFlags, record.NumberParameters);
    std::fflush(stderr);
    std::_Exit(EXIT_FAILURE);
}

inline void ReportStructuredExceptions() { SetUnhandledExceptionFilter(ReportStructuredException); }

#else

inline void ReportStructuredExceptions() {}

#endif
