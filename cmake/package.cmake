# `add_package` defines the package of a library and installs it as a component with the library's name.
include(CMakePackageConfigHelpers)

# Flags of the packaged libraries: reproducible symbols, without the names of build folders.
add_library(package_flags INTERFACE)
if(WIN32)
    target_compile_options(package_flags INTERFACE $<$<COMPILE_LANGUAGE:CXX>:
        -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=.>)
    find_program(LLVM_DLLTOOL llvm-dlltool)
    if(NOT LLVM_DLLTOOL)
        message(STATUS "No llvm-dlltool: the import libraries for MSVC are not built (apt-get install llvm)")
    endif()
endif()

# The short import library for MSVC-compatible linkers, generated from the module definition.
function(add_msvc_import_library package definition)
    set(library ${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}/${package}.lib)
    add_custom_command(OUTPUT ${library}
        COMMAND ${LLVM_DLLTOOL} -m i386:x86-64 -d ${definition} -l ${library}
        DEPENDS ${definition}
        VERBATIM)
    add_custom_target(${package}_msvc_import_library ALL DEPENDS ${library})
    install(FILES ${library} DESTINATION lib COMPONENT ${package})
endfunction()

# Debug symbols are in a separate file next to the DLL, which debuggers find by the name in the DLL. Without
# --preserve-dates the headers would contain the current time.
function(split_debug_symbols package)
    set(dll $<TARGET_FILE:${package}>)
    add_custom_command(TARGET ${package} POST_BUILD
        COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug ${dll} ${dll}.debug
        COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all --add-gnu-debuglink=${dll}.debug ${dll}
        VERBATIM)
    install(FILES ${dll}.debug DESTINATION bin COMPONENT ${package})
endfunction()

# The Windows part of a package: version resource, module definition, symbols and import library.
function(configure_dll package description definition)
    set(resource ${CMAKE_CURRENT_BINARY_DIR}/package/version.rc)
    configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package/version.rc.in ${resource} @ONLY)
    target_sources(${package} PRIVATE ${resource} ${definition})
    set_target_properties(${package} PROPERTIES PREFIX "")
    # Discards unused functions of the compiler's libraries, and makes the build reproducible.
    target_link_options(${package} PRIVATE -Wl,--gc-sections,--no-insert-timestamp)
    split_debug_symbols(${package})
    if(LLVM_DLLTOOL)
        add_msvc_import_library(${package} ${definition})
    endif()
endfunction()

# The package files for find_package and pkg-config.
function(install_package_config package description dependency)
    set(templates ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package)
    set(made ${CMAKE_CURRENT_BINARY_DIR}/package)
    install(EXPORT ${package} FILE ${package}Targets.cmake NAMESPACE ${package}:: DESTINATION lib/cmake/${package}
        COMPONENT ${package})
    configure_package_config_file(${templates}/config.cmake.in ${made}/${package}Config.cmake
        INSTALL_DESTINATION lib/cmake/${package} NO_CHECK_REQUIRED_COMPONENTS_MACRO)
    # Before 1.0 a minor version may change the interface.
    write_basic_package_version_file(${made}/${package}ConfigVersion.cmake COMPATIBILITY SameMinorVersion)
    install(FILES ${made}/${package}Config.cmake ${made}/${package}ConfigVersion.cmake
        DESTINATION lib/cmake/${package} COMPONENT ${package})
    configure_file(${templates}/pkgconfig.pc.in ${made}/${package}.pc @ONLY)
    install(FILES ${made}/${package}.pc DESTINATION lib/pkgconfig COMPONENT ${package})
endfunction()

# add_package(<target> DESCRIPTION <text> HEADERS <file>... DEFINITION <module definition, for Windows>
#             DEPENDENCY <package that the native library needs>)
function(add_package package)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "DESCRIPTION;DEFINITION;DEPENDENCY" "HEADERS")
    if(WIN32)
        configure_dll(${package} ${arg_DESCRIPTION} ${arg_DEFINITION})
    else()
        set_target_properties(${package} PROPERTIES INSTALL_RPATH $ORIGIN)
    endif()
    add_library(${package}::${package} ALIAS ${package})
    target_include_directories(${package} INTERFACE $<INSTALL_INTERFACE:include>)
    install(TARGETS ${package} EXPORT ${package} COMPONENT ${package})
    install(FILES ${arg_HEADERS} DESTINATION include COMPONENT ${package})
    install_package_config(${package} ${arg_DESCRIPTION} ${arg_DEPENDENCY})
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package/THIRD-PARTY.txt
        DESTINATION share/doc/${package} COMPONENT ${package})
endfunction()
