# dialsim_launch(<target> [SCRIPT <file>]) starts the program with a simulated dial: by tests of the target,
# add_test(NAME <name> COMMAND <target>), and by Visual Studio's debugger command. With a script the dial moves as the
# script says, and the program is closed at its end.
set(DIALSIM_RUN "${PACKAGE_PREFIX_DIR}/bin/dialsim-run.exe")
if(NOT EXISTS "${DIALSIM_RUN}")
    set(DIALSIM_RUN "${PACKAGE_PREFIX_DIR}/debug/bin/dialsim-run.exe")
endif()

function(dialsim_launch target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "SCRIPT" "")
    set(command "${DIALSIM_RUN}")
    set(arguments "")
    if(arg_SCRIPT)
        get_filename_component(script "${arg_SCRIPT}" ABSOLUTE)
        list(APPEND command --script "${script}")
        set(arguments "--script \"${script}\" ")
    endif()
    # A cross-compiled program has a launcher already, such as Wine, which launches dialsim-run. Before CMake 3.29 other
    # programs use the same property.
    if(CMAKE_CROSSCOMPILING OR CMAKE_VERSION VERSION_LESS 3.29)
        set_property(TARGET ${target} APPEND PROPERTY CROSSCOMPILING_EMULATOR "${command}")
    else()
        set_property(TARGET ${target} APPEND PROPERTY TEST_LAUNCHER "${command}")
    endif()
    set_target_properties(${target} PROPERTIES
        VS_DEBUGGER_COMMAND "${DIALSIM_RUN}"
        VS_DEBUGGER_COMMAND_ARGUMENTS "${arguments}\"$<TARGET_FILE:${target}>\"")
endfunction()
