# Warnings for the project's own targets, not for other libraries.
add_library(brindle_warnings INTERFACE)
target_compile_options(brindle_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wcast-qual -Wformat=2
    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual -Wextra-semi>
    $<$<BOOL:${BRINDLE_WARNINGS_AS_ERRORS}>:-Werror>)

# Flags of the packaged programs and libraries: reproducible symbols, without the names of build folders. Clang writes them
# for a PDB.
add_library(brindle_package_flags INTERFACE)
if(WIN32)
    target_compile_options(brindle_package_flags INTERFACE $<$<COMPILE_LANGUAGE:CXX>:
        -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=.
        $<$<CXX_COMPILER_ID:Clang>:-gcodeview>>)
endif()

# Sets what the library's and the simulator's sources rely on, whatever a parent project has chosen for its own.
function(brindle_configure_target target)
    set_target_properties(${target} PROPERTIES CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF
        POSITION_INDEPENDENT_CODE ON UNITY_BUILD OFF
        CXX_VISIBILITY_PRESET default VISIBILITY_INLINES_HIDDEN OFF)
    if(WIN32)
        target_compile_definitions(${target} PRIVATE _WIN32_WINNT=0x0A00)
    endif()
    target_link_libraries(${target} PRIVATE brindle_warnings brindle_package_flags)
endfunction()

# Compiles a large target as files of SIZE sources each, 0 for all in one, in half of the time.
# -D CMAKE_UNITY_BUILD=OFF compiles file by file, which is quicker after a change of one of them.
function(brindle_compile_as_few_files target size)
    if(NOT DEFINED CMAKE_UNITY_BUILD)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${size})
    endif()
endfunction()
