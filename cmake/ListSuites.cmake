# Run after a test executable was built: writes a file for CTest with one entry a suite, so that a
# suite pays once for its process. With EACH every test is an entry of its own.
#   cmake -D EXECUTABLE=... -D OUTPUT=... -D PROPERTIES=... -D EACH=... -P ListSuites.cmake
execute_process(
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${EXECUTABLE} --gtest_list_tests
    OUTPUT_VARIABLE listing
    RESULT_VARIABLE failure
    TIMEOUT 60)
if(failure)
    message(FATAL_ERROR "${EXECUTABLE} does not list its tests: ${failure}")
endif()

string(REGEX REPLACE "[ \t]*#[^\n]*" "" listing "${listing}") # the values of parameters
string(REPLACE ";" "\\;" listing "${listing}")
string(REPLACE "\n" ";" lines "${listing}")

set(script "")
macro(add_entry name filter)
    string(APPEND script
        "add_test([==[${name}]==] [==[${EXECUTABLE}]==] [==[--gtest_filter=${filter}]==])\n"
        "set_tests_properties([==[${name}]==] PROPERTIES ${PROPERTIES})\n")
endmacro()

set(suite "")
foreach(line IN LISTS lines)
    if(line MATCHES "^([^ ].*)\\.$")
        set(suite "${CMAKE_MATCH_1}")
        if(NOT EACH)
            add_entry("${suite}" "${suite}.*")
        endif()
    elseif(line MATCHES "^  (.+)$" AND EACH)
        add_entry("${suite}.${CMAKE_MATCH_1}" "${suite}.${CMAKE_MATCH_1}")
    endif()
endforeach()
if(NOT suite)
    message(FATAL_ERROR "${EXECUTABLE} holds no test")
endif()
file(WRITE ${OUTPUT} "${script}")
