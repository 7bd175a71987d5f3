# What the toolchain files for 64-bit Windows share: Debian's MinGW headers and libraries, and the Universal C Runtime.
#
# Debian's compilers link msvcrt.dll. Hosts of current compilers use the UCRT, and their free() must use the same heap as
# malloc() here.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# The runtime's printf, which shares the host's standard output, instead of the toolchain's replacement.
set(mingw_compile_flags "-D_UCRT -D_WIN32_WINNT=0x0A00 -D__USE_MINGW_ANSI_STDIO=0")
set(mingw_link_flags "-static -Wl,--dynamicbase,--nxcompat,--high-entropy-va,--no-insert-timestamp")
