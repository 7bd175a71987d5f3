# `brindle_add_package` defines the package of a library and, with BRINDLE_INSTALL, installs it as a component with the
# library's name. A Debug build is installed in the folder debug, so that it can be in one prefix with an optimised build:
# brindle.dll is loaded by name.
include(CMakePackageConfigHelpers)

set(BRINDLE_INSTALL_FOLDER $<$<CONFIG:Debug>:debug/>)
if(WIN32 AND BRINDLE_INSTALL)
    find_program(LLVM_DLLTOOL llvm-dlltool)
    if(NOT LLVM_DLLTOOL)
        message(STATUS "No llvm-dlltool: the import libraries for MSVC are not built (apt-get install llvm)")
    endif()
endif()

# The short import library for MSVC-compatible linkers, generated from the module definition. All configurations share it.
function(brindle_add_msvc_import_library package definition)
    set(library ${CMAKE_CURRENT_BINARY_DIR}/${package}.lib)
    add_custom_command(OUTPUT ${library}
        COMMAND ${LLVM_DLLTOOL} -m i386:x86-64 -d ${definition} -l ${library}
        DEPENDS ${definition}
        VERBATIM)
    add_custom_target(${package}_msvc_import_library ALL DEPENDS ${library})
    install(FILES ${library} DESTINATION lib COMPONENT ${package})
endfunction()

# Debug symbols are in a separate file next to the DLL, which debuggers find by the name in the DLL: for GCC in DWARF, for
# GDB, and for clang in a PDB, for Windows debuggers.
function(brindle_split_debug_symbols package)
    set(dll $<TARGET_FILE:${package}>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        set(symbols ${dll}.debug)
        # Without --preserve-dates the headers would contain the current time.
        add_custom_command(TARGET ${package} POST_BUILD
            COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug ${dll} ${symbols}
            COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all --add-gnu-debuglink=${symbols} ${dll}
            VERBATIM)
    else()
        set(symbols $<TARGET_FILE_DIR:${package}>/${package}.pdb)
        # An empty name is that of the DLL. The PDB contains no path of the build, and the DLL none of the PDB.
        target_link_options(${package} PRIVATE -Wl,--pdb=,-Xlink=-pdbaltpath:%_PDB%,-Xlink=-pdbsourcepath:.)
        # The toolchain's libraries have symbols in DWARF.
        add_custom_command(TARGET ${package} POST_BUILD COMMAND ${CMAKE_OBJCOPY} --strip-all ${dll} VERBATIM)
    endif()
    if(BRINDLE_INSTALL)
        install(FILES ${symbols} DESTINATION ${BRINDLE_INSTALL_FOLDER}bin COMPONENT ${package})
    endif()
endfunction()

# The Windows part of a package: version resource, module definition and symbols.
function(brindle_configure_dll package description definition)
    set(resource ${CMAKE_CURRENT_BINARY_DIR}/package/version.rc)
    configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package/version.rc.in ${resource} @ONLY)
    # CMake names a file of the build folder by its relative path. A PDB contains the linker's command.
    set(exports ${CMAKE_CURRENT_BINARY_DIR}/package/${package}.def)
    configure_file(${definition} ${exports} COPYONLY)
    target_sources(${package} PRIVATE ${resource} ${exports})
    set_target_properties(${package} PROPERTIES PREFIX "")
    # Without DLLs of the compiler and unused functions of its libraries; reproducible.
    target_link_options(${package} PRIVATE -static -Wl,--gc-sections,--no-insert-timestamp)
    brindle_split_debug_symbols(${package})
endfunction()

# The package files for find_package.
function(brindle_install_cmake_config package dependency)
    set(templates ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package)
    set(made ${CMAKE_CURRENT_BINARY_DIR}/package)
    set(folder lib/cmake/${package})
    install(EXPORT ${package} FILE ${package}Targets.cmake NAMESPACE ${package}:: DESTINATION ${folder} COMPONENT ${package})
    configure_package_config_file(${templates}/config.cmake.in ${made}/${package}Config.cmake
        INSTALL_DESTINATION ${folder} NO_CHECK_REQUIRED_COMPONENTS_MACRO)

    include(${templates}/build_platform.cmake)
    file(READ ${templates}/build_platform.cmake platform_detection)
    # Before 1.0 a minor version may change the interface.
    write_basic_package_version_file(${made}/version_check.cmake COMPATIBILITY SameMinorVersion ARCH_INDEPENDENT)
    file(READ ${made}/version_check.cmake version_check)
    configure_file(${templates}/configVersion.cmake.in ${made}/${package}ConfigVersion.cmake @ONLY)
    install(FILES ${made}/${package}Config.cmake ${made}/${package}ConfigVersion.cmake DESTINATION ${folder}
        COMPONENT ${package})
endfunction()

# The package file for pkg-config.
function(brindle_install_pkgconfig package description requires)
    set(made ${CMAKE_CURRENT_BINARY_DIR}/package)
    configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package/pkgconfig.pc.in ${made}/${package}.pc.in @ONLY)
    file(GENERATE OUTPUT ${made}/$<CONFIG>/${package}.pc INPUT ${made}/${package}.pc.in)
    install(FILES ${made}/$<CONFIG>/${package}.pc DESTINATION ${BRINDLE_INSTALL_FOLDER}lib/pkgconfig COMPONENT ${package})
endfunction()

function(brindle_install_library package definition headers)
    install(TARGETS ${package} EXPORT ${package} COMPONENT ${package}
        RUNTIME DESTINATION ${BRINDLE_INSTALL_FOLDER}bin
        LIBRARY DESTINATION ${BRINDLE_INSTALL_FOLDER}lib
        ARCHIVE DESTINATION ${BRINDLE_INSTALL_FOLDER}lib)
    if(WIN32 AND LLVM_DLLTOOL)
        brindle_add_msvc_import_library(${package} ${definition})
    endif()
    install(FILES ${headers} DESTINATION include COMPONENT ${package})
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package/THIRD-PARTY.txt
        DESTINATION share/doc/${package} COMPONENT ${package})
endfunction()

# brindle_add_package(<target> DESCRIPTION <text> HEADERS <file>... DEFINITION <module definition, for Windows>
#                     DEPENDENCY <what the native library needs, for find_dependency> REQUIRES <the same, for pkg-config>)
function(brindle_add_package package)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "DESCRIPTION;DEFINITION;DEPENDENCY;REQUIRES" "HEADERS")
    if(WIN32)
        brindle_configure_dll(${package} ${arg_DESCRIPTION} ${arg_DEFINITION})
    else()
        # Before 1.0 a minor version may change the binary interface.
        set_target_properties(${package} PROPERTIES INSTALL_RPATH $ORIGIN VERSION ${PROJECT_VERSION}
            SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
    endif()
    add_library(${package}::${package} ALIAS ${package})
    target_include_directories(${package} INTERFACE $<INSTALL_INTERFACE:include>)
    if(BRINDLE_INSTALL)
        brindle_install_library(${package} ${arg_DEFINITION} "${arg_HEADERS}")
        brindle_install_cmake_config(${package} "${arg_DEPENDENCY}")
        brindle_install_pkgconfig(${package} ${arg_DESCRIPTION} "${arg_REQUIRES}")
    endif()
endfunction()
