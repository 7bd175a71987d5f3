// Structured exceptions end a process. The simulator reports them on standard error natively; this function
// does on Windows.
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
