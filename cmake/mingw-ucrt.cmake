# Cross-compiles for 64-bit Windows with Debian's MinGW, linked to the Universal C Runtime:
#
#     cmake --preset windows && cmake --build --preset windows
#
# Debian's compiler links msvcrt.dll. Hosts of current compilers use the UCRT, and their free() must use the same heap as
# malloc() here, so the compiler's specs are rewritten to link the UCRT.
# The compiler with the Win32 thread model needs no thread library in addition to the DLL.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-win32)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-win32)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# CMake's compiler checks evaluate this file too, each in its own folder.
set(ucrt_specs ${CMAKE_BINARY_DIR}/ucrt.specs)
if(NOT EXISTS ${ucrt_specs})
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -dumpspecs OUTPUT_VARIABLE specs COMMAND_ERROR_IS_FATAL ANY)
    string(REPLACE "-lmsvcrt" "-lucrt" specs "${specs}")
    file(WRITE ${ucrt_specs} "${specs}")
endif()

# The runtime's printf, which shares the host's standard output, instead of the toolchain's replacement.
set(CMAKE_C_FLAGS_INIT "-specs=${ucrt_specs} -D_UCRT -D_WIN32_WINNT=0x0A00 -D__USE_MINGW_ANSI_STDIO=0")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
set(link_flags "-static -Wl,--dynamicbase,--nxcompat,--high-entropy-va")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link_flags}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link_flags}")
