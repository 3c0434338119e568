# What every target of the project is compiled with.

option(TAVRIN_BUILD_TESTS "Build the tests" ON)
option(TAVRIN_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(TAVRIN_BUILD_FUZZERS "Build the libFuzzer targets (clang only)" OFF)
option(TAVRIN_PRECOMPILED_HEADERS "Compile the headers of Qt and of the standard library once" OFF)
option(TAVRIN_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)
set(TAVRIN_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize takes them")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(TAVRIN_CCACHE ccache)
if(TAVRIN_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # It may take a precompiled header for what it was made from.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${TAVRIN_CCACHE})
endif()

add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_definitions(project_options INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_KEYWORDS
    QT_NO_FOREACH
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_CONTEXTLESS_CONNECT
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wold-style-cast -Wcast-align -Wconversion)
if(TAVRIN_WARNINGS_AS_ERRORS)
    target_compile_options(project_options INTERFACE -Werror)
endif()

if(TAVRIN_SANITIZE)
    # The checks that are woven in make GCC see uninitialized values where there are none.
    add_compile_options(-fsanitize=${TAVRIN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    add_link_options(-fsanitize=${TAVRIN_SANITIZE})
endif()
