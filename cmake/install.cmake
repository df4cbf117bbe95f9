# What `cmake --install` puts where: the shared library with what a host needs to link it (import library and module
# definition on Windows), the headers, the tool, and the two descriptions by which build systems find the library:
# a CMake package and a pkg-config file. Both work from wherever the installed tree is moved to.
include(CMakePackageConfigHelpers)

set(VZAPI_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/vzapi)
set(VZAPI_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS vzapi EXPORT vzapiTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(WIN32)
    install(FILES ${PROJECT_BINARY_DIR}/vzapi.def DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/vzapi
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h")

if(TARGET vzconv)
    file(RELATIVE_PATH library_from_tool ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(vzconv PROPERTIES INSTALL_RPATH "$ORIGIN/${library_from_tool}")
    install(TARGETS vzconv RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

foreach(document README.md LICENSE CHANGELOG.md)
    if(EXISTS ${PROJECT_SOURCE_DIR}/${document})
        install(FILES ${PROJECT_SOURCE_DIR}/${document} DESTINATION ${CMAKE_INSTALL_DOCDIR})
    endif()
endforeach()

install(EXPORT vzapiTargets NAMESPACE vzapi:: DESTINATION ${VZAPI_PACKAGE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/vzapiConfig.cmake.in ${PROJECT_BINARY_DIR}/vzapiConfig.cmake
    INSTALL_DESTINATION ${VZAPI_PACKAGE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vzapiConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vzapiConfig.cmake ${PROJECT_BINARY_DIR}/vzapiConfigVersion.cmake
    DESTINATION ${VZAPI_PACKAGE_DIR})

# The prefix is given from the place of the file itself, so that the tree can be moved.
file(RELATIVE_PATH VZAPI_PREFIX_FROM_PKGCONFIG
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" VZAPI_PREFIX_FROM_PKGCONFIG "${VZAPI_PREFIX_FROM_PKGCONFIG}")
file(RELATIVE_PATH VZAPI_LIBDIR_FROM_PREFIX ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH VZAPI_INCLUDEDIR_FROM_PREFIX ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(${CMAKE_CURRENT_LIST_DIR}/vzapi.pc.in ${PROJECT_BINARY_DIR}/vzapi.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vzapi.pc DESTINATION ${VZAPI_PKGCONFIG_DIR})
