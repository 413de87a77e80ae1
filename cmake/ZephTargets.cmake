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
# [ENVIRONMENT ...]): one GoogleTest executable for one folder, each TEST a ctest of its own. Those
# APART give a name to something else than a neighbour does, and are never joined with others.
function(zeph_test name)
    cmake_parse_arguments(T "NO_MAIN;SERIAL" "TIMEOUT" "LINKS;SOURCES;APART;LABELS;ENVIRONMENT" ${ARGN})
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
        set(T_TIMEOUT 30)
    endif()
    if(NOT T_LABELS)
        set(T_LABELS unit)
    endif()
    # The sanitizer presets build and run the unit level alone.
    if(NOT TARGET zeph_unit_tests)
        add_custom_target(zeph_unit_tests)
    endif()
    if("unit" IN_LIST T_LABELS)
        add_dependencies(zeph_unit_tests ${name})
    else()
        set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    endif()
    set(environment LC_ALL=C.UTF-8 TZ=Europe/Berlin QT_QPA_PLATFORM=offscreen HOME=/nonexistent
        XDG_RUNTIME_DIR= DISPLAY= WAYLAND_DISPLAY=
        DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent ${T_ENVIRONMENT})
    # gtest_discover_tests takes lists apart several times; a plain semicolon would leave the
    # first variable only.
    string(REPEAT "\\" 7 escapes)
    list(JOIN environment "${escapes}\;" environment)
    gtest_discover_tests(${name}
        DISCOVERY_TIMEOUT 60
        PROPERTIES
            TIMEOUT ${T_TIMEOUT}
            LABELS "${T_LABELS}"
            RUN_SERIAL "${T_SERIAL}"
            ENVIRONMENT "${environment}")
endfunction()
