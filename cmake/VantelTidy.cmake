# The target "tidy" runs clang-tidy over every source of the project. Each source has a stamp that depends on its
# object, so only what would compile again is checked again, and Ninja spreads the work. What passed is remembered
# beyond the build folder too (tidy-source.py).

find_program(CLANG_TIDY_PROGRAM clang-tidy-19)
mark_as_advanced(CLANG_TIDY_PROGRAM)
find_package(Python3 COMPONENTS Interpreter)

function(vantel_tidy_stamps target result)
    get_target_property(folder ${target} SOURCE_DIR)
    get_target_property(binary_folder ${target} BINARY_DIR)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    file(GLOB_RECURSE configurations CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/.clang-tidy" "${folder}/.clang-tidy")
    foreach(source IN LISTS sources)
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY "${folder}" NORMALIZE OUTPUT_VARIABLE file)
        cmake_path(IS_PREFIX PROJECT_BINARY_DIR "${file}" is_generated)
        if(is_generated)
            continue()
        endif()
        cmake_path(RELATIVE_PATH file BASE_DIRECTORY "${folder}" OUTPUT_VARIABLE name)
        cmake_path(RELATIVE_PATH file BASE_DIRECTORY "${PROJECT_SOURCE_DIR}" OUTPUT_VARIABLE title)
        set(stamp "${PROJECT_BINARY_DIR}/tidy/${title}.stamp")
        cmake_path(GET stamp PARENT_PATH stamp_folder)
        file(MAKE_DIRECTORY "${stamp_folder}")
        add_custom_command(OUTPUT "${stamp}"
            COMMAND "${Python3_EXECUTABLE}" "${PROJECT_SOURCE_DIR}/cmake/tidy-source.py"
                    "${CLANG_TIDY_PROGRAM}" "${PROJECT_BINARY_DIR}" "${file}"
            COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
            DEPENDS "${binary_folder}/CMakeFiles/${target}.dir/${name}.o" ${configurations}
            COMMENT "Checking ${title}"
            VERBATIM)
        list(APPEND stamps "${stamp}")
    endforeach()
    set(${result} "${${result}}" ${stamps} PARENT_SCOPE)
endfunction()

# Defines the target over all rooms that were added so far.
function(vantel_tidy)
    if(NOT CLANG_TIDY_PROGRAM OR NOT Python3_FOUND OR NOT CMAKE_GENERATOR STREQUAL "Ninja")
        return()
    endif()
    get_directory_property(folders SUBDIRECTORIES)
    foreach(folder IN LISTS folders)
        get_directory_property(targets DIRECTORY "${folder}" BUILDSYSTEM_TARGETS)
        foreach(target IN LISTS targets)
            get_target_property(type ${target} TYPE)
            if(type MATCHES "LIBRARY|EXECUTABLE" AND NOT type STREQUAL "INTERFACE_LIBRARY")
                vantel_tidy_stamps(${target} stamps)
            endif()
        endforeach()
    endforeach()
    add_custom_target(tidy DEPENDS ${stamps})
endfunction()
