# Options that need each other, and builds that are refused.
if(WIN32 AND NOT (MINGW AND CMAKE_CXX_COMPILER_ID MATCHES "^(GNU|Clang)$" AND CMAKE_SIZEOF_VOID_P EQUAL 8))
    message(FATAL_ERROR "brindle.dll is built for 64-bit Windows by GCC (MinGW), or by clang and lld with the libraries of "
        "GCC, as in cmake/mingw-clang.cmake. With another compiler use its package, "
        "find_package(brindle), which serves every compiler for 64-bit Windows.")
endif()

# Their targets have short names, which a parent project may use too.
foreach(part EXAMPLES TESTS)
    if(BRINDLE_BUILD_${part} AND NOT PROJECT_IS_TOP_LEVEL)
        message(FATAL_ERROR "BRINDLE_BUILD_${part} is on in a subproject. Build Brindle by itself for that.")
    endif()
endforeach()

if(BRINDLE_BUILD_TESTS AND NOT BRINDLE_BUILD_EXAMPLES)
    message(STATUS "Brindle: BRINDLE_BUILD_EXAMPLES is on, because the tests run the examples")
    set(BRINDLE_BUILD_EXAMPLES ON)
endif()
if(BRINDLE_BUILD_EXAMPLES AND NOT BRINDLE_BUILD_SIMULATOR)
    message(STATUS "Brindle: BRINDLE_BUILD_SIMULATOR is on, because the examples use the simulator")
    set(BRINDLE_BUILD_SIMULATOR ON)
endif()
if(NOT WIN32 AND NOT BRINDLE_BUILD_SIMULATOR)
    message(STATUS "Brindle: BRINDLE_BUILD_SIMULATOR is on, because the simulator is the platform of the native library")
    set(BRINDLE_BUILD_SIMULATOR ON)
endif()
