# Options every target of this project is compiled with: warnings are errors, and the sanitizer or coverage
# instrumentation that the preset asks for.
set(VZAPI_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")
option(VZAPI_COVERAGE "Build with coverage counters" OFF)

add_library(vzapi_compile_options INTERFACE)
target_compile_features(vzapi_compile_options INTERFACE cxx_std_20)
target_compile_options(vzapi_compile_options INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wcast-align -Wundef
    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast>
    $<$<CXX_COMPILER_ID:Clang>:-Wreserved-identifier>)
if(VZAPI_SANITIZE)
    target_compile_options(vzapi_compile_options INTERFACE
        -fsanitize=${VZAPI_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(vzapi_compile_options INTERFACE -fsanitize=${VZAPI_SANITIZE})
    # A program in C brings the sanitizer runtime that the C++ of the library needs.
    if(CMAKE_C_COMPILER_ID STREQUAL "Clang")
        set(VZAPI_SANITIZE_C_LINK -fsanitize-link-c++-runtime -lstdc++)
        target_link_options(vzapi_compile_options INTERFACE "$<$<LINK_LANGUAGE:C>:${VZAPI_SANITIZE_C_LINK}>")
    endif()
endif()
if(VZAPI_COVERAGE)
    target_compile_options(vzapi_compile_options INTERFACE --coverage -fprofile-abs-path)
    target_link_options(vzapi_compile_options INTERFACE --coverage)
endif()
if(WIN32)
    target_compile_definitions(vzapi_compile_options INTERFACE UNICODE _UNICODE _WIN32_WINNT=0x0601)
    target_link_options(vzapi_compile_options INTERFACE -static)
endif()

# Test cases run once and are built often: not optimised, and with the headers of the test framework (and others named
# behind the target) read once, they build five times as fast. Without VZAPI_PRECOMPILED_HEADERS an include that is
# missing is noticed.
option(VZAPI_PRECOMPILED_HEADERS "Read the large headers of the test programs once" OFF)
function(vzapi_compile_test_cases target)
    target_compile_options(${target} PRIVATE -O0)
    if(VZAPI_PRECOMPILED_HEADERS)
        foreach(header gtest/gtest.h ${ARGN})
            target_precompile_headers(${target} PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:<${header}$<ANGLE-R>>")
        endforeach()
    endif()
endfunction()

# For sources of the test programs that take most of the time of a test.
function(vzapi_optimise_test_sources)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    set_source_files_properties(${ARGN} TARGET_DIRECTORY vzapi_tests
        PROPERTIES COMPILE_OPTIONS -O2 SKIP_PRECOMPILE_HEADERS ON)
endfunction()
