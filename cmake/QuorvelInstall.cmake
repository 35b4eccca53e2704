# What `cmake --install` copies, in the components runtime (the library), development (what compiling a host takes) and
# tools (the command line).
if(CMAKE_LIBRARY_ARCHITECTURE AND EXISTS /etc/debian_version)
  # Debian's own place for libraries, under /usr and /usr/local alike: one build serves every prefix.
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE STRING "Folder of libraries below the prefix")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS quorvel_shared EXPORT QuorvelTargets
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  FILE_SET HEADERS COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/include/quorvel/quorvel.idl
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorvel COMPONENT development)

set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/Quorvel)
set(builtPackage ${PROJECT_BINARY_DIR}/package)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/QuorvelConfig.cmake.in ${builtPackage}/QuorvelConfig.cmake
  INSTALL_DESTINATION ${packageFolder} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${builtPackage}/QuorvelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${builtPackage}/QuorvelConfig.cmake ${builtPackage}/QuorvelConfigVersion.cmake
  DESTINATION ${packageFolder} COMPONENT development)
install(EXPORT QuorvelTargets NAMESPACE Quorvel:: DESTINATION ${packageFolder} COMPONENT development)

set(pkgConfigFolder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
string(REGEX REPLACE "[^/]+" ".." prefixFromPkgConfig ${pkgConfigFolder})
configure_file(${CMAKE_CURRENT_LIST_DIR}/quorvel.pc.in ${builtPackage}/quorvel.pc @ONLY)
install(FILES ${builtPackage}/quorvel.pc DESTINATION ${pkgConfigFolder} COMPONENT development)

if(QUORVEL_BUILD_CLI)
  install(TARGETS quorvel_cli RUNTIME COMPONENT tools)
endif()
