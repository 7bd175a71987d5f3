# Cross-compiles for 64-bit Windows with clang and lld, which make symbols for Windows debuggers, and with Debian's MinGW
# headers and libraries:
#
#     cmake --preset windows && cmake --build --preset windows

include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)

# GCC's libraries of the Win32 thread model, which need no thread library in addition to the DLL. Clang by itself finds
# none of them, or those of the POSIX thread model.
execute_process(COMMAND x86_64-w64-mingw32-g++-win32 -print-libgcc-file-name OUTPUT_VARIABLE libgcc
    COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(gcc_folder "${libgcc}" DIRECTORY)
set(libstdcxx ${gcc_folder}/include/c++)

set(CMAKE_C_FLAGS_INIT "${mingw_compile_flags}")
# The two macros are predefined by MinGW's GCC.
string(JOIN " " CMAKE_CXX_FLAGS_INIT ${mingw_compile_flags}
    -stdlib++-isystem ${libstdcxx} -stdlib++-isystem ${libstdcxx}/x86_64-w64-mingw32
    -D__GXX_TYPEINFO_EQUALITY_INLINE=0 -D__GXX_MERGED_TYPEINFO_NAMES=0)
set(link_flags "${mingw_link_flags} -fuse-ld=lld -B${gcc_folder} -L${gcc_folder}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link_flags}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link_flags}")

# Clang links msvcrt.dll unless the command names another runtime. It comes after the objects, whose functions replace some
# of its own.
set(CMAKE_C_STANDARD_LIBRARIES "-lucrt" CACHE STRING "")
set(CMAKE_CXX_STANDARD_LIBRARIES "-lucrt" CACHE STRING "")
