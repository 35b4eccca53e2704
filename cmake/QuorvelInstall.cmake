# Says which files `cmake --install` copies. The components are runtime (the library that hosts load and the one below it),
# windows (the library with the windows), development (headers and build files for a host), tools (the command line) and
# sample (a host with windows).
if(CMAKE_LIBRARY_ARCHITECTURE AND EXISTS /etc/debian_version)
  # Debian's own place for libraries, under /usr and /usr/local alike: one build serves every prefix.
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE STRING "Folder of libraries below the prefix")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# run_path(<path> <targets>...): where the files look for libraries first, in the build tree as well. CMake would end a path that
# it changes later with a colon, and the empty part behind it means the current folder: a program would run foreign code.
function(run_path path)
  set_target_properties(${ARGN} PROPERTIES INSTALL_RPATH "${path}" BUILD_WITH_INSTALL_RPATH ON)
endfunction()

# The libraries find each other because they are in one folder. The programs find the libraries by a path relative to their
# own folder; in the build tree they are in the folder of the libraries.
run_path("$ORIGIN" quorvel_shared quorvel_core quorvel_windows)
file(RELATIVE_PATH librariesFromPrograms ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set(programRunPath "$ORIGIN/${librariesFromPrograms}" "$ORIGIN")

install(TARGETS quorvel_shared EXPORT QuorvelTargets
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  FILE_SET HEADERS COMPONENT development
  # CMake before 3.23 does not read the file set.
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# No program links these two by name.
install(TARGETS quorvel_core LIBRARY COMPONENT runtime NAMELINK_SKIP)
install(TARGETS quorvel_windows LIBRARY COMPONENT windows NAMELINK_SKIP)
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
  run_path("${programRunPath}" quorvel_cli)
  install(TARGETS quorvel_cli RUNTIME COMPONENT tools)
endif()
if(TARGET quorvel_sample)
  run_path("${programRunPath}" quorvel_sample)
  install(TARGETS quorvel_sample RUNTIME COMPONENT sample)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/linux/quorvel-sample.desktop
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/applications COMPONENT sample)
  set(icons ${CMAKE_INSTALL_DATAROOTDIR}/icons/hicolor)
  foreach(size IN ITEMS 16 24 32 48 64 128 256)
    install(FILES ${PROJECT_BINARY_DIR}/pictures/quorvel-${size}.png
      DESTINATION ${icons}/${size}x${size}/apps RENAME quorvel.png COMPONENT sample)
  endforeach()
  install(FILES ${PROJECT_SOURCE_DIR}/pictures/quorvel.svg DESTINATION ${icons}/scalable/apps COMPONENT sample)
endif()
