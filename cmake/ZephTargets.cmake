# zeph_library(<name> <sources>...): a static library of one folder. What it may link stands in
# the table at the top of src/CMakeLists.txt (ZEPH_LINKS_<name>), nowhere else.
function(zeph_library name)
    set(sources ${ARGN})
    if(NOT sources)
        file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/${name}_empty.cpp "")
        set(sources ${CMAKE_CURRENT_BINARY_DIR}/${name}_empty.cpp)
    endif()
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC zeph_flags ${ZEPH_LINKS_${name}})
endfunction()

# zeph_headers(<name>): a folder that holds declarations only.
function(zeph_headers name)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE zeph_flags ${ZEPH_LINKS_${name}})
endfunction()

# zeph_test(<name> LINKS <targets>... SOURCES <files>... [APART <files>...] [LABELS <labels>...]
# [TIMEOUT <seconds>] [ENVIRONMENT ...] [NO_MAIN] [EACH]): one GoogleTest executable for one folder,
# each suite a test of CTest. Those APART give a name to something else than a neighbour does, and
# are never joined with others. With EACH every TEST is a process: for libraries that take their
# bus or their folders once a process.
function(zeph_test name)
    cmake_parse_arguments(T "NO_MAIN;EACH" "TIMEOUT" "LINKS;SOURCES;APART;LABELS;ENVIRONMENT" ${ARGN})
    add_executable(${name} ${T_SOURCES} ${T_APART})
    if(T_APART)
        set_source_files_properties(${T_APART} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
    target_link_libraries(${name} PRIVATE zeph_flags zeph_test_support ${T_LINKS} GTest::gmock)
    if(T_NO_MAIN)
        target_link_libraries(${name} PRIVATE GTest::gtest)
    else()
        target_link_libraries(${name} PRIVATE zeph_test_main)
    endif()
    if(NOT T_TIMEOUT)
        set(T_TIMEOUT 60)
    endif()
    if(NOT T_LABELS)
        set(T_LABELS unit)
    endif()
    # The sanitizer presets build and run the unit level alone, and .ci/run the others plain.
    if(NOT TARGET zeph_unit_tests)
        add_custom_target(zeph_unit_tests)
        add_custom_target(zeph_beyond_unit)
    endif()
    if("unit" IN_LIST T_LABELS)
        add_dependencies(zeph_unit_tests ${name})
    else()
        add_dependencies(zeph_beyond_unit ${name})
    endif()
    set(environment LC_ALL=C.UTF-8 TZ=Europe/Berlin QT_QPA_PLATFORM=offscreen HOME=/nonexistent
        SHELL=/bin/sh XDG_RUNTIME_DIR= DISPLAY= WAYLAND_DISPLAY=
        DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent ${T_ENVIRONMENT})
    if("golden" IN_LIST T_LABELS)
        list(APPEND environment FONTCONFIG_FILE=${PROJECT_SOURCE_DIR}/tests/support/fonts.conf)
    endif()

    set(suites ${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake)
    set(properties
        "TIMEOUT ${T_TIMEOUT} LABELS [==[${T_LABELS}]==] ENVIRONMENT [==[${environment}]==]")
    add_custom_command(TARGET ${name} POST_BUILD
        BYPRODUCTS ${suites}
        COMMAND ${CMAKE_COMMAND}
            "-DEXECUTABLE=$<TARGET_FILE:${name}>" "-DOUTPUT=${suites}" "-DEACH=${T_EACH}"
            "-DPROPERTIES=${properties}" -P ${PROJECT_SOURCE_DIR}/cmake/ListSuites.cmake
        VERBATIM)
    # Not built, not silently left out.
    set(chooser ${CMAKE_CURRENT_BINARY_DIR}/${name}_tests.cmake)
    file(WRITE ${chooser} "if(EXISTS \"${suites}\")\n  include(\"${suites}\")\nelse()\n\
  add_test(${name}_NOT_BUILT ${name}_NOT_BUILT)\n\
  set_tests_properties(${name}_NOT_BUILT PROPERTIES LABELS \"${T_LABELS}\")\nendif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${chooser})
endfunction()
