# Cross-compiles for 64-bit Windows with Debian's MinGW GCC. It makes no symbols for Windows debuggers: mingw-clang.cmake
# does.
#
#     cmake --preset windows-gcc && cmake --build --preset windows-gcc
#
# The compiler with the Win32 thread model needs no thread library in addition to the DLL.

include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-win32)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-win32)

# The compiler's specs are rewritten to link the UCRT. CMake's compiler checks evaluate this file too, each in its own
# folder.
set(ucrt_specs ${CMAKE_BINARY_DIR}/ucrt.specs)
if(NOT EXISTS ${ucrt_specs})
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -dumpspecs OUTPUT_VARIABLE specs COMMAND_ERROR_IS_FATAL ANY)
    string(REPLACE "-lmsvcrt" "-lucrt" specs "${specs}")
    file(WRITE ${ucrt_specs} "${specs}")
endif()

set(CMAKE_C_FLAGS_INIT "-specs=${ucrt_specs} ${mingw_compile_flags}")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${mingw_link_flags}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${mingw_link_flags}")
