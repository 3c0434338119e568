# The kinds of target: a room's library, a program, a test.

# Nearly all that a compiler reads of one of our files are the headers of Qt and of the standard library; they
# are compiled once for all. Each file still includes what it
# uses: the release build goes without (TAVRIN_PRECOMPILED_HEADERS).
function(project_precompiled_headers name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;DEPENDS")
    if(NOT TAVRIN_PRECOMPILED_HEADERS)
        return()
    endif()
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp CONTENT "// Carries headers.\n")
    add_library(precompiled_${name} OBJECT ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp)
    target_link_libraries(precompiled_${name} PRIVATE project_options ${arg_DEPENDS})
    target_precompile_headers(precompiled_${name} PRIVATE ${arg_HEADERS})
    set_target_properties(precompiled_${name} PROPERTIES AUTOMOC OFF)
endfunction()

function(project_reuse_headers target name)
    if(TAVRIN_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM precompiled_${name})
    endif()
endfunction()

# project_library(NAME SOURCES ... DEPENDS ...): one room, as a static library `tavrin_NAME`.
# A name in DEPENDS is a room or a full target name.
function(project_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
    add_library(tavrin_${name} STATIC ${arg_SOURCES})
    target_link_libraries(tavrin_${name} PUBLIC project_options)
    project_link(tavrin_${name} PUBLIC ${arg_DEPENDS})
    if(name STREQUAL ui)
        project_reuse_headers(tavrin_${name} widgets)
    else()
        project_reuse_headers(tavrin_${name} core)
    endif()
endfunction()

# project_test(NAME DEPENDS ... [SOURCES ...] [TIMEOUT seconds] [THREADS]): one Qt Test program from NAME.cpp,
# registered under NAME. THREADS marks a test of work on several threads: the thread sanitizer runs those.
function(project_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "THREADS" "TIMEOUT" "SOURCES;DEPENDS")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    add_executable(${name} ${name}.cpp ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_compile_definitions(${name} PRIVATE
        TAVRIN_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
        TAVRIN_SAMPLES="${CMAKE_SOURCE_DIR}/samples")
    target_link_libraries(${name} PRIVATE project_options Qt6::Test)
    project_link(${name} PRIVATE ${arg_DEPENDS})
    project_reuse_headers(${name} core)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name})
    project_test_environment(${name} ${arg_TIMEOUT})
    if(arg_THREADS)
        set_property(TEST ${name} APPEND PROPERTY LABELS threads)
        add_dependencies(threaded-tests ${name})
    endif()
endfunction()

# Every test runs without a screen, in one zone and one locale, and never in the person's own folders.
function(project_test_environment name timeout)
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${timeout}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=UTC;LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=1;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1;TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/tsan.supp:halt_on_error=1")
endfunction()

function(project_link target visibility)
    foreach(dependency IN LISTS ARGN)
        if(dependency MATCHES "::")
            target_link_libraries(${target} ${visibility} ${dependency})
        else()
            target_link_libraries(${target} ${visibility} tavrin_${dependency})
        endif()
    endforeach()
endfunction()
