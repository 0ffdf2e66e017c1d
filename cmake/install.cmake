# What `cmake --install` puts under the prefix: the shared library with its SONAME links, the C
# header, the subsystem headers (the C++ declarations of the library's other exported functions),
# a CMake package exporting plovixengine::plovixengine, and plovixengine.pc. Tools, tests, the
# static test library and the example stay in the build tree.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  message(FATAL_ERROR "plovixengine: CMAKE_INSTALL_LIBDIR and CMAKE_INSTALL_INCLUDEDIR must be relative")
endif()

set(PLOVIX_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/plovixengine)
set(PLOVIX_SUBSYSTEM_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/plovixengine)

# The subsystem headers include each other as "image/ot_types.h", so their parent is on the path too.
install(TARGETS plovixengine EXPORT plovixengineTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${PLOVIX_SUBSYSTEM_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/plovixengine.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
foreach(subsystem engine image model tracking platform)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${subsystem}/
    DESTINATION ${PLOVIX_SUBSYSTEM_INCLUDEDIR}/${subsystem}
    FILES_MATCHING PATTERN "*.h")
endforeach()

install(EXPORT plovixengineTargets NAMESPACE plovixengine:: DESTINATION ${PLOVIX_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/plovixengineConfig.cmake.in
  ${PROJECT_BINARY_DIR}/plovixengineConfig.cmake
  INSTALL_DESTINATION ${PLOVIX_CMAKE_DIR})
# Same major version, same SONAME: a host built against 0.1 runs with any libplovixengine.so.0.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/plovixengineConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/plovixengineConfig.cmake
  ${PROJECT_BINARY_DIR}/plovixengineConfigVersion.cmake
  DESTINATION ${PLOVIX_CMAKE_DIR})

# pkg-config locates the prefix from the .pc file's own place, so `cmake --install --prefix`
# anywhere gives a working file.
set(PLOVIX_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH PLOVIX_PC_TO_PREFIX /prefix/${PLOVIX_PKGCONFIG_DIR} /prefix)
string(REGEX REPLACE "/$" "" PLOVIX_PC_TO_PREFIX "${PLOVIX_PC_TO_PREFIX}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/plovixengine.pc.in ${PROJECT_BINARY_DIR}/plovixengine.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/plovixengine.pc DESTINATION ${PLOVIX_PKGCONFIG_DIR})
