# Installs the library into a folder, moves that folder, builds the consumer against it in the way that VIA names
# (cmake or pkg-config), and compares what it prints with consumer.expected.
#
# VIA, BUILD_DIR (of the library), WORK_DIR, COMPARE (compare_output.cmake), C_COMPILER, C_FLAGS, LINK_FLAGS, LIBDIR
# and BINDIR (relative to the prefix); for a cross build TOOLCHAIN and EMULATOR.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        string(JOIN " " command ${ARGN})
        message(FATAL_ERROR "${command}\nexit status ${status}\n${output}")
    endif()
endfunction()

set(prefix ${WORK_DIR}/moved)
set(source ${CMAKE_CURRENT_LIST_DIR})
separate_arguments(flags UNIX_COMMAND "${C_FLAGS} -Wall -Wextra -Wpedantic -Werror")
separate_arguments(link_flags UNIX_COMMAND "${LINK_FLAGS}")

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/installed)
file(RENAME ${WORK_DIR}/installed ${prefix})

if(VIA STREQUAL "cmake")
    string(JOIN " " joined_flags ${flags})
    set(compiler -DCMAKE_C_COMPILER=${C_COMPILER})
    if(TOOLCHAIN)
        set(compiler -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
    endif()
    run(${CMAKE_COMMAND} -S ${source} -B ${WORK_DIR}/build -G Ninja ${compiler} -DCMAKE_PREFIX_PATH=${prefix}
        -DCMAKE_C_FLAGS=${joined_flags} -DCMAKE_EXE_LINKER_FLAGS=${LINK_FLAGS})
    run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
    file(GLOB program ${WORK_DIR}/build/consumer ${WORK_DIR}/build/consumer.exe)
else()
    set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
    execute_process(COMMAND pkg-config --cflags --libs vzapi OUTPUT_VARIABLE package COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(package UNIX_COMMAND "${package}")
    set(program ${WORK_DIR}/consumer)
    run(${C_COMPILER} -std=c11 ${flags} ${source}/consumer.c -o ${program} ${package} ${link_flags})
endif()

# The installed library is the one that runs: by the search path here, as a neighbour of the program on Windows.
set(ENV{LD_LIBRARY_PATH} ${prefix}/${LIBDIR})
if(EMULATOR)
    file(COPY ${program} DESTINATION ${prefix}/${BINDIR})
    set(program ${prefix}/${BINDIR}/consumer.exe)
endif()
set(PROGRAM ${EMULATOR} ${program})
set(EXPECTED ${source}/consumer.expected)
include(${COMPARE})
