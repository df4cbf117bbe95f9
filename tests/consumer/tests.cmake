# The tests of the installed package. They take turns: an installation writes its manifest into the build folder.
set(consumer_flags "")
set(consumer_link_flags "")
if(VZAPI_SANITIZE)
    set(consumer_flags "-fsanitize=${VZAPI_SANITIZE}")
    string(JOIN " " consumer_link_flags ${VZAPI_SANITIZE_C_LINK})
endif()

function(add_consumer_test via)
    add_test(NAME consumer_${via}
        COMMAND ${CMAKE_COMMAND}
            -DVIA=${via}
            -DBUILD_DIR=${PROJECT_BINARY_DIR}
            -DWORK_DIR=${PROJECT_BINARY_DIR}/consumer-${via}
            -DCOMPARE=${PROJECT_SOURCE_DIR}/cmake/compare_output.cmake
            -DC_COMPILER=${CMAKE_C_COMPILER}
            -DC_FLAGS=${consumer_flags}
            -DLINK_FLAGS=${consumer_link_flags}
            -DLIBDIR=${CMAKE_INSTALL_LIBDIR}
            -DBINDIR=${CMAKE_INSTALL_BINDIR}
            -DTOOLCHAIN=${CMAKE_TOOLCHAIN_FILE}
            -DEMULATOR=${CMAKE_CROSSCOMPILING_EMULATOR}
            -P ${CMAKE_CURRENT_LIST_DIR}/run.cmake)
    set_tests_properties(consumer_${via} PROPERTIES RESOURCE_LOCK install_manifest)
endfunction()

add_consumer_test(cmake)
if(NOT WIN32)
    add_consumer_test(pkg-config)
endif()
