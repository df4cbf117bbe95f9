# Runs PROGRAM (a list: the program, perhaps behind an emulator) and fails unless it succeeds and prints the text of
# the file EXPECTED, line ends aside.
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND ${PROGRAM} RESULT_VARIABLE status OUTPUT_VARIABLE actual ERROR_VARIABLE errors)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "exit status ${status}\n${actual}${errors}")
endif()
file(READ ${EXPECTED} expected)
string(REPLACE "\r" "" actual "${actual}")
string(REPLACE "\r" "" expected "${expected}")
if(NOT actual STREQUAL expected)
    message(FATAL_ERROR "expected:\n${expected}\nprinted:\n${actual}")
endif()
message(STATUS "printed what ${EXPECTED} holds")
