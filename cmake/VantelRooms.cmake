# A room is one folder, one static library and one include root. The root holds nothing but that room,
# so a room can include only what it links: a wrong dependency does not compile.

add_library(vantel_options INTERFACE)
target_compile_features(vantel_options INTERFACE cxx_std_23)
target_compile_options(vantel_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

# The compiler cache does not know again what was compiled with a header that was compiled anew.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT VANTEL_PRECOMPILED)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

function(vantel_include_root name result)
    set(root "${PROJECT_BINARY_DIR}/include-roots/${name}")
    file(MAKE_DIRECTORY "${root}")
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${name}" "${root}/${name}" SYMBOLIC)
    set(${result} "${root}" PARENT_SCOPE)
endfunction()

# vantel_room(NAME SOURCES … LINKS … [PRIVATE_LINKS …])
function(vantel_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    vantel_include_root(${name} root)
    add_library(vantel_${name} STATIC ${ROOM_SOURCES})
    target_include_directories(vantel_${name} PUBLIC
        "$<BUILD_INTERFACE:${root}>" "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vantel>")
    target_link_libraries(vantel_${name}
        PUBLIC ${ROOM_LINKS} PRIVATE $<BUILD_INTERFACE:vantel_options> ${ROOM_PRIVATE_LINKS})
endfunction()

# Writes what each target of the rooms added so far links, one name a line, to rooms/ROOM/TARGET.links: what the check
# of the rooms' direction reads. A library's users inherit its links, so both lists count.
function(vantel_room_links)
    get_directory_property(folders SUBDIRECTORIES)
    foreach(folder IN LISTS folders)
        cmake_path(GET folder FILENAME room)
        get_directory_property(targets DIRECTORY "${folder}" BUILDSYSTEM_TARGETS)
        foreach(target IN LISTS targets)
            get_target_property(type ${target} TYPE)
            if(type MATCHES "LIBRARY|EXECUTABLE")
                file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/rooms/${room}/${target}.links" CONTENT
                    "$<JOIN:$<TARGET_PROPERTY:${target},LINK_LIBRARIES>,\n>\n$<JOIN:$<TARGET_PROPERTY:${target},INTERFACE_LINK_LIBRARIES>,\n>\n")
            endif()
        endforeach()
    endforeach()
endfunction()

# vantel_precompile(TARGET HEADER…)
function(vantel_precompile target)
    if(VANTEL_PRECOMPILED)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()
