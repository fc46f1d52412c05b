# Python's bindings to the bus come with the system, and only its own interpreter finds them.
find_program(VANTEL_SYSTEM_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)

# vantel_scenarios(KIND SCRIPT TIMEOUT PROGRAM…): one test for each scenario that lies beside the script, which gets the
# programs and the scenario's name.
function(vantel_scenarios kind script timeout)
    file(GLOB files CONFIGURE_DEPENDS scenarios/*.py)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${files})
    foreach(file ${files})
        file(STRINGS "${file}" definitions REGEX "^def [a-z_]+\\(desktop\\):$")
        foreach(definition ${definitions})
            string(REGEX REPLACE "^def ([a-z_]+).*" "\\1" scenario "${definition}")
            string(REPLACE "_" " " sentence "${scenario}")
            add_test(NAME "${kind}: ${sentence}"
                     COMMAND "${VANTEL_SYSTEM_PYTHON}" -B "${CMAKE_CURRENT_SOURCE_DIR}/${script}" ${ARGN} "${scenario}")
            set_tests_properties("${kind}: ${sentence}" PROPERTIES TIMEOUT ${timeout} SKIP_RETURN_CODE 77
                                 ENVIRONMENT "PYTHONPATH=${PROJECT_SOURCE_DIR}/tests/host/desktop")
        endforeach()
    endforeach()
endfunction()
