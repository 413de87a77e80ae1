# One interface target carries the flags of every target of the project.
add_library(zeph_flags INTERFACE)
target_include_directories(zeph_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(zeph_flags INTERFACE
    -Wall -Wextra -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor)
target_compile_definitions(zeph_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_STRICT_ITERATORS
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_FOREACH)
# Joined sources are included, so that a test fixture of one seems to be one of a header.
if(CMAKE_UNITY_BUILD)
    target_compile_options(zeph_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
if(CMAKE_COMPILE_WARNING_AS_ERROR)
    target_compile_options(zeph_flags INTERFACE -Werror)
endif()
if(ZEPH_SANITIZE)
    target_compile_options(zeph_flags INTERFACE
        -fsanitize=${ZEPH_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(zeph_flags INTERFACE -fsanitize=${ZEPH_SANITIZE})
endif()
