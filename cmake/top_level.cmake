# The project by itself, with its tests: a parent project chooses all of this for its own build.
option(BUILD_SHARED_LIBS "Build the native library as a shared library" ON)
set(BRINDLE_SANITIZERS "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

if(BRINDLE_SANITIZERS)
    # Without checks of dynamic types: hosts in C have no type information.
    add_compile_options(-fsanitize=${BRINDLE_SANITIZERS} -fno-sanitize=vptr,function -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${BRINDLE_SANITIZERS})
endif()
