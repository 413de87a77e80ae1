# zeph_wayland_protocols(<name> SIDE client|server|shared FILES <descriptions>...): a library of C code
# that the scanner makes of descriptions of Wayland protocols: what to call and to listen to on one
# side, or what both sides share. Headers are named for the description.
find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)
pkg_get_variable(WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)

function(zeph_wayland_protocols name)
    cmake_parse_arguments(P "" "SIDE" "FILES" ${ARGN})
    if(P_SIDE STREQUAL "shared")
        set(mode private-code)
        set(ending -protocol.c)
    else()
        set(mode ${P_SIDE}-header)
        set(ending -${P_SIDE}-protocol.h)
    endif()
    set(made "")
    foreach(file IN LISTS P_FILES)
        get_filename_component(protocol ${file} NAME_WE)
        set(output ${CMAKE_CURRENT_BINARY_DIR}/${protocol}${ending})
        add_custom_command(OUTPUT ${output}
            COMMAND ${WAYLAND_SCANNER} ${mode} ${file} ${output}
            DEPENDS ${file} VERBATIM)
        list(APPEND made ${output})
    endforeach()
    if(P_SIDE STREQUAL "shared")
        # Each description has names of its own in its file, the same in several.
        add_library(${name} STATIC ${made})
        set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    else()
        add_library(${name} INTERFACE)
        add_custom_target(${name}_headers DEPENDS ${made})
        add_dependencies(${name} ${name}_headers)
        target_include_directories(${name} SYSTEM INTERFACE ${CMAKE_CURRENT_BINARY_DIR})
    endif()
endfunction()
